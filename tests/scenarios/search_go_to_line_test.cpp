#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "found_rows.h"
#include "headless/headless_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

using testing::ElementsAre;

class GoToLineScenario : public testing::Test {
protected:
    GoToLineScenario() {
        box_->text(Doc(200));
        box_.FocusOn(FocusChild::TextArea);
        box_.FocusOn(FocusChild::LineBox);
        box_.Log().Clear();
    }

    void Enter(std::u16string text) {
        box_.Elements().txtLn.SetText(std::move(text));
        box_.Press(key_code::Return);
    }

    void Recent() { box_.Elements().tbMore.UserMenuClick(u"Find", find_menu::Recent); }
    ListView& List() { return box_.Elements().lvFound; }

    HeadlessBox box_;
};

TEST_F(GoToLineScenario, TheBoxStartsWithTheSameNumberInEveryLanguage) {
    for (const int language : {1033, 1041, 1042}) {
        HeadlessSetup setup;
        setup.LanguageId = language;
        EXPECT_EQ(HeadlessBox(setup).Elements().txtLn.Text(), u"999999");
    }
}

TEST_F(GoToLineScenario, EnterAndTheButtonGoToTheLine) {
    Enter(u"120");
    EXPECT_EQ(box_->row(), 120);
    EXPECT_THAT(box_.RowLines(), testing::Contains(120));
    EXPECT_THAT(box_.Log().Entries(), ElementsAre("Scrolled", "SelChanged"));
    box_.Elements().txtLn.SetText(u"7");
    box_.Elements().tbMore.UserClick(u"Ln");
    EXPECT_EQ(box_->row(), 7);
}

TEST_F(GoToLineScenario, WhatIsNoNumberIsIgnored) {
    box_->MoveTo(9, 2);
    box_.Log().Clear();
    for (const auto* text : {u"abc", u"", u"12a", u"12345678901", u"2147483648"}) {
        Enter(text);
        EXPECT_EQ(box_->row(), 9);
        EXPECT_EQ(box_.Elements().txtLn.Text(), text) << "and stays in the box";
    }
    EXPECT_TRUE(box_.Log().Entries().empty());
    EXPECT_TRUE(box_.Messages().Log.empty());
}

TEST_F(GoToLineScenario, NumbersAreReadInManyForms) {
    const std::vector<std::pair<const char16_t*, std::int32_t>> forms = {
        {u" 12 ", 12}, {u"12.5", 12}, {u"13.5", 14}, {u"1e2", 100}, {u"&H10", 16}, {u"1,50", 150},
    };
    for (const auto& [text, line] : forms) {
        Enter(text);
        EXPECT_EQ(box_->row(), line);
    }
}

TEST_F(GoToLineScenario, BeyondTheEndsTheCaretGoesInFrontOfTheFirstOrLastLine) {
    box_->MoveTo(9, 2);
    for (const auto& [text, line] : {std::pair{u"999999", 200}, std::pair{u"0", 1}}) {
        Enter(text);
        EXPECT_EQ(box_->row(), line);
        EXPECT_EQ(box_->col(), 0);
    }
    Enter(u"5");
    Enter(u"-3");
    EXPECT_EQ(box_->row(), 1);
    EXPECT_EQ(box_->col(), 0);
}

TEST_F(GoToLineScenario, ALineInAFoldIsShown) {
    box_->CollapseLines(10, 60);
    box_->CollapseAll();
    Enter(u"42");
    EXPECT_EQ(box_->row(), 42);
    EXPECT_THAT(box_.RowLines(), testing::Contains(42));
}

TEST_F(GoToLineScenario, OtherKeysAreTheBoxs) {
    box_.Elements().txtLn.SetText(u"50");
    for (const std::int16_t key : {key_code::Escape, key_code::F3, key_code::Up}) box_.Press(key);
    EXPECT_EQ(box_->row(), 1);
    EXPECT_EQ(box_.Elements().Focus.Active(), FocusChild::LineBox);
    std::int16_t escape = key_code::Escape;
    box_.Elements().txtLn.OnKeyDown(escape, 0);
    EXPECT_EQ(escape, key_code::Escape) << "not swallowed";
}

TEST_F(GoToLineScenario, TheMarkerBlinksWhileTheBoxHasTheKeyboard) {
    EXPECT_TRUE(box_.Elements().tmrImage.Enabled());
}

TEST_F(GoToLineScenario, TheBoxHoldsTheCaretsLineAfterTheJump) {
    Enter(u" 12 ");
    EXPECT_EQ(box_.Elements().txtLn.Text(), u"12");
    Enter(u"999999");
    EXPECT_EQ(box_.Elements().txtLn.Text(), u"200");
}

TEST_F(GoToLineScenario, TheRecentListIsEmptyBeforeAnySearch) {
    Recent();
    EXPECT_TRUE(List().Visible());
    EXPECT_EQ(List().RowCount(), 0U);
    EXPECT_EQ(box_.Elements().Focus.Active(), FocusChild::FoundList);
    box_.Press(key_code::Return);
    EXPECT_TRUE(List().Visible()) << "nothing is selected";
    box_.Press(key_code::Escape);
    EXPECT_FALSE(List().Visible());
    EXPECT_EQ(box_.Elements().Focus.Active(), FocusChild::TextArea);
}

TEST_F(GoToLineScenario, TheRecentListIsTheLastOneAgainWithoutASearch) {
    box_.Files().Put(u"/f", "match\nmatch");
    box_->SearchFiles(u"/f");
    FindAll(box_, u"match");
    const auto rows = FoundRows(box_);
    List().UserDoubleClick(1);
    box_.Files().Remove(u"/f");
    box_->SearchText(u"other");
    const std::uint32_t before = List().Revision();
    Recent();
    EXPECT_EQ(FoundRows(box_), rows);
    EXPECT_THAT(rows, ElementsAre("Back:Return||2 match(es) found.|", "Sel:f|      1|match|/f>2",
                                  "f|      2|match|/f>2", "Back:Return|||"));
    EXPECT_TRUE(List().Visible());
    EXPECT_GE(List().Revision(), before + 2) << "shown, and brought to the front";
    EXPECT_EQ(box_.Elements().Focus.Active(), FocusChild::FoundList);
}

TEST_F(GoToLineScenario, MenusOfOtherButtonsAndOtherEntriesDoNothing) {
    const auto pick = box_.Elements().tbMore.OnMenuClick;
    pick(u"Edit", u"All");
    pick(u"Find", u"Other");
    EXPECT_FALSE(List().Visible());
    EXPECT_EQ(List().RowCount(), 0U);
}

}  // namespace
}  // namespace quorvale
