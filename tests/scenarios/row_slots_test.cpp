#include <gtest/gtest.h>

#include "headless/headless_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

constexpr int lastSlot = 128;

TEST(RowSlots, ThePoolHas129RowsEachOfFourElements) {
    HeadlessBox box;
    EXPECT_EQ(box.Elements().lblLine.UpperBound(), lastSlot);
    EXPECT_EQ(box.Elements().imgLine.UpperBound(), lastSlot);
    EXPECT_EQ(box.Elements().imgExpand.UpperBound(), lastSlot);
    EXPECT_EQ(box.Elements().imgEdit.UpperBound(), lastSlot);
}

TEST(RowSlots, LabelsAreVisibleAndHaveTheFirstOnesFont) {
    HeadlessBox box;
    for (const Label& label : box.Elements().lblLine) {
        EXPECT_TRUE(label.Visible()) << label.Index();
        EXPECT_EQ(label.Font(), box.Elements().lblLine[0].Font()) << label.Index();
    }
}

TEST(RowSlots, CreatingThemTwiceChangesNothing) {
    HeadlessBox box;
    box->InitProperties();
    EXPECT_EQ(box.Elements().lblLine.UpperBound(), lastSlot);
    EXPECT_EQ(box.Elements().imgLine.UpperBound(), lastSlot);
    EXPECT_EQ(box.Elements().imgExpand.UpperBound(), lastSlot);
    EXPECT_EQ(box.Elements().imgEdit.UpperBound(), lastSlot);
    box->text(Doc(200));
    EXPECT_EQ(box.RowLines().size(), 30U);
    EXPECT_EQ(box.Elements().lblLine[127].Caption(), u"L128");
}

TEST(RowSlots, ElementsStandAtTheirRow) {
    HeadlessBox box;
    box->text(Doc(200));
    for (const int i : {0, 1, lastSlot}) {
        const Image& mark = box.Elements().imgEdit[i];
        EXPECT_EQ(mark.Left(), 0);
        EXPECT_EQ(mark.Top(), i * 240 + 15);
        EXPECT_EQ(mark.Width(), 75);
        EXPECT_EQ(mark.Height(), 225);
        EXPECT_EQ(box.Elements().imgExpand[i].Top(), i * 240 + 75);
        const Image& picture = box.Elements().imgLine[i];
        EXPECT_EQ(picture.Left(), 0);
        EXPECT_EQ(picture.Top(), i * 240);
        EXPECT_EQ(picture.Width(), 225);
        EXPECT_EQ(picture.Height(), 225);
        const Label& label = box.Elements().lblLine[i];
        EXPECT_EQ(label.Left(), 555);
        EXPECT_EQ(label.Top(), i * 240 + 360);
        EXPECT_EQ(label.Width(), 40000);
        EXPECT_EQ(label.Height(), 240);
    }
}

TEST(RowSlots, AFillMovesNoRowUpOrDown) {
    HeadlessBox box;
    box->text(Doc(500));
    for (const std::int32_t top : {3, 400, 1}) {
        box->TopLine(top);
        for (const Label& label : box.Elements().lblLine) {
            EXPECT_EQ(label.Top(), label.Index() * 240 + 360);
        }
    }
}

TEST(RowSlots, BeforeAnyDocumentNoRowNamesALine) {
    HeadlessBox box;
    for (const Label& label : box.Elements().lblLine) {
        EXPECT_TRUE(label.Tag() == u"0" || label.Tag() == u"-1") << label.Index();
    }
    EXPECT_EQ(box->RowTop(0), -480);
    EXPECT_EQ(box->RowTop(1), -480);
    EXPECT_TRUE(box.RowLines().empty());
}

TEST(RowSlots, LineImagesStayInTheBorderStrip) {
    HeadlessBox box;
    float width = 600;
    box->LeftBorderWidth(width);
    box->InitProperties();
    EXPECT_EQ(box.Elements().imgLine[7].Width(), 585);
}

}  // namespace
}  // namespace quorvale
