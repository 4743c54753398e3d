#include "journal_tool/printable.h"

#include <gtest/gtest.h>

namespace quorvale {
namespace {

TEST(Printable, PlainTextStaysInEveryWriting) {
    EXPECT_EQ(Printable(u"a\tb \u00E9 \u65E5\u672C \U0001F30A"), "a\tb é 日本 🌊");
}

TEST(Printable, NothingReachesATerminalThatCouldDriveIt) {
    EXPECT_EQ(Printable(u"\x1B[2J\r\n\x07\x7F\u009B"),
              "\\u001B[2J\\u000D\\u000A\\u0007\\u007F\\u009B");
    EXPECT_EQ(Printable(std::u16string_view(u"\0", 1)), "\\u0000");
}

TEST(Printable, MarksThatTurnTheDirectionOfWritingAreSeen) {
    EXPECT_EQ(Printable(u"a\u202Eb\u2066c\u200Fd"), "a\\u202Eb\\u2066c\\u200Fd");
}

TEST(Printable, LoneSurrogatesAreWrittenByTheirNumbers) {
    const char16_t text[] = {0xD83D, u'a', 0xDC80, 0};
    EXPECT_EQ(Printable(text), "\\uD83Da\\uDC80");
}

TEST(JsonString, IsAsciiWithEverythingElseEscaped) {
    EXPECT_EQ(JsonString(u"a\"b\\c\n\x1B\u00E9\U0001F30A"),
              "\"a\\\"b\\\\c\\u000A\\u001B\\u00E9\\uD83C\\uDF0A\"");
}

}  // namespace
}  // namespace quorvale
