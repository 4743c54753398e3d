#include <gtest/gtest.h>

#include "headless/headless_box.h"
#include "platform/keys.h"
#include "support/documents.h"

namespace quorvale {
namespace {

constexpr std::int16_t left = mouse_button::Left;
constexpr std::int16_t right = mouse_button::Right;
constexpr std::int16_t middle = mouse_button::Middle;

struct Mouse : testing::Test {
    Mouse() {
        box->text(Doc(100));
        box.Log().Clear();
    }

    std::int32_t Selected() { return box->SelectedRowsCount(); }
    Image& Marker() { return box.Elements().imgMarker; }
    Timer& Blink() { return box.Elements().tmrImage; }

    HeadlessBox box;
};

TEST_F(Mouse, APressPutsTheCaretBeforeTheCharacterUnderIt) {
    box.MousePress(4, {left, 0, 130, 100});
    EXPECT_EQ(box->row(), 5);
    EXPECT_EQ(box->col(), 2);
    EXPECT_EQ(box.Elements().Focus.Active(), FocusChild::TextArea);
}

TEST_F(Mouse, APressRightOfTheTextStandsBeforeItsLastCharacter) {
    box.MousePress(4, {left, 0, 5000, 100});
    EXPECT_EQ(box->col(), 2);
}

TEST_F(Mouse, APressOnABlankRowGoesToTheLastLineLeftOfItsText) {
    box->text(Doc(3));
    box.MousePress(10, {left, 0, 300, 100});
    EXPECT_EQ(box->row(), 3);
    EXPECT_EQ(box->col(), 0);
}

TEST_F(Mouse, PressAndReleaseAreReportedInPlacesOfTheControl) {
    box.MousePress(2, {left, 0, 10, 20});
    box.MouseRelease(2, {left, 0, 10, 20});
    const auto& log = box.Log().Entries();
    EXPECT_EQ(log, (std::vector<std::string>{"SelChanged", "MouseDown(1, 0, 565, 860)",
                                             "MouseUp(1, 0, 565, 860)"}));
}

TEST_F(Mouse, WhileTheCaretIsPlacedTheMarkerRestsAndThenBlinksAgain) {
    box.EnterText();
    std::vector<std::string> seen;
    box.Log().OnEvent = [&](const std::string& event) {
        seen.push_back(event.substr(0, 9) + (Marker().Visible() ? " shown" : " hidden") +
                       (Blink().Enabled() ? " blinking" : " resting"));
    };
    box.MousePress(4, {left, 0, 130, 100});
    EXPECT_EQ(seen,
              (std::vector<std::string>{"SelChange hidden resting", "MouseDown hidden blinking"}));
}

TEST_F(Mouse, ARefusedFocusIsIgnored) {
    box.Elements().Focus.OnRequest = [](FocusChild) { return false; };
    box.MousePress(4, {left, 0, 130, 100});
    EXPECT_EQ(box->row(), 5);
}

TEST_F(Mouse, ShiftAndLeftSelectTheRowsFromTheAnchor) {
    box->MoveTo(10, 1);
    box.MousePress(12, {left, shift_mask::Shift, 130, 100});
    EXPECT_EQ(Selected(), -4) << "from 10 down to 13";
    box.MousePress(6, {left, shift_mask::Shift, 130, 100});
    EXPECT_EQ(Selected(), 4) << "from 10 up to 7";
    box.MousePress(9, {left, shift_mask::Shift, 10, 100});
    EXPECT_EQ(Selected(), 1) << "the anchor's own row";
}

TEST_F(Mouse, OnlyShiftAloneWithTheLeftButtonExtends) {
    box->MoveTo(10, 1);
    box.MousePress(12, {left, shift_mask::Shift + shift_mask::Ctrl, 130, 100});
    EXPECT_EQ(Selected(), 0);
    box->MoveTo(10, 1);
    box.MousePress(12, {right, shift_mask::Shift, 130, 100});
    EXPECT_EQ(Selected(), 0);
}

TEST_F(Mouse, APlainPressDropsTheSelectionAlsoAtTheCaretsOwnPlace) {
    box->MoveTo(10, 1);
    box.MousePress(12, {left, shift_mask::Shift, 130, 100});
    box.MousePress(20, {left, 0, 130, 100});
    EXPECT_EQ(Selected(), 0);
    box->SelectedRowsCount(3);
    box.Log().Clear();
    box.MousePress(20, {left, 0, 130, 100});
    EXPECT_EQ(Selected(), 0) << "the caret did not move, the selection goes all the same";
    EXPECT_EQ(box.Log().Count("SelChanged"), 1U);
}

TEST_F(Mouse, ARightPressKeepsASelectionForTheHost) {
    box->MoveTo(10, 1);
    box->SelectedRowsCount(3);
    box.Log().Clear();
    box.MousePress(20, {right, 0, 130, 100});
    EXPECT_EQ(box->row(), 10);
    EXPECT_EQ(Selected(), 3);
    EXPECT_EQ(box.Log().Entries(), (std::vector<std::string>{"MouseDown(2, 0, 685, 5260)"}));
}

TEST_F(Mouse, ARightPressWithoutASelectionMovesTheCaret) {
    box.MousePress(20, {right, 0, 130, 100});
    EXPECT_EQ(box->row(), 21);
}

TEST_F(Mouse, ADragStartsAfterMoreThanSixtyTwips) {
    box.MousePress(4, {left, 0, 300, 200});
    box.MouseMove(4, {left, 0, 310, 250});
    EXPECT_EQ(Selected(), 0) << "10 to the right and 50 down";
    box.MouseMove(4, {left, 0, 310, 251});
    EXPECT_EQ(Selected(), -2);
}

TEST_F(Mouse, NothingDragsWithAnotherButtonOrFromTheLeftEdge) {
    box.MousePress(4, {middle, 0, 300, 100});
    box.MouseMove(4, {middle, 0, 300, 900});
    EXPECT_EQ(Selected(), 0);
    box.MousePress(4, {left, 0, 0, 100});
    box.MouseMove(4, {left, 0, 0, 900});
    EXPECT_EQ(Selected(), 0);
}

TEST_F(Mouse, ADragSelectsTheRowsItPassesAndReportsNoPressOfItsOwn) {
    box.MousePress(4, {left, 0, 300, 100});
    box.Log().Clear();
    box.MouseMove(4, {left, 0, 300, 610});
    EXPECT_EQ(box->row(), 7);
    EXPECT_EQ(Selected(), -3);
    EXPECT_EQ(box.Log().Entries(), (std::vector<std::string>{"SelChanged"}));
    box.MouseMove(4, {left, 0, 300, -300});
    EXPECT_EQ(box->row(), 3);
    EXPECT_EQ(Selected(), 3);
    box.MouseRelease(4, {left, 0, 300, -300});
    EXPECT_EQ(box.Log().Entries().back().substr(0, 7), "MouseUp");
    box.MouseMove(9, {0, 0, 500, 100});
    EXPECT_EQ(box->row(), 3);
}

TEST_F(Mouse, WhichRowADragReachesIsCountedInWholeRows) {
    const auto reached = [&](double y) {
        box.MousePress(10, {left, 0, 300, 100});
        box.MouseMove(10, {left, 0, 900, y});
        box.MouseRelease(10, {left, 0, 900, y});
        return box->row() - 1;
    };
    EXPECT_EQ(reached(239), 10);
    EXPECT_EQ(reached(240), 11);
    EXPECT_EQ(reached(-1), 9);
    EXPECT_EQ(reached(-240), 8) << "kept: a full row above counts as two";
}

TEST_F(Mouse, AboveTheRowsADragScrollsALineUpPerMove) {
    box->TopLine(50);
    box.MousePress(3, {left, 0, 300, 100});
    box.MouseMove(3, {left, 0, 300, -800});
    EXPECT_EQ(box->TopLine(), 49);
    EXPECT_EQ(box->row(), 49);
    EXPECT_EQ(box->col(), 0);
    EXPECT_EQ(Selected(), 5);
}

TEST_F(Mouse, BelowTheRowsADragScrollsALineDownPerMove) {
    box->TopLine(50);
    box.MousePress(28, {left, 0, 300, 100});
    box.MouseMove(28, {left, 0, 300, 800});
    EXPECT_EQ(box->TopLine(), 51);
    EXPECT_EQ(box->row(), 80);
    EXPECT_EQ(box->col(), 0);
}

TEST_F(Mouse, AtTheEndsADragHasNowhereToGo) {
    box->TopLine(71);
    box.MousePress(28, {left, 0, 300, 100});
    const std::int32_t row = box->row();
    box.MouseMove(28, {left, 0, 300, 800});
    EXPECT_EQ(box->TopLine(), 71);
    EXPECT_EQ(box->row(), row);
    box->TopLine(1);
    box.MousePress(3, {left, 0, 300, 100});
    box.Log().Clear();
    box.MouseMove(3, {left, 0, 300, -1000});
    EXPECT_EQ(box->TopLine(), 1);
    EXPECT_EQ(box->row(), 1);
    EXPECT_EQ(box.Log().Count("Scrolled"), 1U);
}

TEST_F(Mouse, ADragStepsOverAFoldAsOverOneLine) {
    box->text(Doc(200));
    box->CollapseLines(10, 20);
    box->CollapseAll();
    box->TopLine(10);
    box.MousePress(28, {left, 0, 300, 100});
    box.MouseMove(28, {left, 0, 300, 800});
    EXPECT_EQ(box->TopLine(), 21);
}

TEST_F(Mouse, ADragOverAFoldInViewEndsOnTheLowestRowAndOpensNothing) {
    box->text(Doc(1000));
    box->CollapseLines(6, 500);
    box->CollapseAll();
    box->TopLine(2);
    box.MousePress(28, {left, 0, 300, 100});
    box.MouseMove(28, {left, 0, 300, 800});
    EXPECT_EQ(box->TopLine(), 3);
    EXPECT_EQ(box->row(), box.RowLines()[29]);
    EXPECT_EQ(box.RowLines()[4], 501) << "still folded";
}

TEST_F(Mouse, AReleaseThatWentAstrayEndsTheDragWithTheNextMove) {
    box.MousePress(4, {left, 0, 300, 100});
    box.MouseMove(4, {left, 0, 300, 610});
    box.MouseMove(15, {0, 0, 300, 100});
    EXPECT_EQ(box->row(), 7);
    EXPECT_EQ(Selected(), -3);
}

TEST_F(Mouse, ADoubleClickStoresTheRowWithoutReportingASelection) {
    box->MoveTo(3, 1);
    box.Log().Clear();
    Marker().SetVisible(false);
    box.DoubleClick(6, {left, 0, 10, 10});
    EXPECT_EQ(box->row(), 7);
    EXPECT_EQ(box.Log().Count("DblClick"), 1U);
    EXPECT_TRUE(Marker().Visible());
}

TEST_F(Mouse, ADoubleClickBelowTheTextMeansTheLastLine) {
    box->text(Doc(3));
    box.Elements().OnRowDblClick(20);
    EXPECT_EQ(box->row(), 3);
    EXPECT_EQ(box.Log().Count("SelChanged"), 0U);
}

TEST_F(Mouse, AClickOnALineImageNamesItsLineAndMovesNothing) {
    box.Elements().OnLineImageClick(3);
    EXPECT_EQ(box.Log().Entries(), (std::vector<std::string>{"ImageClick(4)"}));
    EXPECT_EQ(box->row(), 1);
}

TEST_F(Mouse, APressOnTheMarkerIsAPressOnTheRowUnderIt) {
    box->MoveTo(4, 2);
    box.Log().Clear();
    box.Elements().OnMarkerMouseDown({left, 0, 10, 50});
    EXPECT_EQ(box->row(), 4);
    EXPECT_EQ(box->col(), 1);
    EXPECT_EQ(box.Log().Entries().back(), "MouseDown(1, 0, 565, 410)")
        << "the height on the row is not turned into the row's own; kept";
}

TEST_F(Mouse, WithTheToolbarHiddenTheMarkersRowIsFoundWithoutItsHeight) {
    box.Elements().cmdMore.UserClick();
    box->MoveTo(4, 2);
    box.Elements().OnMarkerMouseDown({left, 0, 10, 50});
    EXPECT_EQ(box->row(), 4);
}

TEST_F(Mouse, ANudgeOnTheMarkerSelectsNothing) {
    // What a surface does: the press goes to the marker, the row under it then holds the mouse.
    box->MoveTo(11, 2);
    box.Elements().OnMarkerMouseDown({left, 0, 100, 60});
    box.MouseMove(10, {left, 0, 115, 60});
    box.MouseRelease(10, {left, 0, 115, 60});
    EXPECT_EQ(box->row(), 11);
}

TEST_F(Mouse, AMarkerThatLiesOutsideAllRowsAnswersNothing) {
    Marker().SetTop(200 * 240);
    box.Elements().OnMarkerMouseDown({left, 0, 10, 50});
    box.Elements().OnMarkerMouseMove({left, 0, 10, 50});
    box.Elements().OnMarkerMouseUp({left, 0, 10, 50});
    Marker().SetTop(-1000);
    box.Elements().OnMarkerMouseDown({left, 0, 10, 50});
    EXPECT_TRUE(box.Log().Entries().empty());
}

TEST_F(Mouse, BeforeAnyDocumentAPressIsStillReported) {
    HeadlessBox empty;
    empty.MousePress(3, {left, 0, 10, 10});
    EXPECT_EQ(empty.Log().Entries(), (std::vector<std::string>{"MouseDown(1, 0, 565, 1090)"}));
    EXPECT_EQ(empty->row(), 0);
}

TEST_F(Mouse, ATagThatIsNoNumberEndsTheActionWithoutAWord) {
    box.Elements().lblLine[3].SetTag(u"none");
    EXPECT_NO_THROW(box.MousePress(3, {left, 0, 10, 10}));
    EXPECT_EQ(box.Elements().lblLine[3].Tag(), u"4") << "the rows are made right again";
}

TEST_F(Mouse, TheMarkerBlinksWithEveryTickAndNotInAnEmptyDocument) {
    box.MousePress(3, {left, 0, 10, 10});
    EXPECT_EQ(Blink().Interval(), 1000);
    box.TickTimer();
    EXPECT_TRUE(Marker().Visible());
    box.TickTimer();
    EXPECT_FALSE(Marker().Visible());
    box->text(u"");
    Marker().SetVisible(true);
    box.TickTimer();
    EXPECT_FALSE(Marker().Visible());
    box.TickTimer();
    EXPECT_FALSE(Marker().Visible());
}

TEST_F(Mouse, ASelectionTooLongForTheDoubleClickedRowIsDropped) {
    // Symptom: every repaint afterwards failed, so scrolling did too.
    box->MoveTo(5, 1);
    box->SelectedRowsCount(2147483640);
    box.Elements().OnRowDblClick(19);
    EXPECT_EQ(box->row(), 20);
    EXPECT_EQ(Selected(), 0);
    EXPECT_NO_THROW(box->TopLine(50));
}

TEST_F(Mouse, AHostThatShowsAnotherDocumentWhileADragScrollsKeepsItsCaret) {
    box->TopLine(50);
    box.MousePress(28, {left, 0, 300, 100});
    box.Log().OnEvent = [&](const std::string& event) {
        if (event != "Scrolled") return;
        box.Log().OnEvent = nullptr;
        box->text(Doc(300, 'N'));
    };
    box.MouseMove(28, {left, 0, 300, 800});
    EXPECT_EQ(box->row(), 1);
    EXPECT_EQ(Selected(), 0);
}

}  // namespace
}  // namespace quorvale
