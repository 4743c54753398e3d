#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "control/host_extras.h"
#include "control/search_extras.h"
#include "find_scenario.h"

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

}  // namespace
}  // namespace quorvale
