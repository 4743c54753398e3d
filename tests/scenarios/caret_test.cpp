#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "headless/headless_box.h"
#include "platform/keys.h"
#include "support/documents.h"

namespace quorvale {
namespace {

using testing::ElementsAre;

struct CaretMoves : testing::Test {
    CaretMoves() {
        box->text(Doc(100));
        box.EnterText();
        box.Log().Clear();
    }

    template <class Action>
    std::vector<std::string> After(Action action) {
        box.Log().Clear();
        action();
        return box.Log().Entries();
    }

    Image& Marker() { return box.Elements().imgMarker; }

    HeadlessBox box;
};

TEST_F(CaretMoves, BeyondTheDocumentTheyEndAtTheLastLine) {
    box->MoveTo(999, 1);
    EXPECT_EQ(box->row(), 100);
    EXPECT_EQ(box->col(), 1);
    box->MoveTo(-4, 1);
    EXPECT_EQ(box->row(), 1);
}

TEST_F(CaretMoves, BeyondALineTheyEndBehindItsLastCharacter) {
    box->MoveTo(1, 999);
    EXPECT_EQ(box->row(), 1);
    EXPECT_EQ(box->col(), 3) << "\"L1\"";
}

TEST_F(CaretMoves, ANegativeColumnIsTheLeftEdge) {
    box->col(-5);
    EXPECT_EQ(box->col(), 0);
    EXPECT_THAT(After([&] { box.Press(key_code::Left); }), ElementsAre("KeyUp(37, 0)"));
    EXPECT_EQ(box->col(), 0);
}

TEST_F(CaretMoves, TheMarkerStandsInTheMiddleOfTheCaretsLeftEdge) {
    box->MoveTo(3, 3);
    EXPECT_EQ(Marker().Left(), 675);
    EXPECT_EQ(Marker().Top(), 840);
    box->col(0);
    EXPECT_EQ(Marker().Left(), 435);
}

TEST_F(CaretMoves, WhenItsRowLeavesTheViewTheMarkerIsParkedAtItsHeight) {
    box->MoveTo(3, 3);
    box->TopLine(40);
    EXPECT_EQ(Marker().Left(), -1000);
    EXPECT_EQ(Marker().Top(), 840);
}

TEST_F(CaretMoves, WhileSuspendedTheyAreHeardAndTheMarkerStays) {
    box->MoveTo(3, 3);
    box->AutoRedraw(false);
    EXPECT_THAT(After([&] { box->MoveTo(8, 2); }), ElementsAre("SelChanged"));
    EXPECT_EQ(box->row(), 8);
    EXPECT_EQ(Marker().Left(), 675);
    EXPECT_EQ(Marker().Top(), 840);
}

TEST_F(CaretMoves, TheLineBoxNamesTheRowWithTheInsertionPointBehindIt) {
    const TextBox& lineBox = box.Elements().txtLn;
    const auto expectRow = [&](const char16_t* number) {
        EXPECT_EQ(lineBox.Text(), number);
        EXPECT_EQ(lineBox.SelStart(), lineBox.Text().size());
        EXPECT_EQ(lineBox.SelLength(), 0U);
        box.Elements().txtLn.Select(0, 1);
    };
    box->MoveTo(100, 1);
    expectRow(u"100");
    box->row(7);
    expectRow(u"7");
    box->col(2);
    expectRow(u"7");
    box.Elements().txtLn.SetText(u"55");
    box->TopLine(30);
    expectRow(u"7");
}

TEST_F(CaretMoves, ToTheSamePlaceNothingIsHeardAndTheSelectionStays) {
    box->MoveTo(5, 2);
    box->SelectedRowsCount(3);
    EXPECT_THAT(After([&] { box->MoveTo(5, 2); }), ElementsAre());
    EXPECT_THAT(After([&] { box->col(2); }), ElementsAre());
    EXPECT_EQ(box->SelectedRowsCount(), 3);
}

TEST_F(CaretMoves, AnotherColumnAloneDropsTheSelectionAndStartsANewOne) {
    box->MoveTo(5, 2);
    box->SelectedRowsCount(3);
    EXPECT_THAT(After([&] { box->col(1); }), ElementsAre("SelChanged"));
    EXPECT_EQ(box->SelectedRowsCount(), 0);
    box.Press(key_code::Down, shift_mask::Shift);
    EXPECT_EQ(box->SelectedRowsCount(), -2) << "from row 5 on";
}

TEST_F(CaretMoves, OverAShortLineTheCaretComesBackToItsColumn) {
    box->text(Lines({Times(20), Times(3), Times(20)}));
    box->MoveTo(1, 15);
    box->row(2);
    EXPECT_EQ(box->col(), 3) << "the last character's column, not the line's end";
    box->row(3);
    EXPECT_EQ(box->col(), 15);
}

TEST_F(CaretMoves, AColumnThatIsSetIsTheOneThatIsKept) {
    box->text(Lines({Times(20), Times(20), Times(20)}));
    box->MoveTo(1, 15);
    box->col(4);
    box->row(2);
    EXPECT_EQ(box->col(), 4);
    box->MoveTo(2, 9);
    box->row(3);
    EXPECT_EQ(box->col(), 9);
}

TEST_F(CaretMoves, ToItsOwnRowTheCaretKeepsAColumnWithinTheLine) {
    box->text(Lines({Times(20)}));
    box->MoveTo(1, 15);
    EXPECT_THAT(After([&] { box->row(1); }), ElementsAre());
    EXPECT_EQ(box->col(), 15);
}

TEST_F(CaretMoves, ToItsOwnRowFromTheLinesEndTheCaretGoesBeforeTheLastCharacter) {
    box->MoveTo(1, 3);
    EXPECT_THAT(After([&] { box->row(1); }), ElementsAre("SelChanged"));
    EXPECT_EQ(box->col(), 2) << "kept: a place right of the text is its last character's";
}

TEST_F(CaretMoves, UpAndDownDoNotDriftWhereCharactersAreFractionsOfATwipWide) {
    box.Metrics().UnitWidth = 123.4567891;
    box->text(Lines({Times(90), Times(90), Times(90)}));
    for (const std::int32_t col : {2, 3, 7, 50, 77}) {
        box->MoveTo(1, col);
        for (int i = 0; i < 10; ++i) {
            box.Press(key_code::Down);
            EXPECT_EQ(box->col(), col);
            box.Press(key_code::Up);
            EXPECT_EQ(box->col(), col);
        }
    }
}

TEST_F(CaretMoves, ANumberWithoutALineGoesToTheLeftOfTheNearestOne) {
    box->MoveTo(50, 2);
    box->row(101);
    EXPECT_EQ(box->row(), 100);
    EXPECT_EQ(box->col(), 0);
    box->row(99);
    EXPECT_EQ(box->col(), 2) << "the kept place along the line is still that of column 2";
}

TEST_F(CaretMoves, AHostThatFoldsTheLineAwayWhileTheViewScrollsToItSeesTheCaretOnTheFoldsHead) {
    // Symptom: the caret stood on a hidden line and its marker was gone.
    box->CollapseLines(40, 80);
    box.Log().OnEvent = [&](const std::string& event) {
        if (event != "Scrolled") return;
        box.Log().OnEvent = nullptr;
        box->CollapseAll();
    };
    box->MoveTo(60, 2);
    EXPECT_EQ(box->row(), 40);
    box->EnsureVisible(40);
    EXPECT_EQ(Marker().Top(), box->RowTop(40));
}

struct SelectedRows : CaretMoves {};

TEST_F(SelectedRows, AreHeardAgainWhenTheyAreSetToWhatTheyAre) {
    EXPECT_THAT(After([&] { box->SelectedRowsCount(4); }), ElementsAre("SelChanged"));
    EXPECT_THAT(After([&] { box->SelectedRowsCount(4); }), ElementsAre("SelChanged"));
    EXPECT_EQ(box.Elements().lblLine[3].BackColor(), system_colour::Highlight);
    EXPECT_NE(box.Elements().lblLine[4].BackColor(), system_colour::Highlight);
}

TEST_F(SelectedRows, ThatAreSetLeaveTheAnchorWhereItWas) {
    box->MoveTo(5, 1);
    box.Press(key_code::Down, shift_mask::Shift);
    box->SelectedRowsCount(20);
    box.Press(key_code::Down, shift_mask::Shift);
    EXPECT_EQ(box->SelectedRowsCount(), -3) << "from row 5 to row 7";
}

TEST_F(SelectedRows, OfAnExtensionEndWithTheNextMoveOfTheHost) {
    box->MoveTo(5, 1);
    box.Press(key_code::Down, shift_mask::Shift);
    EXPECT_EQ(box->SelectedRowsCount(), -2);
    box->MoveTo(20, 1);
    EXPECT_EQ(box->SelectedRowsCount(), 0);
}

TEST_F(SelectedRows, UpToTheGreatestNumberDoNotKeepAFoldFromOpening) {
    // Symptom: the caret stood on the fold's head, the old selection stayed, and every repaint
    // failed from then on.
    box->CollapseLines(60, 80);
    box->CollapseAll();
    box->MoveTo(5, 1);
    box->SelectedRowsCount(2147483640);
    box.Log().Clear();
    box->TopLine(50);
    box.MousePress(10, {mouse_button::Left, shift_mask::Shift, 10, 10});
    EXPECT_EQ(box->row(), 60);
    EXPECT_EQ(box->SelectedRowsCount(), -56);
    EXPECT_GE(box->RowTop(61), 0) << "the fold is open";
    EXPECT_NO_THROW(box->TopLine(20));
}

}  // namespace
}  // namespace quorvale
