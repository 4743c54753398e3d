#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "headless/headless_box.h"
#include "platform/keys.h"
#include "support/documents.h"

namespace quorvale {
namespace {

using testing::ElementsAre;

constexpr std::int16_t left = mouse_button::Left;
constexpr std::int16_t right = mouse_button::Right;

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

TEST_F(Mouse, APressGoesBeforeTheCharacterThatReachesPastIt) {
    box->text(Lines({u"abcdef", u""}));
    const auto col = [&](int slot, double x) {
        box.MousePress(slot, {left, 0, x, 100});
        return box->col();
    };
    EXPECT_EQ(col(0, -50), 1);
    EXPECT_EQ(col(0, 0), 1);
    EXPECT_EQ(col(0, 119), 1);
    EXPECT_EQ(col(0, 120), 2);
    EXPECT_EQ(col(0, 719), 6);
    EXPECT_EQ(col(0, 720), 6);
    EXPECT_EQ(col(0, 99999), 6);
    EXPECT_EQ(col(1, 0), 0) << "an empty line";
}

TEST_F(Mouse, APressOnABlankRowBelowAFoldedEndUncoversTheLastLine) {
    // Symptom: the caret stood on the hidden last line, with its marker out of sight.
    box->CollapseLines(50, 100);
    box->CollapseAll();
    box->TopLine(45);
    box.MousePress(20, {left, 0, 300, 100});
    EXPECT_EQ(box->row(), 100);
    EXPECT_EQ(box->col(), 0);
    EXPECT_GE(box->RowTop(100), 0);
    EXPECT_EQ(Marker().Top(), box->RowTop(100));
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

/// Notes what a press does to the elements, in its order.
class PressNotes final : public ElementWatcher {
public:
    explicit PressNotes(HeadlessBox& box) : box_(box) {
        box.Elements().Watch(this);
        box.Elements().Focus.OnRequest = [this](FocusChild) { return Note("focus wanted"); };
        box.Log().OnEvent = [this](const std::string& event) { Note(event); };
    }
    ~PressNotes() override { box_.Elements().Watch(nullptr); }

    std::vector<std::string> All;

    bool Note(const std::string& what) {
        All.push_back(what);
        return true;
    }
    void Setting(const Element& element, std::string_view property) override {
        if (&element == &box_.Elements().imgMarker && property == "Visible") Note("marker");
        if (&element == &box_.Elements().tmrImage && property == "Enabled") Note("timer");
        if (&element == &box_.Elements().txtLn && property == "Text") Note("caret");
    }

private:
    HeadlessBox& box_;
};

TEST_F(Mouse, APressHidesTheMarkerStopsTheTimerTakesTheFocusMovesTheCaretAndTellsTheHost) {
    box.EnterText();
    box.Elements().Focus.UserMovesTo(FocusChild::None);
    Blink().SetEnabled(true);
    box.Elements().Focus.OnGot = nullptr;
    PressNotes notes(box);
    box.MousePress(4, {left, 0, 130, 100});
    EXPECT_THAT(notes.All, ElementsAre("marker", "timer", "focus wanted", "caret", "SelChanged",
                                       "timer", "MouseDown(1, 0, 685, 1420)"));
    EXPECT_FALSE(Marker().Visible()) << "until the next tick";
    EXPECT_TRUE(Blink().Enabled());
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
    EXPECT_THAT(box.Log().Entries(), ElementsAre("SelChanged", "MouseDown(1, 0, 685, 5260)"));
    box.MousePress(22, {left, shift_mask::Shift, 130, 100});
    EXPECT_EQ(Selected(), -3) << "a new selection starts there";
}

TEST_F(Mouse, APressWithShiftAtTheCaretsOwnPlaceKeepsTheSelection) {
    box.MousePress(4, {left, 0, 130, 100});
    box.MousePress(8, {left, shift_mask::Shift, 130, 100});
    box.Log().Clear();
    box.MousePress(8, {left, shift_mask::Shift, 130, 100});
    EXPECT_EQ(Selected(), -5);
    EXPECT_THAT(box.Log().Entries(), ElementsAre("MouseDown(1, 1, 685, 2380)"));
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

TEST_F(Mouse, ARightPressOnASelectionLeavesMarkerTimerAndTheLastPressAsTheyAre) {
    box.MousePress(4, {left, 0, 300, 100});
    box.MouseRelease(4, {left, 0, 300, 100});
    box->SelectedRowsCount(3);
    box.Elements().Focus.UserMovesTo(FocusChild::FoundList);
    ASSERT_TRUE(Marker().Visible());
    ASSERT_FALSE(Blink().Enabled());
    box.MousePress(20, {right, 0, 0, 5});
    EXPECT_TRUE(Marker().Visible());
    EXPECT_FALSE(Blink().Enabled());
    EXPECT_EQ(box.Elements().Focus.Active(), FocusChild::FoundList);
    box.MouseMove(4, {left, 0, 300, 340});
    EXPECT_EQ(Selected(), -2) << "dragged from the first press, not from the left edge";
}

TEST_F(Mouse, ARightPressWithoutASelectionMovesTheCaret) {
    box.MousePress(20, {right, 0, 130, 100});
    EXPECT_EQ(box->row(), 21);
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

TEST_F(Mouse, TheMarkerComesBackAfterTheHostHasHeardOfADoubleClick) {
    Marker().SetVisible(false);
    bool shownInside = true;
    box.Log().OnEvent = [&](const std::string&) { shownInside = Marker().Visible(); };
    box.Elements().OnRowDblClick(6);
    EXPECT_THAT(box.Log().Entries(), ElementsAre("DblClick"));
    EXPECT_EQ(box->row(), 7);
    EXPECT_FALSE(shownInside);
    EXPECT_TRUE(Marker().Visible());
}

TEST_F(Mouse, ADoubleClickWithTheRightButtonKeepsTheColumnWithinTheRow) {
    // Symptom: the caret stood far behind the end of a short line.
    box->text(Lines({Times(40), u"ab", u"cd"}));
    box->MoveTo(1, 30);
    box->SelectedRowsCount(1);
    box.DoubleClick(1, {right, 0, 10, 10});
    EXPECT_EQ(box->row(), 2);
    EXPECT_EQ(box->col(), 3);
}

TEST_F(Mouse, ADoubleClickBelowAFoldedEndMeansTheLastLineThatIsShown) {
    // Symptom: the caret's row was the hidden last line.
    box->CollapseLines(10, 100);
    box->CollapseAll();
    box.Elements().OnRowDblClick(20);
    EXPECT_EQ(box->row(), 10);
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

TEST_F(Mouse, ALineImageIsClickedWithAndWithoutAPicture) {
    auto pictures = std::make_shared<ImageList>();
    pictures->Add(u"bug", std::make_shared<const Picture>("bug", 240, 240));
    box->ImageList(pictures);
    box->LineImage(9, std::int16_t{1});
    ASSERT_NE(box.Elements().imgLine[8].Shown(), nullptr);
    box.Elements().OnLineImageClick(8);
    box->TopLine(20);
    box.Elements().OnLineImageClick(8);
    EXPECT_THAT(box.Log().Entries(), ElementsAre("ImageClick(9)", "Scrolled", "ImageClick(28)"));
}

TEST_F(Mouse, WithoutAnIconOfTheHostTheMarkerIsTheControlsOwn) {
    const PicturePtr own = box.Elements().imgDefaultCursor.Shown();
    EXPECT_EQ(Marker().Shown(), own);
    const auto other = std::make_shared<const Picture>("other", 240, 240);
    box->Icon(other);
    EXPECT_EQ(Marker().Shown(), other);
    box->Icon(nullptr);
    EXPECT_EQ(Marker().Shown(), own);
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
    EXPECT_EQ(Selected(), 0);
}

// A press on the marker and a twitch of the hand used to select the row.
TEST_F(Mouse, FromTheMarkerADragBeginsAsFarAwayAsFromARow) {
    box->MoveTo(11, 2);
    box.Elements().OnMarkerMouseDown({left, 0, 100, 60});
    const Label& row = box.Elements().lblLine[10];
    const double x = Marker().Left() + 100 - row.Left();
    const double y = Marker().Top() + 60 - row.Top();
    box.MouseMove(10, {left, 0, x + 30, y + 30});
    EXPECT_EQ(Selected(), 0);
    box.MouseMove(10, {left, 0, x + 30, y + 31 + 240});
    EXPECT_EQ(Selected(), -2);
}

TEST_F(Mouse, AMarkerThatLiesOutsideAllRowsAnswersNothing) {
    Marker().SetTop(200 * 240);
    box.Elements().OnMarkerMouseDown({left, 0, 10, 50});
    box.Elements().OnMarkerMouseMove({left, 0, 10, 50});
    box.Elements().OnMarkerMouseUp({left, 0, 10, 50});
    Marker().SetTop(-1000);
    box.Elements().OnMarkerMouseDown({left, 0, 10, 50});
    EXPECT_TRUE(box.Log().Entries().empty());
    EXPECT_EQ(box->row(), 1);
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

}  // namespace
}  // namespace quorvale
