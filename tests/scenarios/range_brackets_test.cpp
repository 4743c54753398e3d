#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "headless/headless_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

constexpr Twips rowHeight = 240;

/// A bracket as a user sees it: how far right its stroke hangs, in which row it ends, and whether
/// it comes from above the first row.
struct Bracket {
    Twips X;
    int EndRow;
    bool FromAbove;
};

std::vector<Bracket> Brackets(HeadlessBox& box) {
    std::vector<Bracket> all;
    const auto& strokes = box.Elements().lnExpand;
    for (int k = 1; k <= strokes.UpperBound(); ++k) {
        const LineShape& stroke = strokes[k];
        const auto row = static_cast<int>(stroke.Y2() / rowHeight);
        all.push_back({stroke.X1(), row, stroke.Y1() < rowHeight / 2});
    }
    return all;
}

std::vector<int> EndRows(HeadlessBox& box) {
    std::vector<int> rows;
    for (const Bracket& bracket : Brackets(box)) rows.push_back(bracket.EndRow);
    return rows;
}

void Repaint(HeadlessBox& box) {
    box->AutoRedraw(false);
    box->AutoRedraw(true);
}

TEST(RangeBrackets, AnOpenRangeHasAStrokeFromItsHeadToItsLastLineAndAFoot) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(5, 20);
    Repaint(box);
    ASSERT_EQ(box.Elements().lnExpand.UpperBound(), 1);
    ASSERT_EQ(box.Elements().lnExpandTo.UpperBound(), 1);
    const LineShape& stroke = box.Elements().lnExpand[1];
    const LineShape& foot = box.Elements().lnExpandTo[1];
    EXPECT_TRUE(stroke.Visible());
    EXPECT_TRUE(foot.Visible());
    EXPECT_EQ(stroke.X1(), stroke.X2());
    EXPECT_NEAR(stroke.Y1(), 4.5 * rowHeight, 0.75 * rowHeight) << "under the glyph of row 4";
    EXPECT_GT(stroke.Y1(), box.Elements().imgExpand[4].Top());
    EXPECT_GE(stroke.Y2(), 19 * rowHeight);
    EXPECT_LE(stroke.Y2(), 20 * rowHeight);
    EXPECT_EQ(foot.Y1(), stroke.Y2());
    EXPECT_EQ(foot.Y2(), stroke.Y2());
    EXPECT_EQ(foot.X1(), stroke.X1());
    EXPECT_GT(foot.X2(), stroke.X1());
}

TEST(RangeBrackets, TheStrokeHangsUnderItsGlyphWithinTheColumn) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(5, 20);
    box->CollapseLines(6, 12);
    Repaint(box);
    for (int k = 1; k <= 2; ++k) {
        const LineShape& stroke = box.Elements().lnExpand[k];
        const Image& glyph = box.Elements().imgExpand[k == 1 ? 5 : 4];
        EXPECT_GT(stroke.X1(), glyph.Left());
        EXPECT_LT(stroke.X1(), glyph.Left() + glyph.Width());
        EXPECT_LT(stroke.X1(), box.Elements().picExpand.Width());
    }
}

TEST(RangeBrackets, EveryLevelMovesTheStrokeAsFarAsTheGlyph) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(2, 30);
    box->CollapseLines(3, 20);
    box->CollapseLines(4, 10);
    Repaint(box);
    const auto all = Brackets(box);
    ASSERT_EQ(all.size(), 3U);
    EXPECT_EQ(EndRows(box), (std::vector<int>{9, 19, 29})) << "the innermost ends first";
    EXPECT_EQ(all[0].X - all[1].X, 120);
    EXPECT_EQ(all[1].X - all[2].X, 120);
}

TEST(RangeBrackets, StrokesFollowTheirHeadsRow) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(11, 20);
    Repaint(box);
    const Twips first = box.Elements().lnExpand[1].Y1();
    const Twips last = box.Elements().lnExpand[1].Y2();
    box->TopLine(8);
    EXPECT_EQ(box.Elements().lnExpand[1].Y1(), first - 7 * rowHeight);
    EXPECT_EQ(box.Elements().lnExpand[1].Y2(), last - 7 * rowHeight);
}

