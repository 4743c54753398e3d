#include "document/line_extent.h"

#include <gtest/gtest.h>

#include "document_fixture.h"

namespace quorvale {
namespace {

std::vector<std::int32_t> Extent(std::u16string_view text, std::int32_t line) {
    const LineExtent extent = ExtentOf(DocumentOf(text), Line{line});
    return {extent.Start, extent.Length, extent.Break};
}

using Numbers = std::vector<std::int32_t>;

TEST(ExtentOf, TheBreakIsNoPartOfTheLine) {
    EXPECT_EQ(Extent(u"ab\r\ncde\nf", 1), (Numbers{1, 2, 2}));
    EXPECT_EQ(Extent(u"ab\r\ncde\nf", 2), (Numbers{5, 3, 1}));
    EXPECT_EQ(Extent(u"ab\r\ncde\nf", 3), (Numbers{9, 1, 2})) << "the control's own break";
}

TEST(ExtentOf, OnlyTheLastCarriageReturnBelongsToTheBreak) {
    EXPECT_EQ(Extent(u"a\r\r\nb", 1), (Numbers{1, 2, 2}));
    EXPECT_EQ(Extent(u"a\r", 1), (Numbers{1, 2, 2}));
    EXPECT_EQ(Extent(u"\r\n\n", 1), (Numbers{1, 0, 2}));
    EXPECT_EQ(Extent(u"\r\n\n", 2), (Numbers{3, 0, 1}));
}

TEST(ExtentOf, ABadNumberHasAnEmptyOne) {
    for (const std::int32_t line : {0, -1, 3, 2147483647}) {
        EXPECT_EQ(Extent(u"a\nb", line), (Numbers{1, 0, 0})) << line;
    }
    EXPECT_EQ(ExtentOf(DocumentState(), Line{1}).Length, 0);
}

}  // namespace
}  // namespace quorvale
