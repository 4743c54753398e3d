#include "document/line_attributes.h"

#include <gtest/gtest.h>

#include <memory>

#include "document_fixture.h"
#include "platform/keyed_pictures.h"
#include "state/slot_lines.h"
#include "support/documents.h"

namespace quorvale {
namespace {

constexpr Colour red = 0x0000FF;
constexpr Colour green = 0x00FF00;

/// Ten lines, of which rows show the lines 1 to 4.
class LineAttributesTest : public testing::Test {
protected:
    LineAttributesTest() {
        surface_.UserControl.SetForeColor(green);
        surface_.UserControl.SetBackColor(0x123456);
        document_.Table.ForeColors.Reset(document_.LineSlots, 7);
        document_.Table.BackColors.Reset(document_.LineSlots, 8);
        view_.RowsPerView = 3;
        while (surface_.lblLine.UpperBound() < 4) {
            surface_.lblLine.Load();
            surface_.imgLine.Load();
        }
        for (int slot = 0; slot <= 4; ++slot) {
            SetSlot(surface_, slot, SharedText(u"row"), Line{slot + 1});
            surface_.lblLine[slot].SetForeColor(7);
            surface_.lblLine[slot].SetBackColor(8);
        }
        list_->Add(u"k", first_);
        list_->Add(u"second", second_);
        appearance_.ImageList = list_;
    }

    EvenMetrics metrics_;
    ViewState view_;
    Surface surface_{metrics_};
    AppearanceState appearance_;
    DocumentState document_ = DocumentOf(Doc(10));
    LineAttributes attributes_{document_, view_, surface_, appearance_};
    PicturePtr first_ = std::make_shared<Picture>("first", 240, 240);
    PicturePtr second_ = std::make_shared<Picture>("second", 240, 240);
    std::shared_ptr<ImageList> list_ = std::make_shared<ImageList>();
};

TEST_F(LineAttributesTest, BadLineNumbersGiveTheControlsColoursAndNoPicture) {
    for (const std::int32_t line : {0, -5, 11, 2147483647}) {
        EXPECT_EQ(attributes_.ForeColor(Line{line}), green);
        EXPECT_EQ(attributes_.BackColor(Line{line}), 0x123456U);
        EXPECT_EQ(attributes_.Image(Line{line}), Variant(std::int16_t{0}));
    }
}

TEST_F(LineAttributesTest, SettingABadLineDoesNothing) {
    for (const std::int32_t line : {0, -5, 11, 2147483647}) {
        attributes_.SetForeColor(Line{line}, red);
        attributes_.SetBackColor(Line{line}, red);
        attributes_.SetImage(Line{line}, std::u16string(u"k"));
    }
    for (std::int32_t line = 1; line <= 11; ++line) {
        EXPECT_EQ(document_.Table.ForeColors.Get(line), 7U);
        EXPECT_EQ(document_.Table.BackColors.Get(line), 8U);
        EXPECT_EQ(document_.Table.Images.Get(line), Variant(std::int16_t{0}));
    }
}

TEST_F(LineAttributesTest, AColourShowsAtOnceInItsRowAndInNoOther) {
    attributes_.SetForeColor(Line{2}, red);
    attributes_.SetBackColor(Line{3}, green);
    for (int slot = 0; slot <= 4; ++slot) {
        EXPECT_EQ(surface_.lblLine[slot].ForeColor(), slot == 1 ? red : 7U) << slot;
        EXPECT_EQ(surface_.lblLine[slot].BackColor(), slot == 2 ? green : 8U) << slot;
    }
    EXPECT_EQ(attributes_.ForeColor(Line{2}), red);
    EXPECT_EQ(attributes_.BackColor(Line{3}), green);
}

TEST_F(LineAttributesTest, OffScreenOnlyTheTableChanges) {
    attributes_.SetForeColor(Line{9}, red);
    attributes_.SetForeColor(Line{5}, red);
    EXPECT_EQ(attributes_.ForeColor(Line{9}), red);
    for (const Label& label : surface_.lblLine) EXPECT_EQ(label.ForeColor(), 7U);
}

TEST_F(LineAttributesTest, WhilePaintingIsSuspendedOnlyTheTableChanges) {
    view_.RedrawSuspendCount = 1;
    attributes_.SetForeColor(Line{2}, red);
    attributes_.SetBackColor(Line{2}, red);
    attributes_.SetImage(Line{2}, std::u16string(u"k"));
    EXPECT_EQ(attributes_.ForeColor(Line{2}), red);
    EXPECT_EQ(surface_.lblLine[1].ForeColor(), 7U);
    EXPECT_EQ(surface_.lblLine[1].BackColor(), 8U);
    EXPECT_EQ(surface_.imgLine[1].Shown(), nullptr);
}

TEST_F(LineAttributesTest, APictureIsFoundByKeyOrNumberAndTakenAwayByAZero) {
    attributes_.SetImage(Line{3}, std::u16string(u"K"));
    EXPECT_EQ(surface_.imgLine[2].Shown(), first_) << "the case of the key does not count";
    attributes_.SetImage(Line{3}, std::int16_t{2});
    EXPECT_EQ(surface_.imgLine[2].Shown(), second_);
    EXPECT_EQ(attributes_.Image(Line{3}), Variant(std::int16_t{2}));
    attributes_.SetImage(Line{3}, std::int32_t{0});
    EXPECT_EQ(surface_.imgLine[2].Shown(), nullptr);
    EXPECT_EQ(attributes_.Image(Line{3}), Variant(std::int32_t{0}));
}

TEST_F(LineAttributesTest, EveryNumberThatIsZeroMeansNoPictureButNoStringDoes) {
    list_->Add(u"0", second_);
    const Variant zeros[] = {std::monostate{}, std::int16_t{0}, std::int32_t{0}, 0.0F, 0.0};
    for (const Variant& zero : zeros) {
        attributes_.SetImage(Line{1}, std::u16string(u"k"));
        attributes_.SetImage(Line{1}, zero);
        EXPECT_EQ(surface_.imgLine[0].Shown(), nullptr) << zero.index();
    }
    attributes_.SetImage(Line{1}, std::u16string(u"0"));
    EXPECT_EQ(surface_.imgLine[0].Shown(), second_);
}

TEST_F(LineAttributesTest, AMissingPictureIsNoFailureAndTheKeyIsKept) {
    attributes_.SetImage(Line{1}, std::u16string(u"k"));
    for (const Variant& wrong : {Variant(std::u16string(u"unknown")), Variant(std::int32_t{99}),
                                 Variant(std::int32_t{-1}), Variant(std::u16string())}) {
        attributes_.SetImage(Line{1}, wrong);
        EXPECT_EQ(surface_.imgLine[0].Shown(), nullptr);
        EXPECT_EQ(attributes_.Image(Line{1}), wrong);
    }
}

TEST_F(LineAttributesTest, WithoutAnImageListTheKeyIsKeptAndNothingShown) {
    appearance_.ImageList = nullptr;
    attributes_.SetImage(Line{1}, std::u16string(u"k"));
    EXPECT_EQ(surface_.imgLine[0].Shown(), nullptr);
    EXPECT_EQ(attributes_.Image(Line{1}), Variant(std::u16string(u"k")));
    appearance_.ImageList = first_ ? std::make_shared<Object>() : nullptr;
    attributes_.SetImage(Line{1}, std::u16string(u"k"));
    EXPECT_EQ(surface_.imgLine[0].Shown(), nullptr) << "an object that has no pictures";
}

}  // namespace
}  // namespace quorvale
