#include "platform/toolbar.h"

#include <gtest/gtest.h>

#include <utility>

#include "support/error_of.h"

namespace quorvale {
namespace {

ToolbarButton Button(const char16_t* key, ButtonKind kind = ButtonKind::Normal) {
    ToolbarButton button;
    button.Key = key;
    button.Kind = kind;
    return button;
}

class ToolbarTest : public testing::Test {
protected:
    ToolbarTest() {
        ToolbarButton find = Button(u"Find", ButtonKind::DropDown);
        find.Menu = {
            {u"Next", u"Find &Next"}, {u"All", u"Find &All"}, {{}, u"-"}, {u"Recent", u""}};
        find.Menu[3].Enabled = false;
        bar.Add(find);
        ToolbarButton gap = Button(u"", ButtonKind::Placeholder);
        gap.Width = 2000;
        bar.Add(gap);
        bar.Add(Button(u"", ButtonKind::Separator));
        bar.Add(Button(u"Grid", ButtonKind::Check));
        ToolbarButton edit = Button(u"Edit");
        edit.Enabled = false;
        bar.Add(edit);
        bar.OnClick = [this](const std::u16string& key) {
            clicked.push_back(key);
            pressedAtClick = key == u"Grid" && bar.Button(key).Pressed;
        };
        bar.OnMenuClick = [this](const std::u16string& button, const std::u16string& item) {
            picked.emplace_back(button, item);
        };
    }

    Toolbar bar{"tbMore"};
    std::vector<std::u16string> clicked;
    std::vector<std::pair<std::u16string, std::u16string>> picked;
    bool pressedAtClick = false;
};

TEST_F(ToolbarTest, ButtonsAreFoundByKeyOrByTheirPlace) {
    EXPECT_EQ(bar.Button(u"grid").Key, u"Grid") << "the case of a key does not count";
    EXPECT_EQ(bar.Button(1).Key, u"Find");
    EXPECT_EQ(bar.Button(5).Key, u"Edit");
    EXPECT_EQ(bar.Button(2).Width, 2000);
}

TEST_F(ToolbarTest, AButtonThatIsNotThereIsAnError) {
    EXPECT_EQ(ErrorOf([&] { bar.Button(u"Print"); }), ErrorKind::Index);
    EXPECT_EQ(ErrorOf([&] { bar.Button(u""); }), ErrorKind::Index);
    EXPECT_EQ(ErrorOf([&] { bar.Button(0); }), ErrorKind::Index);
    EXPECT_EQ(ErrorOf([&] { bar.Button(6); }), ErrorKind::Index);
    EXPECT_EQ(ErrorOf([&] { bar.SetPressed(u"Print", true); }), ErrorKind::Index);
    EXPECT_EQ(ErrorOf([&] { bar.SetButtonEnabled(u"Print", true); }), ErrorKind::Index);
    EXPECT_EQ(ErrorOf([&] { bar.SetToolTip(6, u"x"); }), ErrorKind::Index);
}

TEST_F(ToolbarTest, ATakenKeyIsRefusedWhateverItsCase) {
    EXPECT_FALSE(bar.Add(Button(u"GRID")));
    EXPECT_EQ(bar.Buttons().size(), 5U);
    EXPECT_TRUE(bar.Add(Button(u".GRID")));
    EXPECT_EQ(bar.Buttons().size(), 6U);
}

TEST_F(ToolbarTest, EmptyKeysAreFree) {
    EXPECT_TRUE(bar.Add(Button(u"", ButtonKind::Separator)));
    EXPECT_EQ(bar.Buttons().size(), 6U);
}

TEST_F(ToolbarTest, AClickReachesTheHandlerWithTheButtonsKey) {
    bar.UserClick(u"find");
    EXPECT_EQ(clicked, (std::vector<std::u16string>{u"Find"}));
}

TEST_F(ToolbarTest, ACheckButtonChangesItsStateBeforeTheClick) {
    bar.UserClick(u"Grid");
    EXPECT_TRUE(pressedAtClick);
    bar.UserClick(u"Grid");
    EXPECT_FALSE(pressedAtClick);
    EXPECT_FALSE(bar.Button(u"Grid").Pressed);
    EXPECT_EQ(clicked.size(), 2U);
}

TEST_F(ToolbarTest, PressingACheckButtonByCodeRunsNoHandler) {
    bar.SetPressed(u"Grid", true);
    EXPECT_TRUE(bar.Button(u"Grid").Pressed);
    EXPECT_TRUE(clicked.empty());
}

TEST_F(ToolbarTest, ADisabledButtonDoesNotAnswer) {
    bar.UserClick(u"Edit");
    EXPECT_TRUE(clicked.empty());
    bar.SetButtonEnabled(u"Edit", true);
    bar.UserClick(u"Edit");
    EXPECT_EQ(clicked.size(), 1U);
}

TEST_F(ToolbarTest, ADisabledCheckButtonDoesNotChangeItsState) {
    bar.SetButtonEnabled(u"Grid", false);
    bar.UserClick(u"Grid");
    EXPECT_FALSE(bar.Button(u"Grid").Pressed);
}

TEST_F(ToolbarTest, AHiddenOrDisabledToolbarAnswersNeitherClicksNorMenus) {
    bar.SetVisible(false);
    bar.UserClick(u"Find");
    bar.UserMenuClick(u"Find", 0);
    bar.SetVisible(true);
    bar.SetEnabled(false);
    bar.UserClick(u"Find");
    bar.UserMenuClick(u"Find", 0);
    EXPECT_TRUE(clicked.empty());
    EXPECT_TRUE(picked.empty());
}

TEST_F(ToolbarTest, AMenuEntryReachesTheHandlerWithBothKeys) {
    bar.UserMenuClick(u"Find", 1);
    ASSERT_EQ(picked.size(), 1U);
    EXPECT_EQ(picked[0].first, u"Find");
    EXPECT_EQ(picked[0].second, u"All");
    EXPECT_TRUE(clicked.empty());
}

TEST_F(ToolbarTest, SeparatorsDisabledAndMissingEntriesDoNotAnswer) {
    for (const std::size_t item : {2U, 3U, 4U, 400U}) bar.UserMenuClick(u"Find", item);
    bar.UserMenuClick(u"Grid", 0);
    bar.UserMenuClick(u"Print", 0);
    bar.SetButtonEnabled(u"Find", false);
    bar.UserMenuClick(u"Find", 0);
    EXPECT_TRUE(picked.empty());
}

TEST_F(ToolbarTest, AHandlerMayAddButtons) {
    bar.OnClick = [this](const std::u16string& key) {
        for (int i = 0; i < 100; ++i) bar.Add(Button(u""));
        clicked.push_back(key);
    };
    bar.UserClick(u"Find");
    EXPECT_EQ(clicked, (std::vector<std::u16string>{u"Find"}));
}

TEST_F(ToolbarTest, TooltipsAndMenuCaptionsAreSetByPlace) {
    bar.SetToolTip(4, u"Show Boundaries");
    bar.SetMenuCaption(1, 3, u"&Recent");
    EXPECT_EQ(bar.Button(u"Grid").ToolTip, u"Show Boundaries");
    EXPECT_EQ(bar.Button(u"Find").Menu[3].Caption, u"&Recent");
}

}  // namespace
}  // namespace quorvale
