#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "base/line_starts.h"
#include "base/text_store.h"
#include "platform/memory.h"

namespace quorvale {

/// The storage of a text in the making: one block of memory that holds a file's bytes first and the
/// narrow units in the end, and wide blocks beside it. Units count from 0 here.
/// Everything that takes memory raises OutOfMemory when there is none.
class TextBuilder {
public:
    static constexpr auto BlockUnits = static_cast<std::size_t>(TextStore::BlockUnits);

    /// Room for `units` narrow units.
    TextBuilder(BlockMemory& memory, std::size_t units);

    /// The bytes of the one block.
    std::uint8_t* Bytes() { return bytes_; }

    /// Makes a block wide, with room for `capacity` units; its first `narrowUnits` are widened.
    char16_t* Widen(std::size_t block, std::size_t narrowUnits, std::size_t capacity);

    /// The units of a wide block; null for a narrow one.
    char16_t* WideBlock(std::size_t block);

    /// Puts the unit, at most U+00FF, where the index says: into its wide block, else into the
    /// bytes.
    void Put(std::size_t index, std::uint8_t unit);

    /// The bytes up to there will not be read any more, unless as narrow units in front of
    /// `narrowEnd`: their memory goes back to the system.
    void Discard(std::size_t narrowEnd, std::size_t upTo);

    /// The text of the first `length` units. The builder is empty afterwards.
    TextStore Take(std::size_t length);

    /// A line table with memory from the same place.
    LineStarts MakeLineStarts();

private:
    BlockMemory& memory_;
    std::shared_ptr<MemoryBlock> block_;
    std::uint8_t* bytes_ = nullptr;
    std::vector<std::shared_ptr<char16_t>> wide_;
    std::size_t discarded_ = 0;
};

}  // namespace quorvale
