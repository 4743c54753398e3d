#include "viewer/line_folds.h"

#include <algorithm>
#include <optional>

namespace quorvale {

namespace {

constexpr std::int32_t tabWidth = 8;

/// The column of the first character that is not white space; none for a line without one.
std::optional<std::int32_t> indentationOf(const std::u16string& line) {
    std::int32_t column = 0;
    for (const char16_t unit : line) {
        if (unit == u'\t') {
            column += tabWidth - column % tabWidth;
        } else if (unit == u' ') {
            ++column;
        } else if (unit != u'\r' && unit != u'\f') {
            return column;
        }
    }
    return std::nullopt;
}

/// The blocks that a walk from the first line down is inside of, each further right than the one
/// around it.
class OpenBlocks {
public:
    /// The next line that is not blank.
    void enter(std::int32_t line, std::int32_t indentation) {
        close(indentation);
        blocks_.push_back({line, indentation});
        last_ = line;
    }

    void closeAll() { close(0); }

    bool isFull() const { return Folds.size() >= mostFolds; }

    std::vector<FoldRange> Folds;

private:
    struct Block {
        std::int32_t Head;
        std::int32_t Indentation;
    };

    void close(std::int32_t indentation) {
        while (!blocks_.empty() && blocks_.back().Indentation >= indentation) {
            const std::int32_t head = blocks_.back().Head;
            if (last_ > head && blocks_.size() <= deepestFold && !isFull()) {
                Folds.push_back({head, last_});
            }
            blocks_.pop_back();
        }
    }

    std::vector<Block> blocks_;
    std::int32_t last_ = 0;
};

}  // namespace

std::vector<FoldRange> foldsByIndentation(const LineReader& lines, std::int32_t count) {
    OpenBlocks open;
    for (std::int32_t line = 1; line <= count && !open.isFull(); ++line) {
        if (const auto indentation = indentationOf(lines(line))) open.enter(line, *indentation);
    }
    // Where the walk stopped early nobody knows how far the blocks around that place reach.
    if (!open.isFull()) open.closeAll();
    return std::move(open.Folds);
}

std::vector<FoldRange> foldsByBlankLines(const LineReader& lines, std::int32_t count) {
    std::vector<FoldRange> folds;
    std::int32_t first = 0;
    const auto endAt = [&](std::int32_t last) {
        if (first != 0 && last > first) folds.push_back({first, last});
        first = 0;
    };
    for (std::int32_t line = 1; line <= count && folds.size() < mostFolds; ++line) {
        const bool blank = !indentationOf(lines(line));
        if (blank) {
            endAt(line - 1);
        } else if (first == 0) {
            first = line;
        }
    }
    if (folds.size() < mostFolds) endAt(count);
    return folds;
}

}  // namespace quorvale
