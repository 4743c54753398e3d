#include "base/text.h"

#include <gtest/gtest.h>

#include <string>

namespace quorvale {
namespace {

using namespace std::string_literals;

TEST(ToUtf8, WritesCharactersOfOneToFourBytes) {
    EXPECT_EQ(ToUtf8(u""), "");
    EXPECT_EQ(ToUtf8(u"a\u00E9\u3042"), "a\xC3\xA9\xE3\x81\x82");
    EXPECT_EQ(ToUtf8(u"\U0001F600"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(ToUtf8(u"\U0010FFFF"), "\xF4\x8F\xBF\xBF");
}

TEST(ToUtf8, KeepsNulCharacters) { EXPECT_EQ(ToUtf8(u"a\0b"s), "a\0b"s); }

TEST(ToUtf8, ALoneSurrogateBecomesTheReplacementCharacter) {
    const std::u16string high = {u'a', 0xD83D, u'b'};
    const std::u16string low = {0xDE00};
    const std::u16string swapped = {0xDE00, 0xD83D};
    EXPECT_EQ(ToUtf8(high),
              "a\xEF\xBF\xBD"
              "b");
    EXPECT_EQ(ToUtf8(low), "\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8(swapped), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(FromUtf8, ReadsCharactersOfOneToFourBytes) {
    EXPECT_EQ(FromUtf8(""), u"");
    EXPECT_EQ(FromUtf8("a\xC3\xA9\xE3\x81\x82\xF0\x9F\x98\x80z"), u"a\u00E9\u3042\U0001F600z");
    EXPECT_EQ(FromUtf8("\xEF\xBF\xBD"), u"\uFFFD");
}

TEST(FromUtf8, EachInvalidByteBecomesAReplacementCharacter) {
    EXPECT_EQ(FromUtf8("a\xFFz"), u"a\uFFFDz");
    EXPECT_EQ(FromUtf8("\xE3\x81"), u"\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xC0\x80"), u"\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\x80z"), u"\uFFFDz");
}

TEST(ReplaceAll, ReplacesEveryOccurrenceFromTheLeft) {
    EXPECT_EQ(ReplaceAll(u"a-b-c", u"-", u"+"), u"a+b+c");
    EXPECT_EQ(ReplaceAll(u"aaa", u"aa", u"b"), u"ba");
    EXPECT_EQ(ReplaceAll(u"abc", u"x", u"y"), u"abc");
    EXPECT_EQ(ReplaceAll(u"", u"x", u"y"), u"");
    EXPECT_EQ(ReplaceAll(u"xx", u"x", u""), u"");
}

TEST(ReplaceAll, TheReplacementIsNotSearchedAgain) {
    EXPECT_EQ(ReplaceAll(u"aa", u"a", u"aa"), u"aaaa");
}

TEST(ReplaceAll, FindsNulCharacters) {
    EXPECT_EQ(ReplaceAll(u"a\0b"s, u"\0"s, u"\u00B7"), u"a\u00B7b");
}

}  // namespace
}  // namespace quorvale
