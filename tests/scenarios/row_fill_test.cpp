#include <gtest/gtest.h>

#include "base/errors.h"
#include "headless/headless_box.h"
#include "platform/keyed_pictures.h"
#include "support/documents.h"
#include "support/error_of.h"

namespace quorvale {
namespace {

PicturePtr Picture16(const char* name) { return std::make_shared<const Picture>(name, 240, 240); }

/// What a row shows.
struct Row {
    std::u16string Caption;
    std::u16string Tag;
    bool Bold;
    bool Glyph;

    bool operator==(const Row&) const = default;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << testing::PrintToString(row.Caption) << " " << testing::PrintToString(row.Tag)
         << (row.Bold ? " bold" : "") << (row.Glyph ? " glyph" : "");
}

Row RowAt(HeadlessBox& box, int slot) {
    const Label& label = box.Elements().lblLine[slot];
    return {std::u16string(label.Caption()), label.Tag(), label.Bold(),
            box.Elements().imgExpand[slot].Visible()};
}

const PicturePtr& GlyphAt(HeadlessBox& box, int slot) {
    return box.Elements().imgExpand[slot].Shown();
}

PicturePtr Glyph(HeadlessBox& box, const char16_t* key) {
    return box.Elements().ilExpand.Find(std::u16string(key));
}

TEST(RowFill, RowsShowTheLinesFromTheTopLineDown) {
    HeadlessBox box;
    box->text(Doc(100));
    for (int slot = 0; slot < 100; ++slot) {
        const std::u16string number = Wide(std::to_string(slot + 1));
        EXPECT_EQ(RowAt(box, slot), (Row{u"L" + number, number, false, false}));
    }
}

TEST(RowFill, RowsPastTheEndAreBlankAndCarryTheNumberBehindTheLastLine) {
    HeadlessBox box;
    box->text(Doc(100));
    for (int slot = 100; slot < 128; ++slot) {
        EXPECT_EQ(RowAt(box, slot), (Row{u"", u"101", false, false})) << slot;
    }
}

TEST(RowFill, BlankRowsKeepNothingOfWhatTheyShowedBefore) {
    HeadlessBox box;
    auto list = std::make_shared<ImageList>();
    list->Add(u"bug", Picture16("bug"));
    box->ImageList(list);
    box->text(Doc(10));
    box->LineImage(9, std::u16string(u"bug"));
    box->CollapseLines(3, 10);
    box->CollapseLines(5, 8);
    box->TopLine(2);
    ASSERT_TRUE(box.Elements().imgExpand[4].Visible());
    ASSERT_NE(box.Elements().imgLine[8].Shown(), nullptr);
    box->CollapseAll();
    EXPECT_EQ(RowAt(box, 2), (Row{u"L3", u"3", true, true}));
    for (int slot = 3; slot < 128; ++slot) {
        EXPECT_EQ(RowAt(box, slot), (Row{u"", u"11", false, false})) << slot;
        EXPECT_EQ(box.Elements().imgLine[slot].Shown(), nullptr) << slot;
        EXPECT_FALSE(box.Elements().imgEdit[slot].Visible()) << slot;
    }
}

TEST(RowFill, HiddenLinesTakeNoRow) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(5, 20);
    box->CollapseAll();
    EXPECT_EQ(RowAt(box, 4), (Row{u"L5", u"5", true, true}));
    EXPECT_EQ(RowAt(box, 5), (Row{u"L21", u"21", false, false}));
    EXPECT_EQ(RowAt(box, 84), (Row{u"L100", u"100", false, false}));
    EXPECT_EQ(RowAt(box, 85), (Row{u"", u"101", false, false}));
}

TEST(RowFill, CaptionsHaveTabsExpandedAndControlCharactersMarked) {
    HeadlessBox box;
    box->text(std::u16string(u"a\tb\rc") + u'\0' + u"d\n\te");
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"a       b\u00B6c\u00B7d");
    EXPECT_EQ(box.Elements().lblLine[1].Caption(), u"        e");
}

TEST(RowFill, ALinesImageComesFromTheHostsList) {
    HeadlessBox box;
    auto list = std::make_shared<ImageList>();
    const PicturePtr bug = Picture16("bug");
    list->Add(u"bug", bug);
    box->ImageList(list);
    box->text(Doc(200));
    box->LineImage(150, std::u16string(u"BUG"));
    box->LineImage(151, std::int32_t{1});
    box->LineImage(152, std::u16string(u"unknown"));
    box->TopLine(149);
    EXPECT_EQ(box.Elements().imgLine[0].Shown(), nullptr);
    EXPECT_EQ(box.Elements().imgLine[1].Shown(), bug);
    EXPECT_EQ(box.Elements().imgLine[2].Shown(), bug);
    EXPECT_EQ(box.Elements().imgLine[3].Shown(), nullptr);
    EXPECT_EQ(RowAt(box, 4).Caption, u"L153") << "an unknown key does not stop the fill";
    EXPECT_EQ(box.Elements().imgLine[1].Width(), 225) << "the picture is fitted to its place";
}

