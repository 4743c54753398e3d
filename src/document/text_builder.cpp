#include "document/text_builder.h"

#include <algorithm>
#include <utility>

#include "base/errors.h"
#include "base/integers.h"

namespace quorvale {

namespace {

// A call to the system per so many bytes costs nothing that could be measured.
constexpr std::size_t discardAtLeast = std::size_t{16} << 20;

/// Memory for `count` items; null when there is none.
template <class Item>
std::shared_ptr<Item> AllocateItems(BlockMemory& memory, std::size_t count) {
    std::shared_ptr<MemoryBlock> block = memory.Allocate(count * sizeof(Item));
    if (block == nullptr) return nullptr;
    auto* items = reinterpret_cast<Item*>(block->Data());
    return std::shared_ptr<Item>(std::move(block), items);
}

[[noreturn]] void RaiseOutOfMemory() {
    throw ControlError(ErrorKind::OutOfMemory, "Not enough memory for the text");
}

}  // namespace

TextBuilder::TextBuilder(BlockMemory& memory, std::size_t units)
    : memory_(memory), block_(memory.Allocate(units)) {
    if (block_ == nullptr) RaiseOutOfMemory();
    bytes_ = reinterpret_cast<std::uint8_t*>(block_->Data());
}

char16_t* TextBuilder::Widen(std::size_t block, std::size_t narrowUnits, std::size_t capacity) {
    auto units = AllocateItems<char16_t>(memory_, capacity);
    if (units == nullptr) RaiseOutOfMemory();
    std::copy_n(bytes_ + block * BlockUnits, narrowUnits, units.get());
    if (wide_.size() <= block) wide_.resize(block + 1);
    wide_[block] = std::move(units);
    return wide_[block].get();
}

char16_t* TextBuilder::WideBlock(std::size_t block) {
    return block < wide_.size() ? wide_[block].get() : nullptr;
}

void TextBuilder::Put(std::size_t index, std::uint8_t unit) {
    char16_t* const units = WideBlock(index / BlockUnits);
    if (units != nullptr) {
        units[index % BlockUnits] = unit;
    } else {
        bytes_[index] = unit;
    }
}

void TextBuilder::Discard(std::size_t narrowEnd, std::size_t upTo) {
    const std::size_t from = std::max(narrowEnd, discarded_);
    if (upTo < from + discardAtLeast) return;
    block_->Discard(from, upTo - from);
    discarded_ = upTo;
}

TextStore TextBuilder::Take(std::size_t length) {
    const std::size_t blocks = (length + BlockUnits - 1) / BlockUnits;
    TextStore::Parts parts;
    parts.Length = CheckedCast<std::int32_t>(length);
    std::size_t narrowEnd = length;
    if (!wide_.empty()) {
        wide_.resize(blocks);
        std::size_t last = blocks;
        while (last > 0 && wide_[last - 1] != nullptr) --last;
        narrowEnd = std::min(last * BlockUnits, length);
        parts.Wide.assign(wide_.begin(), wide_.end());
    }
    block_->Trim(narrowEnd);
    if (narrowEnd > 0) parts.Narrow = std::shared_ptr<const std::uint8_t>(block_, bytes_);
    block_.reset();
    wide_.clear();
    return TextStore(std::move(parts));
}

LineStarts TextBuilder::MakeLineStarts() {
    return LineStarts([&memory = memory_](std::size_t entries) {
        return AllocateItems<std::int32_t>(memory, entries);
    });
}

}  // namespace quorvale
