#include "platform/menu.h"

#include <gtest/gtest.h>

namespace quorvale {
namespace {

class MenuTest : public testing::Test {
protected:
    MenuTest() {
        menu.Items = {{u"Collapse", u"&Collapse All"}, {{}, u"-"}, {u"Expand", u"&Expand All"}};
        menu.OnPick = [this](const std::u16string& key) { picked.push_back(key); };
    }

    Menu menu{"mnuCollapse"};
    std::vector<std::u16string> picked;
};

TEST_F(MenuTest, PoppingUpReturnsAtOnceAndRemembersThePlace) {
    EXPECT_FALSE(menu.PoppedUpAt());
    const auto revision = menu.Revision();
    menu.PopUp(120, 480);
    ASSERT_TRUE(menu.PoppedUpAt());
    EXPECT_EQ(menu.PoppedUpAt()->X, 120);
    EXPECT_EQ(menu.PoppedUpAt()->Y, 480);
    EXPECT_GT(menu.Revision(), revision);
    EXPECT_TRUE(picked.empty());
}

TEST_F(MenuTest, ASurfaceHearsWhereTheMenuIsWanted) {
    Twips x = 0;
    menu.OnPopUp = [&](Twips left, Twips) { x = left; };
    menu.PopUp(75, 0);
    EXPECT_EQ(x, 75);
}

TEST_F(MenuTest, AnEntryPickedLaterRunsTheHandlerAndClosesTheMenu) {
    menu.PopUp(0, 0);
    menu.UserPick(u"Expand");
    EXPECT_EQ(picked, (std::vector<std::u16string>{u"Expand"}));
    EXPECT_FALSE(menu.PoppedUpAt());
}

TEST_F(MenuTest, LeavingItPicksNothing) {
    menu.PopUp(0, 0);
    menu.UserCancel();
    EXPECT_FALSE(menu.PoppedUpAt());
    EXPECT_TRUE(picked.empty());
}

TEST_F(MenuTest, SeparatorsDisabledAndUnknownEntriesDoNotAnswer) {
    menu.Items[0].Enabled = false;
    menu.UserPick(u"");
    menu.UserPick(u"Collapse");
    menu.UserPick(u"Print");
    EXPECT_TRUE(picked.empty());
}

TEST_F(MenuTest, AHandlerMayChangeTheEntries) {
    menu.OnPick = [this](const std::u16string& key) {
        menu.Items.clear();
        picked.push_back(key);
    };
    menu.UserPick(u"Collapse");
    EXPECT_EQ(picked, (std::vector<std::u16string>{u"Collapse"}));
}

}  // namespace
}  // namespace quorvale
