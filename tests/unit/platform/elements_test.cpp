#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/element.h"
#include "platform/simple_elements.h"
#include "support/error_of.h"
#include "support/even_metrics.h"

namespace quorvale {
namespace {

PicturePtr MakePicture(const char* name, Twips width, Twips height) {
    return std::make_shared<const Picture>(name, width, height);
}

/// Writes down what is about to be set and refuses one property.
class Watcher final : public ElementWatcher {
public:
    std::vector<std::string> Heard;
    std::string Refused;

    void Setting(const Element& element, std::string_view property) override {
        Heard.push_back(element.Name() + "." + std::string(property));
        if (property == Refused) throw ControlError(ErrorKind::InvalidValue, "refused");
    }
};

TEST(Element, TakesAnyPlaceAndStoresNegativeSizesAsZero) {
    Element element("picBorder");
    element.Move(-2000, -15.5, -1, 7230);
    EXPECT_EQ(element.Left(), -2000);
    EXPECT_EQ(element.Top(), -15.5);
    EXPECT_EQ(element.Width(), 0);
    EXPECT_EQ(element.Height(), 7230);
    element.SetHeight(-0.5);
    EXPECT_EQ(element.Height(), 0);
}

TEST(Element, ItsRevisionRisesWithChangesOnly) {
    Element element("picBorder");
    const auto before = element.Revision();
    element.SetLeft(7);
    EXPECT_GT(element.Revision(), before);
    const auto after = element.Revision();
    element.SetLeft(7);
    element.SetVisible(true);
    element.SetTag(u"");
    EXPECT_EQ(element.Revision(), after);
}

TEST(Element, AWatcherHearsBeforeTheValueIsSetAndMayRefuseIt) {
    Element element("picBorder");
    Watcher watcher;
    watcher.Refused = "Width";
    element.Watch(&watcher);
    element.SetLeft(5);
    EXPECT_EQ(ErrorOf([&] { element.SetWidth(99); }), ErrorKind::InvalidValue);
    EXPECT_EQ(element.Left(), 5);
    EXPECT_EQ(element.Width(), 0);
    EXPECT_EQ(watcher.Heard, (std::vector<std::string>{"picBorder.Left", "picBorder.Width"}));
    element.Watch(nullptr);
    element.SetWidth(99);
    EXPECT_EQ(element.Width(), 99);
}

TEST(Label, ItsCaptionIsPlainText) {
    Label label("lblLine");
    label.SetCaption(u"&File\t<b>\n");
    EXPECT_EQ(label.Caption(), u"&File\t<b>\n");
}

TEST(Label, TheSameCaptionAgainDoesNothing) {
    Label label("lblLine");
    label.SetCaption(u"L1");
    const auto revision = label.Revision();
    label.SetCaption(u"L1");
    EXPECT_EQ(label.Revision(), revision);
}

TEST(Label, KeepsItsWidthUnlessItSizesItself) {
    const EvenMetrics metrics;
    Label label("lblScrollTip");
    label.SetWidth(40000);
    label.SetCaption(u"L1");
    EXPECT_EQ(label.Width(), 40000);
    label.SetAutoSize(&metrics);
    label.SetCaption(u" Line 20000 ");
    EXPECT_EQ(label.Width(), 1440);
    label.SetCaption(u"");
    EXPECT_EQ(label.Width(), 0);
}

TEST(Label, BoldIsItsOwn) {
    Label a("lblLine", 0);
    Label b("lblLine", 1);
    a.SetBold(true);
    EXPECT_TRUE(a.Bold());
    EXPECT_FALSE(b.Bold());
}

TEST(Label, TakesNameCharsetAndSizeOfAFontAndKeepsItsBold) {
    Label label("lblLine");
    label.SetBold(true);
    label.TakeFontFace(
        {.Name = u"Mono", .Size = 12, .Charset = 128, .Bold = false, .Italic = true});
    EXPECT_EQ(label.Font().Name, u"Mono");
    EXPECT_EQ(label.Font().Size, 12);
    EXPECT_EQ(label.Font().Charset, 128);
    EXPECT_TRUE(label.Bold());
    EXPECT_FALSE(label.Font().Italic);
}

TEST(Label, StartsInTheSystemsButtonColoursAndKeepsWhatItIsGiven) {
    Label label("lblLine");
    EXPECT_EQ(label.ForeColor(), 0x80000012);
    EXPECT_EQ(label.BackColor(), 0x8000000F);
    label.SetBackColor(0x8000000D);
    label.SetForeColor(0x00FF8040);
    EXPECT_EQ(label.BackColor(), 0x8000000D);
    EXPECT_EQ(label.ForeColor(), 0x00FF8040U);
}

TEST(Image, TakesThePicturesSizeUnlessItStretches) {
    Image marker("imgMarker");
    marker.SetPicture(MakePicture("caret", 240, 240));
    EXPECT_EQ(marker.Width(), 240);
    EXPECT_EQ(marker.Height(), 240);

    Image glyph("imgExpand");
    glyph.SetStretch(true);
    glyph.SetWidth(180);
    glyph.SetHeight(180);
    glyph.SetPicture(MakePicture("big", 480, 480));
    EXPECT_EQ(glyph.Width(), 180);
    EXPECT_EQ(glyph.Height(), 180);
}

TEST(Image, KeepsItsSizeWhenThePictureIsTakenAway) {
    Image marker("imgMarker");
    marker.SetPicture(MakePicture("caret", 240, 300));
    marker.SetPicture(nullptr);
    EXPECT_EQ(marker.Shown(), nullptr);
    EXPECT_EQ(marker.Width(), 240);
    EXPECT_EQ(marker.Height(), 300);
}

TEST(LineShape, HasTwoFreePoints) {
    LineShape line("lnGrid", 1);
    line.SetX1(-5);
    line.SetY1(0);
    line.SetX2(9555.5);
    line.SetY2(7560);
    EXPECT_EQ(line.X1(), -5);
    EXPECT_EQ(line.X2(), 9555.5);
    EXPECT_EQ(line.Y2(), 7560);
    EXPECT_EQ(line.Name(), "lnGrid");
    EXPECT_EQ(line.Index(), 1);
}

TEST(CommandButton, AnswersOnlyWhileItIsVisibleAndEnabled) {
    CommandButton button("cmdMore");
    int clicks = 0;
    button.UserClick();
    button.OnClick = [&] { ++clicks; };
    button.UserClick();
    button.SetVisible(false);
    button.UserClick();
    button.SetVisible(true);
    button.SetEnabled(false);
    button.UserClick();
    EXPECT_EQ(clicks, 1);
}

TEST(Timer, IsOffAtFirstAndTicksOnlyWhileItIsOn) {
    Timer timer("tmrImage");
    int ticks = 0;
    timer.OnTick = [&] { ++ticks; };
    EXPECT_EQ(timer.Interval(), 1000);
    timer.Tick();
    EXPECT_EQ(ticks, 0);
    timer.SetEnabled(true);
    timer.Tick();
    timer.Tick();
    timer.SetEnabled(false);
    timer.Tick();
    EXPECT_EQ(ticks, 2);
}

TEST(Timer, SwitchingItOnAgainWhileItRunsIsNoChange) {
    Timer timer("tmrImage");
    timer.SetEnabled(true);
    const auto revision = timer.Revision();
    timer.SetEnabled(true);
    EXPECT_EQ(timer.Revision(), revision) << "a surface would start the interval anew";
}

TEST(Box, AsksToBeDrawnAgain) {
    Box box("UserControl");
    const auto revision = box.Revision();
    box.Refresh();
    EXPECT_GT(box.Revision(), revision);
}

}  // namespace
}  // namespace quorvale
