#include "view/layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/errors.h"
#include "view_rig.h"

namespace quorvale {
namespace {

using Log = std::vector<std::string>;

class RecordingPeers final : public LayoutPeers {
public:
    Log Calls;
    std::function<void()> WhileSettling;

    void SettleRowShift() override { Calls.emplace_back("SettleRowShift"); }
    void SettleTopLine() override {
        Calls.emplace_back("SettleTopLine");
        if (WhileSettling) WhileSettling();
    }
    void PlaceEditor() override { Calls.emplace_back("PlaceEditor"); }
    void PlaceMarker() override { Calls.emplace_back("PlaceMarker"); }
    void FillNewRows() override { Calls.emplace_back("FillNewRows"); }
};

/// Writes down what the layout sets, in order, and lets the chosen one fail.
class FailingSetter final : public ElementWatcher {
public:
    Log Sets;
    std::size_t FailAt = 0;

    void Setting(const Element& element, std::string_view property) override {
        Sets.push_back(element.Name() + "." + std::string(property));
        if (Sets.size() == FailAt) throw ControlError(ErrorKind::InvalidValue, "refused");
    }
};

class LayoutTest : public testing::Test {
protected:
    LayoutTest() {
        rig.CreateRows();
        rig.Document.LineSlots = 101;
        rig.Document.WidestLineWidth = 1035;
    }

