#include <gtest/gtest.h>

#include "headless/headless_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

/// A hundred lines, the first of 200 characters: 12810 twips to scroll.
std::u16string WideText() { return Times(200) + u"\r\n" + Doc(99, 'M'); }

TEST(HorizontalBar, ShiftsEveryRowAndTheCaretWithThem) {
    HeadlessBox box;
    box->text(WideText());
    box->MoveTo(1, 50);
    box.Log().Clear();
    box.Elements().scrHorz.UserDrag(1200);
    box.Elements().scrHorz.UserRelease();
    for (const Label& label : box.Elements().lblLine) EXPECT_EQ(label.Left(), -645);
    EXPECT_EQ(box.Elements().imgMarker.Left(), -645 + 49 * 120 - 120);
    EXPECT_TRUE(box.Log().Entries().empty()) << "no event is raised";
}

TEST(HorizontalBar, ArrowsMoveByFiveBlanksAndPagesByHalfTheView) {
    HeadlessBox box;
    box->text(WideText());
    box.Elements().scrHorz.UserArrow(1);
    EXPECT_EQ(box.Elements().lblLine[0].Left(), 555 - 600);
    box.Elements().scrHorz.UserPage(1);
    EXPECT_EQ(box.Elements().lblLine[0].Left(), 555 - 600 - 5872);
    box.Elements().scrHorz.UserPage(-1);
    box.Elements().scrHorz.UserArrow(-1);
    EXPECT_EQ(box.Elements().lblLine[0].Left(), 555);
}

TEST(HorizontalBar, AChangeThatShiftsNothingLeavesTheMarkerAlone) {
    HeadlessBox box;
    box->text(WideText());
    box.Elements().scrHorz.UserDrag(1200);
    box.Elements().scrHorz.UserRelease();
    box.Elements().imgMarker.SetTop(5);
    box.Elements().scrHorz.UserDrag(1200);
    box.Elements().scrHorz.UserRelease();
    EXPECT_EQ(box.Elements().imgMarker.Top(), 5);
}

TEST(HorizontalBar, ANewDocumentStartsAtItsLeftEdge) {
    HeadlessBox box;
    box->text(WideText());
    box.Elements().scrHorz.UserStepBy(5000);
    box->text(WideText());
    EXPECT_EQ(box.Elements().scrHorz.Value(), 0);
    EXPECT_EQ(box.Elements().lblLine[64].Left(), 555);
}

TEST(HorizontalBar, AWiderViewAtTheRightEndPullsTheRowsBack) {
    HeadlessBox box;
    box->text(WideText());
    box.Elements().scrHorz.UserStepBy(12810);
    box.Resize(14000, 7560);
    EXPECT_EQ(box.Elements().scrHorz.Value(), 10810);
    EXPECT_EQ(box.Elements().lblLine[30].Left(), 555 - 10810);
    box.Resize(30000, 7560);
    EXPECT_FALSE(box.Elements().scrHorz.Visible());
    EXPECT_EQ(box.Elements().lblLine[30].Left(), 555);
}

TEST(HorizontalBar, InDesignTheFocusHolderReturnsToTheTextsLeftEdge) {
    HeadlessSetup setup;
    setup.UserMode = false;
    HeadlessBox box(setup);
    box->text(WideText());
    box.Elements().picFocus.SetLeft(7);
    box.Elements().scrHorz.UserStepBy(1200);
    EXPECT_EQ(box.Elements().picFocus.Left(), 555);
}

TEST(BoundaryLines, StandBehindTheirColumnOverTheWholeHeight) {
    HeadlessSetup setup;
    setup.Options.BoundaryColumns = {8, 0, 100};
    HeadlessBox box(setup);
    box->text(WideText());
    const auto& grid = box.Elements().lnGrid;
    ASSERT_EQ(grid.LowerBound(), 1);
    ASSERT_EQ(grid.UpperBound(), 3);
    EXPECT_EQ(grid[1].Tag(), u"8");
    EXPECT_EQ(grid[1].X1(), 1515);
    EXPECT_EQ(grid[1].X2(), 1515);
    EXPECT_EQ(grid[1].Y1(), 0);
    EXPECT_EQ(grid[1].Y2(), 7560);
    EXPECT_EQ(grid[2].X1(), 555);
    EXPECT_EQ(grid[3].X1(), 555 + 12000);
}

TEST(BoundaryLines, ScrollWithTheText) {
    HeadlessSetup setup;
    setup.Options.BoundaryColumns = {8};
    HeadlessBox box(setup);
    box->text(WideText());
    box.Elements().scrHorz.UserStepBy(1200);
    EXPECT_EQ(box.Elements().lnGrid[1].X1(), 315);
    EXPECT_EQ(box.Elements().lnGrid[1].X2(), 315);
}

TEST(BoundaryLines, StandAt72And80UnlessTheHostSaysOtherwiseAndAreHiddenAtFirst) {
    HeadlessBox box;
    const auto& grid = box.Elements().lnGrid;
    ASSERT_EQ(grid.UpperBound(), 2);
    EXPECT_EQ(grid[1].X1(), 555 + 72 * 120);
    EXPECT_EQ(grid[2].X1(), 555 + 80 * 120);
    EXPECT_FALSE(grid[1].Visible());
    box->ShowGrid(true);
    EXPECT_TRUE(grid[1].Visible());
    EXPECT_TRUE(grid[2].Visible());
    box.Elements().tbMore.UserClick(u"Grid");
    EXPECT_FALSE(grid[2].Visible());
}

