#include "base/line_starts.h"

#include <algorithm>
#include <new>
#include <utility>

#include "base/errors.h"

namespace quorvale {

namespace {

constexpr std::size_t smallestSegment = 1024;

}  // namespace

LineStarts::LineStarts(LineStarts&& other) noexcept
    : source_(std::move(other.source_)),
      segments_(std::move(other.segments_)),
      capacity_(std::exchange(other.capacity_, 0)),
      count_(std::exchange(other.count_, 0)) {}

LineStarts& LineStarts::operator=(LineStarts&& other) noexcept {
    source_ = std::move(other.source_);
    segments_ = std::move(other.segments_);
    other.segments_.clear();
    capacity_ = std::exchange(other.capacity_, 0);
    count_ = std::exchange(other.count_, 0);
    return *this;
}

void LineStarts::Append(std::int32_t start) {
    Room().front() = start;
    Commit(1);
}

std::span<std::int32_t> LineStarts::Room() {
    const auto used = static_cast<std::size_t>(count_);
    if (used == capacity_) Grow();
    const std::size_t segment = used >> segmentBits;
    const std::size_t end = std::min(capacity_, (segment + 1) << segmentBits);
    return {segments_[segment].get() + (used & (segmentSize - 1)), end - used};
}

void LineStarts::Truncate(std::int32_t count) { count_ = std::clamp(count, 0, count_); }

std::shared_ptr<std::int32_t> LineStarts::Allocate(std::size_t entries) const {
    std::shared_ptr<std::int32_t> memory;
    if (source_) {
        memory = source_(entries);
    } else {
        memory.reset(new (std::nothrow) std::int32_t[entries],
                     [](std::int32_t* all) { delete[] all; });
    }
    if (memory == nullptr) {
        throw ControlError(ErrorKind::OutOfMemory, "Not enough memory for the line table");
    }
    return memory;
}

/// Only the first segment starts small and is copied as it grows: most documents never need more.
void LineStarts::Grow() {
    if (capacity_ >= segmentSize || capacity_ == 0) {
        segments_.push_back(Allocate(capacity_ == 0 ? smallestSegment : segmentSize));
        capacity_ += capacity_ == 0 ? smallestSegment : segmentSize;
        return;
    }
    std::shared_ptr<std::int32_t> larger = Allocate(capacity_ * 2);
    std::copy_n(segments_.front().get(), capacity_, larger.get());
    segments_.front() = std::move(larger);
    capacity_ *= 2;
}

}  // namespace quorvale
