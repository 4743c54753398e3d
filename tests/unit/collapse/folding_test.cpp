#include "collapse/folding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "base/errors.h"
#include "document/visible_lines.h"
#include "folding_rig.h"
#include "support/error_of.h"

namespace quorvale {
namespace {

TEST_F(FoldingTest, CollapseAllRaisesEveryLineByTheRangesItLiesInButNotTheirHeads) {
    Register(5, 20);
    Register(8, 12);
    folding.CollapseAll();
    ExpectDepths(1, 5, 0);
    ExpectDepths(6, 8, 1);
    ExpectDepths(9, 12, 2);
    ExpectDepths(13, 20, 1);
    ExpectDepths(21, 101, 0);
}

TEST_F(FoldingTest, CollapseAllFillsThenLaysOutThenPlacesTheCaret) {
    Register(5, 20);
    folding.CollapseAll();
    EXPECT_EQ(peers.Calls, (Log{"FillRows", "LayoutView", "SetRow 1"}));
}

TEST_F(FoldingTest, TheCaretClimbsFromAHiddenLineToTheNearestShownOne) {
    Register(5, 20);
    navigation.CaretRow = Line{12};
    folding.CollapseAll();
    EXPECT_EQ(navigation.CaretRow, Line{5});
    EXPECT_EQ(peers.Calls[2], "SetRow 5");
}

TEST_F(FoldingTest, CollapseAllTwiceIsTheSameAsOnce) {
    Register(5, 20);
    Register(8, 12);
    folding.CollapseAll();
    folding.CollapseAll();
    ExpectRecounted();
}

TEST_F(FoldingTest, CollapseAllFoldsAgainWhatWasUnfoldedOneByOne) {
    Register(5, 20);
    Register(8, 12);
    folding.CollapseAll();
    folding.ExpandAt(Line{5}, false);
    ExpectDepths(6, 8, 0);
    ExpectDepths(9, 12, 1);
    folding.CollapseAll();
    ExpectRecounted();
}

TEST_F(FoldingTest, ExpandAllShowsEverythingAndKeepsTheRanges) {
    Register(5, 20);
    folding.CollapseAll();
    peers.Calls.clear();
    navigation.CaretRow = Line{3};
    folding.ExpandAll();
    ExpectDepths(1, 101, 0);
    EXPECT_EQ(collapse.Ranges.size(), 1U);
    EXPECT_EQ(peers.Calls, (Log{"FillRows", "LayoutView", "SetRow 3"}));
    folding.CollapseAll();
    ExpectRecounted();
}

TEST_F(FoldingTest, WithoutADocumentNothingFails) {
    document = {};
    navigation.CaretRow = Line{0};
    EXPECT_EQ(ErrorOf([&] { folding.CollapseAll(); }), std::nullopt);
    EXPECT_EQ(ErrorOf([&] { folding.ExpandAll(); }), std::nullopt);
}

TEST_F(FoldingTest, ARangeUpToTheEntryBehindTheLastLineIsFolded) {
    Register(100, 101);
    EXPECT_EQ(ErrorOf([&] { folding.CollapseAll(); }), std::nullopt);
    EXPECT_EQ(Depth(100), 0);
    EXPECT_EQ(Depth(101), 1);
}

TEST_F(FoldingTest, ARangePastTheDocumentIsAnIndexErrorAndWhatWasRaisedStays) {
    Register(5, 20);
    Register(90, 150);
    Register(30, 40);
    EXPECT_EQ(ErrorOf([&] { folding.CollapseAll(); }), ErrorKind::Index);
    ExpectDepths(6, 20, 1);
    ExpectDepths(91, 101, 1);
    ExpectDepths(31, 40, 0);
    ExpectRecounted();
}

TEST_F(FoldingTest, AfterAFailureTheCaretStillStandsOnAShownLineAndTheRowsAreFilled) {
    Register(90, 150);
    navigation.CaretRow = Line{95};
    EXPECT_EQ(ErrorOf([&] { folding.CollapseAll(); }), ErrorKind::Index);
    EXPECT_EQ(navigation.CaretRow, Line{90});
    ASSERT_GE(peers.Calls.size(), 2U);
    EXPECT_EQ(peers.Calls[0], "FillRows");
    EXPECT_EQ(peers.Calls[1], "LayoutView");
}

TEST_F(FoldingTest, ACaretThatHadToClimbBeforeAFailureIsPlacedAndReportedLikeAnyOther) {
    // Symptom: the caret stood behind the end of the line it had climbed to, and the selection was
    // that of other rows.
    Register(90, 150);
    navigation.CaretRow = Line{95};
    EXPECT_EQ(ErrorOf([&] { folding.CollapseAll(); }), ErrorKind::Index);
    EXPECT_EQ(peers.Calls, (Log{"FillRows", "LayoutView", "SetRow 90", "CaretMoved"}));
    folding.ExpandAll();
    peers.Calls.clear();
    navigation.CaretRow = Line{95};
    EXPECT_EQ(ErrorOf([&] { folding.CollapseRangeAt(Line{90}, Line{150}); }), ErrorKind::Index);
    EXPECT_EQ(peers.Calls, (Log{"FillRows", "LayoutView", "SetRow 90", "CaretMoved"}));
}

TEST_F(FoldingTest, ACaretThatDidNotHaveToClimbStaysWhereItIsAfterAFailure) {
    Register(90, 150);
    navigation.CaretRow = Line{50};
    EXPECT_EQ(ErrorOf([&] { folding.CollapseAll(); }), ErrorKind::Index);
    EXPECT_EQ(peers.Calls, (Log{"FillRows", "LayoutView"}));
}

TEST_F(FoldingTest, AClimbIsReportedOnce) {
    Register(5, 20);
    navigation.CaretRow = Line{12};
    folding.CollapseAll();
    EXPECT_EQ(peers.Calls, (Log{"FillRows", "LayoutView", "SetRow 5", "CaretMoved"}));
}

TEST_F(FoldingTest, RandomRangesEndWithTheDepthsOfALineByLineCount) {
    std::mt19937 random(4711);
    for (int round = 0; round < 300; ++round) {
        const auto lines = static_cast<std::int32_t>(random() % 400 + 1);
        SetLines(lines);
        collapse.Ranges.clear();
        const auto count = random() % 40;
        for (unsigned k = 0; k < count; ++k) {
            const auto from =
                static_cast<std::int32_t>(random() % static_cast<unsigned>(lines)) + 1;
            const auto length = static_cast<std::int32_t>(random() % 80) + 1;
            Register(from, round % 3 == 0 ? from + length : std::min(from + length, lines + 1));
            if (random() % 8 == 0) collapse.Ranges.push_back(collapse.Ranges.back());
        }
        const bool outside =
            std::any_of(collapse.Ranges.begin(), collapse.Ranges.end(),
                        [&](const CollapseRange& r) { return r.ToRow > lines + 1; });
        const auto error = ErrorOf([&] { folding.CollapseAll(); });
        EXPECT_EQ(error, outside ? std::optional(ErrorKind::Index) : std::nullopt) << round;
        ExpectRecounted();
        EXPECT_FALSE(document.IsHidden(navigation.CaretRow));
    }
}

TEST_F(FoldingTest, RangesAcrossManyBlocksOfLinesEndWithTheSameDepths) {
    std::mt19937 random(815);
    SetLines(20'000);
    for (int k = 0; k < 300; ++k) {
        const auto from = static_cast<std::int32_t>(random() % 19'000) + 1;
        Register(from, std::min(from + static_cast<std::int32_t>(random() % 12'000) + 1, 20'001));
    }
    folding.CollapseAll();
    ExpectRecounted();
}

TEST_F(FoldingTest, LinesInMoreFoldsThan16BitsCountAreAnOverflow) {
    for (int k = 0; k < 32768; ++k) Register(5, 7);
    EXPECT_EQ(ErrorOf([&] { folding.CollapseAll(); }), ErrorKind::Overflow);
    EXPECT_EQ(Depth(6), 32767);
    collapse.Ranges.pop_back();
    EXPECT_EQ(ErrorOf([&] { folding.CollapseAll(); }), std::nullopt);
    EXPECT_EQ(Depth(7), 32767);
}

TEST_F(FoldingTest, FoldingALineOnceMoreThan16BitsCountIsAnOverflow) {
    for (int k = 0; k < 32767; ++k) folding.CollapseRangeAt(Line{5}, Line{7});
    EXPECT_EQ(Depth(6), 32767);
    EXPECT_EQ(ErrorOf([&] { folding.CollapseRangeAt(Line{5}, Line{7}); }), ErrorKind::Overflow);
    EXPECT_EQ(Depth(6), 32767);
    EXPECT_EQ(Depth(7), 32767);
}

TEST_F(FoldingTest, FoldingOneRangeRaisesItsLinesAndTakesTheCaretToItsHead) {
    navigation.CaretRow = Line{50};
    folding.CollapseRangeAt(Line{5}, Line{20});
    ExpectDepths(6, 20, 1);
    EXPECT_EQ(peers.Calls, (Log{"FillRows", "LayoutView", "SetRow 5"}));
    EXPECT_EQ(navigation.CaretRow, Line{5});
}

TEST_F(FoldingTest, FoldingTheRangeAroundTheCaretTakesItToTheHeadToo) {
    navigation.CaretRow = Line{12};
    folding.CollapseRangeAt(Line{5}, Line{20});
    EXPECT_EQ(navigation.CaretRow, Line{5});
}

TEST_F(FoldingTest, WhileSuspendedOnlyTheDepthsChange) {
    view.RedrawSuspendCount = 1;
    navigation.CaretRow = Line{12};
    folding.CollapseRangeAt(Line{5}, Line{20});
    ExpectDepths(6, 20, 1);
    folding.ExpandAt(Line{5}, false);
    ExpectDepths(6, 20, 0);
    EXPECT_TRUE(peers.Calls.empty());
    EXPECT_EQ(navigation.CaretRow, Line{12});
}

TEST_F(FoldingTest, FoldingARangePastTheDocumentIsAnIndexError) {
    EXPECT_EQ(ErrorOf([&] { folding.CollapseRangeAt(Line{90}, Line{150}); }), ErrorKind::Index);
    ExpectDepths(91, 101, 1);
}

TEST_F(FoldingTest, UnfoldingOneLevelLeavesInnerFolds) {
    Register(5, 20);
    Register(8, 12);
    folding.CollapseAll();
    peers.Calls.clear();
    folding.ExpandAt(Line{5}, false);
    ExpectDepths(6, 8, 0);
    ExpectDepths(9, 12, 1);
    ExpectDepths(13, 20, 0);
    EXPECT_EQ(peers.Calls, (Log{"FillRows", "LayoutView", "SetRow 5"}));
}

TEST_F(FoldingTest, UnfoldingAllLevelsShowsEveryHiddenLineBelow) {
    Register(5, 20);
    Register(8, 12);
    folding.CollapseAll();
    folding.ExpandAt(Line{5}, true);
    ExpectDepths(1, 101, 0);
}

TEST_F(FoldingTest, UnfoldingStopsAtTheFirstShownLine) {
    Register(5, 10);
    Register(11, 20);
    folding.CollapseAll();
    folding.ExpandAt(Line{5}, false);
    ExpectDepths(6, 11, 0);
    ExpectDepths(12, 20, 1);
}

TEST_F(FoldingTest, UnfoldingReachesTheEntryBehindTheLastLine) {
    Register(90, 101);
    folding.CollapseAll();
    folding.ExpandAt(Line{90}, false);
    ExpectDepths(1, 101, 0);
}

TEST_F(FoldingTest, NumbersThatAreNoEntryUnfoldNothing) {
    Register(5, 20);
    folding.CollapseAll();
    peers.Calls.clear();
    for (const std::int32_t line : {0, -1, 102, 2147483647}) folding.ExpandAt(Line{line}, true);
    ExpectDepths(6, 20, 1);
    EXPECT_TRUE(peers.Calls.empty());
}

TEST_F(FoldingTest, ALineHeadsAFoldWhenTheNextOneIsHidden) {
    Register(5, 20);
    Register(100, 101);
    folding.CollapseAll();
    EXPECT_TRUE(folding.HasHiddenBelow(Line{5}));
    EXPECT_TRUE(folding.HasHiddenBelow(Line{6}));
    EXPECT_FALSE(folding.HasHiddenBelow(Line{20}));
    EXPECT_TRUE(folding.HasHiddenBelow(Line{100}));
    EXPECT_FALSE(folding.HasHiddenBelow(Line{101}));
    EXPECT_FALSE(folding.HasHiddenBelow(Line{2147483647}));
}

// Folding costs by the ranges, not by the lines in them: what a fold of a million lines spreads
// over is a handful of blocks, and stepping over it gives the lines on its two sides.
TEST_F(FoldingTest, AFoldOfAMillionLinesCostsNoMoreThanItsEdges) {
    SetLines(10'000'000);
    for (std::int32_t k = 0; k < 5; ++k) Register(1'000'000 + k, 2'000'000 - k);
    folding.CollapseAll();
    EXPECT_LE(document.Table.HiddenDepth.SpreadChunks(), 4U);
    EXPECT_EQ(NextVisibleLine(document, Line{1'000'000}), Line{2'000'001});
    EXPECT_EQ(PreviousVisibleLine(document, Line{2'000'001}), Line{1'000'000});
    EXPECT_EQ(Depth(1'500'000), 5);
    EXPECT_EQ(Depth(1'000'003), 3);
    folding.ExpandAt(Line{1'000'000}, false);
    EXPECT_EQ(Depth(1'500'000), 4);
    EXPECT_EQ(NextVisibleLine(document, Line{1'000'001}), Line{2'000'000});
    folding.ExpandAll();
    EXPECT_EQ(document.Table.HiddenDepth.SpreadChunks(), 0U);
}

TEST_F(FoldingTest, AHundredThousandRangesAreFoldedAndUnfolded) {
    SetLines(9'400'000);
    for (std::int32_t k = 0; k < 100'000; ++k) Register(k * 94 + 1, k * 94 + 90);
    folding.CollapseAll();
    EXPECT_EQ(NextVisibleLine(document, Line{1}), Line{91});
    EXPECT_EQ(NextVisibleLine(document, Line{94 * 99'999 + 1}), Line{94 * 99'999 + 91});
    std::int32_t hidden = 0;
    for (std::int32_t line = 1; line <= 940; ++line)
        hidden += document.IsHidden(Line{line}) ? 1 : 0;
    EXPECT_EQ(hidden, 10 * 89);
    folding.ExpandAll();
    EXPECT_EQ(NextVisibleLine(document, Line{1}), Line{2});
}

}  // namespace
}  // namespace quorvale
