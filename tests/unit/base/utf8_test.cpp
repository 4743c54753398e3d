#include "base/utf8.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace quorvale {
namespace {

std::span<const std::uint8_t> BytesOf(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// All that one character may look like, from the definition: what each code is written as.
std::string Written(char32_t code) {
    std::string bytes;
    AppendUtf8(bytes, code);
    return bytes;
}

bool IsSurrogateCode(char32_t code) { return code >= 0xD800 && code < 0xE000; }

TEST(Utf8, EveryCharacterIsReadBackAsItWasWritten) {
    for (char32_t code = 0; code <= 0x10FFFF; ++code) {
        if (IsSurrogateCode(code)) continue;
        const std::string bytes = Written(code);
        const Utf8Character read = ReadUtf8(BytesOf(bytes));
        ASSERT_EQ(read.Code, code);
        ASSERT_EQ(read.Length, bytes.size());
        ASSERT_FALSE(read.Cut);
    }
}

TEST(Utf8, EveryBeginningOfACharacterIsCutAndNotInvalid) {
    for (const char32_t code :
         {0x80U, 0x7FFU, 0x800U, 0xD7FFU, 0xE000U, 0xFFFFU, 0x10000U, 0x10FFFFU}) {
        const std::string bytes = Written(code);
        for (std::size_t size = 1; size < bytes.size(); ++size) {
            const Utf8Character read = ReadUtf8(BytesOf(bytes).first(size));
            EXPECT_EQ(read.Length, 0U);
            EXPECT_TRUE(read.Cut);
        }
    }
}

TEST(Utf8, OverlongFormsSurrogatesAndTooLargeCodesAreInvalid) {
    for (const std::string bytes :
         {"\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xED\xBF\xBF",
          "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "\xFE", "\x80",
          "\xBF", "\xC3z", "\xE3\x81z", "\xE3z\x81", "\xF0\x9F\x98z"}) {
        const Utf8Character read = ReadUtf8(BytesOf(bytes));
        EXPECT_EQ(read.Length, 0U) << testing::PrintToString(bytes);
        EXPECT_FALSE(read.Cut) << testing::PrintToString(bytes);
    }
}

TEST(Utf8, NoOtherSequenceOfTwoBytesIsValid) {
    std::size_t valid = 0;
    for (unsigned first = 0; first < 256; ++first) {
        for (unsigned second = 0; second < 256; ++second) {
            const std::string bytes = {static_cast<char>(first), static_cast<char>(second)};
            valid += ReadUtf8(BytesOf(bytes)).Length == 2 ? 1U : 0U;
        }
    }
    EXPECT_EQ(valid, 0x800U - 0x80U);
}

TEST(ValidUtf8Prefix, EndsInFrontOfTheFirstInvalidByteAtAnyPlace) {
    for (std::size_t before = 0; before < 40; ++before) {
        std::string text(before, 'a');
        text += "\xE3\x81\x82\xFFzzzzzzzzzzzzz";
        const Utf8Prefix prefix = ValidUtf8Prefix(BytesOf(text));
        EXPECT_EQ(prefix.Valid, before + 3);
        EXPECT_FALSE(prefix.Cut);
    }
}

TEST(ValidUtf8Prefix, ACharacterCutOffAtTheEndIsTold) {
    const Utf8Prefix prefix = ValidUtf8Prefix(BytesOf("abcdefghij\xF0\x9F\x98"));
    EXPECT_EQ(prefix.Valid, 10U);
    EXPECT_TRUE(prefix.Cut);
}

TEST(ValidUtf8Prefix, NothingIsValid) {
    const Utf8Prefix prefix = ValidUtf8Prefix({});
    EXPECT_EQ(prefix.Valid, 0U);
    EXPECT_FALSE(prefix.Cut);
}

TEST(FirstBeyondAscii, FindsTheByteAtEveryPlace) {
    for (std::size_t size = 0; size < 50; ++size) {
        EXPECT_EQ(FirstBeyondAscii(BytesOf(std::string(size, '\x7F'))), size);
        for (std::size_t place = 0; place < size; ++place) {
            std::string text(size, 'a');
            text[place] = '\x80';
            if (place + 1 < size) text[place + 1] = '\xFF';
            EXPECT_EQ(FirstBeyondAscii(BytesOf(text)), place);
        }
    }
}

TEST(Surrogates, APairIsTakenApartAndPutTogether) {
    for (const char32_t code : {0x10000U, 0x103FFU, 0x10400U, 0x1F600U, 0x10FFFFU}) {
        EXPECT_TRUE(IsHighSurrogate(HighSurrogate(code)));
        EXPECT_TRUE(IsLowSurrogate(LowSurrogate(code)));
        EXPECT_EQ(FromSurrogates(HighSurrogate(code), LowSurrogate(code)), code);
    }
    EXPECT_FALSE(IsHighSurrogate(0xDC00));
    EXPECT_FALSE(IsLowSurrogate(0xE000));
}

}  // namespace
}  // namespace quorvale
