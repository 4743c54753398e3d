#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "base/text.h"
#include "headless/headless_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

constexpr Colour red = 0x0000FF;
constexpr Colour blue = 0xFF0000;

/// Lines "L1" to "L300", thirty rows and a cut one on screen, and a host's list of two pictures.
class SingleLines : public testing::Test {
protected:
    SingleLines() {
        box_->text(Doc(300));
        list_->Add(u"k", first_);
        list_->Add(u"second", second_);
        box_->ImageList(list_);
    }

    const Label& Row(int slot) { return box_.Elements().lblLine[slot]; }
    PicturePtr PictureIn(int slot) { return box_.Elements().imgLine[slot].Shown(); }

    HeadlessBox box_;
    PicturePtr first_ = std::make_shared<Picture>("first", 240, 240);
    PicturePtr second_ = std::make_shared<Picture>("second", 240, 240);
    std::shared_ptr<ImageList> list_ = std::make_shared<ImageList>();
};

TEST_F(SingleLines, BadLineNumbersAnswerWithNothingAndTakeNothing) {
    box_->ForeColor(0x010203);
    box_->BackColor(0x040506);
    for (const std::int32_t line : {0, -1, -5, 301, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(box_->LineText(line), u"") << line;
        EXPECT_EQ(box_->LineForeColor(line), 0x010203U);
        EXPECT_EQ(box_->LineBackColor(line), 0x040506U);
        EXPECT_EQ(box_->LineImage(line), Variant(std::int16_t{0}));
        EXPECT_LT(box_->RowTop(line), 0);
        box_->LineForeColor(line, red);
        box_->LineBackColor(line, red);
        box_->LineImage(line, std::u16string(u"k"));
        EXPECT_EQ(box_->LineForeColor(line), 0x010203U);
        EXPECT_EQ(box_->LineBackColor(line), 0x040506U);
        EXPECT_EQ(box_->LineImage(line), Variant(std::int16_t{0}));
    }
}

TEST_F(SingleLines, WithoutADocumentNoLineNumberIsGood) {
    HeadlessBox empty;
    for (const std::int32_t line : {-1, 0, 1, 2}) {
        empty->LineForeColor(line, red);
        EXPECT_EQ(empty->LineText(line), u"");
        EXPECT_EQ(empty->LineForeColor(line), empty->ForeColor());
        EXPECT_EQ(empty->LineBackColor(line), empty->BackColor());
        EXPECT_EQ(empty->LineImage(line), Variant(std::int16_t{0}));
    }
}

TEST_F(SingleLines, OffScreenTabsAreExpandedAndOnScreenControlCharactersMarkedToo) {
    box_->text(Lines({Doc(199), u"a\tb\rc"}));
    EXPECT_EQ(box_->LineText(200), u"a       b\rc");
    box_->EnsureVisible(200);
    EXPECT_EQ(box_->LineText(200), u"a       b\u00B6c");
}

TEST_F(SingleLines, ALongLineReadOffScreenWidensTheScrollRangeOfTheNextLayout) {
    box_->text(Lines({Doc(199), Times(150)}));
    ASSERT_FALSE(box_.Elements().scrHorz.Visible());
    EXPECT_EQ(box_->LineText(200), Times(150));
    box_->TopLine(2);
    EXPECT_TRUE(box_.Elements().scrHorz.Visible());
    EXPECT_EQ(box_.Elements().scrHorz.Max(), 240 + 150 * 120 + 315 - 11745);
    box_->LineText(3);
    box_->TopLine(1);
    EXPECT_EQ(box_.Elements().scrHorz.Max(), 240 + 150 * 120 + 315 - 11745) << "it only grows";
    box_->text(Doc(100));
    EXPECT_LT(box_.Elements().scrHorz.Max(), 0) << "until the next document";
}

TEST_F(SingleLines, ALineThatCannotBeMeasuredIsReadAllTheSame) {
    box_.Metrics().Fails = ErrorKind::Overflow;
    EXPECT_EQ(box_->LineText(200), u"L200");
    box_.Metrics().Fails.reset();
    EXPECT_EQ(box_->LineText(200), u"L200");
}

TEST_F(SingleLines, AColourShowsAtOnceInTheRowOfItsLineAndNowhereElse) {
    const Colour fore = box_->ForeColor();
    const Colour back = box_->BackColor();
    box_->LineForeColor(2, red);
    box_->LineBackColor(31, blue);
    for (int slot = 0; slot < 128; ++slot) {
        EXPECT_EQ(Row(slot).ForeColor(), slot == 1 ? red : fore) << slot;
        EXPECT_EQ(Row(slot).BackColor(), slot == 30 ? blue : back) << slot;
    }
    EXPECT_EQ(box_->LineForeColor(2), red);
    EXPECT_EQ(box_->LineBackColor(31), blue);
}

TEST_F(SingleLines, AColourOffScreenShowsWhenItsLineIsScrolledTo) {
    box_->LineForeColor(200, red);
    box_->LineBackColor(201, blue);
    for (int slot = 0; slot < 31; ++slot) EXPECT_NE(Row(slot).ForeColor(), red);
    box_->TopLine(200);
    EXPECT_EQ(Row(0).ForeColor(), red);
    EXPECT_EQ(Row(1).BackColor(), blue);
    EXPECT_NE(Row(2).BackColor(), blue);
}

TEST_F(SingleLines, WhilePaintingIsSuspendedAColourWaits) {
    const Colour before = Row(2).ForeColor();
    box_->AutoRedraw(false);
    box_->LineForeColor(3, red);
    EXPECT_EQ(box_->LineForeColor(3), red);
    EXPECT_EQ(Row(2).ForeColor(), before);
    box_->AutoRedraw(true);
    EXPECT_EQ(Row(2).ForeColor(), red);
}

TEST_F(SingleLines, AColourOnASelectedRowShowsUntilTheSelectionIsPaintedAgain) {
    box_->MoveTo(2, 1);
    box_->SelectedRowsCount(2);
    ASSERT_EQ(Row(1).ForeColor(), system_colour::HighlightText);
    box_->LineForeColor(2, red);
    EXPECT_EQ(Row(1).ForeColor(), red);
    box_->SelectedRowsCount(2);
    EXPECT_EQ(Row(1).ForeColor(), system_colour::HighlightText);
    EXPECT_EQ(Row(1).BackColor(), system_colour::Highlight);
    box_->SelectedRowsCount(0);
    EXPECT_EQ(Row(1).ForeColor(), red);
}

TEST_F(SingleLines, APictureShowsAtOnceAndIsTakenAwayByAZero) {
    box_->LineImage(3, std::u16string(u"k"));
    EXPECT_EQ(PictureIn(2), first_);
    EXPECT_EQ(box_->LineImage(3), Variant(std::u16string(u"k")));
    box_->LineImage(3, std::int32_t{2});
    EXPECT_EQ(PictureIn(2), second_);
    EXPECT_EQ(box_->LineImage(3), Variant(std::int32_t{2}));
    box_->LineImage(3, std::int16_t{0});
    EXPECT_EQ(PictureIn(2), nullptr);
}

TEST_F(SingleLines, APictureOffScreenShowsWhenItsLineIsScrolledTo) {
    box_->LineImage(200, std::u16string(u"k"));
    EXPECT_EQ(PictureIn(0), nullptr);
    box_->TopLine(200);
    EXPECT_EQ(PictureIn(0), first_);
    EXPECT_EQ(PictureIn(1), nullptr);
}

TEST_F(SingleLines, WhilePaintingIsSuspendedAPictureWaits) {
    box_->AutoRedraw(false);
    box_->LineImage(3, std::u16string(u"k"));
    EXPECT_EQ(PictureIn(2), nullptr);
    box_->AutoRedraw(true);
    EXPECT_EQ(PictureIn(2), first_);
}

/// A list whose pictures the host exchanges under the same key.
class ExchangedList final : public ImageList {
public:
    PicturePtr Now;
    PicturePtr Find(const Variant&) const override { return Now; }
};

TEST_F(SingleLines, APictureIsLookedUpWhenItIsSetAndWhenTheRowIsFilled) {
    const auto list = std::make_shared<ExchangedList>();
    list->Now = first_;
    box_->ImageList(list);
    box_->LineImage(3, std::u16string(u"any"));
    list->Now = second_;
    EXPECT_EQ(PictureIn(2), first_) << "nobody has looked again";
    box_->TopLine(2);
    EXPECT_EQ(PictureIn(1), second_);
}

TEST_F(SingleLines, AnotherImageListRedrawsNothingAndReportsNothing) {
    box_->LineImage(3, std::u16string(u"k"));
    box_.Site().Changed.clear();
    const auto other = std::make_shared<ImageList>();
    box_->ImageList(other);
    EXPECT_EQ(box_->ImageList(), other);
    EXPECT_EQ(PictureIn(2), first_);
    EXPECT_TRUE(box_.Site().Changed.empty());
    EXPECT_TRUE(box_.Log().Entries().empty());
}

TEST_F(SingleLines, AMissingPictureKeptAllRowsBelowItFromBeingPainted) {
    box_->LineImage(3, std::u16string(u"no such key"));
    EXPECT_EQ(box_->LineImage(3), Variant(std::u16string(u"no such key")));
    box_->LineImage(4, std::int32_t{99});
    box_->TopLine(2);
    EXPECT_EQ(box_.Rows().size(), 30U);
    EXPECT_EQ(box_.Rows().back(), "L31");
    box_->ImageList(nullptr);
    box_->LineImage(40, std::u16string(u"k"));
    box_->TopLine(3);
    EXPECT_EQ(box_.Rows().back(), "L32");
    EXPECT_EQ(PictureIn(0), nullptr);
}

TEST_F(SingleLines, TheNumberOfLinesIsOneLessThanNoneBeforeADocument) {
    EXPECT_EQ(box_->LineCount(), 300);
    EXPECT_EQ(HeadlessBox()->LineCount(), -1);
}

}  // namespace
}  // namespace quorvale
