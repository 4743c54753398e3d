#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "headless/headless_box.h"
#include "platform/keys.h"
#include "support/documents.h"

namespace quorvale {
namespace {

using testing::ElementsAre;

constexpr std::int16_t left = mouse_button::Left;
constexpr std::int16_t middle = mouse_button::Middle;

struct Drag : testing::Test {
    Drag() {
        box->text(Doc(100));
        box.Log().Clear();
    }

    std::int32_t Selected() { return box->SelectedRowsCount(); }
    /// From the row in the slot the mouse goes that far up or down and stays there.
    void From(int slot, double y) {
        box.MousePress(slot, {left, 0, 300, 100});
        box.Log().Clear();
        box.MouseMove(slot, {left, 0, 300, y});
    }

    HeadlessBox box;
};

TEST_F(Drag, ADragStartsAfterMoreThanSixtyTwips) {
    box.MousePress(4, {left, 0, 300, 200});
    box.MouseMove(4, {left, 0, 310, 250});
    EXPECT_EQ(Selected(), 0) << "10 to the right and 50 down";
    box.MouseMove(4, {left, 0, 310, 251});
    EXPECT_EQ(Selected(), -2);
}

TEST_F(Drag, NothingDragsWithAnotherButtonOrFromTheLeftEdge) {
    box.MousePress(4, {middle, 0, 300, 100});
    box.MouseMove(4, {middle, 0, 300, 900});
    EXPECT_EQ(Selected(), 0);
    box.MousePress(4, {left, 0, 0, 100});
    box.MouseMove(4, {left, 0, 0, 900});
    EXPECT_EQ(Selected(), 0);
}

TEST_F(Drag, ADragSelectsTheRowsItPassesAndReportsNoPressOfItsOwn) {
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

TEST_F(Drag, WhichRowADragReachesIsCountedInWholeRows) {
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

TEST_F(Drag, AboveTheRowsADragScrollsALineUpPerMove) {
    box->TopLine(50);
    box.MousePress(3, {left, 0, 300, 100});
    box.MouseMove(3, {left, 0, 300, -800});
    EXPECT_EQ(box->TopLine(), 49);
    EXPECT_EQ(box->row(), 49);
    EXPECT_EQ(box->col(), 0);
    EXPECT_EQ(Selected(), 5);
}

TEST_F(Drag, BelowTheRowsADragScrollsALineDownPerMove) {
    box->TopLine(50);
    box.MousePress(28, {left, 0, 300, 100});
    box.MouseMove(28, {left, 0, 300, 800});
    EXPECT_EQ(box->TopLine(), 51);
    EXPECT_EQ(box->row(), 80);
    EXPECT_EQ(box->col(), 0);
}

TEST_F(Drag, AtTheEndsADragHasNowhereToGo) {
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

TEST_F(Drag, ADragStepsOverAFoldAsOverOneLine) {
    box->text(Doc(200));
    box->CollapseLines(10, 20);
    box->CollapseAll();
    box->TopLine(10);
    box.MousePress(28, {left, 0, 300, 100});
    box.MouseMove(28, {left, 0, 300, 800});
    EXPECT_EQ(box->TopLine(), 21);
}

TEST_F(Drag, ADragOverAFoldInViewEndsOnTheLowestRowAndOpensNothing) {
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

TEST_F(Drag, AReleaseThatWentAstrayEndsTheDragWithTheNextMove) {
    box.MousePress(4, {left, 0, 300, 100});
    box.MouseMove(4, {left, 0, 300, 610});
    box.MouseMove(15, {0, 0, 300, 100});
    EXPECT_EQ(box->row(), 7);
    EXPECT_EQ(Selected(), -3);
}

TEST_F(Drag, ToTheSideADragStartsAfterMoreThanSixtyTwipsToo) {
    for (const double away : {1.0, -1.0}) {
        box.MousePress(4, {left, 0, 300, 100});
        box.MouseMove(4, {left, 0, 300 + 30 * away, 130});
        box.MouseMove(4, {left, 0, 300, 340});
        EXPECT_EQ(Selected(), -2) << "far enough now";
        box.MouseRelease(4, {left, 0, 300, 340});
        box.MousePress(4, {left, 0, 300, 0});
        box.MouseMove(4, {left, 0, 300 + 60 * away, 0});
        EXPECT_EQ(box->col(), 2) << "60 twips are a click with a shaking hand";
        box.MouseMove(4, {left, 0, 300 + 61 * away, 0});
        box.MouseMove(5, {left, 0, 10, 0});
        EXPECT_EQ(box->col(), 1) << "a drag now";
        box.MouseRelease(5, {left, 0, 10, 0});
    }
}

TEST_F(Drag, TwoButtonsTogetherDragNothing) {
    box.MousePress(4, {left, 0, 300, 100});
    box.MouseMove(4, {left + mouse_button::Right, 0, 300, 900});
    EXPECT_EQ(Selected(), 0);
}

TEST_F(Drag, EveryStepIsHeardAndTheReleaseEndsIt) {
    box.MousePress(4, {left, 0, 300, 100});
    box.MouseMove(4, {left, 0, 300, 610});
    box.MouseMove(4, {left, 0, 300, 630});
    box.MouseMove(4, {left, 0, 300, -300});
    box.MouseRelease(4, {left, 0, 300, -300});
    box.MouseMove(4, {left, 0, 300, 120});
    EXPECT_THAT(box.Log().Entries(),
                ElementsAre("SelChanged", "MouseDown(1, 0, 855, 1420)", "SelChanged", "SelChanged",
                            "MouseUp(1, 0, 855, 1020)"))
        << "a step that stays in its row is no move";
    EXPECT_EQ(box->row(), 3) << "the last move was no drag any more";
    EXPECT_EQ(Selected(), 3) << "from the pressed row 5 to row 3";
}

TEST_F(Drag, ANewDocumentEndsIt) {
    From(4, 610);
    box->text(Doc(100));
    box.MouseMove(4, {left, 0, 300, 2000});
    EXPECT_EQ(box->row(), 1);
    EXPECT_EQ(Selected(), 0);
}

TEST_F(Drag, ScrollsAreHeardBeforeTheCaretMoves) {
    box->TopLine(50);
    From(28, 800);
    EXPECT_THAT(box.Log().Entries(), ElementsAre("Scrolled", "SelChanged"));
    box.MouseMove(28, {left, 0, 300, 800});
    EXPECT_EQ(box->TopLine(), 52) << "a line per move, however long the mouse stays there";
    EXPECT_EQ(box->row(), 81);
    EXPECT_EQ(Selected(), -4) << "from row 78";
}

TEST_F(Drag, AtTheLowerEndAMoveChangesNothing) {
    box->TopLine(71);
    From(28, 800);
    EXPECT_THAT(box.Log().Entries(), ElementsAre());
}

TEST_F(Drag, JustAboveItsRowItIsStillInIt) {
    From(10, -0.25);
    EXPECT_EQ(box->row(), 11) << "places are whole twips";
    box.MouseMove(10, {left, 0, 300, -1});
    EXPECT_EQ(box->row(), 10);
}

TEST_F(Drag, UpwardsItStepsOverAFoldToo) {
    box->text(Doc(200));
    box->CollapseLines(10, 20);
    box->CollapseAll();
    box->TopLine(21);
    From(3, -1000);
    EXPECT_EQ(box->TopLine(), 10);
    EXPECT_EQ(box->row(), 10);
    EXPECT_EQ(Selected(), 15) << "up from row 24";
    EXPECT_GE(box->RowTop(11), 0) << "a selection that ends on a fold's head opens it";
}

TEST_F(Drag, BelowABlankRowItEndsOnALineThatIsShown) {
    // Symptom: the caret stood on a hidden line, with its marker out of sight.
    box->text(Doc(60));
    box->CollapseLines(30, 55);
    box->CollapseAll();
    box->TopLine(10);
    ASSERT_EQ(box.RowLines().back(), 60);
    From(5, 7000);
    EXPECT_EQ(box->TopLine(), 11);
    EXPECT_EQ(box->row(), 60) << "counted from the top it would be line 40";
    EXPECT_EQ(box.Elements().imgMarker.Top(), box->RowTop(60));
    EXPECT_LT(box->RowTop(31), 0) << "still folded";
}

TEST_F(Drag, OntoABlankRowBelowAFoldedEndItUncoversTheLastLine) {
    // Symptom: the caret stood on the hidden last line.
    box->text(Doc(100));
    box->CollapseLines(10, 100);
    box->CollapseAll();
    From(2, 5000);
    EXPECT_EQ(box->row(), 100);
    EXPECT_EQ(Selected(), -98);
    EXPECT_GE(box->RowTop(100), 0);
}

TEST_F(Drag, AHostThatShowsAnotherDocumentWhileADragScrollsKeepsItsCaret) {
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
