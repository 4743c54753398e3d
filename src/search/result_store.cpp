#include "search/result_store.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/integers.h"

namespace quorvale {

std::uint32_t ResultStore::AddSource(std::u16string name, LineForm form) {
    const auto source = CheckedCast<std::uint32_t>(sources_.size());
    sources_.push_back({std::move(name), form});
    return source;
}

void ResultStore::Add(std::uint32_t source, Line line, std::int32_t column,
                      std::span<const std::uint8_t> text) {
    Block& block = BlockFor(text.size());
    block.Records.push_back({source, line.Number(), column, block.Used});
    std::copy(text.begin(), text.end(), block.Bytes.get() + block.Used);
    block.Used += static_cast<std::uint32_t>(text.size());
    ++count_;
}

ResultStore::Block& ResultStore::BlockFor(std::size_t bytes) {
    const auto needed = CheckedCast<std::uint32_t>(bytes);
    if (blocks_.empty() || blocks_.back().Capacity - blocks_.back().Used < needed) {
        const std::uint32_t capacity = std::max(needed, blockBytes);
        blocks_.push_back(
            {count_, {}, std::make_unique_for_overwrite<std::uint8_t[]>(capacity), capacity, 0});
    }
    return blocks_.back();
}

const ResultStore::Block& ResultStore::BlockOf(std::size_t index) const {
    const auto behind = std::upper_bound(
        blocks_.begin(), blocks_.end(), index,
        [](std::size_t wanted, const Block& block) { return wanted < block.FirstResult; });
    return *std::prev(behind);
}

ResultStore::Result ResultStore::operator[](std::size_t index) const {
    const Block& block = BlockOf(index);
    const std::size_t place = index - block.FirstResult;
    const Record& record = block.Records[place];
    const bool isLast = place + 1 == block.Records.size();
    const std::uint32_t end = isLast ? block.Used : block.Records[place + 1].Start;
    const Source& source = sources_[record.Source];
    return {source.Name,
            source.Form,
            Line{record.Line},
            record.Column,
            {block.Bytes.get() + record.Start, end - record.Start}};
}

std::size_t ResultStore::FirstAtOrAfter(std::size_t from, Line line) const {
    std::size_t low = from;
    std::size_t high = count_;
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        if ((*this)[middle].Line < line) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

std::size_t ResultStore::MemoryUsed() const {
    std::size_t bytes = 0;
    for (const Block& block : blocks_) {
        bytes += sizeof block + block.Capacity + block.Records.capacity() * sizeof(Record);
    }
    return bytes;
}

void ResultStore::Truncate(std::size_t count) {
    while (!blocks_.empty() && blocks_.back().FirstResult >= count) blocks_.pop_back();
    if (count < count_ && !blocks_.empty()) {
        Block& block = blocks_.back();
        block.Used = block.Records.size() > count - block.FirstResult
                         ? block.Records[count - block.FirstResult].Start
                         : block.Used;
        block.Records.resize(std::min(block.Records.size(), count - block.FirstResult));
    }
    count_ = std::min(count_, count);
}

}  // namespace quorvale
