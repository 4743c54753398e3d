#include "view/row_colours.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "base/errors.h"
#include "support/documents.h"
#include "support/error_of.h"
#include "view_rig.h"

namespace quorvale {
namespace {

constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();

std::vector<std::int32_t> Selected(std::int32_t caret, std::int32_t count) {
    NavigationState navigation;
    navigation.CaretRow = Line{caret};
    navigation.SelectedRowsCount = count;
    std::vector<std::int32_t> lines;
    for (std::int32_t line = 1; line <= 20; ++line) {
        if (IsLineSelected(navigation, Line{line})) lines.push_back(line);
    }
    return lines;
}

TEST(IsLineSelected, APositiveCountRunsFromTheCaretDown) {
    EXPECT_EQ(Selected(10, 3), (std::vector<std::int32_t>{10, 11, 12}));
    EXPECT_EQ(Selected(10, 1), (std::vector<std::int32_t>{10}));
}

TEST(IsLineSelected, ANegativeCountRunsFromTheCaretUp) {
    EXPECT_EQ(Selected(10, -3), (std::vector<std::int32_t>{8, 9, 10}));
    EXPECT_EQ(Selected(10, -1), (std::vector<std::int32_t>{10}));
    EXPECT_EQ(Selected(2, -5), (std::vector<std::int32_t>{1, 2}));
}

TEST(IsLineSelected, ZeroSelectsNothing) { EXPECT_TRUE(Selected(10, 0).empty()); }

TEST(IsLineSelected, ARangeThatLeaves32BitsIsAnOverflow) {
    EXPECT_EQ(ErrorOf([] { Selected(5, most); }), ErrorKind::Overflow);
    EXPECT_EQ(ErrorOf([] { Selected(5, most - 5); }), std::nullopt);
    EXPECT_EQ(ErrorOf([] { Selected(1, least); }), std::nullopt);
}

class RowColoursTest : public testing::Test {
protected:
    RowColoursTest() {
        rig.CreateRows();
        rig.SetText(Doc(50));
        rig.Elements.UserControl.SetForeColor(0x111111);
        rig.Elements.UserControl.SetBackColor(0x222222);
        for (int slot = 0; slot <= 128; ++slot) {
            rig.Elements.lblLine[slot].SetTag(Wide(std::to_string(std::min(slot + 1, 51))));
        }
    }

    ViewRig rig;
    LineAttributes attributes{rig.Document, rig.View, rig.Elements, rig.Looks};
    RowColours colours{rig.View, rig.Elements, rig.Document, rig.Navigation, attributes};
};

TEST_F(RowColoursTest, BlankRowsHaveTheControlsColoursAlsoWithinASelection) {
    rig.Navigation.CaretRow = Line{49};
    rig.Navigation.SelectedRowsCount = 100;
    colours.PaintRowColours();
    EXPECT_EQ(rig.Elements.lblLine[49].BackColor(), system_colour::Highlight);
    EXPECT_EQ(rig.Elements.lblLine[49].ForeColor(), system_colour::HighlightText);
    for (const int slot : {50, 127, 128}) {
        EXPECT_EQ(rig.Elements.lblLine[slot].BackColor(), 0x222222U) << slot;
        EXPECT_EQ(rig.Elements.lblLine[slot].ForeColor(), 0x111111U) << slot;
    }
}

TEST_F(RowColoursTest, ARowThatNamesNoLineIsBlankToo) {
    rig.Elements.lblLine[128].SetTag(u"-1");
    rig.Elements.lblLine[127].SetTag(u"0");
    rig.Navigation.CaretRow = Line{1};
    rig.Navigation.SelectedRowsCount = -5;
    colours.PaintRowColours();
    EXPECT_EQ(rig.Elements.lblLine[128].BackColor(), 0x222222U);
    EXPECT_EQ(rig.Elements.lblLine[127].BackColor(), 0x222222U);
}

TEST_F(RowColoursTest, ARowWhoseTagIsNoNumberIsATypeMismatch) {
    rig.Elements.lblLine[7].SetTag(u"seven");
    EXPECT_EQ(ErrorOf([&] { colours.PaintRowColours(); }), ErrorKind::TypeMismatch);
}

TEST_F(RowColoursTest, WhileSuspendedNothingIsPainted) {
    rig.View.RedrawSuspendCount = 1;
    colours.PaintRowColours();
    EXPECT_NE(rig.Elements.lblLine[60].BackColor(), 0x222222U);
}

}  // namespace
}  // namespace quorvale
