#include <gtest/gtest.h>

#include "headless/headless_box.h"
#include "platform/keys.h"
#include "support/documents.h"

namespace quorvale {
namespace {

struct FocusMoves : testing::Test {
    FocusMoves() {
        box->text(Doc(100));
        box.EnterText();
        box.Log().Clear();
    }

    Image& Marker() { return box.Elements().imgMarker; }
    Timer& Blink() { return box.Elements().tmrImage; }
    Focus& Keyboard() { return box.Elements().Focus; }

    HeadlessBox box;
};

TEST_F(FocusMoves, TheMarkerBlinksOnWhileABoxOfTheToolbarHasTheKeyboard) {
    for (const FocusChild child : {FocusChild::SearchBox, FocusChild::LineBox}) {
        Keyboard().UserMovesTo(FocusChild::TextArea);
        Keyboard().UserMovesTo(child);
        EXPECT_TRUE(Blink().Enabled());
        EXPECT_TRUE(Marker().Visible());
    }
}

TEST_F(FocusMoves, TheMarkerStandsStillWhileTheResultsListHasTheKeyboard) {
    EXPECT_TRUE(Blink().Enabled());
    Marker().SetVisible(false);
    Keyboard().UserMovesTo(FocusChild::FoundList);
    EXPECT_FALSE(Blink().Enabled());
    EXPECT_TRUE(Marker().Visible());
    Keyboard().UserMovesTo(FocusChild::TextArea);
    EXPECT_TRUE(Blink().Enabled());
}

TEST_F(FocusMoves, EnteringAndLeavingTheControlShowTheMarkerOnlyWhereThereIsText) {
    Marker().SetVisible(false);
    box.Elements().OnEnter();
    EXPECT_TRUE(Marker().Visible());
    EXPECT_TRUE(Blink().Enabled());
    box.Elements().OnExit();
    EXPECT_TRUE(Marker().Visible());
    EXPECT_FALSE(Blink().Enabled());
    box->text(u"");
    box.Elements().OnEnter();
    EXPECT_FALSE(Marker().Visible());
    Marker().SetVisible(true);
    box.Elements().OnExit();
    EXPECT_FALSE(Marker().Visible());
}

TEST_F(FocusMoves, AScrollBarNeverKeepsTheKeyboard) {
    box->text(Times(300) + u"\r\n" + Doc(100));
    for (ScrollBar* bar : {&box.Elements().scrVert, &box.Elements().scrHorz}) {
        Keyboard().UserMovesTo(FocusChild::SearchBox);
        bar->UserClickInto();
        EXPECT_EQ(Keyboard().Active(), FocusChild::TextArea) << bar->Name();
    }
}

TEST_F(FocusMoves, AScrollBarWhoseFocusCannotGoToTheTextFailsWithoutAWord) {
    Keyboard().UserMovesTo(FocusChild::SearchBox);
    Keyboard().OnRequest = [](FocusChild) { return false; };
    EXPECT_NO_THROW(box.Elements().scrVert.UserClickInto());
    EXPECT_EQ(Keyboard().Active(), FocusChild::SearchBox);
}

TEST_F(FocusMoves, NoneOfThemIsHeardByTheHost) {
    box.Elements().OnExit();
    box.Elements().OnEnter();
    Keyboard().UserMovesTo(FocusChild::LineBox);
    box.Elements().scrVert.UserClickInto();
    EXPECT_TRUE(box.Log().Entries().empty());
}

TEST_F(FocusMoves, LeavingTheControlDoesNotPullTheKeyboardBack) {
    Keyboard().UserMovesTo(FocusChild::None);
    bool wanted = false;
    Keyboard().OnRequest = [&](FocusChild) { return wanted = true; };
    box.Elements().OnExit();
    EXPECT_FALSE(wanted);
    EXPECT_EQ(Keyboard().Active(), FocusChild::None);
    box.MousePress(3, {mouse_button::Left, 0, 10, 10});
    EXPECT_TRUE(wanted) << "a press takes it again";
}

}  // namespace
}  // namespace quorvale
