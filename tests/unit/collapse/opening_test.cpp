#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "folding_rig.h"

namespace quorvale {
namespace {

TEST_F(FoldingTest, OpeningAroundALineOpensEveryRangeThatHidesIt) {
    Register(5, 20);
    Register(8, 12);
    folding.CollapseAll();
    peers.Calls.clear();
    folding.OpenAround(Line{10});
    ExpectDepths(1, 101, 0);
    EXPECT_TRUE(peers.Calls.empty()) << "the caller repaints";
}

TEST_F(FoldingTest, OpeningAroundALineKeepsDeeperFolds) {
    Register(5, 20);
    Register(8, 12);
    folding.CollapseAll();
    folding.OpenAround(Line{15});
    ExpectDepths(6, 8, 0);
    ExpectDepths(9, 12, 1);
    ExpectDepths(13, 20, 0);
    for (const std::int32_t line : {6, 8, 13}) {
        folding.CollapseAll();
        folding.OpenAround(Line{line});
        ExpectDepths(6, 8, 0);
        ExpectDepths(9, 12, 1);
        ExpectDepths(13, 20, 0);
    }
}

TEST_F(FoldingTest, OpeningAroundALineInTheMiddleOfThreeRangesKeepsTheInnermost) {
    Register(5, 40);
    Register(8, 30);
    Register(10, 20);
    folding.CollapseAll();
    folding.OpenAround(Line{25});
    ExpectDepths(1, 10, 0);
    ExpectDepths(11, 20, 1);
    ExpectDepths(21, 101, 0);
}

TEST_F(FoldingTest, OpeningAroundALineInTheOutermostOfThreeRangesKeepsBothOthers) {
    Register(5, 40);
    Register(8, 30);
    Register(10, 20);
    folding.CollapseAll();
    folding.OpenAround(Line{35});
    ExpectDepths(1, 8, 0);
    ExpectDepths(9, 10, 1);
    ExpectDepths(11, 20, 2);
    ExpectDepths(21, 30, 1);
    ExpectDepths(31, 101, 0);
}

TEST_F(FoldingTest, OpeningAroundALineKeepsAFoldBesideItInTheSameRange) {
    Register(5, 30);
    Register(8, 12);
    Register(14, 18);
    folding.CollapseAll();
    folding.OpenAround(Line{10});
    ExpectDepths(1, 14, 0);
    ExpectDepths(15, 18, 1);
    ExpectDepths(19, 101, 0);
}

TEST_F(FoldingTest, OpeningAroundALineOfCrossingRangesLeavesWhatLiesInBoth) {
    Register(5, 20);
    Register(10, 30);
    folding.CollapseAll();
    folding.OpenAround(Line{8});
    ExpectDepths(1, 10, 0);
    ExpectDepths(11, 20, 1);
    ExpectDepths(21, 101, 0);
}

TEST_F(FoldingTest, OpeningAroundALineLeavesOtherFoldsAlone) {
    Register(5, 20);
    Register(30, 40);
    folding.CollapseAll();
    folding.OpenAround(Line{10});
    ExpectDepths(6, 20, 0);
    ExpectDepths(31, 40, 1);
}

TEST_F(FoldingTest, TheEntryBehindTheLastLineIsNotOpened) {
    Register(50, 101);
    folding.CollapseAll();
    folding.OpenAround(Line{60});
    ExpectDepths(51, 100, 0);
    EXPECT_EQ(Depth(101), 1);
}

// The rule line by line, as it is told, against random nested ranges.
TEST_F(FoldingTest, OpeningAroundRandomLinesFollowsTheRule) {
    std::mt19937 random(99);
    for (int round = 0; round < 400; ++round) {
        SetLines(60);
        collapse.Ranges.clear();
        for (int k = 0; k < 12; ++k) {
            const auto from = static_cast<std::int32_t>(random() % 58) + 1;
            Register(from, std::min(from + static_cast<std::int32_t>(random() % 30) + 1, 61));
        }
        folding.CollapseAll();
        auto expected = Recount();
        const auto line = static_cast<std::size_t>(random() % 60) + 1;
        const std::int16_t around = expected[line];
        if (around == 0) continue;
        const auto open = [](std::int16_t& depth, std::int16_t& level) {
            if (depth > level) {
                depth = static_cast<std::int16_t>(depth - level);
            } else {
                level = depth;
                depth = 0;
            }
        };
        std::int16_t level = around;
        for (std::size_t i = line; i >= 1 && expected[i] != 0; --i) open(expected[i], level);
        level = around;
        for (std::size_t i = line + 1; i < 61 && expected[i] != 0; ++i) open(expected[i], level);
        folding.OpenAround(Line{static_cast<std::int32_t>(line)});
        for (std::size_t i = 1; i <= 61; ++i) {
            ASSERT_EQ(Depth(static_cast<std::int32_t>(i)), expected[i]) << "line " << i;
        }
        EXPECT_EQ(Depth(static_cast<std::int32_t>(line)), 0);
    }
}

}  // namespace
}  // namespace quorvale
