#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "control/host_extras.h"
#include "control/search_extras.h"
#include "find_scenario.h"
#include "found_rows.h"

namespace quorvale {
namespace {

class FindExtras : public FindScenario {
protected:
    SearchExtras& Extras() { return box_->Extras().Search(); }
};

TEST_F(FindExtras, AHostLearnsHowASearchEnded) {
    std::vector<FindOutcome> heard;
    Extras().OnSearched = [&](FindOutcome outcome) { heard.push_back(outcome); };
    EXPECT_EQ(Extras().LastOutcome(), FindOutcome::None);
    Start(u"xab");
    box_->SearchText(u"ab");
    FindNext(2);
    EXPECT_EQ(Extras().LastOutcome(), FindOutcome::Wrapped);
    EnterSearchBox();
    box_.Type(u"?");
    EXPECT_EQ(Extras().LastOutcome(), FindOutcome::NotFound);
    EXPECT_EQ(heard,
              (std::vector{FindOutcome::Found, FindOutcome::Wrapped, FindOutcome::NotFound}));
}

TEST_F(FindExtras, AHostsOwnKeysFindInBothDirectionsAndLeaveTheKeyboard) {
    Start(u"ab ab ab", 1, 4);
    box_.FocusOn(FocusChild::TextArea);
    box_->SearchText(u"ab");
    EXPECT_EQ(Extras().FindAgain(FindDirection::Backward), FindOutcome::Found);
    EXPECT_EQ(Caret(), (Place{1, 1}));
    EXPECT_EQ(Extras().FindAgain(FindDirection::Backward), FindOutcome::Wrapped);
    EXPECT_EQ(Caret(), (Place{1, 7}));
    EXPECT_EQ(Extras().FindAgain(FindDirection::Forward), FindOutcome::Wrapped);
    EXPECT_EQ(Caret(), (Place{1, 1}));
    EXPECT_EQ(Focused(), FocusChild::TextArea);
}

TEST_F(FindExtras, AHostMayDestroyTheControlWhenASearchMovesTheCaret) {
    int heard = 0;
    Extras().OnSearched = [&](FindOutcome) { ++heard; };
    Start(u"xab");
    box_->SearchText(u"ab");
    box_.Log().OnEvent = [&](const std::string&) { box_.Destroy(); };
    Extras().FindAgain(FindDirection::Forward);
    EXPECT_TRUE(box_.Destroyed());
    EXPECT_EQ(heard, 0) << "there is nobody left to tell";
}

TEST_F(FindExtras, AHostMayDestroyTheControlWhenItHearsOfASearch) {
    Extras().OnSearched = [&](FindOutcome) { box_.Destroy(); };
    Start(u"xab");
    const auto click = box_.Elements().tbMore.OnClick;
    click(u"Find");
    EXPECT_TRUE(box_.Destroyed());
}

TEST_F(FindExtras, AHostListsAllMatchesWithoutTheToolbar) {
    Start(u"ab\r\nxx\r\na-b");
    box_->SearchText(u"ab");
    box_.Elements().tbMore.SetVisible(false);
    EXPECT_EQ(Extras().FindAll(), 1U);
    EXPECT_TRUE(box_.Elements().lvFound.Visible());
    box_->SearchText(u"a*b");
    EXPECT_EQ(Extras().FindAll(), 0U);
    EXPECT_EQ(Extras().FindAllOfPattern(), 2U);
    EXPECT_EQ(FoundRows(box_).size(), 4U);
}

TEST_F(FindExtras, AnEmptyBoxListsNothing) {
    Start(u"ab");
    box_->SearchText(u"");
    EXPECT_EQ(Extras().FindAll(), 0U);
    EXPECT_EQ(Extras().FindAllOfPattern(), 0U);
    EXPECT_FALSE(box_.Elements().lvFound.Visible());
    EXPECT_EQ(box_.Elements().lvFound.RowCount(), 0U);
}

/// Destroys the control in the middle of a search.
class Ending final : public SearchProgress {
public:
    bool GoOn(const SearchPlace&) override {
        Box->Destroy();
        return true;
    }
    HeadlessBox* Box = nullptr;
};

TEST(SearchExtrasOfALongSearch, AHostMayDestroyTheControlWhileItListsAllMatches) {
    const auto ending = std::make_shared<Ending>();
    HeadlessSetup setup;
    setup.Progress = ending;
    HeadlessBox box(std::move(setup));
    ending->Box = &box;
    box.Load("ab", u"/doc");
    box->SearchText(u"ab");
    box->Extras().Search().FindAll();
    EXPECT_TRUE(box.Destroyed());
}

/// Ends a search in front of the third file.
class Impatient final : public SearchProgress {
public:
    bool GoOn(const SearchPlace& place) override { return place.FilesDone < 2; }
};

TEST(FilesSearched, CountsTheFilesThatWereLookedAtUntilTheSearchEnded) {
    for (const bool patient : {true, false}) {
        HeadlessSetup setup;
        if (!patient) setup.Progress = std::make_shared<Impatient>();
        HeadlessBox box(std::move(setup));
        EXPECT_EQ(box->Extras().Search().FilesSearched(), 0U) << "nobody searched yet";
        for (const char16_t* name : {u"/a", u"/b", u"/c", u"/d"}) box.Files().Put(name, "match\n");
        box->SearchFiles(u"/a\r/b\r/c\r/d");
        FindAll(box, u"match");
        EXPECT_EQ(box->Extras().Search().FilesSearched(), patient ? 4U : 2U);
    }
}

}  // namespace
}  // namespace quorvale