TEST(RangeBrackets, ATopLineInThreeNestedRangesHasThreeBracketsFromAbove) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(1, 50);
    box->CollapseLines(2, 40);
    box->CollapseLines(3, 30);
    box->TopLine(10);
    const auto all = Brackets(box);
    ASSERT_EQ(all.size(), 3U);
    EXPECT_EQ(EndRows(box), (std::vector<int>{20, 30, 40}));
    for (const Bracket& bracket : all) EXPECT_TRUE(bracket.FromAbove);
    EXPECT_LE(box.Elements().lnExpand[1].Y1(), 0) << "it starts at the top edge";
}

TEST(RangeBrackets, RangesThatEndInTheSameLineAllEndInItsRow) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(1, 50);
    box->CollapseLines(2, 50);
    box->CollapseLines(3, 50);
    Repaint(box);
    EXPECT_EQ(EndRows(box), (std::vector<int>{49, 49, 49}));
}

TEST(RangeBrackets, ARangeThatEndsInAFoldEndsAtTheFoldsHead) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(15, 20);
    box->CollapseAll();
    box->CollapseLines(5, 20);
    Repaint(box);
    ASSERT_EQ(box.Elements().lblLine[14].Caption(), u"L15");
    EXPECT_EQ(EndRows(box), (std::vector<int>{14}));
}

TEST(RangeBrackets, AFoldedRangeHasNoBracket) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(5, 20);
    box->CollapseLines(8, 12);
    box->CollapseAll();
    EXPECT_TRUE(Brackets(box).empty());
}

TEST(RangeBrackets, ARangeThatGoesOnBelowTheRowsRunsOffTheView) {
    HeadlessBox box;
    box->text(Doc(500));
    box->CollapseLines(5, 400);
    Repaint(box);
    ASSERT_EQ(Brackets(box).size(), 1U);
    EXPECT_GE(box.Elements().lnExpand[1].Y2(), 128 * rowHeight);
}

TEST(RangeBrackets, ARangeThatEndsAboveTheViewHasNone) {
    HeadlessBox box;
    box->text(Doc(500));
    box->CollapseLines(5, 20);
    box->TopLine(21);
    EXPECT_TRUE(Brackets(box).empty());
    box->TopLine(20);
    EXPECT_EQ(EndRows(box), (std::vector<int>{0})) << "its last line is the top one";
}

TEST(RangeBrackets, CrossingRangesEndEachInTheirOwnRow) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(5, 20);
    box->CollapseLines(10, 30);
    box->CollapseLines(40, 50);
    Repaint(box);
    EXPECT_EQ(EndRows(box), (std::vector<int>{19, 29, 49}));
}

TEST(RangeBrackets, RangesThatStartTogetherHaveABracketEach) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(5, 10);
    box->CollapseLines(5, 20);
    box->CollapseLines(30, 40);
    Repaint(box);
    EXPECT_EQ(EndRows(box), (std::vector<int>{9, 19, 39}));
    EXPECT_EQ(box.Elements().lnExpand[1].Y1(), box.Elements().lnExpand[2].Y1());
}

TEST(RangeBrackets, EveryFillDrawsThemAnew) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(1, 50);
    box->CollapseLines(2, 40);
    box->CollapseLines(3, 30);
    Repaint(box);
    Repaint(box);
    EXPECT_EQ(box.Elements().lnExpand.UpperBound(), 3);
    EXPECT_EQ(box.Elements().lnExpandTo.UpperBound(), 3);
    EXPECT_FALSE(box.Elements().lnExpand[0].Visible()) << "the model of the others";
    EXPECT_FALSE(box.Elements().lnExpandTo[0].Visible());
}

TEST(RangeBrackets, ANewDocumentHasNone) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(1, 50);
    Repaint(box);
    box->text(Doc(100));
    EXPECT_EQ(box.Elements().lnExpand.UpperBound(), 0);
    EXPECT_EQ(box.Elements().lnExpandTo.UpperBound(), 0);
}

}  // namespace
}  // namespace quorvale
