#include <gtest/gtest.h>

#include "headless/headless_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

PicturePtr ButtonPicture(HeadlessBox& box, const char16_t* key) {
    return box.Elements().ilMore.Find(std::u16string(key));
}

TEST(ToolbarToggle, HidingTheToolbarMovesTheRowsUp) {
    HeadlessBox box;
    box->text(Doc(100));
    box.Elements().cmdMore.UserClick();
    EXPECT_FALSE(box.Elements().tbMore.Visible());
    for (const Label& label : box.Elements().lblLine) {
        EXPECT_EQ(label.Top(), label.Index() * 240);
    }
    EXPECT_EQ(box.Elements().picBorder.Top(), -15);
    EXPECT_EQ(box.Elements().picExpand.Top(), -15);
    EXPECT_EQ(box->RowTop(1), 0);
    EXPECT_EQ(box.Elements().scrVert.LargeChange(), 29);
    EXPECT_EQ(box.Elements().lblLine[31].Caption(), u"L32");
}

TEST(ToolbarToggle, ShowingItAgainMovesThemBack) {
    HeadlessBox box;
    box->text(Doc(100));
    for (int i = 0; i < 100; ++i) box.Elements().cmdMore.UserClick();
    EXPECT_TRUE(box.Elements().tbMore.Visible());
    for (const Label& label : box.Elements().lblLine) {
        EXPECT_EQ(label.Top(), 360 + label.Index() * 240);
    }
    EXPECT_EQ(box.Elements().picBorder.Top(), 345);
}

TEST(ToolbarToggle, ANewFontWhileItIsHiddenMovesNoRowForGood) {
    // Symptom: after a font was set without the toolbar, every row stood too low for ever.
    HeadlessBox box;
    box->text(Doc(100));
    const auto expectRows = [&](Twips first) {
        for (const Label& label : box.Elements().lblLine) {
            EXPECT_EQ(label.Top(), first + label.Index() * 195);
        }
        const Twips strip = first - 15;
        EXPECT_EQ(box.Elements().picBorder.Top(), strip);
        EXPECT_EQ(box.Elements().picExpand.Top(), strip);
    };
    box.Elements().cmdMore.UserClick();
    box.Metrics().RowHeight = 195;
    box->Font(Font{u"Other"});
    expectRows(0);
    for (int times = 0; times < 3; ++times) {
        box.Elements().cmdMore.UserClick();
        expectRows(360);
        box.Elements().cmdMore.UserClick();
        expectRows(0);
    }
}

TEST(ToolbarToggle, ComingBackTheSearchStartsAtTheCaret) {
    HeadlessBox box;
    box->text(Doc(100));
    box.EnterText();
    box.Elements().cmdMore.UserClick();
    box->MoveTo(50, 1);
    box.Elements().cmdMore.UserClick();
    ASSERT_EQ(box.Elements().Focus.Active(), FocusChild::SearchBox);
    box.Elements().txtSearch.SetText(u"L");
    EXPECT_EQ(box->row(), 50) << "not from the start of the text";
}

TEST(ToolbarToggle, TheMarkerStaysOnItsRow) {
    HeadlessBox box;
    box->text(Doc(100));
    box->MoveTo(10, 1);
    box.Elements().cmdMore.UserClick();
    EXPECT_EQ(box.Elements().imgMarker.Top(), 9 * 240);
    EXPECT_EQ(box.Elements().imgMarker.Top(), box->RowTop(10));
    box.Elements().cmdMore.UserClick();
    EXPECT_EQ(box.Elements().imgMarker.Top(), box->RowTop(10));
}

TEST(ToolbarToggle, TheButtonShowsWhereItLeads) {
    HeadlessBox box;
    EXPECT_EQ(box.Elements().cmdMore.Shown(), ButtonPicture(box, u"right"));
    box.Elements().cmdMore.UserClick();
    EXPECT_EQ(box.Elements().cmdMore.Shown(), ButtonPicture(box, u"left"));
    box.Elements().cmdMore.UserClick();
    EXPECT_EQ(box.Elements().cmdMore.Shown(), ButtonPicture(box, u"right"));
}

TEST(ToolbarToggle, TheFocusGoesToTheTextAndBackToTheSearchBox) {
    HeadlessBox box;
    box->SearchText(u"needle");
    box.Elements().cmdMore.UserClick();
    EXPECT_EQ(box.Elements().Focus.Active(), FocusChild::TextArea);
    box.Elements().cmdMore.UserClick();
    EXPECT_EQ(box.Elements().Focus.Active(), FocusChild::SearchBox);
    EXPECT_EQ(box.Elements().txtSearch.SelStart(), 0U);
    EXPECT_EQ(box.Elements().txtSearch.SelLength(), 6U);
}

TEST(ToolbarToggle, AFocusThatCannotBeHadIsNoFailure) {
    HeadlessBox box;
    box->text(Doc(100));
    box.Elements().Focus.OnRequest = [](FocusChild) { return false; };
    box.Elements().cmdMore.UserClick();
    EXPECT_FALSE(box.Elements().tbMore.Visible());
    EXPECT_EQ(box.Elements().Focus.Active(), FocusChild::None);
    EXPECT_EQ(box->RowTop(2), 240);
    box.Elements().cmdMore.UserClick();
    EXPECT_TRUE(box.Elements().tbMore.Visible());
    EXPECT_EQ(box.Elements().Focus.Active(), FocusChild::None);
    EXPECT_EQ(box.Elements().cmdMore.Shown(), ButtonPicture(box, u"right"));
}

TEST(ToolbarToggle, AtTheEndOfTheDocumentTheTopLineFollowsTheTallerView) {
    HeadlessBox box;
    box->text(Doc(100));
    box->TopLine(71);
    box.Elements().cmdMore.UserClick();
    EXPECT_EQ(box->TopLine(), 70);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L70");
}

TEST(ToolbarToggle, WhileSuspendedTheRowsMoveAndTheirTextStays) {
    HeadlessBox box;
    box->text(Doc(100));
    box->AutoRedraw(false);
    box->TopLine(40);
    box.Elements().cmdMore.UserClick();
    EXPECT_EQ(box.Elements().lblLine[0].Top(), 0);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L1");
}

}  // namespace
}  // namespace quorvale
