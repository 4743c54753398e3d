#include <gtest/gtest.h>

#include "headless/headless_box.h"
#include "platform/keys.h"
#include "support/documents.h"

namespace quorvale {
namespace {

struct Glyphs : testing::Test {
    Glyphs() {
        box->text(Doc(100));
        box->CollapseLines(5, 20);
        box->CollapseLines(8, 12);
        box->AutoRedraw(false);
        box->AutoRedraw(true);
        box.Log().Clear();
    }

    /// The slot that shows the line.
    int SlotOf(std::int32_t line) {
        const auto lines = box.RowLines();
        return static_cast<int>(std::find(lines.begin(), lines.end(), line) - lines.begin());
    }
    void Click(std::int32_t line) { box.Elements().OnGlyphClick(SlotOf(line)); }
    bool Shown(std::int32_t line) { return box->RowTop(line) >= 0; }

    HeadlessBox box;
};

TEST_F(Glyphs, AClickFoldsAnOpenRangeAndTheCaretGoesToItsHead) {
    box->MoveTo(15, 1);
    Click(8);
    EXPECT_TRUE(Shown(8));
    EXPECT_FALSE(Shown(9));
    EXPECT_TRUE(Shown(13));
    EXPECT_EQ(box->row(), 8) << "also when it was outside";
}

TEST_F(Glyphs, AClickOpensAFoldedRangeByOneLevel) {
    box->CollapseAll();
    Click(5);
    EXPECT_TRUE(Shown(8));
    EXPECT_FALSE(Shown(9)) << "the inner fold stays";
    EXPECT_TRUE(box.Elements().lblLine[SlotOf(8)].Bold());
    EXPECT_EQ(box->row(), 5);
    Click(8);
    EXPECT_TRUE(Shown(9));
    EXPECT_EQ(box->row(), 8);
}

TEST_F(Glyphs, ARangeRegisteredTwiceOpensWithTwoClicks) {
    box->text(Doc(100));
    box->CollapseLines(5, 20);
    box->CollapseLines(5, 20);
    box->CollapseAll();
    Click(5);
    EXPECT_FALSE(Shown(6));
    Click(5);
    EXPECT_TRUE(Shown(6));
}

TEST_F(Glyphs, OnARowWithoutAGlyphAClickDoesNothing) {
    box.Elements().OnGlyphClick(2);
    box.Elements().OnGlyphClick(60);
    EXPECT_TRUE(box.Log().Entries().empty());
}

TEST_F(Glyphs, TheRightButtonOffersToFoldOrUnfoldEverything) {
    Menu& menu = box.Elements().mnuCollapse;
    for (const std::int16_t button : {mouse_button::Left, mouse_button::Middle}) {
        box.Elements().OnGlyphMouseDown(4, {button, 0, 10, 10});
        EXPECT_FALSE(menu.PoppedUpAt()) << button;
    }
    box.Elements().OnGlyphMouseDown(4, {mouse_button::Right, 0, 10, 10});
    ASSERT_TRUE(menu.PoppedUpAt());
    ASSERT_EQ(menu.Items.size(), 2U);
    EXPECT_EQ(menu.Items[0].Caption, u"&Collapse All");
    EXPECT_EQ(menu.Items[1].Caption, u"&Expand All");
    menu.UserPick(menu.Items[0].Key);
    EXPECT_FALSE(Shown(6));
    menu.UserPick(menu.Items[1].Key);
    EXPECT_TRUE(Shown(6));
}

TEST_F(Glyphs, TheToolbarsButtonOpensTheSameMenuUnderTheToolbar) {
    box.Elements().tbMore.UserClick(u"Collapsed");
    const auto& place = box.Elements().mnuCollapse.PoppedUpAt();
    ASSERT_TRUE(place);
    EXPECT_EQ(place->Y, 360);
}

TEST_F(Glyphs, ARangePastTheEndFailsWithoutAWordAndTheScreenAgreesWithTheDepths) {
    box->text(Doc(100));
    box->CollapseLines(90, 5000);
    box->TopLine(80);
    box->AutoRedraw(false);
    box->AutoRedraw(true);
    EXPECT_NO_THROW(Click(90));
    EXPECT_TRUE(Shown(90));
    EXPECT_FALSE(Shown(91));
    box->ExpandAll();
    EXPECT_NO_THROW(box.Elements().mnuCollapse.UserPick(u"mnuCollapseCollapseAll"));
    EXPECT_FALSE(Shown(91));
}

TEST_F(Glyphs, FoldingThatMovesTheCaretOffAHiddenLineDropsTheSelection) {
    box->MoveTo(10, 1);
    box->SelectedRowsCount(3);
    box.Log().Clear();
    box->CollapseAll();
    EXPECT_EQ(box->row(), 5);
    EXPECT_EQ(box->SelectedRowsCount(), 0);
    EXPECT_EQ(box.Log().Count("SelChanged"), 1U);
}

TEST_F(Glyphs, ClicksBeforeAnyDocumentAreHarmless) {
    HeadlessBox empty;
    EXPECT_NO_THROW(empty.Elements().OnGlyphClick(0));
    EXPECT_NO_THROW(empty.Elements().mnuCollapse.UserPick(u"mnuCollapseCollapseAll"));
}

}  // namespace
}  // namespace quorvale
