#include <gtest/gtest.h>

#include "base/errors.h"
#include "headless/headless_box.h"
#include "support/documents.h"
#include "support/error_of.h"

namespace quorvale {
namespace {

/// A hundred lines, the first of 200 characters.
std::u16string WideText() { return Times(200) + u"\r\n" + Doc(99, 'M'); }

bool IsOnScreen(HeadlessBox& box, std::int32_t line) { return box->RowTop(line) >= 0; }

/// Fills the rows anew.
void Repaint(HeadlessBox& box) {
    box->AutoRedraw(false);
    box->AutoRedraw(true);
}

TEST(EnsureVisible, BeforeAnyDocumentItIsHarmless) {
    HeadlessBox box;
    box->EnsureVisible(5);
    box->EnsureVisible(-5);
    EXPECT_EQ(box->TopLine(), 1);
    EXPECT_TRUE(box.Log().Entries().empty());
}

TEST(EnsureVisible, ALineAboveTheViewIsShownWithOneLineAboveIt) {
    HeadlessBox box;
    box->text(Doc(200));
    box->TopLine(50);
    box->EnsureVisible(20);
    EXPECT_EQ(box->TopLine(), 19);
    box->EnsureVisible(1);
    EXPECT_EQ(box->TopLine(), 1);
}

TEST(EnsureVisible, TheLineAboveIsTheNearestThatIsShown) {
    HeadlessBox box;
    box->text(Doc(200));
    box->CollapseLines(10, 19);
    box->CollapseAll();
    box->TopLine(50);
    box->EnsureVisible(20);
    EXPECT_EQ(box->TopLine(), 10);
}

TEST(EnsureVisible, ALineInTheUpperHalfIsLeftWhereItIs) {
    HeadlessBox box;
    box->text(Doc(100));
    box.Log().Clear();
    box->EnsureVisible(15);
    EXPECT_EQ(box->TopLine(), 1);
    EXPECT_TRUE(box.Log().Entries().empty());
}

TEST(EnsureVisible, ALineInTheLowerHalfIsBroughtToTheMiddle) {
    HeadlessBox box;
    box->text(Doc(100));
    box->EnsureVisible(16);
    EXPECT_EQ(box->TopLine(), 2);
    EXPECT_EQ(box.Log().Count("Scrolled"), 1U);
}

TEST(EnsureVisible, ALineBelowTheViewIsBroughtToTheMiddle) {
    HeadlessBox box;
    box->text(Doc(100));
    box->EnsureVisible(50);
    EXPECT_EQ(box->TopLine(), 36);
    EXPECT_EQ(box->RowTop(50), 360 + 14 * 240);
    box->EnsureVisible(100);
    EXPECT_EQ(box->TopLine(), 71);
}

TEST(EnsureVisible, HiddenLinesDoNotCountOnTheWayToTheMiddle) {
    HeadlessBox box;
    box->text(Doc(200));
    box->CollapseLines(30, 60);
    box->CollapseAll();
    box->EnsureVisible(70);
    EXPECT_EQ(box->TopLine(), 26);
    EXPECT_EQ(box->RowTop(70), 360 + 14 * 240);
}

TEST(EnsureVisible, NumbersBeyondTheDocumentMeanItsEnds) {
    HeadlessBox box;
    box->text(Doc(100));
    box->EnsureVisible(2147483647);
    EXPECT_EQ(box->TopLine(), 71);
    box->EnsureVisible(-2147483647 - 1);
    EXPECT_EQ(box->TopLine(), 1);
    box->EnsureVisible(101);
    EXPECT_EQ(box->TopLine(), 71);
}

TEST(EnsureVisible, TheCaretStays) {
    HeadlessBox box;
    box->text(Doc(100));
    box->MoveTo(3, 2);
    box.Log().Clear();
    box->EnsureVisible(90);
    EXPECT_EQ(box->row(), 3);
    EXPECT_EQ(box->col(), 2);
    EXPECT_EQ(box.Log().Count("SelChanged"), 0U);
}

TEST(EnsureVisible, EveryFoldAroundALineIsOpened) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(5, 20);
    box->CollapseLines(8, 12);
    box->CollapseAll();
    box->EnsureVisible(10);
    EXPECT_TRUE(IsOnScreen(box, 10));
    for (int slot = 0; slot < 30; ++slot) {
        EXPECT_EQ(box.Elements().lblLine[slot].Tag(), Wide(std::to_string(slot + 1)));
        EXPECT_FALSE(box.Elements().lblLine[slot].Bold()) << slot;
    }
}

TEST(EnsureVisible, DeeperFoldsStayFoldedInTheOpenedOnes) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(5, 20);
    box->CollapseLines(8, 12);
    box->CollapseAll();
    box->EnsureVisible(6);
    EXPECT_TRUE(IsOnScreen(box, 8));
    EXPECT_FALSE(IsOnScreen(box, 9));
    EXPECT_EQ(box.Elements().lblLine[7].Tag(), u"8");
    EXPECT_TRUE(box.Elements().lblLine[7].Bold());
    EXPECT_EQ(box.Elements().lblLine[8].Tag(), u"13");
}

