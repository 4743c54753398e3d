#include "document/utf8_decoding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "base/utf8.h"

namespace quorvale {
namespace {

void BytesOf(std::string&&) = delete;  // would be gone before it is decoded
std::span<const std::uint8_t> BytesOf(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

std::u16string DecodeInSteps(const std::string& bytes, std::size_t room) {
    Utf8Decoder decoder(BytesOf(bytes));
    std::u16string units;
    std::vector<char16_t> step(room);
    while (!decoder.AtEnd()) {
        const std::size_t done = decoder.DecodeWide(step.data(), room);
        if (done == 0) throw std::logic_error("no progress");
        units.append(step.data(), done);
    }
    return units;
}

std::u16string Decode(const std::string& bytes) { return DecodeInSteps(bytes, bytes.size() + 1); }

TEST(Utf8Decoder, DecodesCharactersOfOneToFourBytes) {
    EXPECT_EQ(Decode(""), u"");
    EXPECT_EQ(Decode("a\xC3\xA9\xE3\x81\x82\xF0\x9F\x98\x80z"), u"a\u00E9\u3042\U0001F600z");
}

TEST(Utf8Decoder, EachInvalidByteBecomesALoneSurrogate) {
    EXPECT_EQ(Decode("a\xFFz"), (std::u16string{u'a', 0xDCFF, u'z'}));
    EXPECT_EQ(Decode("\xE3\x81z"), (std::u16string{0xDCE3, 0xDC81, u'z'}));
    EXPECT_EQ(Decode("\xE3\x81"), (std::u16string{0xDCE3, 0xDC81}));
    EXPECT_EQ(Decode("\xF0\x9F\x98"), (std::u16string{0xDCF0, 0xDC9F, 0xDC98}));
    EXPECT_EQ(Decode("\xC0\x80"), (std::u16string{0xDCC0, 0xDC80}));
    EXPECT_EQ(Decode("\xED\xB2\x80"), (std::u16string{0xDCED, 0xDCB2, 0xDC80}));
    EXPECT_EQ(Decode("\xE3\xC3\xA9"), (std::u16string{0xDCE3, 0x00E9}));
}

TEST(Utf8Decoder, APairThatFindsRoomForItsFirstHalfOnlyGoesOnWithTheSecond) {
    const std::string bytes =
        "ab\xF0\x9F\x98\x80"
        "cd";
    for (std::size_t room = 1; room < 8; ++room) {
        EXPECT_EQ(DecodeInSteps(bytes, room), u"ab\U0001F600cd");
    }
    EXPECT_EQ(DecodeInSteps("\xF0\x9F\x98\x80", 1), u"\U0001F600");
}

TEST(Utf8Decoder, NoRoomDecodesNothing) {
    const std::string bytes = "abc";
    Utf8Decoder decoder(BytesOf(bytes));
    char16_t none = 7;
    EXPECT_EQ(decoder.DecodeWide(&none, 0), 0U);
    EXPECT_EQ(none, 7);
    EXPECT_EQ(decoder.Rest().size(), 3U);
}

TEST(Utf8Decoder, NarrowUnitsEndInFrontOfTheFirstOneThatNeedsTwoBytes) {
    for (const std::string wide :
         {"\xC4\x80", "\xE3\x81\x82", "\xF0\x9F\x98\x80", "\xFF", "\xC3"}) {
        for (std::size_t before = 0; before < 70; ++before) {
            std::string bytes = "\xC3\xBF" + std::string(before, 'a') + "\xC2\x80" + wide;
            Utf8Decoder decoder(BytesOf(bytes));
            std::vector<std::uint8_t> out(100);
            ASSERT_EQ(decoder.DecodeNarrow(out.data(), out.size()), before + 2);
            EXPECT_EQ(out[0], 0xFF);
            EXPECT_EQ(out[before + 1], 0x80);
            EXPECT_EQ(decoder.Rest().size(), wide.size());
        }
    }
}

TEST(Utf8Decoder, NarrowUnitsStopWhereTheRoomEnds) {
    const std::string bytes = "a\xC3\xA9" + std::string(100, 'b');
    for (std::size_t room = 0; room <= 102; ++room) {
        Utf8Decoder decoder(BytesOf(bytes));
        std::vector<std::uint8_t> out(103, 7);
        ASSERT_EQ(decoder.DecodeNarrow(out.data(), room), room);
        EXPECT_EQ(out[room], 7);
    }
}

TEST(Utf8Decoder, NoNarrowUnitIsWrittenWhileHalfAPairWaits) {
    const std::string bytes =
        "\xF0\x9F\x98\x80"
        "ab";
    Utf8Decoder decoder(BytesOf(bytes));
    char16_t high = 0;
    ASSERT_EQ(decoder.DecodeWide(&high, 1), 1U);
    std::uint8_t none = 7;
    EXPECT_EQ(decoder.DecodeNarrow(&none, 1), 0U);
    EXPECT_EQ(none, 7);
    EXPECT_FALSE(decoder.AtEnd());
}

TEST(Utf8Decoder, NarrowUnitsMayBeWrittenOverTheirOwnBytes) {
    std::mt19937 random(9);
    for (int round = 0; round < 300; ++round) {
        std::string bytes;
        std::vector<std::uint8_t> expected;
        while (bytes.size() < 400) {
            const auto unit = static_cast<std::uint8_t>(random() % (random() % 8 == 0 ? 256 : 128));
            expected.push_back(unit);
            AppendUtf8(bytes, unit);
        }
        Utf8Decoder decoder(BytesOf(bytes));
        auto* const place = reinterpret_cast<std::uint8_t*>(bytes.data());
        std::size_t done = 0;
        while (!decoder.AtEnd()) done += decoder.DecodeNarrow(place + done, 1 + random() % 100);
        ASSERT_EQ(std::vector<std::uint8_t>(place, place + done), expected);
    }
}

TEST(Utf8Decoder, RandomTextsComeBackInStepsOfAnySize) {
    std::mt19937 random(13);
    for (int round = 0; round < 500; ++round) {
        std::u16string units;
        std::string bytes;
        for (std::size_t i = random() % 200; i > 0; --i) {
            char32_t code = static_cast<char32_t>(random() % 0x110000);
            if (random() % 2 == 0) code %= 0x80;
            if (code >= 0xD800 && code < 0xE000) code = 0x3042;
            AppendUtf8(bytes, code);
            if (code >= 0x10000) {
                units.push_back(HighSurrogate(code));
                units.push_back(LowSurrogate(code));
            } else {
                units.push_back(static_cast<char16_t>(code));
            }
        }
        ASSERT_EQ(Decode(bytes), units);
        ASSERT_EQ(DecodeInSteps(bytes, 1 + random() % 40), units);
    }
}

}  // namespace
}  // namespace quorvale
