#include "navigation/reveal.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "navigation_rig.h"

namespace quorvale {
namespace {

using Log = std::vector<std::string>;

class RecordingPeers final : public RevealPeers {
public:
    explicit RecordingPeers(NavigationRig& rig) : rig_(rig) {}

    Log Calls;

    void OpenAround(Line line) override {
        Calls.push_back("OpenAround " + std::to_string(line.Number()));
        rig_.Document.Table.HiddenDepth.Reset(rig_.Document.LineSlots, 0);
    }
    void FillRows() override {
        Calls.emplace_back("FillRows");
        rig_.ShowRows();
    }
    void LayoutView() override { Calls.emplace_back("LayoutView"); }
    void SetTopLine(Line line) override {
        Calls.push_back("TopLine " + std::to_string(line.Number()));
    }

private:
    NavigationRig& rig_;
};

class RevealTest : public testing::Test {
protected:
    RevealTest() {
        rig.SetText(Times(200) + u"\r\n" + Doc(199));
        rig.Elements.scrHorz.SetMax(12810);
        rig.Document.WidestLineWidth = 24555;
        rig.View.LaidOutWidth = 24555;
        rig.ShowRows();
    }

    Log Revealing(std::int32_t number, std::int32_t col = 1) {
        peers.Calls.clear();
        Line line{number};
        reveal.RevealLine(line, col);
        clamped = line.Number();
        return peers.Calls;
    }

    void StandAt(std::int32_t top) {
        rig.Navigation.TopLine = Line{top};
        rig.ShowRows();
    }