    ViewRig rig;
    RecordingPeers peers;
    Layout layout{rig.View,  rig.Elements, rig.Document, rig.Navigation,
                  rig.Slots, rig.Metrics,  rig.Options,  peers};
};

TEST_F(LayoutTest, WhenTheFrameStandsScrollingSettlesThenEditorAndMarkerArePlaced) {
    layout.LayoutView();
    EXPECT_EQ(peers.Calls, (Log{"SettleTopLine", "SettleRowShift", "PlaceEditor", "PlaceMarker"}));
    EXPECT_FALSE(rig.View.LayoutInProgress);
    EXPECT_EQ(rig.View.RowsPerView, 30);
}

TEST_F(LayoutTest, TheFlagIsDownAgainBeforeScrollingSettles) {
    bool raised = true;
    peers.WhileSettling = [&] { raised = rig.View.LayoutInProgress; };
    layout.LayoutView();
    EXPECT_FALSE(raised);
}

TEST_F(LayoutTest, TheFlagIsUpWhileTheBarsAreSet) {
    rig.Elements.scrVert.SetValue(20000);
    bool raised = false;
    rig.Elements.scrVert.OnChange = [&] { raised = rig.View.LayoutInProgress; };
    layout.LayoutView();
    EXPECT_TRUE(raised);
}

TEST_F(LayoutTest, DuringAnotherOneItOnlyHidesTheScrollTip) {
    rig.Elements.lblScrollTip.SetVisible(true);
    rig.View.LayoutInProgress = true;
    layout.LayoutView();
    EXPECT_FALSE(rig.Elements.lblScrollTip.Visible());
    EXPECT_TRUE(peers.Calls.empty());
    EXPECT_EQ(rig.Elements.cmdMore.Left(), 0) << "nothing is placed";
    EXPECT_TRUE(rig.View.LayoutInProgress) << "the other one is still at work";
}

TEST_F(LayoutTest, APeerThatFailsDoesNotKeepTheOthersFromTheirTurn) {
    peers.WhileSettling = [] { throw ControlError(ErrorKind::Overflow, "too far"); };
    layout.LayoutView();
    EXPECT_EQ(peers.Calls, (Log{"SettleTopLine", "SettleRowShift", "PlaceEditor", "PlaceMarker"}));
}

TEST_F(LayoutTest, AFailingStepIsSkippedAndEveryOtherOneRuns) {
    layout.LayoutView();
    peers.Calls.clear();
    FailingSetter probe;
    rig.Elements.Watch(&probe);
    layout.LayoutView();
    const Log complete = probe.Sets;
    ASSERT_GT(complete.size(), 40U);
    for (std::size_t step = 1; step <= complete.size(); ++step) {
        SCOPED_TRACE(complete[step - 1]);
        FailingSetter failing;
        failing.FailAt = step;
        rig.Elements.Watch(&failing);
        peers.Calls.clear();
        layout.LayoutView();
        rig.Elements.Watch(nullptr);
        EXPECT_EQ(failing.Sets, complete);
        EXPECT_EQ(peers.Calls,
                  (Log{"SettleTopLine", "SettleRowShift", "PlaceEditor", "PlaceMarker"}));
        EXPECT_FALSE(rig.View.LayoutInProgress);
    }
}

TEST_F(LayoutTest, AnElementThatRefusesItsPlaceLeavesTheOthersInTheirs) {
    FailingSetter probe;
    rig.Elements.Watch(&probe);
    layout.LayoutView();
    const auto place = std::find(probe.Sets.begin(), probe.Sets.end(), "scrVert.Height");
    ASSERT_NE(place, probe.Sets.end());
    FailingSetter failing;
    failing.FailAt = static_cast<std::size_t>(place - probe.Sets.begin()) + 1;
    rig.Elements.Watch(&failing);
    rig.Elements.UserControl.SetHeight(6000);
    ++failing.FailAt;
    layout.LayoutView();
    EXPECT_EQ(rig.Elements.scrVert.Height(), 7200) << "as it was";
    EXPECT_EQ(rig.Elements.scrHorz.Top(), 5745);
    EXPECT_EQ(rig.Elements.picBorder.Height(), 5670);
    EXPECT_EQ(rig.View.RowsPerView, 23);
    EXPECT_EQ(rig.Elements.scrVert.Max(), 78);
}

TEST_F(LayoutTest, WithoutAMeasureOnlyTheStepOfTheHorizontalBarIsMissing) {
    rig.Elements.scrHorz.SetSmallChange(77);
    rig.Metrics.Fails = ErrorKind::InvalidValue;
    layout.LayoutView();
    EXPECT_EQ(rig.Elements.scrHorz.SmallChange(), 77);
    EXPECT_EQ(rig.Elements.scrHorz.LargeChange(), 5872);
    EXPECT_EQ(rig.Elements.scrHorz.Max(), -10710);
}

TEST_F(LayoutTest, RowsWithoutHeightLeaveTheRowCountAsItWas) {
    layout.LayoutView();
    for (Label& label : rig.Elements.lblLine) label.SetHeight(0);
    layout.LayoutView();
    EXPECT_EQ(rig.View.RowsPerView, 30);
    EXPECT_EQ(peers.Calls.size(), 8U);
}

TEST_F(LayoutTest, RowsOfHalfATwipAreCountedByTheirRoundedHeight) {
    for (Label& label : rig.Elements.lblLine) label.SetHeight(240.5);
    layout.LayoutView();
    EXPECT_EQ(rig.View.RowsPerView, 30) << "240.5 rounds to the even 240";
    for (Label& label : rig.Elements.lblLine) label.SetHeight(241.5);
    layout.LayoutView();
    EXPECT_EQ(rig.View.RowsPerView, 29) << "241.5 rounds to the even 242";
}

TEST_F(LayoutTest, AFractionOfATwipOfRoomIsRounded) {
    rig.Elements.UserControl.SetHeight(7559.5);
    layout.LayoutView();
    EXPECT_EQ(rig.Elements.scrVert.Height(), 7200) << "7199.5, to the even number";
    EXPECT_EQ(rig.View.RowsPerView, 30);
}

TEST_F(LayoutTest, BeforeAnyDocumentItIsComplete) {
    rig.Document.LineSlots = 0;
    rig.Document.WidestLineWidth = 0;
    layout.LayoutView();
    EXPECT_FALSE(rig.Elements.scrVert.Visible());
    EXPECT_EQ(rig.Elements.scrVert.Max(), -30);
    EXPECT_EQ(rig.View.RowsPerView, 30);
}

TEST_F(LayoutTest, BeforeTheRowsExistItIsComplete) {
    ViewRig bare;
    Layout first(bare.View, bare.Elements, bare.Document, bare.Navigation, bare.Slots, bare.Metrics,
                 bare.Options, peers);
    first.LayoutView();
    EXPECT_EQ(bare.View.RowsPerView, 0);
    EXPECT_EQ(bare.Elements.cmdMore.Left(), 11745);
}

TEST_F(LayoutTest, AHundredMillionTwipsOfRowsAreNoProblem) {
    rig.Document.LineSlots = 2147483647;
    rig.Document.ScrollScale = 32767;
    layout.LayoutView();
    EXPECT_TRUE(rig.Elements.scrVert.Visible());
    EXPECT_FALSE(rig.View.LayoutInProgress);
}

TEST_F(LayoutTest, ATallViewGetsTheRowsItNeedsAndAsksToFillThem) {
    rig.Options.TallView = true;
    rig.Elements.UserControl.SetHeight(360 + 300 * 240);
    layout.LayoutView();
    EXPECT_EQ(rig.View.RowsPerView, 300);
    EXPECT_GE(rig.View.RowSlotCount, 301);
    EXPECT_EQ(rig.Elements.imgEdit.UpperBound(), rig.View.RowSlotCount);
    EXPECT_EQ(peers.Calls.back(), "FillNewRows");
    peers.Calls.clear();
    layout.LayoutView();
    EXPECT_EQ(peers.Calls.back(), "PlaceMarker") << "nothing is new the second time";
}

TEST_F(LayoutTest, AnAbsurdlyTallViewStopsSomewhere) {
    rig.Options.TallView = true;
    rig.Elements.UserControl.SetHeight(1e9);
    layout.LayoutView();
    EXPECT_LE(rig.View.RowsPerView, rig.View.RowSlotCount - 1);
    EXPECT_LE(rig.View.RowSlotCount, RowSlots::TallCount);
}

}  // namespace
}  // namespace quorvale