TEST(RowFill, TheHeadOfAnOpenRangeHasTheExpandedGlyphAndIsNotBold) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(5, 20);
    EXPECT_FALSE(box.Elements().imgExpand[4].Visible()) << "a registration repaints nothing";
    box->TopLine(2);
    box->TopLine(1);
    EXPECT_EQ(RowAt(box, 4), (Row{u"L5", u"5", false, true}));
    EXPECT_EQ(GlyphAt(box, 4), Glyph(box, u"Expanded"));
    EXPECT_EQ(box.Elements().imgExpand[4].Tag(), u"1");
    for (int slot = 0; slot < 128; ++slot) {
        EXPECT_EQ(box.Elements().imgExpand[slot].Visible(), slot == 4) << slot;
    }
}

TEST(RowFill, TheHeadOfAFoldedRangeHasTheCollapsedGlyphAndIsBold) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(5, 20);
    box->CollapseAll();
    EXPECT_TRUE(RowAt(box, 4).Bold);
    EXPECT_EQ(GlyphAt(box, 4), Glyph(box, u"Collapsed"));
    EXPECT_EQ(box.Elements().imgExpand[4].Tag(), u"1");
    box->ExpandAll();
    EXPECT_EQ(RowAt(box, 4), (Row{u"L5", u"5", false, true}));
    EXPECT_EQ(GlyphAt(box, 4), Glyph(box, u"Expanded"));
}

TEST(RowFill, ARangeThatEndsBehindTheLastLineFoldsNothingButTheEnd) {
    HeadlessBox box;
    box->text(Doc(10));
    box->CollapseLines(10, 11);
    box->CollapseAll();
    EXPECT_EQ(RowAt(box, 9).Caption, u"L10");
    EXPECT_EQ(RowAt(box, 10), (Row{u"", u"11", false, false}));
}

TEST(RowFill, EveryLevelOfNestingMovesTheGlyphByHalfAGlyphAndAGap) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(2, 30);
    box->CollapseLines(3, 20);
    box->CollapseLines(4, 10);
    box->TopLine(2);
    box->TopLine(1);
    EXPECT_EQ(box.Elements().imgExpand[1].Left(), 75);
    EXPECT_EQ(box.Elements().imgExpand[2].Left(), 195);
    EXPECT_EQ(box.Elements().imgExpand[3].Left(), 315);
}

TEST(RowFill, TheGlyphColumnIsAsWideAsTheDeepestNestingNeeds) {
    HeadlessBox box;
    box->text(Doc(100));
    EXPECT_EQ(box.Elements().picExpand.Width(), 315) << "room for two levels without any range";
    box->CollapseLines(5, 20);
    box->TopLine(2);
    EXPECT_EQ(box.Elements().picExpand.Width(), 315);
    box->CollapseLines(8, 12);
    box->TopLine(1);
    EXPECT_EQ(box.Elements().picExpand.Width(), 435) << "in the same operation";
    EXPECT_EQ(box.Elements().lblLine[0].Left(), 240 + 435);
    EXPECT_EQ(box.Elements().imgMarker.Left(), 240 + 435 - 120) << "the caret goes with its row";
    box->text(Doc(50));
    EXPECT_EQ(box.Elements().picExpand.Width(), 315) << "a new document has no ranges";
}

TEST(RowFill, RangesAreNumberedByTheirFirstLines) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(30, 40);
    box->CollapseLines(5, 20);
    box->TopLine(2);
    box->TopLine(1);
    EXPECT_EQ(box.Elements().imgExpand[4].Tag(), u"1");
    EXPECT_EQ(box.Elements().imgExpand[29].Tag(), u"2");
    box->CollapseLines(1, 3);
    box->TopLine(2);
    box->TopLine(1);
    EXPECT_EQ(box.Elements().imgExpand[4].Tag(), u"2");
}

TEST(RowFill, TheSameRangeTwiceDoesNotHideTheGlyphsBelowIt) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(5, 20);
    box->CollapseLines(5, 20);
    box->CollapseLines(30, 40);
    box->TopLine(2);
    box->TopLine(1);
    EXPECT_TRUE(RowAt(box, 4).Glyph);
    EXPECT_TRUE(RowAt(box, 29).Glyph);
    EXPECT_EQ(box.Elements().imgExpand[29].Tag(), u"3");
}

