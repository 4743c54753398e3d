#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "base/text.h"
#include "headless/headless_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

using testing::ElementsAre;

constexpr Colour red = 0x000000FF;

/// A control with a hundred lines whose container notes what it is told.
class Appearing : public testing::Test {
protected:
    Appearing() { box_->text(Doc(100)); }

    /// What the container hears of while something is done.
    std::vector<std::string> Reported(const std::function<void()>& action) {
        box_.Site().Changed.clear();
        action();
        std::vector<std::string> names;
        for (const std::u16string& name : box_.Site().Changed) names.push_back(ToUtf8(name));
        return names;
    }

    Surface& Elements() { return box_.Elements(); }

    HeadlessBox box_;
};

TEST_F(Appearing, TheGroundGoesToTheSurfaceEveryRowAndTheFocusHolder) {
    const Colour strip = Elements().picBorder.BackColor();
    box_->BackColor(red);
    EXPECT_EQ(box_->BackColor(), red);
    EXPECT_EQ(Elements().UserControl.BackColor(), red);
    EXPECT_EQ(Elements().picFocus.BackColor(), red);
    ASSERT_EQ(Elements().lblLine.UpperBound(), 128);
    for (const Label& label : Elements().lblLine) EXPECT_EQ(label.BackColor(), red);
    EXPECT_EQ(Elements().picBorder.BackColor(), strip);
    EXPECT_NE(Elements().UserControl.ForeColor(), red);
}

TEST_F(Appearing, TheTextsColourGoesToTheSameElements) {
    box_->ForeColor(red);
    EXPECT_EQ(box_->ForeColor(), red);
    EXPECT_EQ(Elements().UserControl.ForeColor(), red);
    EXPECT_EQ(Elements().picFocus.ForeColor(), red);
    for (const Label& label : Elements().lblLine) {
        EXPECT_EQ(label.ForeColor(), red);
        EXPECT_NE(label.BackColor(), red);
    }
}

TEST_F(Appearing, TheBordersColourGoesToTheStripAlone) {
    box_->BorderColor(red);
    EXPECT_EQ(box_->BorderColor(), red);
    EXPECT_EQ(Elements().picBorder.BackColor(), red);
    EXPECT_NE(Elements().UserControl.BackColor(), red);
    EXPECT_NE(Elements().picFocus.BackColor(), red);
    EXPECT_NE(Elements().picExpand.BackColor(), red);
    for (const Label& label : Elements().lblLine) EXPECT_NE(label.BackColor(), red);
}

TEST_F(Appearing, EveryPropertyIsReportedByItsOwnName) {
    const auto picture = std::make_shared<Picture>("own", 240, 240);
    EXPECT_THAT(Reported([&] { box_->BackColor(red); }), ElementsAre("BackColor"));
    EXPECT_THAT(Reported([&] { box_->ForeColor(red); }), ElementsAre("ForeColor"));
    EXPECT_THAT(Reported([&] { box_->BorderColor(red); }), ElementsAre("BorderColor"));
    EXPECT_THAT(Reported([&] {
                    float width = 600;
                    box_->LeftBorderWidth(width);
                }),
                ElementsAre("LeftBorderWidth"));
    EXPECT_THAT(Reported([&] { box_->Enabled(true); }), ElementsAre("Enabled"));
    EXPECT_THAT(Reported([&] { box_->Font(Font{u"Other"}); }), ElementsAre("Font"));
    EXPECT_THAT(Reported([&] { box_->BorderStyle(0); }), ElementsAre("BorderStyle"));
    EXPECT_THAT(Reported([&] { box_->Icon(picture); }), ElementsAre("Icon"));
    EXPECT_THAT(Reported([&] { box_->Icon(nullptr); }), ElementsAre("Icon"));
    EXPECT_THAT(Reported([&] { box_->text(u"x"); }), ElementsAre("Text"));
}

TEST_F(Appearing, AnEqualColourIsReportedAgain) {
    box_->BackColor(red);
    EXPECT_THAT(Reported([&] { box_->BackColor(red); }), ElementsAre("BackColor"));
}

TEST_F(Appearing, WhatIsNoPropertyOfTheFormIsNotReported) {
    EXPECT_THAT(Reported([&] {
                    box_->ShowGrid(true);
                    box_->ImageList(std::make_shared<ImageList>());
                    box_->SearchText(u"x");
                    box_->SearchFiles(u"/a");
                    box_->TopLine(9);
                    box_->MoveTo(40, 1);
                    box_->SelectedRowsCount(2);
                    box_->AutoRedraw(false);
                    box_->AutoRedraw(true);
                    box_.Elements().cmdMore.UserClick();
                }),
                ElementsAre());
}

TEST_F(Appearing, AWiderBorderIsThereBeforeTheViewIsLaidOut) {
    float width = 600;
    box_->LeftBorderWidth(width);
    EXPECT_EQ(box_->LeftBorderWidth(), 600);
    EXPECT_EQ(Elements().picBorder.Width(), 600);
    EXPECT_EQ(Elements().picExpand.Left(), 600);
    for (const Label& label : Elements().lblLine) EXPECT_EQ(label.Left(), 600 + 315);
    for (const Image& image : Elements().imgLine) EXPECT_EQ(image.Width(), 585);
}

