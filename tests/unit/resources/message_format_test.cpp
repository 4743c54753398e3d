#include "resources/message_format.h"

#include <gtest/gtest.h>

#include <string>

#include "resources/string_table.h"
#include "resources/text_ids.h"

namespace quorvale {
namespace {

using namespace std::string_literals;

TEST(FormatMessage, ThePlaceholderBecomesTheValue) {
    EXPECT_EQ(FormatMessage(u"%1 match(es) found.", u"12"), u"12 match(es) found.");
}

TEST(FormatMessage, EveryPlaceholderIsReplaced) {
    EXPECT_EQ(FormatMessage(u"%1-%1%1", u"ab"), u"ab-abab");
}

TEST(FormatMessage, NothingInTheValueIsInterpreted) {
    EXPECT_EQ(FormatMessage(u"<%1>", u"%1%1"), u"<%1%1>");
    EXPECT_EQ(FormatMessage(u"%%11", u"%1"), u"%%11");
}

TEST(FormatMessage, APlaceholderFormedByTheReplacementIsNotReplaced) {
    EXPECT_EQ(FormatMessage(u"%%1", u"1"), u"%1");
    EXPECT_EQ(FormatMessage(u"%11", u"%"), u"%1");
}

TEST(FormatMessage, WithoutAPlaceholderTheValueIsDropped) {
    EXPECT_EQ(FormatMessage(u"No match found.", u"12"), u"No match found.");
}

TEST(FormatMessage, OtherPercentSignsStay) {
    EXPECT_EQ(FormatMessage(u"100% %2 % 1 %", u"x"), u"100% %2 % 1 %");
}

TEST(FormatMessage, AnEmptyValueRemovesThePlaceholder) {
    EXPECT_EQ(FormatMessage(u"Fail to save file.%1", u""), u"Fail to save file.");
}

TEST(FormatMessage, AnEmptyPatternGivesAnEmptyText) { EXPECT_EQ(FormatMessage(u"", u"x"), u""); }

TEST(FormatMessage, NulCharactersAreOrdinary) {
    EXPECT_EQ(FormatMessage(u"a\0%1\0b"s, u"\0"s), u"a\0\0\0b"s);
}

TEST(FormatMessage, TheScrollTipNamesTheLine) {
    EXPECT_EQ(FormatMessage(LoadText(text_id::ScrollTip, Language::English), u"20000"),
              u" Line 20000 ");
}

}  // namespace
}  // namespace quorvale
