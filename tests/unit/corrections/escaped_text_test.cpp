#include "corrections/escaped_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace quorvale {
namespace {

using namespace std::string_literals;

TEST(NeedsEscaping, WhatXmlCarriesDoesNot) {
    for (const std::u16string_view text :
         {u"", u"plain\n", u"  a\tb \n", u"x]]>y&<z\"'\n", u"back\\slash", u"\u00A0\u0085\u2028\n",
          u"\u65E5\u672C\n", u"\U0001F600\n", u"\uFFFD", u"\u007F"}) {
        EXPECT_FALSE(NeedsEscaping(text)) << testing::PrintToString(std::u16string(text));
    }
}

TEST(NeedsEscaping, WhatXmlCannotCarryDoes) {
    for (const std::u16string& text :
         {u"a\rb\n"s, u"\u0001\n"s, u"\f"s, u"\0"s, u"\x1F"s, std::u16string(1, 0xD83D),
          std::u16string(1, 0xDE00), std::u16string(1, 0xFFFE), std::u16string(1, 0xFFFF),
          u"x\xD83Dy"s, u"\xDE00\xD83D"s}) {
        EXPECT_TRUE(NeedsEscaping(text)) << testing::PrintToString(text);
    }
}

TEST(Escaped, OnlyWhatHasToBeIsWrittenWithNumbers) {
    EXPECT_EQ(Escaped(u"a\rb\n"), u"a\\u000Db\n");
    EXPECT_EQ(Escaped(u"\u0001\u000C\0|"s), u"\\u0001\\u000C\\u0000|");
    EXPECT_EQ(Escaped(u"\xFFFE\xFFFF"s), u"\\uFFFE\\uFFFF");
    EXPECT_EQ(Escaped(u"\U0001F600\xD83D"s), u"\U0001F600\\uD83D");
    EXPECT_EQ(Escaped(u"c:\\new\t"), u"c:\\\\new\t");
}

TEST(Unescaped, GivesTheTextBack) {
    EXPECT_EQ(Unescaped(u"a\\u000Db\n"), u"a\rb\n");
    EXPECT_EQ(Unescaped(u"\\\\u000D"), u"\\u000D") << "a backslash that was written as one";
    EXPECT_EQ(Unescaped(u"\\ud83d\\uDe00"), u"\U0001F600") << "small letters too";
}

TEST(Unescaped, ABackslashThatBeginsNothingStandsForItself) {
    EXPECT_EQ(Unescaped(u"\\"), u"\\");
    EXPECT_EQ(Unescaped(u"a\\n"), u"a\\n");
    EXPECT_EQ(Unescaped(u"\\u12"), u"\\u12");
    EXPECT_EQ(Unescaped(u"\\u12G4"), u"\\u12G4");
    EXPECT_EQ(Unescaped(u"\\U0041"), u"\\U0041");
}

TEST(Escaped, EveryTextComesBack) {
    std::mt19937 random(7);
    static constexpr char16_t units[] = {u'\\', u'u', u'0', u'A',   u'\n',  u'\r',
                                         0,     1,    0x20, 0xD83D, 0xDE00, 0xFFFE};
    for (int round = 0; round < 20000; ++round) {
        std::u16string text;
        for (auto left = random() % 12; left > 0; --left) text += units[random() % 12];
        const std::u16string escaped = Escaped(text);
        ASSERT_FALSE(NeedsEscaping(escaped)) << round;
        ASSERT_EQ(Unescaped(escaped), text) << round;
    }
}

}  // namespace
}  // namespace quorvale
