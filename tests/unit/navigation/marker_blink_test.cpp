#include "navigation/marker_blink.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "navigation_rig.h"

namespace quorvale {
namespace {

/// Notes how the marker stands when the editor is closed, and asks for the keyboard there, as
/// whoever closes the editor does.
class RecordingPeers final : public MarkerBlinkPeers {
public:
    explicit RecordingPeers(Surface& surface) : surface_(surface) {}

    std::vector<std::string> Calls;
    bool GotFocus = false;

    void CloseEdit() override {
        Calls.push_back(std::string("CloseEdit, marker ") +
                        (surface_.imgMarker.Visible() ? "shown, " : "hidden, ") +
                        (surface_.tmrImage.Enabled() ? "blinking" : "steady"));
        GotFocus = surface_.Focus.Request(FocusChild::TextArea);
    }

private:
    Surface& surface_;
};

class MarkerBlinkTest : public testing::Test {
protected:
    MarkerBlinkTest() {
        rig.SetText(Doc(5));
        rig.Elements.imgMarker.SetVisible(false);
    }

    Image& Marker() { return rig.Elements.imgMarker; }
    Timer& Blink() { return rig.Elements.tmrImage; }

    NavigationRig rig;
    RecordingPeers peers{rig.Elements};
    MarkerBlink blink{rig.Elements, rig.Document, peers};
};

TEST_F(MarkerBlinkTest, EnteringStartsTheTimerAndShowsTheMarker) {
    blink.Entered();
    EXPECT_TRUE(Blink().Enabled());
    EXPECT_TRUE(Marker().Visible());
    EXPECT_TRUE(peers.Calls.empty());
}

TEST_F(MarkerBlinkTest, LeavingStopsTheTimerThenShowsTheMarkerThenClosesTheEditor) {
    blink.Entered();
    Marker().SetVisible(false);
    blink.Exited();
    EXPECT_EQ(peers.Calls, (std::vector<std::string>{"CloseEdit, marker shown, steady"}));
}

TEST_F(MarkerBlinkTest, WhoeverClosesTheEditorCannotPullTheKeyboardBack) {
    blink.Exited();
    EXPECT_FALSE(peers.GotFocus);
    EXPECT_EQ(rig.Elements.Focus.Active(), FocusChild::None);
    EXPECT_TRUE(rig.Elements.Focus.Request(FocusChild::TextArea)) << "afterwards it can be had";
}

TEST_F(MarkerBlinkTest, InADocumentThatIsOnlyALineBreakThereIsNoMarker) {
    rig.SetText(u"");
    Marker().SetVisible(true);
    blink.Entered();
    EXPECT_FALSE(Marker().Visible());
    Marker().SetVisible(true);
    blink.Exited();
    EXPECT_FALSE(Marker().Visible());
    for (int tick = 0; tick < 2; ++tick) {
        Marker().SetVisible(tick == 0);
        blink.Ticked();
        EXPECT_FALSE(Marker().Visible());
    }
}

TEST_F(MarkerBlinkTest, EveryTickTurnsTheMarkerOnOrOff) {
    for (const bool shown : {true, false, true}) {
        blink.Ticked();
        EXPECT_EQ(Marker().Visible(), shown);
    }
}

TEST_F(MarkerBlinkTest, WhileAnotherElementHasTheKeyboardTheMarkerStandsStill) {
    blink.ChildGotFocus(FocusChild::TextArea);
    EXPECT_TRUE(Blink().Enabled());
    EXPECT_FALSE(Marker().Visible()) << "the next tick decides";
    blink.ChildLostFocus(FocusChild::TextArea);
    EXPECT_FALSE(Blink().Enabled());
    EXPECT_TRUE(Marker().Visible());
}

TEST_F(MarkerBlinkTest, OtherElementsAreNoneOfItsConcern) {
    for (const FocusChild child :
         {FocusChild::SearchBox, FocusChild::LineBox, FocusChild::Editor, FocusChild::FoundList}) {
        blink.ChildGotFocus(child);
        EXPECT_FALSE(Blink().Enabled());
        blink.ChildLostFocus(child);
        EXPECT_FALSE(Marker().Visible());
    }
}

}  // namespace
}  // namespace quorvale
