#include "view/range_column.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <utility>
#include <vector>

#include "view_rig.h"

namespace quorvale {
namespace {

using Pairs = std::vector<std::pair<std::int32_t, std::int32_t>>;

Pairs Ends(const CollapseState& collapse) {
    Pairs pairs;
    for (const CollapseRange& range : collapse.Ranges) {
        pairs.emplace_back(range.FromRow, range.ToRow);
    }
    return pairs;
}

std::vector<std::int32_t> Depths(const CollapseState& collapse) {
    std::vector<std::int32_t> depths;
    for (const CollapseRange& range : collapse.Ranges) depths.push_back(range.Depth);
    return depths;
}

class RangeColumnTest : public testing::Test {
protected:
    void Sort() { SortCollapseRanges(rig.Collapse, rig.Elements, rig.View); }

    ViewRig rig;
};

TEST_F(RangeColumnTest, RangesAreOrderedByTheirFirstLineWholeRecordsAtATime) {
    rig.Register(30, 40);
    rig.Register(5, 20);
    Sort();
    EXPECT_EQ(Ends(rig.Collapse), (Pairs{{5, 20}, {30, 40}}));
    EXPECT_TRUE(rig.Collapse.RangesUnchanged);
}

TEST_F(RangeColumnTest, OfThoseThatStartTogetherTheLongestComesFirst) {
    rig.Register(5, 10);
    rig.Register(5, 20);
    rig.Register(5, 15);
    Sort();
    EXPECT_EQ(Ends(rig.Collapse), (Pairs{{5, 20}, {5, 15}, {5, 10}}));
    EXPECT_EQ(Depths(rig.Collapse), (std::vector<std::int32_t>{0, 1, 2}));
}

TEST_F(RangeColumnTest, WhileNothingWasRegisteredTheOrderStays) {
    rig.Register(30, 40);
    rig.Register(5, 20);
    rig.Collapse.RangesUnchanged = true;
    rig.View.TextLeftMargin = 7;
    Sort();
    EXPECT_EQ(Ends(rig.Collapse), (Pairs{{30, 40}, {5, 20}}));
    EXPECT_EQ(rig.View.TextLeftMargin, 7);
}

TEST_F(RangeColumnTest, WithoutARangeThereIsRoomForTwoLevels) {
    rig.Collapse.RangesUnchanged = false;
    Sort();
    EXPECT_EQ(rig.View.TextLeftMargin, 315);
    rig.Register(5, 20);
    Sort();
    EXPECT_EQ(rig.View.TextLeftMargin, 315);
    rig.Register(8, 12);
    Sort();
    EXPECT_EQ(rig.View.TextLeftMargin, 435);
}

TEST_F(RangeColumnTest, RangesBesideOneAnotherAreNotNested) {
    rig.Register(5, 20);
    rig.Register(21, 30);
    rig.Register(40, 50);
    Sort();
    EXPECT_EQ(Depths(rig.Collapse), (std::vector<std::int32_t>{0, 0, 0}));
}

TEST_F(RangeColumnTest, ARangeThatStartsInAnothersLastLineLiesInIt) {
    rig.Register(5, 20);
    rig.Register(20, 30);
    Sort();
    EXPECT_EQ(Depths(rig.Collapse), (std::vector<std::int32_t>{0, 1}));
}

TEST_F(RangeColumnTest, TheColumnGrowsForAtMost64Levels) {
    for (int k = 1; k <= 200; ++k) rig.Register(k, 1000 - k);
    Sort();
    EXPECT_EQ(rig.Collapse.DeepestNesting, 64);
    EXPECT_EQ(rig.View.TextLeftMargin, 66 * 120 + 75);
    EXPECT_EQ(rig.Collapse.Ranges.back().Depth, 199);
}

TEST_F(RangeColumnTest, NestingIsTheNumberOfEarlierRangesThatReachTheFirstLine) {
    std::mt19937 random(20240611);
    for (int round = 0; round < 60; ++round) {
        rig.Collapse = {};
        const int count = static_cast<int>(random() % 60);
        for (int k = 0; k < count; ++k) {
            const auto from = static_cast<std::int32_t>(random() % 50 + 1);
            rig.Register(from, from + 1 + static_cast<std::int32_t>(random() % 60));
        }
        const Pairs registered = Ends(rig.Collapse);
        rig.Collapse.RangesUnchanged = false;
        Sort();
        Pairs expected = registered;
        std::sort(expected.begin(), expected.end(), [](const auto& a, const auto& b) {
            return a.first != b.first ? a.first < b.first : a.second > b.second;
        });
        ASSERT_EQ(Ends(rig.Collapse), expected);
        std::int32_t deepest = 0;
        for (std::size_t k = 0; k < expected.size(); ++k) {
            const auto reaches = [&](const auto& r) { return r.second >= expected[k].first; };
            const auto end = expected.begin() + static_cast<std::ptrdiff_t>(k);
            const auto depth =
                static_cast<std::int32_t>(std::count_if(expected.begin(), end, reaches));
            ASSERT_EQ(rig.Collapse.Ranges[k].Depth, depth);
            deepest = std::max(deepest, depth);
        }
        EXPECT_EQ(rig.Collapse.DeepestNesting, std::min(deepest, 64));
    }
}

TEST_F(RangeColumnTest, AHundredThousandNestedRangesAreSortedInNoTime) {
    for (int k = 100'000; k >= 1; --k) rig.Register(k, 1'000'000 - k);
    Sort();
    EXPECT_EQ(rig.Collapse.Ranges.front().FromRow, 1);
    EXPECT_EQ(rig.Collapse.Ranges.back().Depth, 99'999);
}

TEST_F(RangeColumnTest, BracketsAreDrawnInTheOrderInWhichTheirRangesEnd) {
    rig.Register(1, 50);
    rig.Register(2, 40);
    rig.Register(3, 30);
    Sort();
    OpenRanges open(rig.Collapse, rig.Elements);
    for (std::size_t k = 0; k < 3; ++k) open.Push(k, static_cast<int>(k));
    open.CloseEndingIn(Line{31}, Line{45}, 12);
    ASSERT_EQ(rig.Elements.lnExpand.UpperBound(), 1);
    EXPECT_EQ(rig.Elements.lnExpand[1].X1(), 75 + 90 + 120) << "that of the second range";
    open.CloseAll(128);
    ASSERT_EQ(rig.Elements.lnExpand.UpperBound(), 3);
    EXPECT_EQ(rig.Elements.lnExpand[2].X1(), 75 + 90 + 240) << "the latest first";
    EXPECT_EQ(rig.Elements.lnExpand[3].X1(), 75 + 90);
    EXPECT_GE(rig.Elements.lnExpand[3].Y2(), 128 * 240);
    open.CloseAll(128);
    EXPECT_EQ(rig.Elements.lnExpand.UpperBound(), 3) << "each is drawn once";
}

TEST_F(RangeColumnTest, ARangeThatEndedAboveTheFirstRowHasNoBracket) {
    rig.Register(1, 50);
    Sort();
    OpenRanges open(rig.Collapse, rig.Elements);
    open.Push(0, -1);
    open.CloseEndingIn(Line{50}, Line{50}, -1);
    open.CloseAll(128);
    EXPECT_EQ(rig.Elements.lnExpand.UpperBound(), 0);
}

TEST_F(RangeColumnTest, AtMost64RangesAreOpenAtATime) {
    for (int k = 1; k <= 66; ++k) rig.Register(k, 1000 - k);
    Sort();
    OpenRanges open(rig.Collapse, rig.Elements);
    for (std::size_t k = 0; k < 64; ++k) open.Push(k, 0);
    EXPECT_FALSE(open.TooMany());
    open.Push(64, 0);
    EXPECT_TRUE(open.TooMany());
    open.CloseEndingIn(Line{936}, Line{936}, 3);
    EXPECT_EQ(rig.Elements.lnExpand.UpperBound(), 1);
    open.Push(65, 4);
    open.CloseAll(128);
    EXPECT_EQ(rig.Elements.lnExpand.UpperBound(), 65);
}

}  // namespace
}  // namespace quorvale
