#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "base/ordinals.h"
#include "search/line_text.h"

namespace quorvale {

/// The lines that were found, each with its place and the bytes that it had then: 16 bytes a line
/// and its own bytes, packed into blocks. Ten million lines are no ten million strings. Results
/// count from 0 here.
class ResultStore {
public:
    /// A file, or another place, that lines come from.
    std::uint32_t AddSource(std::u16string name, LineForm form);
    /// How the bytes of the source's lines are characters; may become known after they were added.
    void SetForm(std::uint32_t source, LineForm form) { sources_[source].Form = form; }

    void Add(std::uint32_t source, Line line, std::int32_t column,
             std::span<const std::uint8_t> text);

    struct Result {
        const std::u16string& Source;
        LineForm Form;
        quorvale::Line Line;
        std::int32_t Column;
        std::span<const std::uint8_t> Text;
    };

    std::size_t Count() const { return count_; }
    /// `index` is below `Count()`.
    Result operator[](std::size_t index) const;

    /// The first result at or after `from` whose line is `line` or a later one; `Count()` if there
    /// is none. The results from there on are those of one source, in the order of its lines.
    std::size_t FirstAtOrAfter(std::size_t from, Line line) const;

    /// Drops all results behind the first `count`.
    void Truncate(std::size_t count);

    /// In bytes, with what is kept free for more.
    std::size_t MemoryUsed() const;

private:
    /// Room for texts, unless a single one needs more.
    static constexpr std::uint32_t blockBytes = 1 << 20;

    struct Source {
        std::u16string Name;
        LineForm Form;
    };

    struct Record {
        std::uint32_t Source;
        std::int32_t Line;
        std::int32_t Column;
        /// Where its text begins in the block.
        std::uint32_t Start;
    };

    struct Block {
        std::size_t FirstResult;
        std::vector<Record> Records;
        std::unique_ptr<std::uint8_t[]> Bytes;
        std::uint32_t Capacity;
        std::uint32_t Used;
    };

    Block& BlockFor(std::size_t bytes);
    const Block& BlockOf(std::size_t index) const;

    std::vector<Source> sources_;
    std::vector<Block> blocks_;
    std::size_t count_ = 0;
};

}  // namespace quorvale
