#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "headless/headless_box.h"
#include "platform/property_bag.h"
#include "support/documents.h"

namespace quorvale {
namespace {

using Lines = std::vector<std::string>;

/// Notes what is asked of it, in order.
class NotingBag final : public PropertyBag {
public:
    MemoryBag Kept;
    Lines Asked;

    Variant Read(std::u16string_view key) override {
        Asked.push_back(ToUtf8(key));
        return Kept.Read(key);
    }
    void Write(std::u16string_view key, const Variant& value,
               const Variant& defaultValue) override {
        Asked.push_back(ToUtf8(key) + " " + ToUtf8(TextOfValue(defaultValue)));
        Kept.Write(key, value, defaultValue);
    }
};

std::vector<std::string> Keys(const MemoryBag& bag) {
    std::vector<std::string> keys;
    for (const auto& [key, value] : bag.Values) keys.push_back(ToUtf8(key));
    return keys;
}

Lines Changed(HeadlessBox& box) {
    Lines changed;
    for (const std::u16string& name : box.Site().Changed) changed.push_back(ToUtf8(name));
    return changed;
}

constexpr Colour red = 0x000000FF;

TEST(StoredProperties, AreWrittenInTheirOrderWithTheirDefaults) {
    HeadlessBox box;
    NotingBag bag;
    box->WriteProperties(bag);
    const auto colour = [](Colour value) {
        return std::to_string(static_cast<std::int32_t>(value));
    };
    EXPECT_EQ(
        bag.Asked,
        (Lines{"BackColor " + colour(0x8000000F), "ForeColor " + colour(0x80000012),
               "BorderColor " + colour(0x8000000F), "LeftBorderWidth Single:240", "Enabled False",
               "Font Font:9;0;0;0;Fixed", "BorderStyle Integer:1", "ShowGrid False"}));
}

TEST(StoredProperties, AFreshControlStoresNothing) {
    HeadlessBox box;
    MemoryBag bag;
    box->WriteProperties(bag);
    EXPECT_EQ(Keys(bag), std::vector<std::string>{});
}

TEST(StoredProperties, AFreshControlStoresNothingOnABoldFormEither) {
    // Symptom: where the form's font was bold every control on it stored a font of its own.
    HeadlessBox box;
    box.Site().AmbientFont = Font{u"Fixed", 9, 0, true, true};
    MemoryBag bag;
    box->WriteProperties(bag);
    EXPECT_EQ(Keys(bag), std::vector<std::string>{});
    box.Site().AmbientFont.Size = 10;
    box->WriteProperties(bag);
    EXPECT_EQ(Keys(bag), std::vector<std::string>{"Font"});
}

TEST(StoredProperties, AreReadInAnOrderOfTheirOwn) {
    HeadlessBox box;
    NotingBag bag;
    box->ReadProperties(bag);
    EXPECT_EQ(bag.Asked, (Lines{"BackColor", "ForeColor", "BorderColor", "LeftBorderWidth",
                                "ShowGrid", "Enabled", "BorderStyle", "Font"}));
}

TEST(StoredProperties, AnEmptyBagBringsTheDefaults) {
    HeadlessBox box;
    box->BackColor(red);
    box->ForeColor(red);
    box->BorderColor(red);
    float width = 600;
    box->LeftBorderWidth(width);
    box->Enabled(true);
    box->BorderStyle(0);
    box->ShowGrid(true);
    box->Font(Font{u"Other", 20});
    MemoryBag empty;
    box->ReadProperties(empty);
    EXPECT_EQ(box->BackColor(), 0x8000000FU);
    EXPECT_EQ(box->ForeColor(), 0x80000012U);
    EXPECT_EQ(box->BorderColor(), 0x8000000FU);
    EXPECT_EQ(box->LeftBorderWidth(), 240);
    EXPECT_FALSE(box->Enabled());
    EXPECT_EQ(box->BorderStyle(), 1);
    EXPECT_FALSE(box->ShowGrid());
    EXPECT_EQ(box->Font(), box.Site().Font());
}

TEST(StoredProperties, AllComeBackInAnotherControl) {
    MemoryBag bag;
    {
        HeadlessBox box;
        box->BackColor(red);
        box->ForeColor(0x80000008);
        box->BorderColor(0x00FF00);
        float width = 615;
        box->LeftBorderWidth(width);
        box->Enabled(true);
        box->BorderStyle(0);
        box->ShowGrid(true);
        box->Font(Font{u"Other", 12.5, 128});
        box->WriteProperties(bag);
    }
    EXPECT_EQ(Keys(bag),
              (std::vector<std::string>{"BackColor", "BorderColor", "BorderStyle", "Enabled",
                                        "Font", "ForeColor", "LeftBorderWidth", "ShowGrid"}));
    HeadlessBox box;
    box->ReadProperties(bag);
    EXPECT_EQ(box->BackColor(), red);
    EXPECT_EQ(box->ForeColor(), 0x80000008U);
    EXPECT_EQ(box->BorderColor(), 0x00FF00U);
    EXPECT_EQ(box->LeftBorderWidth(), 615);
    EXPECT_TRUE(box->Enabled());
    EXPECT_EQ(box->BorderStyle(), 0);
    EXPECT_TRUE(box->ShowGrid());
    EXPECT_EQ(box->Font(), (Font{u"Other", 12.5, 128}));
}

TEST(StoredProperties, ComeBackThroughTextToo) {
    MemoryBag bag;
    HeadlessBox box;
    box->BackColor(0x80000005);
    float width = 300.5F;
    box->LeftBorderWidth(width);
    box->BorderStyle(0);
    box->Enabled(true);
    box->Font(Font{u"Other", 12.5, 128});
    box->WriteProperties(bag);
    for (auto& [key, value] : bag.Values) value = ValueOfText(TextOfValue(value));
    HeadlessBox other;
    other->ReadProperties(bag);
    EXPECT_EQ(other->BackColor(), 0x80000005U);
    EXPECT_EQ(other->LeftBorderWidth(), 300.5F);
    EXPECT_EQ(other->BorderStyle(), 0);
    EXPECT_TRUE(other->Enabled());
    EXPECT_EQ(other->Font(), (Font{u"Other", 12.5, 128}));
}

TEST(StoredProperties, AValueOfAnotherTypeCountsAsAbsent) {
    MemoryBag bag;
    bag.Values[u"BackColor"] = std::u16string(u"red");
    bag.Values[u"ForeColor"] = Font{u"Other"};
    bag.Values[u"BorderColor"] = 1e300;
    bag.Values[u"LeftBorderWidth"] = std::u16string(u"600");
    bag.Values[u"Enabled"] = std::u16string(u"yes");
    bag.Values[u"Font"] = std::int32_t{3};
    bag.Values[u"BorderStyle"] = std::int32_t{70'000};
    bag.Values[u"ShowGrid"] = std::make_shared<Object>();
    HeadlessBox box;
    box->ReadProperties(bag);
    MemoryBag written;
    box->WriteProperties(written);
    EXPECT_EQ(Keys(written), std::vector<std::string>{});
}

/// Is the value of one of the types that a number may have?
bool IsNumber(const Variant& value) {
    return std::holds_alternative<std::int16_t>(value) ||
           std::holds_alternative<std::int32_t>(value) || std::holds_alternative<float>(value) ||
           std::holds_alternative<double>(value);
}

// A truth in the border's width took the border away, one among the colours made the control white,
// and any number switched the grid on.
TEST(StoredProperties, EveryKeyTakesValuesOfItsOwnTypeOnly) {
    const auto values = [](std::int16_t number) -> std::vector<Variant> {
        return {true,
                number,
                std::int32_t{number},
                static_cast<float>(number),
                static_cast<double>(number),
                std::u16string(u"1"),
                std::u16string(u"True"),
                Font{u"Other", 20},
                std::make_shared<Object>(),
                std::make_shared<const Picture>("own", 240, 240)};
    };
    const Lines numbers{"BackColor", "ForeColor", "BorderColor", "LeftBorderWidth", "BorderStyle"};
    for (const char16_t* key : {u"BackColor", u"ForeColor", u"BorderColor", u"LeftBorderWidth",
                                u"Enabled", u"Font", u"BorderStyle", u"ShowGrid"}) {
        const std::string name = ToUtf8(key);
        const bool takesNumbers = std::count(numbers.begin(), numbers.end(), name) > 0;
        // Another one than the key's default.
        for (const Variant& value : values(name == "BorderStyle" ? 0 : 1)) {
            SCOPED_TRACE(name + " " + ToUtf8(TextOfValue(value)));
            MemoryBag bag;
            bag.Values[key] = value;
            HeadlessBox box;
            box->ReadProperties(bag);
            MemoryBag written;
            box->WriteProperties(written);
            const bool taken = takesNumbers     ? IsNumber(value)
                               : name == "Font" ? std::holds_alternative<Font>(value)
                                                : std::holds_alternative<bool>(value);
            EXPECT_EQ(Keys(written), taken ? Lines{name} : Lines{});
        }
    }
}

TEST(StoredProperties, ASizeThatNothingHasCountsAsAbsent) {
    const auto nan = std::numeric_limits<double>::quiet_NaN();
    for (const double size : {-1.0, 0.0, 2001.0, 1e308, nan}) {
        MemoryBag bag;
        bag.Values[u"Font"] = Font{u"Other", size};
        bag.Values[u"LeftBorderWidth"] = 3e38F;
        HeadlessBox box;
        box->ReadProperties(bag);
        EXPECT_EQ(box->Font(), box.Site().Font()) << size;
        EXPECT_EQ(box->LeftBorderWidth(), 240);
    }
}

TEST(StoredProperties, ANegativeBorderWidthIsReadAsNone) {
    MemoryBag bag;
    bag.Values[u"LeftBorderWidth"] = -50.0F;
    HeadlessBox box;
    box->ReadProperties(bag);
    EXPECT_EQ(box->LeftBorderWidth(), 0);
}

TEST(StoredProperties, ReadWhileADocumentIsShownTheyAreSeenAtOnce) {
    // Symptom: the rows stood left of their place until something else laid the view out.
    MemoryBag bag;
    bag.Values[u"LeftBorderWidth"] = 600.0F;
    HeadlessBox box;
    box->text(Doc(100));
    box->TopLine(40);
    box->ReadProperties(bag);
    EXPECT_EQ(box->TopLine(), 1);
    EXPECT_EQ(box.Rows().size(), 30U);
    EXPECT_EQ(box.Rows().front(), "L1");
    for (const Label& label : box.Elements().lblLine) EXPECT_EQ(label.Left(), 600 + 315);
    EXPECT_EQ(box.Elements().picExpand.Left(), 600);
}

TEST(StoredProperties, ABorderStyleThatDoesNotExistIsIgnored) {
    MemoryBag bag;
    bag.Values[u"BorderStyle"] = std::int16_t{7};
    HeadlessBox box;
    box->BorderStyle(0);
    box->ReadProperties(bag);
    EXPECT_EQ(box->BorderStyle(), 0);
}

TEST(StoredProperties, ReadingTellsTheContainerOfAllButTwo) {
    MemoryBag bag;
    bag.Values[u"BorderStyle"] = std::int16_t{0};
    bag.Values[u"Enabled"] = true;
    bag.Values[u"LeftBorderWidth"] = 300.0F;
    HeadlessBox box;
    box.Site().Changed.clear();
    box->ReadProperties(bag);
    EXPECT_EQ(Changed(box),
              (Lines{"BackColor", "ForeColor", "BorderColor", "LeftBorderWidth", "Font"}));
}

TEST(StoredProperties, ReadingTheGridRaisesItsEventOnce) {
    MemoryBag bag;
    bag.Values[u"ShowGrid"] = true;
    HeadlessBox box;
    box.Log().Clear();
    box->ReadProperties(bag);
    EXPECT_EQ(box.Log().Count("ButtonClick(Grid)"), 1U);
    for (const LineShape& boundary : box.Elements().lnGrid) EXPECT_TRUE(boundary.Visible());
}

TEST(StoredProperties, TheNameIsShownWhileTheHostIsBeingDesignedOnly) {
    for (const bool userMode : {false, true}) {
        HeadlessSetup setup;
        setup.UserMode = userMode;
        HeadlessBox box(setup);
        box.Site().Name = u"Renamed";
        MemoryBag bag;
        box->ReadProperties(bag);
        EXPECT_EQ(box.Elements().lblLine[0].Caption(), std::u16string(userMode ? u"" : u"Renamed"));
    }
}

// In a form editor the name was gone as soon as the form was shown: the first fill blanked all
// rows.
TEST(StoredProperties, TheNameStaysWhileTheHostIsBeingDesignedWhateverIsSet) {
    HeadlessSetup setup;
    setup.UserMode = false;
    HeadlessBox box(setup);
    const auto shown = [&] { return std::u16string(box.Elements().lblLine[0].Caption()); };
    EXPECT_EQ(shown(), u"QuorvaleBox1");
    box->Font({u"Other", 12});
    EXPECT_EQ(shown(), u"QuorvaleBox1");
    box.Resize(9000, 6000);
    box->Hide();
    box->Show();
    EXPECT_EQ(shown(), u"QuorvaleBox1");
    box.Site().Name = u"logView";
    box->AmbientChanged(u"DisplayName");
    box->BackColor(red);
    EXPECT_EQ(shown(), u"logView");
    box.Load("a line\n");
    EXPECT_EQ(shown(), u"a line");
}

/// A control as a container has just created it: no row but the designed one.
std::unique_ptr<QuorvaleBox> WithoutRows() {
    HostServices services;
    services.Metrics = std::make_shared<FixedMetrics>();
    services.Files = std::make_shared<MemoryFiles>();
    services.Xml = std::make_shared<PlainXml>();
    services.Memory = std::make_shared<PlainMemory>();
    services.Site = std::make_shared<HeadlessContainer>();
    services.Messages = std::make_shared<HeadlessMessages>();
    return std::make_unique<QuorvaleBox>(std::move(services));
}

TEST(StoredProperties, ReadingBeforeThereAreRowsCreatesThem) {
    MemoryBag bag;
    bag.Values[u"BackColor"] = static_cast<std::int32_t>(red);
    bag.Values[u"ForeColor"] = std::int32_t{0x00FF00};
    bag.Values[u"LeftBorderWidth"] = 600.0F;
    bag.Values[u"Font"] = Font{u"Other", 18};
    const auto box = WithoutRows();
    const Surface& surface = box->Elements();
    ASSERT_EQ(surface.lblLine.UpperBound(), 0);
    box->ReadProperties(bag);
    ASSERT_EQ(surface.lblLine.UpperBound(), 128);
    for (int slot = 0; slot <= 128; ++slot) {
        SCOPED_TRACE(slot);
        const Label& label = surface.lblLine[slot];
        EXPECT_EQ(label.BackColor(), red);
        EXPECT_EQ(label.ForeColor(), 0x00FF00U);
        EXPECT_EQ(label.Font().Name, u"Other");
        EXPECT_EQ(label.Font().Size, 18);
        EXPECT_EQ(label.Left(), 600 + 315);
        EXPECT_EQ(label.Top(), slot * surface.RowHeight() + surface.ToolbarHeight());
        EXPECT_EQ(surface.imgLine[slot].Width(), 600 - 15);
    }
}

TEST(StoredProperties, WhatIsOfTheMomentIsNotStored) {
    HeadlessBox box;
    box->text(Doc(5));
    box->SearchText(u"L2");
    box->SearchFiles(u"/a\r/b");
    box->Icon(std::make_shared<Picture>("own", 240, 240));
    box->ImageList(std::make_shared<Object>());
    MemoryBag bag;
    box->WriteProperties(bag);
    EXPECT_EQ(Keys(bag), std::vector<std::string>{});
}

TEST(StoredProperties, AHostThatDestroysTheControlWhileItIsReadIsSafe) {
    HeadlessBox box;
    box.Log().OnEvent = [&](const std::string&) { box.Destroy(); };
    MemoryBag bag;
    bag.Values[u"ShowGrid"] = true;
    box->ReadProperties(bag);
    EXPECT_TRUE(box.Destroyed());
}

}  // namespace
}  // namespace quorvale
