#include "document/encodings.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace quorvale {
namespace {

std::u16string AllSingleBytes() {
    std::u16string all;
    for (unsigned unit = 0; unit < 256; ++unit) all.push_back(static_cast<char16_t>(unit));
    return all;
}

std::string AllBytes() {
    std::string all;
    for (unsigned byte = 0; byte < 256; ++byte) all.push_back(static_cast<char>(byte));
    return all;
}

TEST(EncodeText, SingleByteIsOneToOne) {
    const EncodedText encoded = EncodeText(AllSingleBytes(), Encoding::SingleByte);
    EXPECT_TRUE(encoded);
    EXPECT_EQ(encoded.Bytes, AllBytes());
}

TEST(EncodeText, SingleByteStopsAtTheFirstCharacterWithoutAByte) {
    const EncodedText encoded = EncodeText(u"ab\u0100c\u3042", Encoding::SingleByte);
    EXPECT_FALSE(encoded);
    EXPECT_EQ(encoded.BadPosition, 3U);
    EXPECT_EQ(encoded.Bytes, "ab");
}

TEST(EncodeText, WesternWritesItsSpecialCharacters) {
    const EncodedText encoded = EncodeText(
        u"\u20AC\u201A\u0192\u201C\u201D\u2013\u2022\u2122\u0178\u00E9z", Encoding::Windows1252);
    EXPECT_EQ(encoded.Bytes, "\x80\x82\x83\x93\x94\x96\x95\x99\x9F\xE9z");
}

TEST(EncodeText, WesternUnassignedBytesAreOneToOne) {
    EXPECT_EQ(EncodeText(u"\u0081\u008D\u008F\u0090\u009D", Encoding::Windows1252).Bytes,
              "\x81\x8D\x8F\x90\x9D");
}

TEST(EncodeText, WesternHasNoByteForTheControlsItReplaced) {
    EXPECT_EQ(EncodeText(u"a\u0080", Encoding::Windows1252).BadPosition, 2U);
    EXPECT_EQ(EncodeText(u"\u0096", Encoding::Windows1252).BadPosition, 1U);
    EXPECT_EQ(EncodeText(u"ab\u3042", Encoding::Windows1252).BadPosition, 3U);
}

TEST(EncodeText, EveryWesternByteStandsForACharacterOfItsOwn) {
    std::u16string units;
    for (unsigned byte = 0; byte < 256; ++byte) {
        units.push_back(FromWindows1252(static_cast<std::uint8_t>(byte)));
    }
    EXPECT_EQ(std::set<char16_t>(units.begin(), units.end()).size(), 256U);
    EXPECT_EQ(EncodeText(units, Encoding::Windows1252).Bytes, AllBytes());
}

TEST(EncodeText, Utf8WritesEveryCharacter) {
    const std::string expected = "a\xC3\xA9\xE3\x81\x82\xF0\x9F\x98\x80";
    EXPECT_EQ(EncodeText(u"a\u00E9\u3042\U0001F600", Encoding::Utf8).Bytes, expected);
    EXPECT_EQ(EncodeText(u"a\u00E9\u3042\U0001F600", Encoding::Automatic).Bytes, expected);
    EXPECT_EQ(EncodeText(u"\uFEFF\uFFFD", Encoding::Utf8).Bytes, "\xEF\xBB\xBF\xEF\xBF\xBD");
}

TEST(EncodeText, Utf8WritesTheBytesThatWereNotValid) {
    const std::u16string units = {u'a', 0xDC80, 0xDCFF, u'b'};
    EXPECT_EQ(EncodeText(units, Encoding::Utf8).Bytes,
              "a\x80\xFF"
              "b");
}

TEST(EncodeText, Utf8HasNoBytesForOtherLoneSurrogates) {
    for (const int unit : {0xD800, 0xDBFF, 0xDC00, 0xDC7F, 0xDD00, 0xDFFF}) {
        const std::u16string units = {u'a', static_cast<char16_t>(unit), u'b'};
        const EncodedText encoded = EncodeText(units, Encoding::Utf8);
        EXPECT_EQ(encoded.BadPosition, 2U);
        EXPECT_EQ(encoded.Bytes, "a");
    }
    const std::u16string last = {0xD83D};
    EXPECT_EQ(EncodeText(last, Encoding::Utf8).BadPosition, 1U);
}

TEST(EncodeText, APairOfSurrogatesIsOneCharacterEvenIfTheSecondCouldBeAByte) {
    const std::u16string units = {0xD83D, 0xDC80};
    EXPECT_EQ(EncodeText(units, Encoding::Utf8).Bytes, "\xF0\x9F\x92\x80");
}

TEST(EncodeText, NothingIsNoBytes) {
    EXPECT_TRUE(EncodeText(u"", Encoding::Utf8));
    EXPECT_EQ(EncodeText(u"", Encoding::SingleByte).Bytes, "");
}

}  // namespace
}  // namespace quorvale
