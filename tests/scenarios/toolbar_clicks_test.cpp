#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "base/text.h"
#include "control/member_ids.h"
#include "headless/headless_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A control that shows a file, and what clicks in its toolbar do.
class ToolbarClicks : public testing::Test {
protected:
    ToolbarClicks() {
        box_.Load(DocFile(200));
        box_.Log().Clear();
        box_.Site().Changed.clear();
    }

    Toolbar& Tools() { return box_.Elements().tbMore; }
    const auto& Heard() { return box_.Log().Entries(); }
    bool GridIsPressed() { return Tools().Button(u"Grid").Pressed; }

    bool Add(const std::u16string& name, const std::u16string& tip = {}) {
        return box_->AddButton(name, picture_, tip);
    }

    PicturePtr picture_ = std::make_shared<Picture>("host's", 240, 240);
    HeadlessBox box_;
};

TEST_F(ToolbarClicks, FindGoesOnAsTheKeyInItsBoxDoes) {
    box_->SearchText(u"L1");
    HeadlessBox other;
    other.Load(DocFile(200));
    other->SearchText(u"L1");
    other.FocusOn(FocusChild::SearchBox);
    box_.FocusOn(FocusChild::SearchBox);
    for (int i = 0; i < 5; ++i) {
        Tools().UserClick(u"Find");
        other.Press(key_code::F3);
        EXPECT_EQ(box_->row(), other->row());
        EXPECT_EQ(box_->col(), other->col());
    }
    EXPECT_EQ(box_->row(), 14);
}

TEST_F(ToolbarClicks, LnGoesToTheLineAndIgnoresWhatIsNone) {
    box_.Elements().txtLn.SetText(u"150");
    Tools().UserClick(u"Ln");
    EXPECT_EQ(box_->row(), 150);
    box_.Elements().txtLn.SetText(u"no line");
    EXPECT_NO_THROW(Tools().UserClick(u"Ln"));
    EXPECT_EQ(box_->row(), 150);
}

