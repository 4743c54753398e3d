#include "view/redraw.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/errors.h"
#include "support/error_of.h"
#include "view_rig.h"

namespace quorvale {
namespace {

using Log = std::vector<std::string>;

class RecordingPeers final : public RedrawPeers, public ElementWatcher {
public:
    Log Calls;
    bool InUse = true;

    void FillRows() override { Calls.emplace_back("FillRows"); }
    void LayoutView() override { Calls.emplace_back("LayoutView"); }
    void SettleCaret() override { Calls.emplace_back("SettleCaret"); }
    bool UserMode() const override { return InUse; }

    void Setting(const Element& element, std::string_view) override {
        if (Calls.empty() || Calls.back() != element.Name()) Calls.push_back(element.Name());
    }
};

class RedrawTest : public testing::Test {
protected:
    ViewRig rig;
    RecordingPeers peers;
    Redraw redraw{rig.View, rig.Elements, peers};
};

TEST_F(RedrawTest, TheLastSuspensionTakenBackFillsThenLaysOutThenPlacesTheCaret) {
    redraw.SetAutoRedraw(false);
    redraw.SetAutoRedraw(false);
    redraw.SetAutoRedraw(true);
    EXPECT_TRUE(peers.Calls.empty());
    EXPECT_EQ(rig.View.RedrawSuspendCount, 1);
    redraw.SetAutoRedraw(true);
    EXPECT_EQ(peers.Calls, (Log{"FillRows", "LayoutView", "SettleCaret"}));
    EXPECT_EQ(rig.View.RedrawSuspendCount, 0);
}

TEST_F(RedrawTest, ATrueTooManyDoesNothing) {
    redraw.SetAutoRedraw(true);
    EXPECT_TRUE(peers.Calls.empty());
    EXPECT_EQ(rig.View.RedrawSuspendCount, 0);
}

TEST_F(RedrawTest, TheCountHas16Bits) {
    rig.View.RedrawSuspendCount = 32767;
    EXPECT_EQ(ErrorOf([&] { redraw.SetAutoRedraw(false); }), ErrorKind::Overflow);
    EXPECT_EQ(rig.View.RedrawSuspendCount, 32767);
}

TEST_F(RedrawTest, ANewSizePlacesTheFocusHolderThenTheResultsThenTheView) {
    rig.CreateRows();
    rig.View.EverFilled = true;
    rig.Elements.Watch(&peers);
    redraw.Resized();
    EXPECT_EQ(peers.Calls, (Log{"picFocus", "lvFound", "LayoutView"}));
    EXPECT_EQ(rig.Elements.picFocus.Left(), -2000);
}

TEST_F(RedrawTest, InDesignTheFocusHolderStandsAtTheTextsEdge) {
    peers.InUse = false;
    rig.View.TextLeftMargin = 435;
    redraw.Resized();
    EXPECT_EQ(rig.Elements.picFocus.Left(), 240 + 435);
}

TEST_F(RedrawTest, TheFirstSizeOfACreatedControlIsAlsoFilled) {
    rig.CreateRows();
    redraw.Resized();
    EXPECT_EQ(peers.Calls, (Log{"LayoutView", "FillRows"}));
}

}  // namespace
}  // namespace quorvale
