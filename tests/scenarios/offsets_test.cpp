#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "headless/headless_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

/// Two words with a line break behind each: twelve characters with the control's own line break,
/// lines from 1, 5 and 11 on.
class Offsets : public testing::Test {
protected:
    Offsets() { box_.Load("ab\r\ncdef\r\n"); }

    HeadlessBox box_;
};

TEST_F(Offsets, TheCaretsOffsetCountsTheCharactersInFrontOfIt) {
    struct Place {
        std::int32_t Row, Col, Offset;
    };
    for (const Place place : {Place{2, 3, 7},
                              {1, 1, 1},
                              {1, 3, 3},
                              {2, 0, 4},
                              {2, 1, 5},
                              {2, 5, 9},
                              {3, 0, 10},
                              {3, 1, 11},
                              {1, 0, 0}}) {
        box_->MoveTo(place.Row, place.Col);
        ASSERT_EQ(box_->row(), place.Row);
        ASSERT_EQ(box_->col(), place.Col);
        EXPECT_EQ(box_->Offset(), place.Offset);
    }
}

TEST_F(Offsets, AnOffsetIsALineAndAColumn) {
    std::int32_t o = 7;
    std::int32_t r = 0;
    std::int32_t c = 0;
    box_->OffsetToRowCol(o, r, &c);
    EXPECT_EQ(o, 7);
    EXPECT_EQ(r, 2);
    EXPECT_EQ(c, 3);
    EXPECT_EQ(box_->row(), 1) << "the caret does not move";
}

TEST_F(Offsets, TheColumnMayBeLeftOut) {
    std::int32_t o = 7;
    std::int32_t r = 0;
    box_->OffsetToRowCol(o, r);
    EXPECT_EQ(r, 2);
}

TEST_F(Offsets, BelowOneItBecomesOneForTheCallerToo) {
    for (const std::int32_t below : {0, -9, -2147483647 - 1}) {
        std::int32_t o = below;
        std::int32_t r = 0;
        std::int32_t c = 0;
        box_->OffsetToRowCol(o, r, &c);
        EXPECT_EQ(o, 1);
        EXPECT_EQ(r, 1);
        EXPECT_EQ(c, 1);
    }
}

TEST_F(Offsets, FromTheEndOnTheCaretGoesToTheEndAndNothingIsWritten) {
    for (const std::int32_t end : {12, 13, 2147483647}) {
        box_->MoveTo(1, 1);
        std::int32_t o = end;
        std::int32_t r = 77;
        std::int32_t c = 88;
        box_->OffsetToRowCol(o, r, &c);
        EXPECT_EQ(o, end);
        EXPECT_EQ(r, 77);
        EXPECT_EQ(c, 88);
        EXPECT_EQ(box_->row(), 3);
        EXPECT_EQ(box_->col(), 1);
    }
}

TEST_F(Offsets, SettingTheOffsetMovesTheCaret) {
    box_->Offset(7);
    EXPECT_EQ(box_->row(), 2);
    EXPECT_EQ(box_->col(), 3);
    box_->Offset(0);
    EXPECT_EQ(box_->row(), 1);
    EXPECT_EQ(box_->col(), 1);
}

TEST_F(Offsets, SettingTheOffsetToTheEndWentOnToTheFirstLine) {
    for (const std::int32_t end : {12, 13, 2147483647}) {
        box_->MoveTo(2, 2);
        box_.Log().Clear();
        box_->Offset(end);
        EXPECT_EQ(box_->row(), 3);
        EXPECT_EQ(box_->col(), 1);
        EXPECT_EQ(box_.Log().Count("SelChanged"), 1U);
    }
}

TEST_F(Offsets, ALineBreakIsAPlaceBehindTheLineItEnds) {
    std::int32_t o = 4;
    std::int32_t r = 0;
    std::int32_t c = 0;
    box_->OffsetToRowCol(o, r, &c);
    EXPECT_EQ(r, 1);
    EXPECT_EQ(c, 4) << "two more than the line has characters";
    box_->Offset(4);
    EXPECT_EQ(box_->row(), 1);
    EXPECT_EQ(box_->col(), 3) << "where the caret can only stand at the line's end";
}

TEST_F(Offsets, ColumnsOfATabAreOneOffset) {
    box_->text(u"a\tb");
    std::vector<std::int32_t> offsets;
    for (std::int32_t col = 0; col <= 10; ++col) {
        box_->MoveTo(1, col);
        offsets.push_back(box_->Offset());
    }
    EXPECT_EQ(offsets, (std::vector<std::int32_t>{0, 1, 2, 2, 2, 2, 2, 2, 2, 3, 4}));
    std::vector<std::int32_t> columns;
    for (std::int32_t position = 1; position <= 4; ++position) {
        std::int32_t o = position;
        std::int32_t r = 0;
        std::int32_t c = 0;
        box_->OffsetToRowCol(o, r, &c);
        columns.push_back(c);
    }
    EXPECT_EQ(columns, (std::vector<std::int32_t>{1, 8, 9, 10}));
}

TEST_F(Offsets, EveryCaretOfLinesWithoutTabsComesBackFromItsOffset) {
    box_->text(u"first\r\n\r\nthe third\nx\rx\r\n");
    for (std::int32_t line = 1; line <= box_->LineCount(); ++line) {
        const auto length = static_cast<std::int32_t>(box_->LineText(line).size());
        for (std::int32_t col = 1; col <= length + 1; ++col) {
            box_->MoveTo(line, col);
            std::int32_t o = box_->Offset();
            std::int32_t r = 0;
            std::int32_t c = 0;
            box_->OffsetToRowCol(o, r, &c);
            EXPECT_EQ(r, line);
            EXPECT_EQ(c, col);
            box_->Offset(o);
            EXPECT_EQ(box_->row(), line);
            EXPECT_EQ(box_->col(), col);
        }
    }
}

TEST_F(Offsets, EveryLineOfALargeDocumentIsFound) {
    std::u16string text;
    for (int line = 0; line < 100000; ++line) text += u"123456\r\n";
    box_->text(text);
    for (const std::int32_t line : {1, 2, 50000, 99999, 100000}) {
        std::int32_t o = (line - 1) * 8 + 1;
        std::int32_t r = 0;
        std::int32_t c = 0;
        box_->OffsetToRowCol(o, r, &c);
        EXPECT_EQ(r, line);
        EXPECT_EQ(c, 1);
    }
}

TEST(OffsetsWithoutADocument, AreZeroAndMoveNothing) {
    HeadlessBox box;
    EXPECT_EQ(box->Offset(), 0);
    for (const std::int32_t offset : {-1, 0, 1, 500}) {
        box->Offset(offset);
        std::int32_t o = offset;
        std::int32_t r = 7;
        std::int32_t c = 8;
        box->OffsetToRowCol(o, r, &c);
        EXPECT_EQ(r, 7);
        EXPECT_EQ(c, 8);
    }
    EXPECT_EQ(box->row(), 0);
    EXPECT_EQ(box->col(), 0);
    EXPECT_TRUE(box.Log().Entries().empty());
}

}  // namespace
}  // namespace quorvale
