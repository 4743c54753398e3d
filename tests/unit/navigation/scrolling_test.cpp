#include "navigation/scrolling.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "navigation_rig.h"

namespace quorvale {
namespace {

using Log = std::vector<std::string>;

class RecordingPeers final : public ScrollPeers {
public:
    Log Calls;
    std::function<void()> WhileLayingOut;

    void LayoutView() override {
        Calls.emplace_back("LayoutView");
        if (WhileLayingOut) WhileLayingOut();
    }
    void FillRows() override { Calls.emplace_back("FillRows"); }
    void PlaceCaret() override { Calls.emplace_back("PlaceCaret"); }
    void RaiseScrolled() override { Calls.emplace_back("Scrolled"); }
};

const Log oneRedraw = {"LayoutView", "FillRows", "PlaceCaret", "Scrolled"};

class ScrollingTest : public testing::Test {
protected:
    ScrollingTest() { rig.SetLines(100); }

    /// A change of the vertical bar by its user.
    std::int32_t ChangeTo(std::int32_t value) {
        rig.Elements.scrVert.SetValue(value);
        scrolling.VerticalChanged();
        return Top();
    }

    std::int32_t Top() { return rig.Navigation.TopLine.Number(); }

    NavigationRig rig;
    RecordingPeers peers;
    Scrolling scrolling{rig.Navigation, rig.Elements, rig.Document, rig.View, peers};
};

TEST_F(ScrollingTest, ANewTopLineIsLaidOutFilledMarkedAndReportedInThisOrder) {
    scrolling.SetTopLine(Line{42});
    EXPECT_EQ(peers.Calls, oneRedraw);
    EXPECT_EQ(Top(), 42);
}

TEST_F(ScrollingTest, TheLayoutAlreadySeesTheNewTopLine) {
    std::int32_t seen = 0;
    peers.WhileLayingOut = [&] { seen = Top(); };
    scrolling.SetTopLine(Line{999});
    EXPECT_EQ(seen, 71);
}

TEST_F(ScrollingTest, ThePresentTopLineDoesNothing) {
    scrolling.SetTopLine(Line{1});
    EXPECT_TRUE(peers.Calls.empty());
}

TEST_F(ScrollingTest, ARequestThatIsClampedBackStillRepaintsAndReports) {
    scrolling.SetTopLine(Line{-7});
    EXPECT_EQ(Top(), 1);
    EXPECT_EQ(peers.Calls, oneRedraw);
    rig.Navigation.TopLine = Line{71};
    peers.Calls.clear();
    scrolling.SetTopLine(Line{72});
    EXPECT_EQ(Top(), 71);
    EXPECT_EQ(peers.Calls, oneRedraw);
}

TEST_F(ScrollingTest, WhileSuspendedItIsOnlyStored) {
    rig.View.RedrawSuspendCount = 1;
    scrolling.SetTopLine(Line{999});
    EXPECT_EQ(Top(), 71);
    EXPECT_TRUE(peers.Calls.empty());
}

TEST_F(ScrollingTest, TheLowerBoundWinsForAShortDocument) {
    rig.SetLines(10);
    scrolling.SetTopLine(Line{5});
    EXPECT_EQ(Top(), 1);
    rig.SetLines(0);
    rig.Document.LineSlots = 0;
    scrolling.SetTopLine(Line{5});
    EXPECT_EQ(Top(), 1);
}

TEST_F(ScrollingTest, TheBarsValueIsTheTopLineAndTheTipGoes) {
    rig.Elements.lblScrollTip.SetVisible(true);
    EXPECT_EQ(ChangeTo(36), 36);
    EXPECT_FALSE(rig.Elements.lblScrollTip.Visible());
    EXPECT_EQ(peers.Calls, oneRedraw);
}

TEST_F(ScrollingTest, ABarThatDidNotLeaveTheTopLineOnlyTakesTheTipAway) {
    rig.Elements.lblScrollTip.SetVisible(true);
    EXPECT_EQ(ChangeTo(1), 1);
    EXPECT_FALSE(rig.Elements.lblScrollTip.Visible());
    EXPECT_TRUE(peers.Calls.empty());
}

TEST_F(ScrollingTest, WhatALayoutSetsOnTheBarIsIgnored) {
    rig.View.LayoutInProgress = true;
    rig.Elements.lblScrollTip.SetVisible(true);
    EXPECT_EQ(ChangeTo(36), 1);
    EXPECT_TRUE(rig.Elements.lblScrollTip.Visible());
    EXPECT_TRUE(peers.Calls.empty());
}

TEST_F(ScrollingTest, MovingDownIntoAFoldEndsBelowItMovingUpOnItsHead) {
    rig.SetLines(200);
    rig.Hide(11, 20);
    EXPECT_EQ(ChangeTo(15), 21);
    EXPECT_EQ(ChangeTo(50), 50);
    EXPECT_EQ(ChangeTo(15), 10);
    EXPECT_EQ(ChangeTo(11), 21);
    EXPECT_EQ(ChangeTo(20), 10);
}

TEST_F(ScrollingTest, AfterALayoutTheTopLineFollowsASmallerRange) {
    rig.Navigation.TopLine = Line{71};
    rig.View.RowsPerView = 40;
    rig.Elements.lblScrollTip.SetVisible(true);
    scrolling.SettleTopLine();
    EXPECT_EQ(Top(), 61);
    EXPECT_EQ(peers.Calls, oneRedraw);
    EXPECT_FALSE(rig.Elements.lblScrollTip.Visible());
}

TEST_F(ScrollingTest, AfterALayoutATopLineThatIsReachableStays) {
    rig.SetLines(40000);
    for (const std::int32_t line : {1, 100, 101, 103, 39970, 39971}) {
        rig.Navigation.TopLine = Line{line};
        scrolling.SettleTopLine();
        EXPECT_EQ(Top(), line);
    }
    EXPECT_TRUE(peers.Calls.empty());
}

TEST_F(ScrollingTest, AfterALayoutAHiddenTopLineGivesWayToItsHead) {
    rig.Hide(6, 50);
    rig.Navigation.TopLine = Line{15};
    scrolling.SettleTopLine();
    EXPECT_EQ(Top(), 5);
    EXPECT_EQ(peers.Calls, oneRedraw);
}

TEST_F(ScrollingTest, BeforeAnyDocumentALayoutSettlesAtLineOne) {
    rig.Document = {};
    scrolling.SettleTopLine();
    EXPECT_EQ(Top(), 1);
    EXPECT_TRUE(peers.Calls.empty());
}

// Every layout settles the top line, and settling may lay out: it must come to rest.
TEST_F(ScrollingTest, SettlingWithinLayoutsComesToRestForEveryRowCountAndScale) {
    for (const std::int32_t lines : {100, 32767, 40000, 70000, 100000, 1000000}) {
        rig.SetLines(lines);
        for (std::int32_t rows = 0; rows <= 127; ++rows) {
            rig.View.RowsPerView = rows;
            int depth = 0;
            int deepest = 0;
            peers.WhileLayingOut = [&] {
                deepest = std::max(deepest, ++depth);
                if (depth < 10) scrolling.SettleTopLine();
                --depth;
            };
            scrolling.SetTopLine(Line{lines + 1});
            EXPECT_EQ(Top(), std::max(1, lines + 1 - rows));
            EXPECT_LE(deepest, 2);
            rig.Navigation.TopLine = Line{1};
        }
    }
}

TEST_F(ScrollingTest, InStepsOfSeveralLinesTheBarsEndsMeanTheDocumentsEnds) {
    rig.SetLines(40000);
    EXPECT_EQ(ChangeTo(10000), 20000);
    EXPECT_EQ(ChangeTo(1), 1);
    EXPECT_EQ(ChangeTo(rig.Elements.scrVert.Max()), 39971);
}

TEST_F(ScrollingTest, SteppingOverAMillionHiddenLinesFindsTheRightNeighbours) {
    rig.SetLines(3'000'000);
    rig.Options.WideScrollBars = true;
    rig.Elements.scrVert.SetWide(true);
    rig.Document.ScrollScale = 1;
    rig.SetVerticalRange();
    rig.Hide(1'000'001, 2'000'000);
    EXPECT_EQ(ChangeTo(1'000'001), 2'000'001);
    EXPECT_EQ(ChangeTo(2'000'000), 1'000'000);
    EXPECT_EQ(ChangeTo(1'500'000), 2'000'001);
    EXPECT_EQ(ChangeTo(1'999'999), 1'000'000);
    EXPECT_EQ(ChangeTo(999'999), 999'999);
}

// Counted by what is asked of the neighbours: a scroll into a fold of any size is one redraw.
TEST_F(ScrollingTest, AScrollIntoAHugeFoldIsOneRedraw) {
    rig.SetLines(3'000'000);
    rig.Elements.scrVert.SetWide(true);
    rig.Document.ScrollScale = 1;
    rig.SetVerticalRange();
    rig.Hide(11, 2'900'000);
    ChangeTo(1'000'000);
    EXPECT_EQ(peers.Calls, oneRedraw);
    EXPECT_EQ(Top(), 2'900'001);
}

}  // namespace
}  // namespace quorvale