TEST(RowFill, OfRangesThatStartTogetherTheLongestHasTheGlyph) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(5, 10);
    box->CollapseLines(5, 20);
    box->CollapseLines(30, 40);
    box->TopLine(2);
    box->TopLine(1);
    EXPECT_EQ(box.Elements().imgExpand[4].Tag(), u"1");
    EXPECT_EQ(box.Elements().imgExpand[4].Left(), 75) << "the outer range's level";
    EXPECT_TRUE(RowAt(box, 29).Glyph);
}

TEST(RowFill, RangesTwiceInsideAFoldDoNotHideTheGlyphsBelowIt) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(3, 50);
    box->CollapseLines(8, 12);
    box->CollapseLines(8, 12);
    box->CollapseLines(60, 70);
    box->CollapseAll();
    EXPECT_EQ(RowAt(box, 3).Caption, u"L51");
    EXPECT_EQ(RowAt(box, 12), (Row{u"L60", u"60", true, true}));
    EXPECT_EQ(box.Elements().imgExpand[12].Tag(), u"4");
}

TEST(RowFill, AnOutOfDateGlyphOfTheOldDocumentIsGone) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(5, 20);
    box->CollapseAll();
    box->text(Doc(12));
    for (const Image& glyph : box.Elements().imgExpand) EXPECT_FALSE(glyph.Visible());
    EXPECT_FALSE(box.Elements().lblLine[4].Bold());
}

TEST(RowFill, BeforeAnyDocumentEveryRowIsBlank) {
    HeadlessBox box;
    box->AutoRedraw(false);
    box->AutoRedraw(true);
    for (int slot = 0; slot < 128; ++slot) {
        EXPECT_EQ(RowAt(box, slot), (Row{u"", u"0", false, false})) << slot;
    }
}

TEST(RowFill, SixtyFourRangesMayBeOpenAtOnce) {
    HeadlessBox box;
    box->text(Doc(300));
    for (int k = 1; k <= 64; ++k) box->CollapseLines(k, 300 - k);
    EXPECT_EQ(ErrorOf([&] { box->TopLine(100); }), std::nullopt);
    EXPECT_EQ(box.Elements().lnExpand.UpperBound(), 64);
}

TEST(RowFill, TheSixtyFifthOpenRangeIsAnErrorAfterTheRowsAreFilled) {
    HeadlessBox box;
    box->text(Doc(300));
    for (int k = 1; k <= 65; ++k) box->CollapseLines(k, 300 - k);
    EXPECT_NE(ErrorOf([&] { box->TopLine(100); }), std::nullopt);
    EXPECT_EQ(box->TopLine(), 100);
    for (int slot = 0; slot < 128; ++slot) {
        EXPECT_EQ(box.Elements().lblLine[slot].Tag(), Wide(std::to_string(100 + slot)));
    }
    EXPECT_EQ(box->RowTop(120), 360 + 20 * 240);
    EXPECT_NE(ErrorOf([&] { box->TopLine(101); }), std::nullopt);
    EXPECT_EQ(box.Elements().lblLine[0].Caption(), u"L101") << "it can still be scrolled";
    EXPECT_EQ(ErrorOf([&] { box->TopLine(260); }), std::nullopt) << "fewer are open there";
}

TEST(RowFill, AUserWhoScrollsIntoTooManyOpenRangesSeesTheRowsAndNoError) {
    HeadlessBox box;
    box->text(Doc(300));
    for (int k = 1; k <= 65; ++k) box->CollapseLines(k, 300 - k);
    box.Elements().scrVert.UserStepBy(99);
    EXPECT_EQ(box->TopLine(), 100);
    EXPECT_EQ(box.Elements().lblLine[29].Caption(), u"L129");
}

TEST(RowFill, SixtyFiveFoldedRangesAreNone) {
    HeadlessBox box;
    box->text(Doc(300));
    for (int k = 1; k <= 65; ++k) box->CollapseLines(k, 300 - k);
    EXPECT_EQ(ErrorOf([&] { box->CollapseAll(); }), std::nullopt);
    EXPECT_EQ(RowAt(box, 0), (Row{u"L1", u"1", true, true}));
    EXPECT_EQ(RowAt(box, 1), (Row{u"L300", u"300", false, false}));
}

TEST(RowFill, TheGlyphColumnGrowsForAtMost64Levels) {
    HeadlessBox box;
    box->text(Doc(300));
    for (int k = 1; k <= 70; ++k) box->CollapseLines(k, 300 - k);
    box->CollapseAll();
    EXPECT_EQ(box.Elements().picExpand.Width(), 66 * 120 + 75);
}

}  // namespace
}  // namespace quorvale
