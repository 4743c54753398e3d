#include <gtest/gtest.h>

#include "headless/headless_box.h"
#include "support/documents.h"
#include "whole_rows.h"

namespace quorvale {
namespace {

/// A hundred lines, the first of them `units` characters long.
std::u16string WithLongLine(std::size_t units) { return Times(units) + u"\r\n" + Doc(99, 'M'); }

void ExpectPlace(const Element& element, Twips left, Twips top, Twips width, Twips height) {
    EXPECT_EQ(element.Left(), left) << element.Name();
    EXPECT_EQ(element.Top(), top) << element.Name();
    EXPECT_EQ(element.Width(), width) << element.Name();
    EXPECT_EQ(element.Height(), height) << element.Name();
}

TEST(Layout, AHundredLinesGetAVerticalBarAlone) {
    HeadlessBox box;
    box->text(Doc(100));
    EXPECT_EQ(WholeRows(box), 30);
    EXPECT_TRUE(box.Elements().scrVert.Visible());
    EXPECT_FALSE(box.Elements().scrHorz.Visible());
    EXPECT_FALSE(box.Elements().picCorner.Visible());
}

TEST(Layout, OnlyWholeRowsCount) {
    HeadlessBox box;
    box->text(Doc(100));
    box.Resize(12000, 7559);
    EXPECT_EQ(WholeRows(box), 29);
    box.Resize(12000, 7799);
    EXPECT_EQ(WholeRows(box), 30);
    box.Resize(12000, 7800);
    EXPECT_EQ(WholeRows(box), 31);
}

TEST(Layout, TheRowCutByTheBottomEdgeIsFilledToo) {
    HeadlessBox box;
    box->text(Doc(100));
    EXPECT_EQ(box.Elements().lblLine[30].Caption(), u"L31");
    EXPECT_EQ(box->RowTop(31), 7560);
    box.Resize(12000, 7559);
    EXPECT_EQ(box.Elements().lblLine[29].Caption(), u"L30");
    EXPECT_EQ(box->RowTop(30), 7320);
}

TEST(Layout, TheFrameIsPlacedAroundTheRows) {
    HeadlessBox box;
    box->text(Doc(100));
    Surface& surface = box.Elements();
    ExpectPlace(surface.cmdMore, 11745, 0, 255, 360);
    ExpectPlace(surface.tbMore, 0, 0, 11745, 360);
    ExpectPlace(surface.scrVert, 11745, 360, 255, 7200);
    ExpectPlace(surface.scrHorz, 0, 7305, 11745, 255);
    ExpectPlace(surface.picBorder, 0, 345, 240, 7230);
    ExpectPlace(surface.picExpand, 240, 345, 315, 7230);
    EXPECT_EQ(surface.lnBorderLeft.X1(), 225);
    EXPECT_EQ(surface.lnBorderLeft.X2(), 225);
    EXPECT_EQ(surface.lnBorderLeft.Y1(), 0);
    EXPECT_EQ(surface.lnBorderLeft.Y2(), 7230);
}

TEST(Layout, TheButtonTakesTheBarsWidthAtOnceAndStaysInTheCorner) {
    HeadlessBox box;
    box.Elements().cmdMore.SetWidth(300);
    box.Resize(12000, 7560);
    ExpectPlace(box.Elements().cmdMore, 11745, 0, 255, 360);
}

TEST(Layout, AHiddenToolbarGivesItsHeightToTheRows) {
    HeadlessBox box;
    box->text(Doc(100));
    box.Elements().tbMore.SetVisible(false);
    box.Resize(12000, 7560);
    EXPECT_EQ(WholeRows(box), 31);
    ExpectPlace(box.Elements().scrVert, 11745, 360, 255, 7200);
    ExpectPlace(box.Elements().picBorder, 0, -15, 240, 7590);
    ExpectPlace(box.Elements().picExpand, 240, -15, 315, 7590);
}

TEST(Layout, TheVerticalBarRangesOverTheTopLines) {
    HeadlessBox box;
    box->text(Doc(100));
    const ScrollBar& bar = box.Elements().scrVert;
    EXPECT_EQ(bar.LargeChange(), 28);
    EXPECT_EQ(bar.SmallChange(), 1);
    EXPECT_EQ(bar.Min(), 1);
    EXPECT_EQ(bar.Max(), 71);
    EXPECT_EQ(bar.Value(), 1);
}

TEST(Layout, TheHorizontalBarRangesOverWhatTheWidestRowHasBeyondTheView) {
    HeadlessBox box;
    box->text(Doc(100));
    const ScrollBar& bar = box.Elements().scrHorz;
    EXPECT_EQ(bar.LargeChange(), 5872) << "half of 11745, the tie to the even number";
    EXPECT_EQ(bar.SmallChange(), 600);
    EXPECT_EQ(bar.Min(), 0);
    EXPECT_EQ(bar.Max(), 1035 - 11745) << "the widest row is that of line 100";
    EXPECT_EQ(bar.Value(), 0);
}

TEST(Layout, ALongLineAmongManyGivesBothBarsAndTheCorner) {
    HeadlessBox box;
    box->text(WithLongLine(200));
    Surface& surface = box.Elements();
    EXPECT_TRUE(surface.scrVert.Visible());
    EXPECT_TRUE(surface.scrHorz.Visible());
    EXPECT_TRUE(surface.picCorner.Visible());
    EXPECT_EQ(WholeRows(box), 28);
    EXPECT_EQ(surface.scrHorz.Max(), 12810);
    ExpectPlace(surface.scrHorz, 0, 7305, 11745, 255);
    ExpectPlace(surface.scrVert, 11745, 360, 255, 6945);
    EXPECT_EQ(surface.picCorner.Left(), 11745);
    EXPECT_EQ(surface.picCorner.Top(), 7305);
    EXPECT_EQ(surface.picCorner.Width(), 255);
    ExpectPlace(surface.picExpand, 240, 345, 315, 6975);
}

TEST(Layout, TheVerticalBarCountsTheEntryBehindTheLastLineToo) {
    HeadlessBox box;
    box->text(Doc(29));
    EXPECT_FALSE(box.Elements().scrVert.Visible());
    box->text(Doc(30));
    EXPECT_TRUE(box.Elements().scrVert.Visible());
    EXPECT_EQ(box.Elements().scrVert.Min(), 1);
    EXPECT_EQ(box.Elements().scrVert.Max(), 1);
}

TEST(Layout, ALineThatFitsOnlyWithoutTheVerticalBarGetsBothBarsWhenThereAreManyLines) {
    HeadlessBox box;
    box->text(Times(94) + u"\r\n" + Doc(4));
    EXPECT_FALSE(box.Elements().scrVert.Visible());
    EXPECT_FALSE(box.Elements().scrHorz.Visible());
    box->text(WithLongLine(94));
    EXPECT_TRUE(box.Elements().scrVert.Visible());
    EXPECT_TRUE(box.Elements().scrHorz.Visible());
    EXPECT_TRUE(box.Elements().picCorner.Visible());
}

TEST(Layout, TheHorizontalBarCanMakeTheVerticalOneNecessary) {
    HeadlessBox box;
    box->text(Doc(29));
    EXPECT_FALSE(box.Elements().scrVert.Visible()) << "the lines fit without a horizontal bar";
    box->text(Doc(28) + u"\r\n" + Times(200));
    EXPECT_TRUE(box.Elements().scrVert.Visible());
    EXPECT_TRUE(box.Elements().scrHorz.Visible());
    EXPECT_EQ(box.Elements().scrHorz.Width(), 11745);
    EXPECT_EQ(WholeRows(box), 28);
}

TEST(Layout, ADocumentThatFitsLosesTheBarsOfTheOneBefore) {
    HeadlessBox box;
    box->text(WithLongLine(200));
    box->text(Doc(5));
    EXPECT_FALSE(box.Elements().scrVert.Visible());
    EXPECT_FALSE(box.Elements().scrHorz.Visible());
    EXPECT_FALSE(box.Elements().picCorner.Visible());
    EXPECT_EQ(box.Elements().scrHorz.Width(), 12000);
}

TEST(Layout, TwoRowsLeaveThePageOfTheBarAsItWasAndSetTheRest) {
    HeadlessBox box;
    box->text(Doc(100));
    box.Resize(12000, 360 + 2 * 240);
    const ScrollBar& bar = box.Elements().scrVert;
    EXPECT_EQ(bar.LargeChange(), 28);
    EXPECT_EQ(bar.Max(), 99);
    box->TopLine(50);
    EXPECT_EQ(bar.Value(), 50);
}

TEST(Layout, SettingTheBarsDoesNotScroll) {
    HeadlessBox box;
    box->text(Doc(200));
    box->TopLine(100);
    box.Log().Clear();
    box.Resize(12000, 6000);
    EXPECT_EQ(box->TopLine(), 100);
    EXPECT_EQ(box.Log().Count("Scrolled"), 0U);
}

TEST(Layout, ATallerViewAtTheEndPullsTheTopLineBackAndFillsTheRows) {
    HeadlessBox box;
    box->text(Doc(100));
    box->TopLine(71);
    box.Log().Clear();
    box.Resize(12000, 360 + 40 * 240);
    EXPECT_EQ(box->TopLine(), 61);
    EXPECT_EQ(box.Log().Count("Scrolled"), 1U);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L61");
    EXPECT_EQ(box.Elements().scrVert.Value(), 61);
}

TEST(Layout, AScreenTallerThanThePoolOfRowsShowsAsManyAsThereAre) {
    HeadlessBox box;
    box.Metrics().RowHeight = 195;
    box->Font({.Name = u"Small"});
    box.Resize(12000, 32400);
    box->text(Doc(1000));
    EXPECT_EQ(WholeRows(box), 127);
    EXPECT_EQ(box.Elements().lblLine[127].Caption(), u"L128");
    EXPECT_EQ(box->RowTop(128), 360 + 127 * 195);
    EXPECT_LT(box->RowTop(129), 0);
    box->TopLine(5000);
    EXPECT_EQ(box->TopLine(), 1001 - 127);
    EXPECT_EQ(box->RowTop(1000), 360 + 126 * 195);
}

TEST(Layout, ASurfaceLowerThanItsToolbarHasNoRowsAndRecovers) {
    HeadlessBox box;
    box->text(Doc(100));
    box->TopLine(40);
    box.Resize(12000, 100);
    EXPECT_EQ(box->TopLine(), 40);
    EXPECT_EQ(box->RowTop(40), 360);
    EXPECT_LT(box->RowTop(41), 0);
    box->EnsureVisible(90);
    box->TopLine(20);
    box.Resize(12000, 7560);
    EXPECT_EQ(WholeRows(box), 30);
    EXPECT_EQ(box->TopLine(), 20);
    EXPECT_EQ(box.Elements().scrVert.Max(), 71);
}

TEST(Layout, ASurfaceWithoutAnySizeIsLaidOutToo) {
    HeadlessBox box;
    box->text(Doc(100));
    box.Resize(0, 0);
    box->TopLine(7);
    EXPECT_EQ(box->TopLine(), 7);
    EXPECT_EQ(box.Elements().tbMore.Width(), 0);
}

TEST(Layout, AWidestLineBeyondTheBars16BitsIsReachableAsFarAsTheyGo) {
    HeadlessBox box;
    box->text(WithLongLine(5000));
    ScrollBar& bar = box.Elements().scrHorz;
    EXPECT_TRUE(bar.Visible());
    EXPECT_EQ(bar.Max(), 32767);
    bar.UserDrag(32767);
    bar.UserRelease();
    EXPECT_EQ(box.Elements().lblLine[0].Left(), 555 - 32767);
}

TEST(Layout, ALongLineFurtherDownBringsItsBarWhenItIsScrolledTo) {
    HeadlessBox box;
    box->text(Doc(499) + u"\r\n" + Times(3000) + u"\r\n" + Doc(100));
    EXPECT_FALSE(box.Elements().scrHorz.Visible());
    box->TopLine(490);
    EXPECT_TRUE(box.Elements().scrHorz.Visible());
    EXPECT_EQ(box.Elements().scrHorz.Max(), 32767);
}

TEST(Layout, ALongLineBelowTheViewCountsBecauseItsRowIsFilled) {
    HeadlessBox box;
    box->text(Doc(100) + u"\r\n" + Times(200));
    EXPECT_TRUE(box.Elements().scrHorz.Visible()) << "the rows are filled down to the 128th line";
}

TEST(Layout, ASuspendedViewIsLaidOutButNotFilled) {
    HeadlessBox box;
    box->text(Doc(100));
    box->AutoRedraw(false);
    box.Resize(6000, 4000);
    EXPECT_EQ(box.Elements().scrVert.Left(), 6000 - 255);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L1");
}

TEST(Layout, ABorderOfNoWidthIsLegal) {
    HeadlessBox box;
    box->text(Doc(100));
    float width = 0;
    box->LeftBorderWidth(width);
    EXPECT_EQ(box.Elements().imgLine[0].Width(), 0);
    EXPECT_EQ(box.Elements().imgLine[128].Width(), 0);
    EXPECT_EQ(box.Elements().lblLine[0].Left(), 315);
    EXPECT_EQ(box.Elements().lblLine[128].Left(), 315);
    EXPECT_EQ(box.Elements().picExpand.Left(), 0);
}

TEST(Layout, AWiderBorderMovesTheRowsAtOnce) {
    HeadlessBox box;
    box->text(WithLongLine(200));
    box.Elements().scrHorz.UserStepBy(1200);
    float width = 600;
    box->LeftBorderWidth(width);
    EXPECT_EQ(box.Elements().lblLine[5].Left(), 600 + 315 - 1200);
    EXPECT_EQ(box.Elements().picExpand.Left(), 600);
    EXPECT_EQ(box.Elements().imgLine[5].Width(), 585);
}

TEST(Layout, InUseTheFocusHolderStandsOffTheSurface) {
    HeadlessBox box;
    box.Resize(9000, 7560);
    EXPECT_EQ(box.Elements().picFocus.Left(), -2000);
}

TEST(Layout, InDesignTheFocusHolderStandsAtTheTextsLeftEdge) {
    HeadlessSetup setup;
    setup.UserMode = false;
    HeadlessBox box(setup);
    box->text(Doc(3));
    box.Resize(9000, 7560);
    EXPECT_EQ(box.Elements().picFocus.Left(), 555);
}

TEST(Layout, FortyThousandLinesScrollToTheirEndHoweverItIsAskedFor) {
    HeadlessBox box;
    box->text(Doc(40000));
    EXPECT_EQ(box.Elements().scrVert.SmallChange(), 2);
    for (const std::int32_t line : {39971, 39972, 99999, 2147483647}) {
        box->TopLine(1);
        box->TopLine(line);
        EXPECT_EQ(box->TopLine(), 39971) << line;
        EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L39971");
    }
}

TEST(Layout, TheEndOfFortyThousandLinesIsReachedWithAnyNumberOfRows) {
    HeadlessBox box;
    box->text(Doc(40000));
    for (int rows = 1; rows <= 127; ++rows) {
        box->TopLine(1);
        box.Resize(12000, 360 + rows * 240);
        box.Log().Clear();
        box->TopLine(40001);
        EXPECT_EQ(box->TopLine(), 40001 - rows);
        EXPECT_LE(box.Log().Count("Scrolled"), 2U) << rows;
    }
}

TEST(Layout, ATopLineBetweenTwoStepsOfTheBarStays) {
    HeadlessBox box;
    box->text(Doc(40000));
    for (const std::int32_t line : {101, 100, 103, 6, 7, 1}) {
        box->TopLine(line);
        EXPECT_EQ(box->TopLine(), line);
        EXPECT_EQ(box.Elements().lblLine[0].Tag(), Wide(std::to_string(line)));
        box.Resize(12000, 7560);
        EXPECT_EQ(box->TopLine(), line) << "after another layout";
    }
}

TEST(Layout, ANewLongDocumentStartsAtItsFirstLine) {
    HeadlessBox box;
    box->text(Doc(40000));
    box->TopLine(20000);
    box->text(Doc(40000, 'N'));
    EXPECT_EQ(box->TopLine(), 1);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"N1");
    EXPECT_EQ(box.Elements().scrVert.Value(), 1);
}

}  // namespace
}  // namespace quorvale
