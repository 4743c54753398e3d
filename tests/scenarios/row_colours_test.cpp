#include <gtest/gtest.h>

#include "base/errors.h"
#include "base/numbers_in_text.h"
#include "headless/headless_box.h"
#include "support/documents.h"
#include "support/error_of.h"

namespace quorvale {
namespace {

constexpr Colour highlight = 0x8000000D;
constexpr Colour highlightText = 0x8000000E;

bool LooksSelected(const Label& label) {
    return label.BackColor() == highlight && label.ForeColor() == highlightText;
}

/// The lines whose rows look selected.
std::vector<std::int32_t> SelectedLines(HeadlessBox& box) {
    std::vector<std::int32_t> lines;
    for (const Label& label : box.Elements().lblLine) {
        if (LooksSelected(label)) lines.push_back(ToLong(std::u16string_view(label.Tag())));
    }
    return lines;
}

TEST(RowColours, RowsHaveTheirLinesColours) {
    HeadlessBox box;
    box->text(Doc(200));
    box->LineForeColor(150, 0x112233);
    box->LineBackColor(150, 0x445566);
    box->TopLine(149);
    EXPECT_EQ(box.Elements().lblLine[1].ForeColor(), 0x112233U);
    EXPECT_EQ(box.Elements().lblLine[1].BackColor(), 0x445566U);
    EXPECT_EQ(box.Elements().lblLine[0].ForeColor(), box->ForeColor());
    EXPECT_EQ(box.Elements().lblLine[2].BackColor(), box->BackColor());
}

TEST(RowColours, ColoursGoWithTheirLines) {
    HeadlessBox box;
    box->text(Doc(200));
    box->LineBackColor(5, 0x445566);
    EXPECT_EQ(box.Elements().lblLine[4].BackColor(), 0x445566U);
    box->TopLine(4);
    EXPECT_EQ(box.Elements().lblLine[1].BackColor(), 0x445566U);
    EXPECT_EQ(box.Elements().lblLine[4].BackColor(), box->BackColor());
}

TEST(RowColours, SelectedRowsHaveTheSystemsHighlight) {
    HeadlessBox box;
    box->text(Doc(200));
    box->MoveTo(10, 1);
    box->SelectedRowsCount(3);
    EXPECT_EQ(SelectedLines(box), (std::vector<std::int32_t>{10, 11, 12}));
    box->SelectedRowsCount(-3);
    EXPECT_EQ(SelectedLines(box), (std::vector<std::int32_t>{8, 9, 10}));
    box->SelectedRowsCount(1);
    EXPECT_EQ(SelectedLines(box), (std::vector<std::int32_t>{10}));
    box->SelectedRowsCount(-1);
    EXPECT_EQ(SelectedLines(box), (std::vector<std::int32_t>{10}));
    box->SelectedRowsCount(0);
    EXPECT_TRUE(SelectedLines(box).empty());
}

TEST(RowColours, TheHighlightHidesALinesOwnColoursUntilItIsTakenBack) {
    HeadlessBox box;
    box->text(Doc(20));
    box->LineBackColor(3, 0x445566);
    box->MoveTo(3, 1);
    box->SelectedRowsCount(1);
    EXPECT_TRUE(LooksSelected(box.Elements().lblLine[2]));
    box->SelectedRowsCount(0);
    EXPECT_EQ(box.Elements().lblLine[2].BackColor(), 0x445566U);
}

TEST(RowColours, BlankRowsNeverLookSelected) {
    HeadlessBox box;
    box->text(Doc(10));
    box->MoveTo(9, 1);
    box->SelectedRowsCount(100);
    EXPECT_EQ(SelectedLines(box), (std::vector<std::int32_t>{9, 10}));
    EXPECT_EQ(box.Elements().lblLine[10].BackColor(), box->BackColor());
    EXPECT_EQ(box.Elements().lblLine[128].ForeColor(), box->ForeColor());
}

TEST(RowColours, EveryRowOfThePoolIsPainted) {
    HeadlessBox box;
    box->text(Doc(10));
    box.Elements().lblLine[0].SetBackColor(0x123456);
    box.Elements().lblLine[128].SetBackColor(0x123456);
    box->SelectedRowsCount(0);
    EXPECT_EQ(box.Elements().lblLine[0].BackColor(), box->BackColor());
    EXPECT_EQ(box.Elements().lblLine[128].BackColor(), box->BackColor());
}

TEST(RowColours, NothingIsPaintedWhileSuspended) {
    HeadlessBox box;
    box->text(Doc(20));
    box->AutoRedraw(false);
    box->SelectedRowsCount(2);
    box->LineBackColor(5, 0x445566);
    EXPECT_TRUE(SelectedLines(box).empty());
    EXPECT_EQ(box.Elements().lblLine[4].BackColor(), box->BackColor());
    box->AutoRedraw(true);
    EXPECT_EQ(SelectedLines(box), (std::vector<std::int32_t>{1, 2}));
    EXPECT_EQ(box.Elements().lblLine[4].BackColor(), 0x445566U);
}

TEST(RowColours, ASelectionThatLeaves32BitsIsRefusedAndTheViewStillWorks) {
    HeadlessBox box;
    box->text(Doc(200));
    box->MoveTo(5, 1);
    box->SelectedRowsCount(2);
    EXPECT_EQ(ErrorOf([&] { box->SelectedRowsCount(2147483647); }), ErrorKind::Overflow);
    EXPECT_EQ(box->SelectedRowsCount(), 2);
    EXPECT_EQ(ErrorOf([&] { box->TopLine(4); }), std::nullopt);
    EXPECT_EQ(SelectedLines(box), (std::vector<std::int32_t>{5, 6}));
}

TEST(RowColours, TheGreatestSelectionsThatFitAreTaken) {
    HeadlessBox box;
    box->text(Doc(20));
    box->MoveTo(5, 1);
    box->SelectedRowsCount(2147483642);
    EXPECT_EQ(SelectedLines(box).size(), 16U);
    box->SelectedRowsCount(-2147483647 - 1);
    EXPECT_EQ(SelectedLines(box).size(), 5U);
}

TEST(RowColours, ANewGroundColourKeepsWhatLinesWereGivenBefore) {
    HeadlessBox box;
    box->text(Doc(20));
    const Colour old = box->BackColor();
    box->BackColor(0x00FFFF);
    EXPECT_EQ(box->LineBackColor(1), old);
    EXPECT_EQ(box.Elements().lblLine[25].BackColor(), 0x00FFFFU) << "a blank row";
}

}  // namespace
}  // namespace quorvale
