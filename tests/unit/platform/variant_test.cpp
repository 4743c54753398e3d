#include "platform/variant.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/error_of.h"

namespace quorvale {
namespace {

const Variant empty;
const Variant object = std::shared_ptr<Object>();
const Variant picture = std::shared_ptr<const Picture>();
const Variant font = Font{.Name = u"Mono"};

Variant Text(const char16_t* text) { return std::u16string(text); }

TEST(IsZero, EmptyAndEveryNumberZeroIs) {
    EXPECT_TRUE(IsZero(empty));
    EXPECT_TRUE(IsZero(std::int16_t{0}));
    EXPECT_TRUE(IsZero(std::int32_t{0}));
    EXPECT_TRUE(IsZero(0.0F));
    EXPECT_TRUE(IsZero(-0.0));
    EXPECT_TRUE(IsZero(false));
}

TEST(IsZero, AStringNeverIs) {
    EXPECT_FALSE(IsZero(Text(u"0")));
    EXPECT_FALSE(IsZero(Text(u"")));
}

TEST(IsZero, OtherNumbersAndObjectsAreNot) {
    EXPECT_FALSE(IsZero(std::int16_t{1}));
    EXPECT_FALSE(IsZero(0.25));
    EXPECT_FALSE(IsZero(true));
    EXPECT_FALSE(IsZero(object));
    EXPECT_FALSE(IsZero(font));
}

TEST(ToLong, RoundsFractionsToTheNearestTiesToEven) {
    EXPECT_EQ(ToLong(Variant(0.5)), 0);
    EXPECT_EQ(ToLong(Variant(1.5)), 2);
    EXPECT_EQ(ToLong(Variant(2.5)), 2);
    EXPECT_EQ(ToLong(Variant(-1.5)), -2);
    EXPECT_EQ(ToLong(Variant(2.5F)), 2);
    EXPECT_EQ(ToLong(Text(u" 12.5 ")), 12);
    EXPECT_EQ(ToLong(Text(u"&HFFFF")), 65535);
}

TEST(ToLong, TrueIsMinusOneAndEmptyIsZero) {
    EXPECT_EQ(ToLong(Variant(true)), -1);
    EXPECT_EQ(ToLong(Variant(false)), 0);
    EXPECT_EQ(ToLong(empty), 0);
}

TEST(ToLong, OutOfRangeIsAnOverflow) {
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const double number : {2147483647.5, -2147483649.0, 1e300, infinity, -infinity, nan}) {
        EXPECT_EQ(ErrorOf([&] { ToLong(Variant(number)); }), ErrorKind::Overflow) << number;
    }
    EXPECT_EQ(ToLong(Variant(2147483647.4)), 2147483647);
    EXPECT_EQ(ToLong(Variant(-2147483648.5)), -2147483647 - 1);
    EXPECT_EQ(ErrorOf([&] { ToLong(Text(u"2147483648")); }), ErrorKind::Overflow);
}

TEST(ToLong, WhatHasNoNumericReadingIsATypeMismatch) {
    for (const Variant& value : {Text(u""), Text(u"12a"), Text(u"true"), object, picture, font}) {
        EXPECT_EQ(ErrorOf([&] { ToLong(value); }), ErrorKind::TypeMismatch);
    }
}

TEST(ToShort, HoldsSixteenBits) {
    EXPECT_EQ(ToShort(Variant(32767.4)), 32767);
    EXPECT_EQ(ToShort(Variant(std::int32_t{-32768})), -32768);
    EXPECT_EQ(ToShort(Text(u"-12")), -12);
    EXPECT_EQ(ErrorOf([&] { ToShort(Variant(std::int32_t{32768})); }), ErrorKind::Overflow);
    EXPECT_EQ(ErrorOf([&] { ToShort(Text(u"65536")); }), ErrorKind::Overflow);
}

TEST(ToSingle, RoundsToSinglePrecisionAndOverflowsBeyondIt) {
    EXPECT_EQ(ToSingle(Variant(0.1)), 0.1F);
    EXPECT_EQ(ToSingle(Variant(std::int32_t{16777217})), 16777216.0F);
    EXPECT_EQ(ToSingle(Text(u"1.5")), 1.5F);
    EXPECT_EQ(ErrorOf([&] { ToSingle(Variant(1e39)); }), ErrorKind::Overflow);
    EXPECT_EQ(ErrorOf([&] { ToSingle(object); }), ErrorKind::TypeMismatch);
}

TEST(ToBoolean, EveryNumberButZeroIsTrueAndTheTwoWordsAreRead) {
    EXPECT_TRUE(ToBoolean(Variant(0.1)));
    EXPECT_TRUE(ToBoolean(Variant(std::int16_t{-1})));
    EXPECT_FALSE(ToBoolean(Variant(std::int32_t{0})));
    EXPECT_FALSE(ToBoolean(empty));
    EXPECT_TRUE(ToBoolean(Text(u"TRUE")));
    EXPECT_FALSE(ToBoolean(Text(u"False")));
    EXPECT_TRUE(ToBoolean(Text(u"2")));
    EXPECT_FALSE(ToBoolean(Text(u"0")));
    EXPECT_EQ(ErrorOf([&] { ToBoolean(Text(u"yes")); }), ErrorKind::TypeMismatch);
    EXPECT_EQ(ErrorOf([&] { ToBoolean(Text(u"")); }), ErrorKind::TypeMismatch);
}

TEST(ToString, NumbersAreDecimalWithoutBlanksOrGrouping) {
    EXPECT_EQ(ToString(Variant(std::int32_t{-1234567})), u"-1234567");
    EXPECT_EQ(ToString(Variant(1.5)), u"1.5");
    EXPECT_EQ(ToString(Variant(0.1F)), u"0.1");
    EXPECT_EQ(ToString(Variant(true)), u"True");
    EXPECT_EQ(ToString(Variant(false)), u"False");
    EXPECT_EQ(ToString(empty), u"");
    EXPECT_EQ(ToString(Text(u"as it is ")), u"as it is ");
    EXPECT_EQ(ErrorOf([&] { ToString(font); }), ErrorKind::TypeMismatch);
}

TEST(ToColour, ASystemColourMayArriveAsANegativeNumber) {
    EXPECT_EQ(ToColour(Variant(static_cast<std::int32_t>(0x8000000F))), 0x8000000F);
    EXPECT_EQ(ToColour(Variant(std::int32_t{0x00FF8040})), 0x00FF8040U);
    EXPECT_EQ(ErrorOf([&] { ToColour(Variant(4294967296.0)); }), ErrorKind::Overflow);
}

}  // namespace
}  // namespace quorvale
