#include "base/numbers_in_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "base/errors.h"
#include "base/text.h"

namespace quorvale {
namespace {

using namespace std::string_literals;

template <class Work>
std::string ErrorOf(Work work) {
    try {
        work();
    } catch (const ControlError& error) {
        if (error.Kind() == ErrorKind::TypeMismatch) return "type";
        if (error.Kind() == ErrorKind::Overflow) return "overflow";
        return "another";
    }
    return "none";
}

std::string LongError(std::u16string_view text) {
    return ErrorOf([&] { ToLong(text); });
}

TEST(ToLong, ReadsPlainDigits) {
    EXPECT_EQ(ToLong(u"0"), 0);
    EXPECT_EQ(ToLong(u"007"), 7);
    EXPECT_EQ(ToLong(u"2147483647"), 2147483647);
    EXPECT_EQ(ToLong(u"-2147483648"), std::numeric_limits<std::int32_t>::min());
}

TEST(ToLong, BlanksAroundTheNumberAreSkipped) {
    EXPECT_EQ(ToLong(u" \t\n\v\f\r12\r\f\v\n\t "), 12);
    EXPECT_EQ(LongError(u"\u00A012"), "type");
}

TEST(ToLong, NothingOrOnlyBlanksIsNoNumber) {
    EXPECT_EQ(LongError(u""), "type");
    EXPECT_EQ(LongError(u" \t "), "type");
}

TEST(ToLong, TheSignStandsInFrontOrBehind) {
    EXPECT_EQ(ToLong(u"+5"), 5);
    EXPECT_EQ(ToLong(u"-5"), -5);
    EXPECT_EQ(ToLong(u"5-"), -5);
    EXPECT_EQ(ToLong(u"5+"), 5);
    EXPECT_EQ(ToLong(u"(5)"), -5);
    EXPECT_EQ(ToLong(u"1e2-"), -100);
}

TEST(ToLong, OnlyOneSignIsTaken) {
    for (const auto* text : {u"+5+", u"-5-", u"--5", u"5--", u"(-5)", u"-(5)", u"(5", u"5)", u"()",
                             u"(5)-", u"-", u"+", u"- 5", u"5 -", u"( 5)"}) {
        EXPECT_EQ(LongError(text), "type") << ToUtf8(text);
    }
}

TEST(ToLong, CommasBetweenTheDigitsOfTheWholePartAreIgnored) {
    EXPECT_EQ(ToLong(u"1,000"), 1000);
    EXPECT_EQ(ToLong(u"1,0,0"), 100);
    EXPECT_EQ(ToLong(u"1,000.6"), 1001);
}

TEST(ToLong, ACommaElsewhereIsNoNumber) {
    for (const auto* text : {u",1", u"1,", u"1,,0", u"1,.5", u"1.5,0", u"1e1,0", u",", u"-,1"}) {
        EXPECT_EQ(LongError(text), "type") << ToUtf8(text);
    }
}

TEST(ToLong, AFractionIsRoundedToNearestWithTiesToEven) {
    EXPECT_EQ(ToLong(u"0.5"), 0);
    EXPECT_EQ(ToLong(u"1.5"), 2);
    EXPECT_EQ(ToLong(u"2.5"), 2);
    EXPECT_EQ(ToLong(u"12.5"), 12);
    EXPECT_EQ(ToLong(u"13.5"), 14);
    EXPECT_EQ(ToLong(u"-0.5"), 0);
    EXPECT_EQ(ToLong(u"-1.5"), -2);
    EXPECT_EQ(ToLong(u".5"), 0);
    EXPECT_EQ(ToLong(u".6"), 1);
    EXPECT_EQ(ToLong(u"5."), 5);
    EXPECT_EQ(ToLong(u"2.50000000000001"), 3);
}

TEST(ToLong, APointAloneIsNoNumber) {
    EXPECT_EQ(LongError(u"."), "type");
    EXPECT_EQ(LongError(u"-."), "type");
    EXPECT_EQ(LongError(u".e5"), "type");
    EXPECT_EQ(LongError(u"1.2.3"), "type");
}

TEST(ToLong, AnExponentFollowsEOrD) {
    EXPECT_EQ(ToLong(u"1e3"), 1000);
    EXPECT_EQ(ToLong(u"1E3"), 1000);
    EXPECT_EQ(ToLong(u"1d3"), 1000);
    EXPECT_EQ(ToLong(u"1D+3"), 1000);
    EXPECT_EQ(ToLong(u"1500e-3"), 2);
    EXPECT_EQ(ToLong(u"5.e1"), 50);
    EXPECT_EQ(ToLong(u".5e1"), 5);
}

TEST(ToLong, AnExponentWithoutDigitsIsNoNumber) {
    for (const auto* text : {u"1e", u"1e+", u"e3", u"1e3.5", u"1e e", u"1ee3"}) {
        EXPECT_EQ(LongError(text), "type") << ToUtf8(text);
    }
}

TEST(ToLong, TheRangeIsCheckedAfterRounding) {
    EXPECT_EQ(ToLong(u"2147483647.4"), 2147483647);
    EXPECT_EQ(ToLong(u"-2147483648.5"), std::numeric_limits<std::int32_t>::min());
    for (const auto* text : {u"2147483647.5", u"2147483648", u"12345678901", u"-2147483649",
                             u"1e10", u"1e999", u"-1e999", u"1e99999999999999999999999"}) {
        EXPECT_EQ(LongError(text), "overflow") << ToUtf8(text);
    }
}

TEST(ToLong, TooSmallForADoubleIsZero) {
    EXPECT_EQ(ToLong(u"1e-999"), 0);
    EXPECT_EQ(ToLong(u"-1e-99999999999999999999999"), 0);
    EXPECT_EQ(ToLong(u"0e999"), 0);
    EXPECT_EQ(ToLong(u"0.000e99999999999999999999"), 0);
}

TEST(ToLong, ALargeExponentAndManyZerosMeetInTheMiddle) {
    EXPECT_EQ(ToLong(u"0." + std::u16string(400, u'0') + u"5e402"), 50);
    EXPECT_EQ(ToLong(u"7" + std::u16string(400, u'0') + u"e-400"), 7);
}

TEST(ToLong, OtherCharactersAreNoNumber) {
    for (const auto* text : {u"12a", u"a12", u"1 2", u"$5", u"true", u"\uFF11", u"0x10", u"1_000",
                             u"inf", u"nan", u"\u0661", u"5%"}) {
        EXPECT_EQ(LongError(text), "type") << ToUtf8(text);
    }
    EXPECT_EQ(LongError(u"1\0"s), "type");
}

TEST(ToLong, HexDigitsAreA32BitPattern) {
    EXPECT_EQ(ToLong(u"&H10"), 16);
    EXPECT_EQ(ToLong(u"&h1f"), 31);
    EXPECT_EQ(ToLong(u" &HFFFF "), 65535);
    EXPECT_EQ(ToLong(u"&HFFFFFFFF"), -1);
    EXPECT_EQ(ToLong(u"&H80000000"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(LongError(u"&H100000000"), "overflow");
}

TEST(ToLong, OctalDigitsAreA32BitPattern) {
    EXPECT_EQ(ToLong(u"&O17"), 15);
    EXPECT_EQ(ToLong(u"&o17"), 15);
    EXPECT_EQ(ToLong(u"&17"), 15);
    EXPECT_EQ(ToLong(u"&O37777777777"), -1);
    EXPECT_EQ(LongError(u"&O40000000000"), "overflow");
}

TEST(ToLong, PatternsTakeNoSignFractionOrOtherDigit) {
    for (const auto* text : {u"&", u"&H", u"&O", u"&HG", u"&O8", u"&9", u"-&H10", u"&H-1", u"&H1.0",
                             u"&H1-", u"(&H1)", u"& H1", u"&H 1", u"&HFFFFFFFFFG"}) {
        EXPECT_EQ(LongError(text), "type") << ToUtf8(text);
    }
}

TEST(ToShort, TheSameRulesHoldFor16Bits) {
    EXPECT_EQ(ToShort(u" 1,000 "), 1000);
    EXPECT_EQ(ToShort(u"32767.4"), 32767);
    EXPECT_EQ(ToShort(u"-32768.5"), -32768);
    EXPECT_EQ(ToShort(u"&H7FFF"), 32767);
    EXPECT_EQ(ToShort(u"&HFFFF"), -1);
    EXPECT_EQ(ErrorOf([] { ToShort(u"32767.5"); }), "overflow");
    EXPECT_EQ(ErrorOf([] { ToShort(u"32768"); }), "overflow");
    EXPECT_EQ(ErrorOf([] { ToShort(u"&H10000"); }), "overflow");
    EXPECT_EQ(ErrorOf([] { ToShort(u"x"); }), "type");
}

TEST(ToDouble, NothingIsRounded) {
    EXPECT_EQ(ToDouble(u"0.1"), 0.1);
    EXPECT_EQ(ToDouble(u"-2.5"), -2.5);
    EXPECT_EQ(ToDouble(u"1,234.5"), 1234.5);
    EXPECT_EQ(ToDouble(u"1.7976931348623157d308"), std::numeric_limits<double>::max());
    EXPECT_EQ(ToDouble(u"123456789012345678"), 123456789012345678.0);
    EXPECT_EQ(ToDouble(u"&HFFFFFFFF"), -1);
}

TEST(ToDouble, BeyondADoubleIsAnOverflow) {
    EXPECT_EQ(ErrorOf([] { ToDouble(u"1e999"); }), "overflow");
    EXPECT_EQ(ErrorOf([] { ToDouble(u"-1.8e308"); }), "overflow");
    EXPECT_EQ(ErrorOf([] { ToDouble(u""); }), "type");
}

TEST(DecimalText, WritesPlainDigits) {
    EXPECT_EQ(DecimalText(0), u"0");
    EXPECT_EQ(DecimalText(-12), u"-12");
    EXPECT_EQ(DecimalText(1234567), u"1234567");
    EXPECT_EQ(DecimalText(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
}

TEST(DecimalText, IsReadBack) {
    for (const std::int32_t number : {0, 1, -1, 65535, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(ToLong(DecimalText(number)), number);
    }
}

TEST(HexText, IsAlwaysFourDigits) {
    EXPECT_EQ(HexText(0), u"0000");
    EXPECT_EQ(HexText(0x1F), u"001F");
    EXPECT_EQ(HexText(0xD83D), u"D83D");
    EXPECT_EQ(HexText(0xFFFF), u"FFFF");
}

}  // namespace
}  // namespace quorvale