TEST(EnsureVisible, WhileSuspendedFoldsAreOpenedAndNothingIsPainted) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(5, 20);
    box->CollapseAll();
    box->AutoRedraw(false);
    box->EnsureVisible(10);
    EXPECT_EQ(box.Elements().lblLine[5].Tag(), u"21");
    box->AutoRedraw(true);
    EXPECT_EQ(box.Elements().lblLine[5].Tag(), u"6");
}

TEST(EnsureVisible, TheMarkerStaysWithItsLineWhenAFoldAboveItOpens) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(5, 20);
    box->CollapseAll();
    box->MoveTo(30, 1);
    ASSERT_EQ(box.Elements().imgMarker.Top(), 360 + 14 * 240);
    box->EnsureVisible(8);
    ASSERT_EQ(box->TopLine(), 1);
    EXPECT_EQ(box.Elements().imgMarker.Top(), box->RowTop(30));
    EXPECT_EQ(box->RowTop(30), 360 + 29 * 240);
}

TEST(EnsureVisible, AFoldAtTheDocumentsEndIsOpenedForItsLastLine) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(50, 100);
    box->CollapseAll();
    box->MoveTo(2147483647, 1);
    EXPECT_EQ(box->row(), 100);
    EXPECT_TRUE(IsOnScreen(box, 100));
    EXPECT_EQ(box.Elements().imgMarker.Top(), box->RowTop(100));
}

TEST(EnsureVisible, AFoldThatReachesBehindTheLastLineIsOpenedTheSameWay) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(50, 101);
    box->CollapseAll();
    box->MoveTo(101, 1);
    EXPECT_EQ(box->row(), 100);
    EXPECT_TRUE(IsOnScreen(box, 100));
}

TEST(EnsureVisible, ACaretInTheFirstColumnBringsBackTheLeftEdge) {
    HeadlessBox box;
    box->text(WideText());
    box.Elements().scrHorz.UserStepBy(5000);
    box->EnsureVisible(3);
    EXPECT_EQ(box.Elements().scrHorz.Value(), 0);
    EXPECT_EQ(box.Elements().lblLine[0].Left(), 555);
}

TEST(EnsureVisible, TheCaretsColumnDecidesTheHorizontalPart) {
    HeadlessBox box;
    box->text(WideText());
    box->MoveTo(1, 150);
    box.Elements().scrHorz.UserStepBy(-12810);
    box->EnsureVisible(1);
    EXPECT_EQ(box.Elements().scrHorz.Value(), 12810);
}

TEST(RevealColumn, AColumnThatIsSeenShiftsNothing) {
    HeadlessBox box;
    box->text(WideText());
    box->MoveTo(1, 94);
    EXPECT_EQ(box.Elements().scrHorz.Value(), 0);
}

TEST(RevealColumn, AColumnRightOfTheViewBecomesTheLeftEdgeAsFarAsTheBarGoes) {
    HeadlessBox box;
    box->text(WideText());
    box->MoveTo(1, 95);
    EXPECT_EQ(box.Elements().scrHorz.Value(), 11280);
    EXPECT_EQ(box.Elements().imgMarker.Left(), 555 - 120);
    box->MoveTo(1, 188);
    EXPECT_EQ(box.Elements().scrHorz.Value(), 11280) << "still in view";
    box->MoveTo(1, 189);
    EXPECT_EQ(box.Elements().scrHorz.Value(), 12810) << "a character further it is not";
    box.Elements().scrHorz.UserStepBy(-12810);
    box->MoveTo(1, 150);
    EXPECT_EQ(box.Elements().scrHorz.Value(), 12810);
}

