#include "document/display_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "support/documents.h"

namespace quorvale {
namespace {

TEST(MarkControlChars, ACarriageReturnBecomesAPilcrowAndANulAMiddleDot) {
    EXPECT_EQ(MarkControlChars(std::u16string(u"\r\0\r", 3)), u"\u00B6\u00B7\u00B6");
}

TEST(MarkControlChars, TabsLineFeedsAndEverythingElseStay) {
    std::u16string others;
    for (char16_t unit = 1; unit < 0x180; ++unit) {
        if (unit != u'\r') others += unit;
    }
    others += u"\u3042\xD83D\xDE00";
    EXPECT_EQ(MarkControlChars(others), others);
}

TEST(MarkControlChars, AnEmptyTextStaysEmpty) { EXPECT_EQ(MarkControlChars(u""), u""); }

TEST(ExpandTabs, ATabReachesToTheNextMultipleOfEight) {
    EXPECT_EQ(ExpandTabs(u"a\tb"), u"a       b");
    EXPECT_EQ(ExpandTabs(u"1234567\tx"), u"1234567 x");
}

TEST(ExpandTabs, ATabAtATabStopGivesEightBlanksNeverNone) {
    EXPECT_EQ(ExpandTabs(u"\t"), Times(8, u' '));
    EXPECT_EQ(ExpandTabs(u"\t\t"), Times(16, u' '));
    EXPECT_EQ(ExpandTabs(u"12345678\t"), u"12345678        ");
}

TEST(ExpandTabs, ATextWithoutTabsComesBackAsItIs) {
    EXPECT_EQ(ExpandTabs(u""), u"");
    EXPECT_EQ(ExpandTabs(u"a b\r"), u"a b\r");
}

TEST(ExpandTabs, AWideCharacterCountsAsOneColumn) {
    EXPECT_EQ(ExpandTabs(u"\u3042\tb"), u"\u3042       b");
}

TEST(ExpandTabs, EveryCharacterBehindATabStandsAtTheColumnItIsCountedFor) {
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        const std::u16string text = RandomText(random, 20);
        const std::u16string expanded = ExpandTabs(text);
        std::int32_t column = 0;
        for (const char16_t unit : text) {
            if (unit != u'\t') {
                ASSERT_LT(static_cast<std::size_t>(column), expanded.size());
                EXPECT_EQ(expanded[static_cast<std::size_t>(column)], unit) << "round " << round;
            }
            column = ColumnAfter(column, unit);
        }
        EXPECT_EQ(static_cast<std::size_t>(column), expanded.size());
        EXPECT_EQ(expanded.find(u'\t'), expanded.npos);
    }
}

TEST(DisplayForm, TabsAreExpandedAndControlCharactersMarked) {
    EXPECT_EQ(DisplayForm(std::u16string(u"a\t\r\0b", 5)), u"a       \u00B6\u00B7b");
    EXPECT_EQ(DisplayForm(u"a\rb"), u"a\u00B6b");
}

}  // namespace
}  // namespace quorvale