    NavigationRig rig;
    RecordingPeers peers{rig};
    LineAccess lines{rig.Document, rig.View, rig.Elements, rig.Metrics, rig.Options};
    Reveal reveal{rig.Elements, rig.Document, rig.View, rig.Navigation, lines, peers};
    std::int32_t clamped = 0;
};

TEST_F(RevealTest, WithoutADocumentNothingHappensAndTheLineStays) {
    rig.Document = {};
    EXPECT_TRUE(Revealing(5).empty());
    EXPECT_EQ(clamped, 5);
}

TEST_F(RevealTest, TheCallersLineIsClampedToTheEntriesOfTheTable) {
    Revealing(0);
    EXPECT_EQ(clamped, 1);
    Revealing(-2147483647);
    EXPECT_EQ(clamped, 1);
    Revealing(2147483647);
    EXPECT_EQ(clamped, 201);
    Revealing(201);
    EXPECT_EQ(clamped, 201);
    Revealing(60);
    EXPECT_EQ(clamped, 60);
}

TEST_F(RevealTest, ALineAboveTheViewComesSecond) {
    StandAt(50);
    EXPECT_EQ(Revealing(20), (Log{"TopLine 19"}));
    EXPECT_EQ(Revealing(1), (Log{"TopLine 1"}));
    rig.Hide(11, 19);
    EXPECT_EQ(Revealing(20), (Log{"TopLine 10"}));
}

TEST_F(RevealTest, TheMiddleRowIsHalfTheRowsRoundedTiesToEven) {
    const std::pair<int, int> middles[] = {{0, 0}, {1, 0}, {2, 1},   {3, 2},
                                           {5, 2}, {7, 4}, {30, 15}, {31, 16}};
    for (const auto& [rows, middle] : middles) {
        rig.View.RowsPerView = rows;
        for (int slot = 0; slot <= rows; ++slot) {
            const bool moves = !Revealing(slot + 1).empty();
            EXPECT_EQ(moves, slot >= middle) << rows << " rows, slot " << slot;
        }
    }
}

TEST_F(RevealTest, TheLowerHalfIsCentredByWholeVisibleLinesAboveIt) {
    const std::pair<int, int> above[] = {{0, 0}, {1, 0}, {2, 0},   {3, 1},  {4, 1},
                                         {5, 2}, {7, 3}, {30, 14}, {31, 15}};
    StandAt(1);
    for (const auto& [rows, count] : above) {
        rig.View.RowsPerView = rows;
        EXPECT_EQ(Revealing(100), (Log{"TopLine " + std::to_string(100 - count)})) << rows;
    }
}

TEST_F(RevealTest, HiddenLinesAboveAreNotCounted) {
    rig.Hide(31, 60);
    rig.ShowRows();
    EXPECT_EQ(Revealing(70), (Log{"TopLine 26"}));
}

TEST_F(RevealTest, AboveTheFirstLineThereIsNothingToCount) {
    rig.Hide(2, 60);
    rig.ShowRows();
    rig.View.RowsPerView = 30;
    EXPECT_EQ(Revealing(61), Log{});
    StandAt(61);
    rig.Elements.lblLine[15].SetTag(u"3");
    EXPECT_EQ(Revealing(61), (Log{"TopLine 1"}));
}

TEST_F(RevealTest, AHiddenLinesFoldsAreOpenedThenFilledThenLaidOut) {
    rig.Hide(6, 20);
    rig.ShowRows();
    EXPECT_EQ(Revealing(10), (Log{"OpenAround 10", "FillRows", "LayoutView"}));
}

TEST_F(RevealTest, WhileSuspendedTheFoldsAreOpenedOnly) {
    rig.Hide(6, 20);
    rig.ShowRows();
    rig.View.RedrawSuspendCount = 1;
    EXPECT_EQ(Revealing(10), (Log{"OpenAround 10"}));
}

TEST_F(RevealTest, ForThePlaceBehindTheEndTheLastLineIsUncovered) {
    rig.Hide(50, 200);
    rig.ShowRows();
    const Log calls = Revealing(201);
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(calls.front(), "OpenAround 200");
    EXPECT_EQ(clamped, 201);
}

TEST_F(RevealTest, WhileSuspendedItCountsWhatTheNextFillWouldShow) {
    rig.View.RedrawSuspendCount = 1;
    rig.Navigation.TopLine = Line{150};
    EXPECT_EQ(Revealing(3), (Log{"TopLine 2"})) << "the rows still show line 3";
    rig.Hide(155, 180);
    EXPECT_EQ(Revealing(185), Log{}) << "the tenth visible line from the top";
}

TEST_F(RevealTest, ColumnsInViewShiftNothing) {
    Revealing(1, 94);
    EXPECT_EQ(rig.Elements.scrHorz.Value(), 0);
}

TEST_F(RevealTest, AColumnOutOfViewBecomesTheValueWithinTheRange) {
    Revealing(1, 95);
    EXPECT_EQ(rig.Elements.scrHorz.Value(), 11280);
    Revealing(1, 90);
    EXPECT_EQ(rig.Elements.scrHorz.Value(), 10680);
    rig.Elements.scrHorz.SetValue(0);
    Revealing(1, 150);
    EXPECT_EQ(rig.Elements.scrHorz.Value(), 12810);
    Revealing(1, 1);
    EXPECT_EQ(rig.Elements.scrHorz.Value(), 0);
}

TEST_F(RevealTest, ARangeThatEndsBelowItsStartKeepsTheLeftEdge) {
    rig.Elements.scrHorz.SetMax(-10710);
    Revealing(1, 150);
    EXPECT_EQ(rig.Elements.scrHorz.Value(), 0);
}

TEST_F(RevealTest, BehindTheLastLineThereIsNoColumnToShow) {
    rig.Elements.scrHorz.SetValue(5000);
    Revealing(201, 40);
    EXPECT_EQ(rig.Elements.scrHorz.Value(), 0);
}

TEST_F(RevealTest, ALineFoundToBeWiderThanTheLayoutKnewIsLaidOutFirst) {
    rig.SetText(Doc(199) + u"\r\n" + Times(300));
    rig.Document.WidestLineWidth = 1035;
    rig.View.LaidOutWidth = 1035;
    rig.ShowRows();
    const Log calls = Revealing(200, 250);
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(calls.back(), "LayoutView");
    EXPECT_EQ(rig.Document.WidestLineWidth, 240 + 36000 + 315);
}

}  // namespace
}  // namespace quorvale
