#include "view/row_slots.h"

#include <gtest/gtest.h>

#include "view_rig.h"

namespace quorvale {
namespace {

TEST(RowSlots, TheFirst129AreCreatedOnce) {
    ViewRig rig;
    rig.Slots.CreateRowSlots();
    rig.Slots.CreateRowSlots();
    EXPECT_EQ(rig.View.RowSlotCount, 128);
    EXPECT_EQ(rig.Elements.lblLine.UpperBound(), 128);
    EXPECT_EQ(rig.Elements.imgLine.UpperBound(), 128);
    EXPECT_EQ(rig.Elements.imgExpand.UpperBound(), 128);
    EXPECT_EQ(rig.Elements.imgEdit.UpperBound(), 128);
}

TEST(RowSlots, NewRowsNameNoLineAreVisibleAndLookLikeTheFirst) {
    ViewRig rig;
    rig.Elements.lblLine[0].SetFont({.Name = u"Mono", .Size = 13});
    rig.Elements.lblLine[0].SetBackColor(0x00C0FFEE);
    rig.Slots.CreateRowSlots();
    for (const Label& label : rig.Elements.lblLine) {
        EXPECT_EQ(label.Tag(), u"-1");
        EXPECT_TRUE(label.Visible());
        EXPECT_EQ(label.Font(), rig.Elements.lblLine[0].Font());
        EXPECT_EQ(label.BackColor(), 0x00C0FFEEU);
    }
    EXPECT_FALSE(rig.Elements.imgExpand[77].Visible());
    EXPECT_FALSE(rig.Elements.imgEdit[77].Visible());
}

TEST(RowSlots, PlacingThemStartsWithTheNarrowestGlyphColumn) {
    ViewRig rig;
    rig.CreateRows();
    EXPECT_EQ(rig.View.TextLeftMargin, 75);
    for (const int i : {0, 1, 128}) {
        EXPECT_EQ(rig.Elements.lblLine[i].Left(), 315) << i;
        EXPECT_EQ(rig.Elements.lblLine[i].Top(), i * 240 + 360) << i;
        EXPECT_EQ(rig.Elements.lblLine[i].Width(), 40000) << i;
        EXPECT_EQ(rig.Elements.lblLine[i].Height(), 240) << i;
        EXPECT_EQ(rig.Elements.imgExpand[i].Left(), 75) << i;
        EXPECT_EQ(rig.Elements.imgExpand[i].Top(), i * 240 + 75) << i;
        EXPECT_EQ(rig.Elements.imgExpand[i].Shown(),
                  rig.Elements.ilExpand.Find(std::u16string(u"Expanded")));
        EXPECT_EQ(rig.Elements.imgEdit[i].Left(), 0) << i;
        EXPECT_EQ(rig.Elements.imgEdit[i].Top(), i * 240 + 15) << i;
        EXPECT_EQ(rig.Elements.imgEdit[i].Width(), 75) << i;
        EXPECT_EQ(rig.Elements.imgEdit[i].Height(), 225) << i;
        EXPECT_EQ(rig.Elements.imgLine[i].Top(), i * 240) << i;
        EXPECT_EQ(rig.Elements.imgLine[i].Width(), 225) << i;
        EXPECT_EQ(rig.Elements.imgLine[i].Height(), 225) << i;
    }
}

TEST(RowSlots, PlacingThemGivesTheButtonItsPictureAndTheToolbarsHeight) {
    ViewRig rig;
    rig.Elements.tbMore.SetHeight(420);
    rig.CreateRows();
    EXPECT_EQ(rig.Elements.cmdMore.Height(), 420);
    EXPECT_EQ(rig.Elements.cmdMore.Shown(), rig.Elements.ilMore.Find(std::u16string(u"right")));
    EXPECT_EQ(rig.Elements.lblLine[2].Top(), 900);
}

TEST(RowSlots, WithoutAToolbarTheFirstRowStandsAtTheTop) {
    ViewRig rig;
    rig.Elements.tbMore.SetVisible(false);
    rig.CreateRows();
    EXPECT_EQ(rig.Elements.lblLine[0].Top(), 0);
    EXPECT_EQ(rig.Elements.lblLine[128].Top(), 128 * 240);
}

TEST(RowSlots, PlacingThemAgainLetsTheNextFillFindTheNestingAnew) {
    ViewRig rig;
    rig.CreateRows();
    rig.Collapse.RangesUnchanged = true;
    rig.Slots.InitSurface();
    EXPECT_FALSE(rig.Collapse.RangesUnchanged);
}

TEST(RowSlots, SizesThatWouldBeNegativeAreZero) {
    ViewRig rig;
    rig.Elements.picBorder.SetWidth(0);
    for (Label& label : rig.Elements.lblLine) label.SetHeight(10);
    rig.CreateRows();
    EXPECT_EQ(rig.Elements.imgLine[3].Width(), 0);
    EXPECT_EQ(rig.Elements.imgLine[3].Height(), 0);
    EXPECT_EQ(rig.Elements.imgEdit[3].Height(), 0);
    EXPECT_EQ(rig.Elements.lblLine[3].Left(), 75);
}

TEST(RowSlots, EveryRowIsAsHighAsTheFontsText) {
    ViewRig rig;
    rig.CreateRows();
    rig.Metrics.RowHeight = 195;
    rig.Slots.TakeRowHeight(rig.Metrics);
    for (const Label& label : rig.Elements.lblLine) EXPECT_EQ(label.Height(), 195);
    EXPECT_EQ(rig.Elements.RowHeight(), 195);
}

TEST(RowSlots, RowsAddedLaterStandLikeTheOthersAndAreBlank) {
    ViewRig rig;
    rig.CreateRows();
    for (Label& label : rig.Elements.lblLine) label.SetLeft(-645);
    rig.Elements.lblLine[0].SetCaption(u"L1");
    rig.Elements.lblLine[0].SetBold(true);
    rig.Slots.GrowTo(200);
    EXPECT_EQ(rig.View.RowSlotCount, 200);
    EXPECT_EQ(rig.Elements.lblLine[200].Left(), -645) << "the rows are scrolled sideways";
    EXPECT_EQ(rig.Elements.lblLine[200].Top(), 200 * 240 + 360);
    EXPECT_EQ(rig.Elements.lblLine[200].Caption(), u"");
    EXPECT_EQ(rig.Elements.lblLine[200].Tag(), u"-1");
    EXPECT_FALSE(rig.Elements.lblLine[200].Bold());
    EXPECT_TRUE(rig.Elements.lblLine[200].Visible());
}

}  // namespace
}  // namespace quorvale
