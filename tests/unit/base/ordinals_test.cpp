#include "base/ordinals.h"

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

namespace quorvale {
namespace {

using Place = Ordinal<struct PlaceTag>;

TEST(Ordinal, StepsForwardsAndBackwards) {
    Line line(5);
    EXPECT_EQ((line + 2).Number(), 7);
    EXPECT_EQ((line - 6).Number(), -1);
    EXPECT_EQ((++line).Number(), 6);
    EXPECT_EQ((--line).Number(), 5);
}

TEST(Ordinal, TheDifferenceOfTwoPlacesIsANumber) { EXPECT_EQ(Line(20) - Line(5), 15); }

TEST(Ordinal, PlacesAreOrdered) {
    EXPECT_LT(Place(0), Place(1));
    EXPECT_EQ(Line(3), Line(3));
    EXPECT_GT(Line(4), Line(3));
}

TEST(Ordinal, ANewOneIsZero) { EXPECT_EQ(Line().Number(), 0); }

TEST(Ordinal, SteppingOutOf32BitsIsAnOverflow) {
    const Line last(std::numeric_limits<std::int32_t>::max());
    const Line first(std::numeric_limits<std::int32_t>::min());
    EXPECT_THROW(last + 1, ControlError);
    EXPECT_THROW(first - 1, ControlError);
    EXPECT_THROW(last - first, ControlError);
    Line line = last;
    EXPECT_THROW(++line, ControlError);
    EXPECT_EQ(line, last);
}

TEST(Ordinal, PlacesOfTwoKindsDoNotMix) {
    EXPECT_FALSE((std::is_convertible_v<Line, Place>));
    EXPECT_FALSE((std::is_constructible_v<Line, Place>));
    EXPECT_FALSE((std::is_convertible_v<int, Line>));
    EXPECT_FALSE((std::is_convertible_v<Line, int>));
}

}  // namespace
}  // namespace quorvale