TEST(RevealColumn, AColumnLeftOfTheViewBecomesTheLeftEdge) {
    HeadlessBox box;
    box->text(WideText());
    box->MoveTo(1, 95);
    box->MoveTo(1, 90);
    EXPECT_EQ(box.Elements().scrHorz.Value(), 10680);
}

TEST(RevealColumn, ColumnsBelowTwoBringBackTheLeftEdge) {
    for (const std::int32_t col : {1, 0, -4}) {
        HeadlessBox box;
        box->text(WideText());
        box.Elements().scrHorz.UserStepBy(5000);
        box->MoveTo(1, col);
        EXPECT_EQ(box.Elements().scrHorz.Value(), 0) << col;
    }
}

TEST(RevealColumn, WhereEverythingFitsNothingIsShifted) {
    HeadlessBox box;
    box->text(Doc(100));
    for (const std::int32_t col : {2, 3, 50, 2147483647}) {
        box->MoveTo(100, col);
        EXPECT_EQ(box.Elements().scrHorz.Value(), 0) << col;
        EXPECT_EQ(box.Elements().lblLine[0].Left(), 555) << col;
    }
}

TEST(RevealColumn, ALineThatWasNeverShownIsMeasuredFirst) {
    HeadlessBox box;
    box->text(Doc(499) + u"\r\n" + Times(150) + u"\r\n" + Doc(100));
    box->MoveTo(500, 140);
    EXPECT_TRUE(box.Elements().scrHorz.Visible());
    EXPECT_GT(box.Elements().scrHorz.Value(), 0);
    const Twips caret = box.Elements().imgMarker.Left() + 120;
    EXPECT_GE(caret, 555);
    EXPECT_LE(caret, 11745);
    EXPECT_TRUE(IsOnScreen(box, 500));
}

TEST(RevealColumn, APlaceBeyond16BitsEndsAtTheBarsEndWithoutAnError) {
    HeadlessBox box;
    box->text(Times(5000) + u"\r\n" + Doc(99));
    EXPECT_EQ(ErrorOf([&] { box->MoveTo(1, 5001); }), std::nullopt);
    EXPECT_EQ(box->col(), 5001);
    EXPECT_EQ(box.Elements().scrHorz.Value(), 32767);
}

TEST(RevealColumn, BehindTheLastLineTheLeftEdgeIsShown) {
    HeadlessBox box;
    box->text(WideText());
    box->MoveTo(1, 150);
    box->row(101);
    EXPECT_EQ(box->row(), 100);
    EXPECT_EQ(box.Elements().scrHorz.Value(), 0);
}

TEST(RevealWhileSuspended, TheRowsThatTheNextFillWillShowDecideNotTheOldOnes) {
    HeadlessBox box;
    box->text(Doc(1000));
    box->AutoRedraw(false);
    box->MoveTo(500, 1);
    box->MoveTo(3, 1);
    box->AutoRedraw(true);
    EXPECT_EQ(box->row(), 3);
    EXPECT_TRUE(IsOnScreen(box, 3));
    EXPECT_EQ(box.Elements().imgMarker.Top(), box->RowTop(3));
}

TEST(RevealWhileSuspended, ALineFurtherDownIsInViewAfterwards) {
    HeadlessBox box;
    box->text(Doc(1000));
    box->AutoRedraw(false);
    box->EnsureVisible(700);
    box->EnsureVisible(705);
    box->AutoRedraw(true);
    EXPECT_TRUE(IsOnScreen(box, 700));
    EXPECT_TRUE(IsOnScreen(box, 705));
}

TEST(RevealWhileSuspended, ItShowsTheSameAsWithoutSuspension) {
    for (const std::int32_t line : {1, 14, 15, 16, 17, 31, 60, 61, 75, 200}) {
        HeadlessBox painted;
        HeadlessBox suspended;
        for (HeadlessBox* box : {&painted, &suspended}) {
            (*box)->text(Doc(200));
            (*box)->CollapseLines(30, 60);
            (*box)->CollapseAll();
            (*box)->TopLine(10);
        }
        painted->EnsureVisible(line);
        suspended->AutoRedraw(false);
        suspended->EnsureVisible(line);
        suspended->AutoRedraw(true);
        EXPECT_EQ(painted->TopLine(), suspended->TopLine()) << line;
        Repaint(painted);
        EXPECT_EQ(painted.RowLines(), suspended.RowLines()) << line;
    }
}

}  // namespace
}  // namespace quorvale
