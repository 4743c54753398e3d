#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/errors.h"
#include "headless/headless_box.h"
#include "platform/keys.h"
#include "support/control_inside.h"
#include "support/documents.h"
#include "support/error_of.h"

namespace quorvale {
namespace {

using testing::ElementsAre;

struct Folds : testing::Test {
    Folds() { Show(100); }

    void Show(int lines) {
        box->text(Doc(lines));
        box.EnterText();
        box.Log().Clear();
    }
    template <class Action>
    std::vector<std::string> After(Action action) {
        box.Log().Clear();
        action();
        return box.Log().Entries();
    }
    /// The depths of some lines, one after the other.
    std::string Depths(std::int32_t from, std::int32_t to) {
        std::string all;
        for (std::int32_t line = from; line <= to; ++line) {
            all += std::to_string(Inside(box.Box()).Document.HiddenDepth(Line{line}));
        }
        return all;
    }
    std::size_t Ranges() { return Inside(box.Box()).Collapse.Ranges.size(); }
    bool ButtonEnabled() { return box.Elements().tbMore.Button(u"Collapsed").Enabled; }
    void Repaint() {
        box->AutoRedraw(false);
        box->AutoRedraw(true);
    }
    /// The slot of a line that is on screen.
    int SlotOf(std::int32_t line) {
        return static_cast<int>((box->RowTop(line) - box.Elements().ToolbarHeight()) / 240);
    }
    void ClickGlyph(std::int32_t line) { box.Elements().OnGlyphClick(SlotOf(line)); }
    const Image& Glyph(std::int32_t line) { return box.Elements().imgExpand[SlotOf(line)]; }