TEST_F(ToolbarClicks, EditAndCollapsedBringUpTheirMenusBelowTheToolbar) {
    box_->CollapseLines(3, 9);
    const auto expectBelow = [&](const char16_t* button, const Menu& menu) {
        ASSERT_FALSE(menu.PoppedUpAt());
        Tools().UserClick(button);
        ASSERT_TRUE(menu.PoppedUpAt());
        EXPECT_EQ(menu.PoppedUpAt()->Y, 360);
    };
    expectBelow(u"Edit", box_.Elements().mnuPopup);
    EXPECT_FALSE(box_.Elements().mnuCollapse.PoppedUpAt());
    box_.Elements().mnuPopup.UserCancel();
    expectBelow(u"Collapsed", box_.Elements().mnuCollapse);
    EXPECT_FALSE(box_.Elements().mnuPopup.PoppedUpAt());
    EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(ToolbarClicks, PrintDoesNothing) {
    const std::vector<std::string> rows = box_.Rows();
    const auto buttons = Tools().Buttons();
    Tools().UserClick(u"Print");
    EXPECT_THAT(Heard(), IsEmpty());
    EXPECT_THAT(box_.Site().Changed, IsEmpty());
    EXPECT_EQ(box_.Rows(), rows);
    EXPECT_EQ(Tools().Buttons(), buttons);
    EXPECT_EQ(box_->row(), 1);
}

TEST_F(ToolbarClicks, GridShowsTheBoundariesBeforeItIsHeard) {
    HostOptions options;
    for (const std::vector<std::int32_t>& columns :
         {std::vector<std::int32_t>{}, {40}, {8, 72, 80}}) {
        options.BoundaryColumns = columns;
        box_->SetOptions(options);
        const auto& lines = box_.Elements().lnGrid;
        ASSERT_EQ(lines.LowerBound(), 1);
        ASSERT_EQ(lines.UpperBound(), static_cast<int>(columns.size()));
        const bool before = GridIsPressed();
        box_.Log().Clear();
        box_.Log().OnEvent = [&](const std::string&) {
            EXPECT_EQ(GridIsPressed(), !before);
            for (const LineShape& line : lines) EXPECT_EQ(line.Visible(), !before);
        };
        Tools().UserClick(u"Grid");
        box_.Log().OnEvent = nullptr;
        EXPECT_THAT(Heard(), ElementsAre("ButtonClick(Grid)"));
        EXPECT_EQ(GridIsPressed(), !before);
        for (const LineShape& line : lines) EXPECT_EQ(line.Visible(), !before);
    }
}

TEST_F(ToolbarClicks, ShowGridPressesTheButtonAndIsHeardEveryTime) {
    for (const bool show : {true, true, false, false}) {
        box_.Log().Clear();
        box_->ShowGrid(show);
        EXPECT_EQ(box_->ShowGrid(), show);
        EXPECT_EQ(GridIsPressed(), show);
        for (const LineShape& line : box_.Elements().lnGrid) EXPECT_EQ(line.Visible(), show);
        EXPECT_THAT(Heard(), ElementsAre("ButtonClick(Grid)"));
    }
    EXPECT_THAT(box_.Site().Changed, IsEmpty());
    Tools().UserClick(u"Grid");
    EXPECT_TRUE(box_->ShowGrid());
}

TEST_F(ToolbarClicks, AHostMaySetShowGridWhenItHearsOfItOnce) {
    box_.Log().OnEvent = [&](const std::string&) {
        if (box_->ShowGrid()) box_->ShowGrid(false);
    };
    Tools().UserClick(u"Grid");
    EXPECT_FALSE(box_->ShowGrid());
    EXPECT_THAT(Heard(), ElementsAre("ButtonClick(Grid)", "ButtonClick(Grid)"));
    for (const LineShape& line : box_.Elements().lnGrid) EXPECT_FALSE(line.Visible());
}

TEST_F(ToolbarClicks, AHostsButtonComesBehindTheTen) {
    ASSERT_TRUE(Add(u"X", u"tip"));
    ASSERT_EQ(Tools().Buttons().size(), 11U);
    const ToolbarButton& button = Tools().Button(11);
    EXPECT_EQ(button.Key, u".X");
    EXPECT_EQ(button.PictureKey, u".X");
    EXPECT_EQ(button.Tag, u"X");
    EXPECT_EQ(button.ToolTip, u"tip");
    EXPECT_EQ(button.Kind, ButtonKind::Normal);
    EXPECT_EQ(button.Shown, picture_);
    EXPECT_TRUE(button.Enabled);
    EXPECT_EQ(box_.Elements().ilMore.Find(std::u16string(u".X")), picture_);
    Tools().UserClick(u".X");
    EXPECT_THAT(Heard(), ElementsAre("ButtonClick(X)"));
    ASSERT_TRUE(Add(u"Y"));
    EXPECT_EQ(Tools().Button(12).ToolTip, u"");
}

TEST_F(ToolbarClicks, ANameIsTakenInAnyCase) {
    EXPECT_TRUE(Add(u"ok"));
    for (const auto* name : {u"ok", u"OK", u"oK"}) EXPECT_FALSE(Add(name));
    EXPECT_EQ(Tools().Buttons().size(), 11U);
    EXPECT_TRUE(Add(u"okay"));
    EXPECT_TRUE(Add(u""));
    EXPECT_FALSE(Add(u"")) << "a name as good as any other";
}

TEST_F(ToolbarClicks, WithoutAPictureThereIsNoButton) {
    picture_ = nullptr;
    EXPECT_FALSE(Add(u"X"));
    EXPECT_EQ(Tools().Buttons().size(), 10U);
    EXPECT_EQ(box_.Elements().ilMore.Count(), 8U);
    picture_ = std::make_shared<Picture>("later", 240, 240);
    EXPECT_TRUE(Add(u"X")) << "the name was never taken";
}

TEST_F(ToolbarClicks, APictureStaysWhereTheButtonFailsAndTheNameIsTakenForGood) {
    ToolbarButton inTheWay;
    inTheWay.Key = u".X";
    Tools().Add(inTheWay);
    const std::size_t pictures = box_.Elements().ilMore.Count();
    for (int attempt = 0; attempt < 3; ++attempt) {
        EXPECT_FALSE(Add(u"X"));
        EXPECT_EQ(box_.Elements().ilMore.Count(), pictures + 1);
        EXPECT_EQ(Tools().Buttons().size(), 11U);
    }
}

TEST_F(ToolbarClicks, AHostsButtonNamedGridIsNotTheControlsOwn) {
    EXPECT_TRUE(Add(u"Grid"));
    Tools().UserClick(u".Grid");
    EXPECT_THAT(Heard(), ElementsAre("ButtonClick(Grid)"));
    EXPECT_FALSE(GridIsPressed());
    for (const LineShape& line : box_.Elements().lnGrid) EXPECT_FALSE(line.Visible());
}

TEST_F(ToolbarClicks, OtherKeysDoNothing) {
    const auto click = Tools().OnClick;
    for (const auto* key : {u"", u"Other", u"grid", u"Back", u"X.Y"}) click(key);
    EXPECT_THAT(Heard(), IsEmpty());
    EXPECT_FALSE(GridIsPressed());
    click(u".");
    EXPECT_THAT(Heard(), ElementsAre("ButtonClick()"));
    click(u".a.b");
    EXPECT_EQ(Heard().back(), "ButtonClick(a.b)");
}

TEST_F(ToolbarClicks, OfTheMenusOnlyThatOfFindIsRouted) {
    box_->SearchText(u"L3");
    const auto pick = Tools().OnMenuClick;
    for (const auto* item : {u"Next", u"All", u"WildAll", u"Recent"}) pick(u".Mine", item);
    pick(u"Find", u"");
    pick(u"Find", u"next");
    EXPECT_EQ(box_->row(), 1);
    EXPECT_FALSE(box_.Elements().lvFound.Visible());
    EXPECT_THAT(Heard(), IsEmpty());
    Tools().UserMenuClick(u"Find", 0);
    EXPECT_EQ(box_->row(), 3);
    Tools().UserMenuClick(u"Find", 1);
    EXPECT_TRUE(box_.Elements().lvFound.Visible());
}

TEST_F(ToolbarClicks, WithoutTheToolbarNothingInItAnswers) {
    Add(u"X");
    box_->CollapseLines(3, 9);
    box_.Elements().cmdMore.UserClick();
    for (const auto* key : {u"Find", u"Ln", u"Edit", u"Collapsed", u"Grid", u".X"}) {
        Tools().UserClick(key);
    }
    EXPECT_THAT(Heard(), IsEmpty());
    EXPECT_FALSE(box_.Elements().mnuPopup.PoppedUpAt());
    EXPECT_FALSE(box_.Elements().mnuCollapse.PoppedUpAt());
    box_->ShowGrid(true);
    EXPECT_TRUE(GridIsPressed()) << "the member works all the same";
    box_.Elements().OnGlyphMouseDown(2, {2, 0, 5, 5});
    EXPECT_TRUE(box_.Elements().mnuCollapse.PoppedUpAt()) << "the glyphs still have their menu";
}

}  // namespace
}  // namespace quorvale
