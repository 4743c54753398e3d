#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace quorvale {

/// The lines `First` to `Last`, counted from 1; folded, only the first is shown.
struct FoldRange {
    std::int32_t First;
    std::int32_t Last;

    bool operator==(const FoldRange&) const = default;
};

/// What a document says about its lines: the text of one, counted from 1.
using LineReader = std::function<std::u16string(std::int32_t line)>;

/// More ranges than this are of no use to a reader; what follows them is not folded.
inline constexpr std::size_t mostFolds = 100'000;

/// Deeper blocks than this are not folded: each level takes room beside the text.
inline constexpr std::size_t deepestFold = 12;

/// Each line that is followed by lines further to the right heads a range that ends with the last
/// of them. A tab goes to the next multiple of 8; lines of white space only belong to what is
/// around them and end nothing. In the order of the ranges' ends.
std::vector<FoldRange> foldsByIndentation(const LineReader& lines, std::int32_t count);

/// Every paragraph of two lines or more, where lines of white space only stand between paragraphs.
std::vector<FoldRange> foldsByBlankLines(const LineReader& lines, std::int32_t count);

}  // namespace quorvale
