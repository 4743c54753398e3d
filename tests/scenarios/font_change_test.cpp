#include <gtest/gtest.h>

#include "headless/headless_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

void SetRowHeight(HeadlessBox& box, Twips height) {
    box.Metrics().RowHeight = height;
    box->Font({.Name = u"Other", .Size = 14});
}

TEST(FontChange, RowsAreAsHighAsTheNewFont) {
    HeadlessBox box;
    box->text(Doc(100));
    SetRowHeight(box, 300);
    EXPECT_EQ(box->RowTop(3), 360 + 600);
    EXPECT_EQ(box->RowTop(0), -600) << "twice a row's height says that a line is not on screen";
    EXPECT_EQ(box.Elements().scrVert.LargeChange(), 24 - 2);
    for (const Label& label : box.Elements().lblLine) {
        EXPECT_EQ(label.Height(), 300);
        EXPECT_EQ(label.Top(), 360 + label.Index() * 300);
    }
    EXPECT_EQ(box.Elements().imgEdit[128].Top(), 128 * 300 + 15);
    EXPECT_EQ(box.Elements().imgEdit[128].Height(), 285);
    EXPECT_EQ(box.Elements().imgExpand[128].Top(), 128 * 300 + 75);
    EXPECT_EQ(box.Elements().imgLine[128].Top(), 128 * 300);
}

TEST(FontChange, EveryRowTakesTheFontAndKeepsItsWeight) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(5, 20);
    box->CollapseAll();
    box->Font({.Name = u"Other", .Size = 14, .Charset = 128});
    for (const Label& label : box.Elements().lblLine) {
        EXPECT_EQ(label.Font().Name, u"Other");
        EXPECT_EQ(label.Font().Size, 14);
        EXPECT_EQ(label.Font().Charset, 128);
        EXPECT_EQ(label.Bold(), label.Index() == 4) << label.Index();
    }
}

TEST(FontChange, TheViewGoesToTheFirstLineWithoutAnEvent) {
    HeadlessBox box;
    box->text(Doc(1000));
    box->TopLine(500);
    box.Log().Clear();
    SetRowHeight(box, 300);
    EXPECT_EQ(box->TopLine(), 1);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L1");
    EXPECT_EQ(box->RowTop(1), box.Elements().lblLine[0].Top());
    EXPECT_EQ(box.Elements().scrVert.Value(), 1);
    EXPECT_EQ(box.Log().Count("Scrolled"), 0U);
}

TEST(FontChange, TheMarkerFollowsItsRow) {
    HeadlessBox box;
    box->text(Doc(100));
    box->MoveTo(7, 2);
    box.Metrics().UnitWidth = 200;
    SetRowHeight(box, 300);
    EXPECT_EQ(box.Elements().imgMarker.Top(), 360 + 6 * 300);
    EXPECT_EQ(box.Elements().imgMarker.Left(), 555 + 200 - 120);
}

TEST(FontChange, GlyphsStayWithinTheirColumn) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(5, 20);
    box->CollapseLines(8, 12);
    box->AutoRedraw(false);
    box->AutoRedraw(true);
    SetRowHeight(box, 300);
    const Box& column = box.Elements().picExpand;
    EXPECT_EQ(column.Width(), 435);
    for (const int slot : {4, 7}) {
        const Image& glyph = box.Elements().imgExpand[slot];
        EXPECT_TRUE(glyph.Visible());
        EXPECT_LE(glyph.Left() + glyph.Width(), column.Width());
    }
    EXPECT_EQ(box.Elements().lblLine[0].Left(), 240 + 435);
    EXPECT_EQ(box.Elements().lblLine[128].Left(), 240 + 435);
}

TEST(FontChange, WithTheToolbarHiddenTheFirstRowStaysAtTheTop) {
    HeadlessBox box;
    box->text(Doc(100));
    box.Elements().cmdMore.UserClick();
    SetRowHeight(box, 300);
    EXPECT_EQ(box.Elements().lblLine[0].Top(), 0);
    EXPECT_EQ(box.Elements().lblLine[3].Top(), 900);
    EXPECT_EQ(box->RowTop(1), 0);
}

TEST(FontChange, WiderTextGetsItsScrollBarAtOnce) {
    HeadlessBox box;
    box->text(Times(80) + u"\r\n" + Doc(99));
    EXPECT_FALSE(box.Elements().scrHorz.Visible());
    box.Metrics().UnitWidth = 200;
    box->Font({.Name = u"Wide"});
    EXPECT_TRUE(box.Elements().scrHorz.Visible());
    EXPECT_EQ(box.Elements().scrHorz.Max(), 240 + 16000 + 315 - 11745);
    EXPECT_EQ(box.Elements().scrHorz.SmallChange(), 1000);
}

TEST(FontChange, RowsScrolledSidewaysStayShifted) {
    HeadlessBox box;
    box->text(Times(200) + u"\r\n" + Doc(99));
    box.Elements().scrHorz.UserStepBy(1200);
    SetRowHeight(box, 300);
    EXPECT_EQ(box.Elements().scrHorz.Value(), 1200);
    for (const Label& label : box.Elements().lblLine) EXPECT_EQ(label.Left(), -645);
}

TEST(FontChange, AFontWithoutHeightLeavesTheRowCountAndIsNoError) {
    HeadlessBox box;
    box->text(Doc(100));
    SetRowHeight(box, 0);
    box->TopLine(7);
    SetRowHeight(box, 240);
    EXPECT_EQ(box->TopLine(), 1);
    EXPECT_EQ(box.RowLines().size(), 30U);
}

TEST(FontChange, AFontThatCannotBeMeasuredIsShownAllTheSame) {
    HeadlessBox box;
    box->text(Doc(100));
    box.Metrics().Fails = ErrorKind::InvalidValue;
    box->Font({.Name = u"Broken"});
    EXPECT_EQ(box.Elements().lblLine[9].Caption(), u"L10");
    box.Metrics().Fails.reset();
    box->TopLine(2);
    EXPECT_EQ(box.Elements().lblLine[9].Caption(), u"L11");
}

TEST(FontChange, WhileSuspendedTheRowsFollowAtTheEnd) {
    HeadlessBox box;
    box->text(Doc(1000));
    box->TopLine(500);
    box->AutoRedraw(false);
    SetRowHeight(box, 300);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L500");
    box->AutoRedraw(true);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L1");
    EXPECT_EQ(box.Elements().lblLine[0].Left(), 555);
}

}  // namespace
}  // namespace quorvale