TEST_F(Appearing, AWidthThatIsNoneBecomesZeroForTheCallerToo) {
    constexpr float endless = std::numeric_limits<float>::infinity();
    for (const float given : {-50.0F, -endless, endless, std::numeric_limits<float>::quiet_NaN()}) {
        float width = 240;
        box_->LeftBorderWidth(width);
        width = given;
        EXPECT_THAT(Reported([&] { box_->LeftBorderWidth(width); }),
                    ElementsAre("LeftBorderWidth"));
        EXPECT_EQ(width, 0);
        EXPECT_EQ(box_->LeftBorderWidth(), 0);
        EXPECT_EQ(Elements().imgLine[5].Width(), 0) << "and no picture is wider than it";
    }
}

TEST_F(Appearing, ThePresentWidthLaysNothingOutAndIsNotReported) {
    // Something that a layout would put right.
    Elements().picExpand.SetLeft(7);
    float width = 240;
    EXPECT_THAT(Reported([&] { box_->LeftBorderWidth(width); }), ElementsAre());
    EXPECT_EQ(Elements().picExpand.Left(), 7);
    width = 0;
    box_->LeftBorderWidth(width);
    width = -1;
    EXPECT_THAT(Reported([&] { box_->LeftBorderWidth(width); }), ElementsAre());
    EXPECT_EQ(width, 0) << "written back all the same";
}

TEST_F(Appearing, ANewControlIsNotEnabledAndWorks) {
    EXPECT_FALSE(box_->Enabled());
    const auto work = [&] {
        box_->MoveTo(1, 1);
        box_.EnterText();
        box_.Press(key_code::Down);
        EXPECT_EQ(box_->row(), 2);
        box_.MousePress(4, {1, 0, 130, 10});
        box_.MouseRelease(4, {1, 0, 130, 10});
        EXPECT_EQ(box_->row(), 5);
    };
    work();
    const std::vector<std::string> rows = box_.Rows();
    box_->Enabled(true);
    EXPECT_TRUE(box_->Enabled());
    EXPECT_EQ(box_.Rows(), rows);
    EXPECT_TRUE(Elements().UserControl.Enabled());
    work();
}

TEST_F(Appearing, AFontGivesNameSizeAndCharacterSetToEveryElementWithText) {
    const auto elements = [&] {
        return std::vector<PaintedElement*>{&Elements().UserControl, &Elements().picFocus,
                                            &Elements().rtbEdit,     &Elements().lvFound,
                                            &Elements().txtSearch,   &Elements().txtLn};
    };
    Elements().txtLn.SetFont(Font{u"Fixed", 9, 0, true, false});
    box_->Font(Font{u"Other", 14, 128, true, true});
    for (const PaintedElement* element : elements()) {
        SCOPED_TRACE(element->Name());
        EXPECT_EQ(element->Font().Name, u"Other");
        EXPECT_EQ(element->Font().Size, 14);
        EXPECT_EQ(element->Font().Charset, 128);
        EXPECT_EQ(element->Font().Bold, element == &Elements().txtLn);
        EXPECT_FALSE(element->Font().Italic);
    }
    EXPECT_EQ(box_->Font(), (Font{u"Other", 14, 128, false, false})) << "bold is not taken";
}

TEST_F(Appearing, OnlyTwoBorderStylesExist) {
    EXPECT_EQ(box_->BorderStyle(), 1);
    box_->BorderStyle(0);
    EXPECT_EQ(box_->BorderStyle(), 0);
    for (const int number : {2, -1, 32767, -32768}) {
        const auto style = static_cast<std::int16_t>(number);
        EXPECT_THAT(Reported([&] { box_->BorderStyle(style); }), ElementsAre()) << style;
        EXPECT_EQ(box_->BorderStyle(), 0);
    }
    box_->BorderStyle(1);
    EXPECT_EQ(box_->BorderStyle(), 1);
}

TEST_F(Appearing, AnIconIsTheMarkersPictureUntilItIsTakenBack) {
    const PicturePtr own = Elements().imgDefaultCursor.Shown();
    ASSERT_NE(own, nullptr);
    EXPECT_EQ(Elements().imgMarker.Shown(), own);
    const auto picture = std::make_shared<Picture>("arrow", 300, 300);
    box_->Icon(picture);
    EXPECT_EQ(Elements().imgMarker.Shown(), picture);
    EXPECT_EQ(Elements().imgDefaultCursor.Shown(), own);
    box_->Icon(nullptr);
    EXPECT_EQ(Elements().imgMarker.Shown(), own);
}

TEST_F(Appearing, TheImageListComesBackAsItWasGivenAndDrawsNothing) {
    box_->LineImage(1, std::u16string(u"key"));
    const auto list = std::make_shared<quorvale::ImageList>();
    list->Add(u"key", std::make_shared<Picture>("p", 180, 180));
    box_->ImageList(list);
    EXPECT_EQ(box_->ImageList(), list);
    EXPECT_EQ(Elements().imgLine[0].Shown(), nullptr) << "until its row is filled again";
    box_->TopLine(2);
    box_->TopLine(1);
    EXPECT_NE(Elements().imgLine[0].Shown(), nullptr);
}

}  // namespace
}  // namespace quorvale
