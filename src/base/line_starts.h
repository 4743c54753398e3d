#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace quorvale {

/// Where each line of a document starts: 32-bit positions, element 1 the first. It grows by
/// segments, so a table of ten million lines is never copied and takes four bytes a line.
class LineStarts {
public:
    static constexpr std::int32_t SegmentEntries = 1 << 19;

    /// Memory for that many entries; null when there is none.
    using SegmentSource = std::function<std::shared_ptr<std::int32_t>(std::size_t entries)>;

    LineStarts() = default;

    /// Takes its segments from `source`, not from the allocator.
    explicit LineStarts(SegmentSource source) : source_(std::move(source)) {}

    LineStarts(LineStarts&& other) noexcept;
    LineStarts& operator=(LineStarts&& other) noexcept;

    std::int32_t Count() const { return count_; }

    /// The element, 1 to `Count()`.
    std::int32_t operator[](std::int32_t element) const {
        assert(element >= 1 && element <= count_);
        const auto index = static_cast<std::size_t>(element - 1);
        return segments_[index >> segmentBits].get()[index & (segmentSize - 1)];
    }

    /// Puts one entry behind the last. OutOfMemory when there is none left.
    void Append(std::int32_t start);

    /// Free places behind the last entry, at least one: for writing many at once, then `Commit`.
    /// OutOfMemory when there is none left.
    std::span<std::int32_t> Room();

    /// The first `entries` places of the room now count.
    void Commit(std::size_t entries) { count_ += static_cast<std::int32_t>(entries); }

    /// Lets go of the source: the table is complete.
    void Finish() { source_ = nullptr; }

    /// Drops all entries behind the first `count`.
    void Truncate(std::int32_t count);

private:
    static constexpr int segmentBits = 19;
    static constexpr std::size_t segmentSize = std::size_t{1} << segmentBits;

    std::shared_ptr<std::int32_t> Allocate(std::size_t entries) const;
    void Grow();

    SegmentSource source_;
    std::vector<std::shared_ptr<std::int32_t>> segments_;
    std::size_t capacity_ = 0;
    std::int32_t count_ = 0;
};

}  // namespace quorvale
