#include "platform/scroll_bar.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/error_of.h"

namespace quorvale {
namespace {

/// A bar from 1 to 71 at 36, as a view of 30 rows has for a hundred lines, that counts its calls.
class ScrollBarTest : public testing::Test {
protected:
    ScrollBarTest() {
        bar.SetMin(1);
        bar.SetMax(71);
        bar.SetLargeChange(28);
        bar.SetValue(36);
        bar.OnChange = [this] { ++changes; };
        bar.OnScroll = [this] { ++scrolls; };
        bar.OnGotFocus = [this] { ++focused; };
    }

    ScrollBar bar{"scrVert"};
    int changes = 0;
    int scrolls = 0;
    int focused = 0;
};

TEST(ScrollBarDefaults, ANewBarRangesOver16BitsInStepsOfOne) {
    const ScrollBar bar("scrVert");
    EXPECT_EQ(bar.Min(), 0);
    EXPECT_EQ(bar.Max(), 32767);
    EXPECT_EQ(bar.Value(), 0);
    EXPECT_EQ(bar.SmallChange(), 1);
    EXPECT_EQ(bar.LargeChange(), 1);
    EXPECT_FALSE(bar.Wide());
}

TEST_F(ScrollBarTest, ADifferentValueRunsTheChangeOnce) {
    bar.SetValue(60);
    EXPECT_EQ(bar.Value(), 60);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(scrolls, 0);
}

TEST_F(ScrollBarTest, TheSameValueRunsNothing) {
    bar.SetValue(36);
    EXPECT_EQ(changes, 0);
}

TEST_F(ScrollBarTest, TheChangeSeesTheNewValue) {
    std::int32_t seen = 0;
    bar.OnChange = [&] { seen = bar.Value(); };
    bar.SetValue(2);
    EXPECT_EQ(seen, 2);
}

TEST_F(ScrollBarTest, AValueOutsideTheRangeIsRefused) {
    EXPECT_EQ(ErrorOf([&] { bar.SetValue(72); }), ErrorKind::InvalidValue);
    EXPECT_EQ(ErrorOf([&] { bar.SetValue(0); }), ErrorKind::InvalidValue);
    EXPECT_EQ(bar.Value(), 36);
    EXPECT_EQ(changes, 0);
}

TEST_F(ScrollBarTest, TheEndsOfTheRangeAreTaken) {
    bar.SetValue(71);
    EXPECT_EQ(bar.Value(), 71);
    bar.SetValue(1);
    EXPECT_EQ(bar.Value(), 1);
}

TEST_F(ScrollBarTest, ASmallerMaximumMovesTheValueAndReportsIt) {
    bar.SetMax(20);
    EXPECT_EQ(bar.Value(), 20);
    EXPECT_EQ(changes, 1);
}

TEST_F(ScrollBarTest, AGreaterMinimumMovesTheValueAndReportsIt) {
    bar.SetMin(50);
    EXPECT_EQ(bar.Value(), 50);
    EXPECT_EQ(changes, 1);
}

TEST_F(ScrollBarTest, ARangeThatStillHoldsTheValueReportsNothing) {
    bar.SetMax(36);
    bar.SetMin(36);
    EXPECT_EQ(bar.Value(), 36);
    EXPECT_EQ(changes, 0);
}

TEST_F(ScrollBarTest, AnInvertedRangeIsLegalAndHoldsTheValuesBetween) {
    bar.SetMax(-28);
    EXPECT_EQ(bar.Value(), 1) << "the nearest end";
    bar.SetValue(-10);
    EXPECT_EQ(bar.Value(), -10);
    EXPECT_EQ(ErrorOf([&] { bar.SetValue(2); }), ErrorKind::InvalidValue);
    EXPECT_EQ(bar.Min(), 1);
    EXPECT_EQ(bar.Max(), -28);
}

TEST_F(ScrollBarTest, StepsBelowOneAreRefusedAndTheOldOnesStay) {
    for (const std::int32_t step : {0, -1, -28}) {
        EXPECT_EQ(ErrorOf([&] { bar.SetLargeChange(step); }), ErrorKind::InvalidValue) << step;
        EXPECT_EQ(ErrorOf([&] { bar.SetSmallChange(step); }), ErrorKind::InvalidValue) << step;
    }
    EXPECT_EQ(bar.LargeChange(), 28);
    EXPECT_EQ(bar.SmallChange(), 1);
}

TEST_F(ScrollBarTest, NumbersOfMoreThan16BitsOverflowUnlessTheBarIsWide) {
    EXPECT_EQ(ErrorOf([&] { bar.SetMax(32768); }), ErrorKind::Overflow);
    EXPECT_EQ(ErrorOf([&] { bar.SetMin(-32769); }), ErrorKind::Overflow);
    EXPECT_EQ(ErrorOf([&] { bar.SetValue(40000); }), ErrorKind::Overflow);
    EXPECT_EQ(ErrorOf([&] { bar.SetLargeChange(32768); }), ErrorKind::Overflow);
    EXPECT_EQ(ErrorOf([&] { bar.SetSmallChange(32768); }), ErrorKind::Overflow);
    EXPECT_EQ(bar.Max(), 71);
    bar.SetWide(true);
    bar.SetMax(2'000'000'000);
    bar.SetValue(1'999'999'999);
    bar.SetLargeChange(40000);
    EXPECT_EQ(bar.Value(), 1'999'999'999);
    EXPECT_EQ(bar.LargeChange(), 40000);
}

TEST_F(ScrollBarTest, HidingItChangesNothingElse) {
    bar.SetVisible(false);
    EXPECT_EQ(bar.Value(), 36);
    bar.SetValue(40);
    EXPECT_EQ(changes, 1);
}

TEST_F(ScrollBarTest, AnArrowMovesByTheSmallChangeWithinTheRange) {
    bar.SetSmallChange(30);
    bar.UserArrow(1);
    EXPECT_EQ(bar.Value(), 66);
    bar.UserArrow(1);
    EXPECT_EQ(bar.Value(), 71);
    bar.UserArrow(1);
    EXPECT_EQ(changes, 2) << "at the end nothing moves";
    bar.UserArrow(-1);
    EXPECT_EQ(bar.Value(), 41);
}

TEST_F(ScrollBarTest, ATroughClickMovesByTheLargeChangeWithinTheRange) {
    bar.UserPage(-1);
    EXPECT_EQ(bar.Value(), 8);
    bar.UserPage(-1);
    EXPECT_EQ(bar.Value(), 1);
    bar.UserPage(1);
    EXPECT_EQ(bar.Value(), 29);
    EXPECT_EQ(changes, 3);
}

TEST_F(ScrollBarTest, StepsOfAnySizeEndAtTheEndsOfTheRange) {
    bar.UserStepBy(std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(bar.Value(), 71);
    bar.UserStepBy(std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(bar.Value(), 1);
}

TEST_F(ScrollBarTest, ADragScrollsAtEveryMoveAndChangesOnceAtItsEnd) {
    bar.UserDrag(40);
    bar.UserDrag(50);
    EXPECT_EQ(bar.Value(), 50);
    EXPECT_EQ(scrolls, 2);
    EXPECT_EQ(changes, 0);
    bar.UserRelease();
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(scrolls, 2);
}

TEST_F(ScrollBarTest, ADragThatEndsWhereItBeganStillReportsAChange) {
    bar.UserDrag(50);
    bar.UserDrag(36);
    bar.UserRelease();
    EXPECT_EQ(changes, 1);
}

TEST_F(ScrollBarTest, ADragIsKeptWithinTheRange) {
    bar.UserDrag(1000);
    EXPECT_EQ(bar.Value(), 71);
    bar.UserDrag(-1000);
    EXPECT_EQ(bar.Value(), 1);
}

TEST_F(ScrollBarTest, AReleaseWithoutADragReportsNothing) {
    bar.UserRelease();
    bar.UserDrag(37);
    bar.UserRelease();
    bar.UserRelease();
    EXPECT_EQ(changes, 1);
}

TEST_F(ScrollBarTest, AThumbWhoseBarIsHiddenMeanwhileStillEndsItsDrag) {
    bar.UserDrag(40);
    bar.SetVisible(false);
    bar.UserRelease();
    EXPECT_EQ(changes, 1);
}

TEST_F(ScrollBarTest, AHiddenADisabledAndAnInvertedBarDoNotAnswerTheUser) {
    const auto tryAll = [&] {
        bar.UserArrow(1);
        bar.UserPage(1);
        bar.UserStepBy(3);
        bar.UserDrag(60);
        bar.UserRelease();
        bar.UserClickInto();
    };
    bar.SetVisible(false);
    tryAll();
    bar.SetVisible(true);
    bar.SetEnabled(false);
    tryAll();
    bar.SetEnabled(true);
    EXPECT_EQ(bar.Value(), 36);
    bar.SetMax(-28);
    changes = 0;
    tryAll();
    EXPECT_EQ(bar.Value(), 1);
    EXPECT_EQ(changes + scrolls + focused, 0);
}

TEST_F(ScrollBarTest, AClickIntoItAsksForTheFocus) {
    bar.UserClickInto();
    EXPECT_EQ(focused, 1);
    EXPECT_EQ(changes, 0);
}

TEST_F(ScrollBarTest, MovingAndSizingItRunsNoHandler) {
    bar.Move(10, 20, 255, 7200);
    EXPECT_EQ(changes + scrolls + focused, 0);
}

}  // namespace
}  // namespace quorvale