    HeadlessBox box;
};

TEST_F(Folds, WhatIsNoRangeIsNotRegistered) {
    const std::pair<std::int32_t, std::int32_t> ranges[] = {{5, 5},  {5, 4},     {0, 9},
                                                            {-1, 9}, {101, 103}, {102, 110}};
    for (const auto& [from, to] : ranges) {
        EXPECT_FALSE(box->CollapseLines(from, to));
        EXPECT_EQ(Ranges(), 0U) << from;
        EXPECT_FALSE(ButtonEnabled()) << from;
    }
}

TEST_F(Folds, ARegistrationAnswersFalseAndIsNeitherHeardNorSeen) {
    EXPECT_THAT(After([&] { EXPECT_FALSE(box->CollapseLines(5, 20)); }), ElementsAre());
    EXPECT_EQ(Ranges(), 1U);
    EXPECT_TRUE(ButtonEnabled());
    EXPECT_FALSE(Inside(box.Box()).Collapse.RangesUnchanged);
    EXPECT_EQ(Depths(4, 7), "0000");
    EXPECT_FALSE(Glyph(5).Visible());
    EXPECT_FALSE(box->CollapseLines(100, 101)) << "it folds nothing but the place behind the end";
    EXPECT_EQ(Ranges(), 2U);
}

TEST_F(Folds, AThousandRangesAreKeptInTheirOrderUntilTheNextFillSortsThem) {
    Show(2000);
    for (std::int32_t k = 0; k < 1000; ++k) box->CollapseLines(1999 - k, 2000 - k);
    const auto& ranges = Inside(box.Box()).Collapse.Ranges;
    ASSERT_EQ(ranges.size(), 1000U);
    for (std::int32_t k = 0; k < 1000; ++k) {
        EXPECT_EQ(ranges[static_cast<std::size_t>(k)], (CollapseRange{1999 - k, 2000 - k, 0}));
    }
    Repaint();
    for (std::int32_t k = 0; k < 1000; ++k) {
        EXPECT_EQ(ranges[static_cast<std::size_t>(k)].FromRow, 1000 + k);
    }
}

TEST_F(Folds, ARangesThirdFieldHoldsItsNestingAfterTheNextFill) {
    box->CollapseLines(8, 12);
    box->CollapseLines(5, 20);
    const auto& ranges = Inside(box.Box()).Collapse.Ranges;
    EXPECT_THAT(ranges, ElementsAre(CollapseRange{8, 12, 0}, CollapseRange{5, 20, 0}));
    Repaint();
    EXPECT_THAT(ranges, ElementsAre(CollapseRange{5, 20, 0}, CollapseRange{8, 12, 1}));
}

TEST_F(Folds, NestedRangesAddUp) {
    box->CollapseLines(5, 20);
    box->CollapseLines(8, 12);
    box->CollapseAll();
    EXPECT_EQ(Depths(4, 21), "001112222111111110");
}

TEST_F(Folds, AClickOnAFoldedGlyphOpensOneLevelAndTheInnerHeadShowsItsFold) {
    box->CollapseLines(5, 20);
    box->CollapseLines(8, 12);
    box->CollapseAll();
    ClickGlyph(5);
    EXPECT_EQ(Depths(4, 21), "000001111000000000");
    EXPECT_EQ(Glyph(8).Shown(), box.Elements().ilExpand.Find(u"Collapsed"));
    EXPECT_TRUE(box.Elements().lblLine[SlotOf(8)].Bold());
    EXPECT_EQ(Glyph(5).Shown(), box.Elements().ilExpand.Find(u"Expanded"));
    EXPECT_EQ(box->row(), 5);
    ClickGlyph(8);
    EXPECT_EQ(Depths(4, 21), "000000000000000000");
    EXPECT_EQ(box->row(), 8);
    box->CollapseAll();
    EXPECT_EQ(Depths(4, 21), "001112222111111110") << "all levels again";
}

TEST_F(Folds, AClickOnAnOpenGlyphFoldsAndTakesTheCaretAlong) {
    box->CollapseLines(5, 20);
    Repaint();
    for (const std::int32_t row : {12, 29}) {
        box->ExpandAll();
        box->MoveTo(row, 1);
        box->TopLine(1);
        EXPECT_THAT(After([&] { ClickGlyph(5); }), ElementsAre("SelChanged")) << row;
        EXPECT_EQ(Depths(4, 21), "001111111111111110");
        EXPECT_EQ(box->row(), 5);
    }
}

TEST_F(Folds, AFoldedHeadTakesNoOtherRangeUntilItIsOpen) {
    box->CollapseLines(5, 20);
    box->CollapseAll();
    box->CollapseLines(5, 30);
    EXPECT_EQ(Ranges(), 1U);
    box->ExpandAll();
    box->CollapseLines(5, 30);
    EXPECT_EQ(Ranges(), 2U);
    box->CollapseAll();
    EXPECT_EQ(Depths(20, 22), "211");
}

TEST_F(Folds, ExpandAllKeepsTheRanges) {
    box->CollapseLines(5, 20);
    box->CollapseLines(8, 12);
    box->CollapseAll();
    box->ExpandAll();
    EXPECT_EQ(Depths(1, 101), std::string(101, '0'));
    EXPECT_EQ(Ranges(), 2U);
    box->CollapseAll();
    EXPECT_EQ(Depths(4, 21), "001112222111111110");
}

TEST_F(Folds, ACaretInsideClimbsToTheHeadAndTheHostHearsOfItOnce) {
    box->CollapseLines(5, 20);
    box->CollapseLines(8, 12);
    box->MoveTo(10, 3);
    box->SelectedRowsCount(3);
    EXPECT_THAT(After([&] { box->CollapseAll(); }), ElementsAre("SelChanged"));
    EXPECT_EQ(box->row(), 5);
    EXPECT_EQ(box->SelectedRowsCount(), 0);
    EXPECT_EQ(box.Elements().txtLn.Text(), u"5");
    EXPECT_EQ(box.Elements().imgMarker.Top(), box->RowTop(5));
    EXPECT_THAT(After([&] { box->CollapseAll(); }), ElementsAre());
}

TEST_F(Folds, ATopLineInsideGoesToTheHead) {
    Show(200);
    box->CollapseLines(5, 50);
    box->MoveTo(20, 1);
    box->TopLine(15);
    box->CollapseAll();
    EXPECT_EQ(box->TopLine(), 5);
    EXPECT_EQ(box.RowLines().front(), 5);
}

TEST_F(Folds, BehindTheLastLineAFoldHidesNothing) {
    box->CollapseLines(100, 101);
    box->CollapseAll();
    EXPECT_EQ(Depths(98, 101), "0001");
    box->MoveTo(1, 1);
    box.Press(key_code::End, shift_mask::Ctrl);
    EXPECT_EQ(box->row(), 100);
}

TEST_F(Folds, RegisteredWhileSuspendedTheirGlyphsAppearAtTheEnd) {
    box->AutoRedraw(false);
    box->CollapseLines(5, 20);
    EXPECT_FALSE(Glyph(5).Visible());
    box->AutoRedraw(true);
    EXPECT_TRUE(Glyph(5).Visible());
    EXPECT_EQ(Glyph(5).Tag(), u"1");
}

TEST_F(Folds, MadeWhileSuspendedTheyHideTheirLinesAtTheEndAndTheCaretClimbs) {
    box->CollapseLines(5, 20);
    Repaint();
    box->MoveTo(12, 2);
    box->AutoRedraw(false);
    EXPECT_THAT(After([&] { ClickGlyph(5); }), ElementsAre());
    EXPECT_EQ(Depths(4, 7), "0011");
    EXPECT_EQ(box->row(), 12);
    EXPECT_EQ(box.RowLines()[5], 6) << "nothing is painted";
    EXPECT_THAT(After([&] { box->AutoRedraw(true); }), ElementsAre("SelChanged"));
    EXPECT_EQ(box->row(), 5);
    EXPECT_EQ(box.RowLines()[5], 21);
    EXPECT_EQ(box.Elements().imgMarker.Top(), box->RowTop(5));
}

TEST_F(Folds, ARangePastTheEndHidesWhatLiesInTheDocumentAndIsAnError) {
    box->CollapseLines(90, 5000);
    EXPECT_EQ(Ranges(), 1U);
    box->TopLine(71);
    EXPECT_EQ(ErrorOf([&] { box->CollapseAll(); }), ErrorKind::Index);
    EXPECT_EQ(Depths(89, 101), "0011111111111");
    EXPECT_EQ(box.RowLines().back(), 90);
    EXPECT_TRUE(box.Elements().lblLine[SlotOf(90)].Bold());
}

TEST_F(Folds, ACaretThatClimbsOutOfARangePastTheEndStandsInTheLineAndIsHeard) {
    // Symptom: the column was behind the end of the line, the selection that of other rows.
    box->text(Doc(20) + u"\r\n" + Times(50) + u"\r\n" + Times(50));
    box->CollapseLines(20, 5000);
    box->MoveTo(22, 40);
    box->SelectedRowsCount(-2);
    box.Log().Clear();
    EXPECT_EQ(ErrorOf([&] { box->CollapseAll(); }), ErrorKind::Index);
    EXPECT_EQ(box->row(), 20);
    EXPECT_EQ(box->col(), 3) << "the last character of \"L20\"";
    EXPECT_EQ(box->SelectedRowsCount(), 0);
    EXPECT_THAT(box.Log().Entries(), ElementsAre("Scrolled", "SelChanged"));
}

TEST_F(Folds, AClimbToAShorterLineIsHeardOnceAlsoWhenTheViewScrolls) {
    // Symptom: the caret was heard twice, first at the end of the line.
    box->text(Doc(20) + u"\r\n" + Times(50) + u"\r\n" + Times(50) + u"\r\n" + Doc(100));
    box->CollapseLines(20, 22);
    box->MoveTo(22, 40);
    box->TopLine(1);
    EXPECT_THAT(After([&] { box->CollapseAll(); }), ElementsAre("Scrolled", "SelChanged"));
    EXPECT_EQ(box->row(), 20);
    EXPECT_EQ(box->col(), 3);
}

TEST_F(Folds, WithoutAnyRangeNothingChanges) {
    box->MoveTo(5, 2);
    EXPECT_THAT(After([&] { box->CollapseAll(); }), ElementsAre());
    EXPECT_THAT(After([&] { box->ExpandAll(); }), ElementsAre());
    EXPECT_THAT(After([&] { box.Elements().OnGlyphClick(4); }), ElementsAre());
    EXPECT_EQ(box->row(), 5);
    EXPECT_EQ(box->col(), 2);
}

TEST_F(Folds, ANewDocumentHasNone) {
    box.Files().Put(u"/other", DocFile(100, 'o'));
    for (const bool fromFile : {true, false}) {
        box->CollapseLines(5, 20);
        box->CollapseAll();
        EXPECT_TRUE(ButtonEnabled());
        if (fromFile) {
            box->LoadFile(u"/other");
        } else {
            box->text(Doc(100));
        }
        EXPECT_EQ(Ranges(), 0U);
        EXPECT_FALSE(ButtonEnabled());
        EXPECT_EQ(Depths(1, 101), std::string(101, '0'));
        box->CollapseAll();
        EXPECT_EQ(Depths(1, 101), std::string(101, '0'));
    }
}

}  // namespace
}  // namespace quorvale
