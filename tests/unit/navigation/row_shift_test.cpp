#include "navigation/row_shift.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "navigation_rig.h"
#include "state/horizontal_place.h"

namespace quorvale {
namespace {

using Log = std::vector<std::string>;

class RecordingPeers final : public RowShiftPeers {
public:
    Log Calls;
    bool InUse = true;

    void PlaceCaret() override { Calls.emplace_back("PlaceCaret"); }
    void PlaceMarker() override { Calls.emplace_back("PlaceMarker"); }
    bool UserMode() const override { return InUse; }
};

class RowShiftTest : public testing::Test {
protected:
    RowShiftTest() {
        rig.SetLines(100);
        rig.Elements.scrHorz.SetMax(12810);
        for (const char16_t* column : {u"0", u"8"}) {
            rig.Elements.lnGrid.Load().SetTag(column);
        }
    }

    void ShiftTo(std::int32_t value) {
        rig.Elements.scrHorz.SetValue(value);
        shift.HorizontalChanged();
    }

    NavigationRig rig;
    RecordingPeers peers;
    RowShift shift{rig.View, rig.Elements, rig.Metrics, rig.Options, peers};
};

TEST_F(RowShiftTest, EveryLabelMovesThenTheCaretIsPlacedOnce) {
    ShiftTo(1200);
    for (const Label& label : rig.Elements.lblLine) EXPECT_EQ(label.Left(), -645);
    EXPECT_EQ(peers.Calls, (Log{"PlaceCaret"}));
}

TEST_F(RowShiftTest, LabelsThatAreInPlaceLeaveTheCaretAlone) {
    ShiftTo(1200);
    peers.Calls.clear();
    shift.HorizontalChanged();
    EXPECT_TRUE(peers.Calls.empty());
}

TEST_F(RowShiftTest, WithinALayoutOnlyTheMarkersPictureMoves) {
    rig.View.LayoutInProgress = true;
    ShiftTo(1200);
    EXPECT_EQ(rig.Elements.lblLine[128].Left(), -645);
    EXPECT_EQ(peers.Calls, (Log{"PlaceMarker"}));
}

TEST_F(RowShiftTest, BoundaryLinesStandBehindTheirColumnsAndMoveWithTheRows) {
    shift.HorizontalChanged();
    EXPECT_EQ(rig.Elements.lnGrid[1].X1(), 555);
    EXPECT_EQ(rig.Elements.lnGrid[2].X1(), 1515);
    EXPECT_EQ(rig.Elements.lnGrid[2].Y1(), 0);
    EXPECT_EQ(rig.Elements.lnGrid[2].Y2(), 7560);
    ShiftTo(1200);
    EXPECT_EQ(rig.Elements.lnGrid[2].X1(), 315);
    EXPECT_EQ(rig.Elements.lnGrid[2].X2(), 315);
}

TEST_F(RowShiftTest, BoundaryLinesAreRenewedAlsoWhenNoRowMoves) {
    shift.HorizontalChanged();
    rig.Elements.UserControl.SetHeight(9000);
    rig.Metrics.UnitWidth = 150;
    shift.HorizontalChanged();
    EXPECT_EQ(rig.Elements.lnGrid[2].X1(), 555 + 8 * 150);
    EXPECT_EQ(rig.Elements.lnGrid[2].Y2(), 9000);
}

TEST_F(RowShiftTest, ABoundaryLeftOfTheTextStandsAtItsEdge) {
    rig.Elements.lnGrid.Load().SetTag(u"-72");
    shift.HorizontalChanged();
    EXPECT_EQ(rig.Elements.lnGrid[3].X1(), 555);
}

TEST_F(RowShiftTest, InDesignTheFocusHolderStandsAtTheTextsEdge) {
    shift.HorizontalChanged();
    EXPECT_EQ(rig.Elements.picFocus.Left(), 0) << "in use it is left alone";
    peers.InUse = false;
    shift.HorizontalChanged();
    EXPECT_EQ(rig.Elements.picFocus.Left(), 555);
}

TEST_F(RowShiftTest, AStepMayStandForSeveralTwipsAndTheLastOneEndsExactly) {
    rig.Options.WideScrollBars = true;
    rig.View.HorizontalStep = 6;
    rig.View.HorizontalEnd = 76'855;
    rig.Elements.scrHorz.SetMax(12810);
    ShiftTo(12809);
    EXPECT_EQ(rig.Elements.lblLine[0].Left(), 555 - 12809 * 6);
    ShiftTo(12810);
    EXPECT_EQ(rig.Elements.lblLine[0].Left(), 555 - 76'855);
}

TEST_F(RowShiftTest, PlacesFarAlongALineStayExact) {
    rig.Options.WideScrollBars = true;
    rig.Elements.scrHorz.SetWide(true);
    rig.Elements.scrHorz.SetMax(2'000'000'000);
    ShiftTo(1'999'999'999);
    EXPECT_EQ(rig.Elements.lblLine[0].Left(), 555.0 - 1'999'999'999.0);
}

}  // namespace
}  // namespace quorvale
