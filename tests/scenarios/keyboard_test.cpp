#include <gtest/gtest.h>

#include "headless/headless_box.h"
#include "platform/keys.h"
#include "support/documents.h"

namespace quorvale {
namespace {

using namespace key_code;
constexpr std::int16_t B = 66;

struct Keys : testing::Test {
    Keys() { Show(Doc(100)); }

    void Show(const std::u16string& text) {
        box->text(text);
        box.EnterText();
        box.Log().Clear();
    }
    void FoldLines(std::int32_t from, std::int32_t to) {
        box->CollapseLines(from, to);
        box->CollapseAll();
    }
    std::int32_t RowAfter(std::int16_t key, std::int16_t shift = 0) {
        box.Press(key, shift);
        return box->row();
    }
    std::int32_t ColAfter(std::int16_t key, std::int16_t shift = 0) {
        box.Press(key, shift);
        return box->col();
    }

    HeadlessBox box;
};

TEST_F(Keys, UpAndDownMoveByALine) {
    box->MoveTo(5, 1);
    EXPECT_EQ(RowAfter(Up), 4);
    EXPECT_EQ(RowAfter(Down), 5);
    EXPECT_EQ(RowAfter(Down, shift_mask::Ctrl), 6);
}

TEST_F(Keys, UpAndDownStepOverAFold) {
    FoldLines(5, 20);
    box->MoveTo(5, 1);
    EXPECT_EQ(RowAfter(Down), 21);
    EXPECT_EQ(RowAfter(Up), 5);
}

TEST_F(Keys, AtTheEndsUpStaysAndDownGoesLeftOfTheText) {
    EXPECT_EQ(RowAfter(Up), 1);
    box->MoveTo(100, 2);
    EXPECT_EQ(RowAfter(Down), 100);
    EXPECT_EQ(box->col(), 0);
}

TEST_F(Keys, DownStaysWhereTheRestOfTheDocumentIsFolded) {
    FoldLines(50, 100);
    box->MoveTo(50, 1);
    EXPECT_EQ(RowAfter(Down), 50);
    EXPECT_EQ(RowAfter(PageDown), 50);
}

TEST_F(Keys, LeftAndRightMoveByACharacterWithinTheLine) {
    box->MoveTo(1, 3);
    EXPECT_EQ(ColAfter(Left), 2);
    EXPECT_EQ(ColAfter(Left), 1);
    EXPECT_EQ(ColAfter(Left), 0);
    EXPECT_EQ(ColAfter(Left), 0);
    EXPECT_EQ(ColAfter(Right), 1);
    EXPECT_EQ(ColAfter(Right), 2);
    EXPECT_EQ(ColAfter(Right), 3);
    EXPECT_EQ(ColAfter(Right), 3) << "the end of \"L1\"";
}

TEST_F(Keys, HomeAndEndGoToTheEndsOfTheLineAndWithCtrlOfTheDocument) {
    box->MoveTo(40, 2);
    EXPECT_EQ(ColAfter(Home), 1);
    EXPECT_EQ(ColAfter(End), 4);
    EXPECT_EQ(RowAfter(Home, shift_mask::Ctrl), 1);
    EXPECT_EQ(RowAfter(End, shift_mask::Ctrl), 100);
}

TEST_F(Keys, PagesCountWholeRowsLessTwo) {
    EXPECT_EQ(RowAfter(PageDown), 29);
    box->MoveTo(100, 1);
    EXPECT_EQ(RowAfter(PageUp), 72);
    EXPECT_EQ(RowAfter(PageUp, shift_mask::Ctrl), 1);
    EXPECT_EQ(RowAfter(PageDown, shift_mask::Ctrl), 100);
}

TEST_F(Keys, PagesCountOnlyVisibleLines) {
    Show(Doc(300));
    FoldLines(5, 104);
    box->MoveTo(1, 1);
    EXPECT_EQ(RowAfter(PageDown), 29 + 99 + 0);
}

TEST_F(Keys, InAViewOfTwoRowsPagesLeaveTheRow) {
    box.Resize(12000, 360 + 2 * 240 + 100);
    box->MoveTo(40, 1);
    EXPECT_EQ(RowAfter(PageDown), 40);
    EXPECT_EQ(RowAfter(PageUp), 40);
}

TEST_F(Keys, ShiftExtendsTheSelectionBackAndForth) {
    box->MoveTo(5, 1);
    box.Press(Down, shift_mask::Shift);
    EXPECT_EQ(box->SelectedRowsCount(), -2);
    box.Press(Down, shift_mask::Shift);
    EXPECT_EQ(box->SelectedRowsCount(), -3);
    box.Press(Up, shift_mask::Shift);
    EXPECT_EQ(box->SelectedRowsCount(), -2);
    box.Press(Up, shift_mask::Shift);
    box.Press(Up, shift_mask::Shift);
    EXPECT_EQ(box->SelectedRowsCount(), 2);
    box->MoveTo(20, 1);
    EXPECT_EQ(box->SelectedRowsCount(), 0) << "a host's move selects nothing";
}

TEST_F(Keys, ShiftWithPageDownSelectsThePage) {
    box.Press(PageDown, shift_mask::Shift);
    EXPECT_EQ(box->SelectedRowsCount(), -29);
}

TEST_F(Keys, ExtendingOntoTheHeadOfAFoldOpensIt) {
    FoldLines(5, 20);
    box->MoveTo(4, 1);
    box.Press(Down, shift_mask::Shift);
    EXPECT_EQ(box->row(), 5);
    EXPECT_EQ(box->SelectedRowsCount(), -2);
    EXPECT_EQ(box.RowLines()[5], 6);
}

TEST_F(Keys, ExtendingFromTheHeadOfAFoldPassesOverIt) {
    FoldLines(5, 20);
    box->MoveTo(5, 1);
    box.Press(Down, shift_mask::Shift);
    EXPECT_EQ(box->row(), 21);
    EXPECT_EQ(box->SelectedRowsCount(), -17);
    EXPECT_EQ(box.RowLines()[5], 21);
}

TEST_F(Keys, CtrlASelectsEverythingAndIsNotReported) {
    box.Press(A, shift_mask::Ctrl);
    EXPECT_EQ(box->row(), 100);
    EXPECT_EQ(box->SelectedRowsCount(), -101);
    for (const Label& row : box.Elements().lblLine) {
        if (row.Top() >= 7000) break;
        EXPECT_EQ(row.BackColor(), system_colour::Highlight);
    }
    EXPECT_EQ(box.Log().Count("SelChanged"), 1U) << "the caret moved";
    EXPECT_EQ(box.Log().Count("KeyUp(65, 2)"), 1U);
    box.Log().Clear();
    box.Press(A, shift_mask::Ctrl);
    EXPECT_EQ(box.Log().Count("SelChanged"), 0U) << "the caret stood there already";
    EXPECT_EQ(box->SelectedRowsCount(), -101);
    EXPECT_EQ(box.Log().Entries().back(), "KeyUp(65, 2)");
}

TEST_F(Keys, KeysThatTheControlDoesNotUseGoToTheHost) {
    box.Press(B);
    EXPECT_EQ(box.Log().Entries(), (std::vector<std::string>{"KeyDown(66, 0)", "KeyUp(66, 0)"}));
}

TEST_F(Keys, HandledKeysAreOnlyReportedWhenTheyComeUp) {
    for (const std::int16_t key : {Up, Down, Left, Right, Home, End, PageUp, PageDown, A, F2}) {
        box.Log().Clear();
        box.Press(key);
        EXPECT_EQ(box.Log().Count("KeyDown(" + std::to_string(key) + ", 0)"), 0U) << key;
        EXPECT_EQ(box.Log().Count("KeyUp(" + std::to_string(key) + ", 0)"), 1U) << key;
    }
}

TEST_F(Keys, OneReleaseIsReportedForAllKeysThatWentDownTogether) {
    box.Elements().OnKeyDown(B, 0);
    box.Elements().OnKeyDown(67, 0);
    box.Elements().OnKeyUp(B, 0);
    box.Elements().OnKeyUp(67, 0);
    EXPECT_EQ(box.Log().Count("KeyUp(66, 0)"), 1U);
    EXPECT_EQ(box.Log().Count("KeyUp(67, 0)"), 0U);
}

TEST_F(Keys, InAnyOtherElementKeysAreNotTheTexts) {
    for (const FocusChild child : {FocusChild::SearchBox, FocusChild::LineBox, FocusChild::Editor,
                                   FocusChild::FoundList, FocusChild::None}) {
        box.Elements().Focus.UserMovesTo(child);
        box.Log().Clear();
        box.Press(Down);
        box.Press(B);
        EXPECT_EQ(box->row(), 1);
        EXPECT_TRUE(box.Log().Entries().empty());
    }
}

TEST_F(Keys, BeforeAnyDocumentEveryKeyIsHarmless) {
    HeadlessBox empty;
    empty.EnterText();
    for (const std::int16_t key : {Up, Down, Left, Right, Home, End, PageUp, PageDown, A, F2}) {
        for (const std::int16_t shift : {std::int16_t{0}, shift_mask::Shift, shift_mask::Ctrl}) {
            EXPECT_NO_THROW(empty.Press(key, shift));
        }
    }
    EXPECT_EQ(empty->row(), 0);
}

TEST_F(Keys, EveryMoveBringsTheCaretIntoTheUpperHalf) {
    box->MoveTo(15, 1);
    EXPECT_EQ(box->TopLine(), 1);
    box.Press(Down);
    EXPECT_EQ(box->TopLine(), 2);
    box.Press(Down);
    EXPECT_EQ(box->TopLine(), 3);
    EXPECT_EQ(box.Log().Count("Scrolled"), 2U);
}

TEST_F(Keys, GoingToTheEndOpensAFoldThatHidesIt) {
    FoldLines(50, 100);
    box.Press(End, shift_mask::Ctrl);
    EXPECT_EQ(box->row(), 100);
    EXPECT_EQ(box->col(), 0);
    EXPECT_GE(box->RowTop(100), 0);
}

TEST_F(Keys, AKeyMakesTheMarkerVisible) {
    box.Elements().imgMarker.SetVisible(false);
    box.Press(B);
    EXPECT_TRUE(box.Elements().imgMarker.Visible());
}

struct FocusMoves : Keys {
    Image& Marker() { return box.Elements().imgMarker; }
    Timer& Blink() { return box.Elements().tmrImage; }
};

TEST_F(FocusMoves, TheMarkerBlinksWhileTheTextHasTheKeyboardAndStandsStillOtherwise) {
    EXPECT_TRUE(Blink().Enabled());
    Marker().SetVisible(false);
    box.Elements().Focus.UserMovesTo(FocusChild::SearchBox);
    EXPECT_FALSE(Blink().Enabled());
    EXPECT_TRUE(Marker().Visible());
    box.Elements().Focus.UserMovesTo(FocusChild::TextArea);
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
}

TEST_F(FocusMoves, AScrollBarNeverKeepsTheKeyboard) {
    box.Elements().Focus.UserMovesTo(FocusChild::SearchBox);
    box.Elements().scrVert.UserClickInto();
    EXPECT_EQ(box.Elements().Focus.Active(), FocusChild::TextArea);
}

}  // namespace
}  // namespace quorvale