TEST(BoundaryLines, FollowANewHeightAndANewFont) {
    HeadlessBox box;
    box->text(WideText());
    box.Resize(12000, 9000);
    EXPECT_EQ(box.Elements().lnGrid[1].Y2(), 9000);
    box.Metrics().UnitWidth = 150;
    box->Font({.Name = u"Wide"});
    EXPECT_EQ(box.Elements().lnGrid[1].X1(), 555 + 72 * 150);
}

TEST(BoundaryLines, ThereMayBeNone) {
    HeadlessSetup setup;
    setup.Options.BoundaryColumns = {};
    HeadlessBox box(setup);
    box->text(WideText());
    box->ShowGrid(true);
    box.Elements().scrHorz.UserStepBy(1200);
    EXPECT_EQ(box.Elements().lnGrid.UpperBound(), 0);
    EXPECT_EQ(box.Elements().lblLine[0].Left(), -645);
}

TEST(BoundaryLines, AColumnLeftOfTheTextStandsAtItsEdge) {
    HeadlessSetup setup;
    setup.Options.BoundaryColumns = {-5, 8};
    HeadlessBox box(setup);
    box->text(WideText());
    EXPECT_EQ(box.Elements().lnGrid[1].X1(), 555);
    EXPECT_EQ(box.Elements().lnGrid[2].X1(), 1515);
}

TEST(BoundaryLines, NewColumnsKeepWhetherTheLinesAreShown) {
    HeadlessBox box;
    box->ShowGrid(true);
    HostOptions options;
    options.BoundaryColumns = {40};
    box->SetOptions(options);
    box->text(WideText());
    ASSERT_EQ(box.Elements().lnGrid.UpperBound(), 1);
    EXPECT_TRUE(box.Elements().lnGrid[1].Visible());
    EXPECT_EQ(box.Elements().lnGrid[1].X1(), 555 + 40 * 120);
}

/// A control with wide bars in which a line of a few hundred characters is as wide as one of a
/// hundred million ordinary ones.
class WideLine : public testing::Test {
protected:
    static constexpr Twips unit = 120e6 / 2;
    static constexpr int units = 200;

    WideLine() : box(WideBars()) {
        box.Metrics().UnitWidth = unit;
        box->Font({.Name = u"Huge"});
        box->text(Times(units) + u"\r\n" + Doc(99));
    }

    static HeadlessSetup WideBars() {
        HeadlessSetup setup;
        setup.Options.WideScrollBars = true;
        return setup;
    }

    Twips End() { return 240 + units * unit + 315 - 11745; }

    HeadlessBox box;
};

TEST_F(WideLine, ItsEndCanBeScrolledTo) {
    ScrollBar& bar = box.Elements().scrHorz;
    EXPECT_TRUE(bar.Visible());
    EXPECT_GT(bar.Max(), 1'000'000'000);
    bar.UserDrag(bar.Max());
    bar.UserRelease();
    EXPECT_EQ(box.Elements().lblLine[0].Left(), 555 - End());
    EXPECT_EQ(box.Elements().lblLine[0].Left() + units * unit, 11745)
        << "the last character ends at the view's right edge";
}

TEST_F(WideLine, NoRowIsCutBeforeItsEnd) {
    EXPECT_GE(box.Elements().lblLine[0].Width(), units * unit);
    EXPECT_GE(box.Elements().lblLine[128].Width(), units * unit);
}

TEST_F(WideLine, EveryColumnCanBeRevealed) {
    for (const int col : {1, 2, 3, 50, 100, 199, 200, 201}) {
        box->MoveTo(1, col);
        EXPECT_EQ(box->col(), col);
        const Twips caret = box.Elements().lblLine[0].Left() + (col - 1) * unit;
        EXPECT_EQ(box.Elements().imgMarker.Left(), caret - 120) << col;
        EXPECT_GE(caret, 555 - 12) << col;
        EXPECT_LE(caret, 11745) << col;
    }
}

TEST_F(WideLine, AnotherLayoutKeepsThePlace) {
    box->MoveTo(1, 100);
    const Twips left = box.Elements().lblLine[0].Left();
    box.Resize(12000, 6000);
    EXPECT_EQ(box.Elements().lblLine[0].Left(), left);
    box->TopLine(5);
    EXPECT_EQ(box.Elements().lblLine[0].Left(), left);
}

TEST_F(WideLine, AShortDocumentBringsBackTheOrdinarySteps) {
    box->MoveTo(1, 201);
    box.Metrics().UnitWidth = 120;
    box->Font({.Name = u"Small"});
    box->text(WideText());
    ScrollBar& bar = box.Elements().scrHorz;
    EXPECT_EQ(bar.Max(), 12810);
    bar.UserStepBy(1200);
    EXPECT_EQ(box.Elements().lblLine[0].Left(), -645);
}

TEST(WideRows, ALineWiderThan40000TwipsIsShownToItsEnd) {
    HeadlessSetup setup;
    setup.Options.WideScrollBars = true;
    HeadlessBox box(setup);
    box->text(Times(5000) + u"\r\n" + Doc(99));
    ScrollBar& bar = box.Elements().scrHorz;
    EXPECT_EQ(bar.Max(), 240 + 600000 + 315 - 11745);
    bar.UserDrag(bar.Max());
    bar.UserRelease();
    EXPECT_EQ(box.Elements().lblLine[0].Left() + 600000, 11745);
    EXPECT_GE(box.Elements().lblLine[0].Width(), 600000);
    box->MoveTo(1, 5001);
    EXPECT_EQ(box.Elements().imgMarker.Left() + 120, 11745);
}

TEST(WideRows, WithoutThemRowsAre40000TwipsWide) {
    HeadlessBox box;
    box->text(Times(5000) + u"\r\n" + Doc(99));
    EXPECT_EQ(box.Elements().lblLine[0].Width(), 40000);
}

}  // namespace
}  // namespace quorvale
