#include "state/slot_lines.h"

#include <gtest/gtest.h>

#include <string>

#include "base/errors.h"
#include "support/documents.h"
#include "support/error_of.h"
#include "support/even_metrics.h"

namespace quorvale {
namespace {

/// Rows that show the lines from 1 on; 30 of them fit.
class SlotLinesTest : public testing::Test {
protected:
    SlotLinesTest() {
        view.RowsPerView = 30;
        while (surface.lblLine.UpperBound() < 128) surface.lblLine.Load();
        for (int slot = 0; slot < 128; ++slot) {
            surface.lblLine[slot].SetTag(Wide(std::to_string(slot + 1)));
        }
    }

    EvenMetrics metrics;
    Surface surface{metrics};
    ViewState view;
};

TEST_F(SlotLinesTest, ALineOnScreenIsFoundDownToTheRowThatIsCut) {
    EXPECT_EQ(FindRowSlot(surface, view, Line{1}), 0);
    EXPECT_EQ(FindRowSlot(surface, view, Line{30}), 29);
    EXPECT_EQ(FindRowSlot(surface, view, Line{31}), 30);
    EXPECT_EQ(FindRowSlot(surface, view, Line{32}), std::nullopt);
}

TEST_F(SlotLinesTest, TheFirstRowThatShowsItWins) {
    for (int slot = 10; slot <= 128; ++slot) surface.lblLine[slot].SetTag(u"11");
    EXPECT_EQ(FindRowSlot(surface, view, Line{11}), 10);
}

TEST_F(SlotLinesTest, MoreRowsThanThereAreAreNoProblem) {
    view.RowsPerView = 400;
    EXPECT_EQ(FindRowSlot(surface, view, Line{128}), 127);
    EXPECT_EQ(FindRowSlot(surface, view, Line{500}), std::nullopt);
}

TEST_F(SlotLinesTest, ARowsLineIsTheNumberInItsTag) {
    EXPECT_EQ(SlotLine(surface, 4), Line{5});
    EXPECT_EQ(SlotLine(surface, 128), Line{-1});
    surface.lblLine[4].SetTag(u"five");
    EXPECT_EQ(ErrorOf([&] { SlotLine(surface, 4); }), ErrorKind::TypeMismatch);
    EXPECT_EQ(ErrorOf([&] { SlotLine(surface, 129); }), ErrorKind::Index);
    EXPECT_EQ(ErrorOf([&] { SlotLine(surface, -1); }), ErrorKind::Index);
}

TEST_F(SlotLinesTest, SettingARowWritesTheLineAsADecimalNumber) {
    SetSlot(surface, 3, SharedText(u"text"), Line{2147483647});
    EXPECT_EQ(surface.lblLine[3].Caption(), u"text");
    EXPECT_EQ(surface.lblLine[3].Tag(), u"2147483647");
}

}  // namespace
}  // namespace quorvale
