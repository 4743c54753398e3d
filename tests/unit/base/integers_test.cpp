#include "base/integers.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace quorvale {
namespace {

constexpr auto largest16 = std::numeric_limits<std::int16_t>::max();
constexpr auto smallest16 = std::numeric_limits<std::int16_t>::min();
constexpr auto largest32 = std::numeric_limits<std::int32_t>::max();
constexpr auto smallest32 = std::numeric_limits<std::int32_t>::min();
constexpr auto largest64 = std::numeric_limits<std::int64_t>::max();
constexpr auto smallest64 = std::numeric_limits<std::int64_t>::min();

template <class Work>
ErrorKind KindOf(Work work) {
    try {
        work();
    } catch (const ControlError& error) {
        return error.Kind();
    }
    ADD_FAILURE() << "no error was raised";
    return ErrorKind::Index;
}

TEST(RoundHalfEven, TiesGoToTheEvenNeighbour) {
    EXPECT_EQ(RoundHalfEven(0.5), 0);
    EXPECT_EQ(RoundHalfEven(1.5), 2);
    EXPECT_EQ(RoundHalfEven(2.5), 2);
    EXPECT_EQ(RoundHalfEven(12.5), 12);
    EXPECT_EQ(RoundHalfEven(13.5), 14);
    EXPECT_EQ(RoundHalfEven(-0.5), 0);
    EXPECT_EQ(RoundHalfEven(-1.5), -2);
    EXPECT_EQ(RoundHalfEven(-2.5), -2);
}

TEST(RoundHalfEven, EverythingElseGoesToTheNearest) {
    EXPECT_EQ(RoundHalfEven(2.4999999), 2);
    EXPECT_EQ(RoundHalfEven(2.5000001), 3);
    EXPECT_EQ(RoundHalfEven(-2.5000001), -3);
    EXPECT_EQ(RoundHalfEven(0.49999999999999994), 0);
    EXPECT_EQ(RoundHalfEven(7), 7);
    EXPECT_EQ(RoundHalfEven(1e300), 1e300);
}

TEST(RoundHalfEven, AnotherRoundingModeOfTheProcessChangesNothing) {
    ASSERT_EQ(std::fesetround(FE_UPWARD), 0);
    volatile double value = 2.5;
    const double rounded = RoundHalfEven(value);
    std::fesetround(FE_TONEAREST);
    EXPECT_EQ(rounded, 2);
}

TEST(ToInt16, RoundsAndFitsUpToBothEnds) {
    EXPECT_EQ(ToInt16(32767.4), largest16);
    EXPECT_EQ(ToInt16(-32768.5), smallest16);
    EXPECT_EQ(ToInt16(1.5), 2);
}

TEST(ToInt16, BeyondItsRangeIsAnOverflow) {
    EXPECT_EQ(KindOf([] { ToInt16(32767.5); }), ErrorKind::Overflow);
    EXPECT_EQ(KindOf([] { ToInt16(-32768.6); }), ErrorKind::Overflow);
    EXPECT_EQ(KindOf([] { ToInt16(std::nan("")); }), ErrorKind::Overflow);
}

TEST(ToInt32, RoundsAndFitsUpToBothEnds) {
    EXPECT_EQ(ToInt32(2147483647.4), largest32);
    EXPECT_EQ(ToInt32(-2147483648.5), smallest32);
    EXPECT_EQ(ToInt32(-0.5), 0);
}

TEST(ToInt32, BeyondItsRangeIsAnOverflow) {
    EXPECT_EQ(KindOf([] { ToInt32(2147483647.5); }), ErrorKind::Overflow);
    EXPECT_EQ(KindOf([] { ToInt32(-2147483649.0); }), ErrorKind::Overflow);
    EXPECT_EQ(KindOf([] { ToInt32(HUGE_VAL); }), ErrorKind::Overflow);
    EXPECT_EQ(KindOf([] { ToInt32(-HUGE_VAL); }), ErrorKind::Overflow);
    EXPECT_EQ(KindOf([] { ToInt32(std::nan("")); }), ErrorKind::Overflow);
}

TEST(ToInt64, FitsUpToBothEnds) {
    EXPECT_EQ(ToInt64(-9223372036854775808.0), smallest64);
    EXPECT_EQ(ToInt64(9223372036854774784.0), 9223372036854774784);
    EXPECT_EQ(KindOf([] { ToInt64(9223372036854775808.0); }), ErrorKind::Overflow);
}

TEST(IntDivide, TruncatesTowardZero) {
    EXPECT_EQ(IntDivide(7, 2), 3);
    EXPECT_EQ(IntDivide(-7, 2), -3);
    EXPECT_EQ(IntDivide(-1, 195), 0);
    EXPECT_EQ(IntDivide(7, -2), -3);
    EXPECT_EQ(IntDivide(7, -1), -7);
}

TEST(IntDivide, ZeroAndTheOneQuotientThatDoesNotFitAreErrors) {
    EXPECT_EQ(KindOf([] { IntDivide(1, 0); }), ErrorKind::DivideByZero);
    EXPECT_EQ(KindOf([] { IntDivide(smallest32, -1); }), ErrorKind::Overflow);
}

TEST(CheckedArithmetic, GivesTheResultWhereItFits) {
    EXPECT_EQ(CheckedAdd(largest32 - 1, 1), largest32);
    EXPECT_EQ(CheckedSubtract(smallest32 + 1, 1), smallest32);
    EXPECT_EQ(CheckedMultiply(46340, 46340), 2147395600);
    EXPECT_EQ(CheckedAdd(std::int16_t{32766}, std::int16_t{1}), largest16);
    EXPECT_EQ(CheckedSubtract(std::int64_t{0}, largest64), smallest64 + 1);
}

TEST(CheckedArithmetic, OverflowsInTheWidthOfItsOperands) {
    EXPECT_EQ(KindOf([] { CheckedAdd(largest32, 1); }), ErrorKind::Overflow);
    EXPECT_EQ(KindOf([] { CheckedSubtract(smallest32, 1); }), ErrorKind::Overflow);
    EXPECT_EQ(KindOf([] { CheckedMultiply(46341, 46341); }), ErrorKind::Overflow);
    EXPECT_EQ(KindOf([] { CheckedAdd(largest16, std::int16_t{1}); }), ErrorKind::Overflow);
    EXPECT_EQ(KindOf([] { CheckedMultiply(smallest16, std::int16_t{-1}); }), ErrorKind::Overflow);
    EXPECT_EQ(KindOf([] { CheckedAdd(largest64, std::int64_t{1}); }), ErrorKind::Overflow);
}

TEST(CheckedCast, KeepsWhatFitsAndRefusesTheRest) {
    EXPECT_EQ(CheckedCast<std::int16_t>(std::int64_t{-32768}), smallest16);
    EXPECT_EQ(CheckedCast<std::uint8_t>(255), 255);
    EXPECT_EQ(KindOf([] { CheckedCast<std::int16_t>(32768); }), ErrorKind::Overflow);
    EXPECT_EQ(KindOf([] { CheckedCast<std::uint32_t>(-1); }), ErrorKind::Overflow);
    EXPECT_EQ(KindOf([] { CheckedCast<std::int32_t>(std::uint32_t{0x80000000}); }),
              ErrorKind::Overflow);
}

TEST(ControlError, SaysWhatWentWrong) {
    const ControlError error(ErrorKind::File, "cannot read");
    EXPECT_EQ(error.Kind(), ErrorKind::File);
    EXPECT_STREQ(error.what(), "cannot read");
}

}  // namespace
}  // namespace quorvale
