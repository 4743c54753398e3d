#include "platform/focus.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quorvale {
namespace {

class FocusTest : public testing::Test {
protected:
    FocusTest() {
        focus.OnLost = [this](FocusChild child) { log.push_back("lost " + Name(child)); };
        focus.OnGot = [this](FocusChild child) { log.push_back("got " + Name(child)); };
    }

    static std::string Name(FocusChild child) { return std::to_string(static_cast<int>(child)); }

    Focus focus;
    std::vector<std::string> log;
};

TEST_F(FocusTest, NobodyHasItAtFirst) {
    EXPECT_EQ(focus.Active(), FocusChild::None);
    EXPECT_TRUE(focus.Request(FocusChild::TextArea));
    EXPECT_EQ(log, (std::vector<std::string>{"got 1"}));
}

TEST_F(FocusTest, TheOldElementLosesItBeforeTheNewOneGetsIt) {
    focus.UserMovesTo(FocusChild::TextArea);
    log.clear();
    EXPECT_TRUE(focus.Request(FocusChild::SearchBox));
    EXPECT_EQ(focus.Active(), FocusChild::SearchBox);
    EXPECT_EQ(log, (std::vector<std::string>{"lost 1", "got 2"}));
}

TEST_F(FocusTest, GoingWhereItIsDoesNothing) {
    focus.UserMovesTo(FocusChild::LineBox);
    log.clear();
    EXPECT_TRUE(focus.Request(FocusChild::LineBox));
    focus.UserMovesTo(FocusChild::LineBox);
    EXPECT_TRUE(log.empty());
}

TEST_F(FocusTest, LeavingTheControlLeavesNobody) {
    focus.UserMovesTo(FocusChild::Editor);
    log.clear();
    focus.UserMovesTo(FocusChild::None);
    EXPECT_EQ(focus.Active(), FocusChild::None);
    EXPECT_EQ(log, (std::vector<std::string>{"lost 4"}));
}

TEST_F(FocusTest, AnElementThatCannotBeReachedRefusesAndNothingMoves) {
    focus.UserMovesTo(FocusChild::TextArea);
    log.clear();
    focus.OnRequest = [](FocusChild child) { return child != FocusChild::FoundList; };
    EXPECT_FALSE(focus.Request(FocusChild::FoundList));
    EXPECT_EQ(focus.Active(), FocusChild::TextArea);
    EXPECT_TRUE(log.empty());
    EXPECT_TRUE(focus.Request(FocusChild::LineBox));
}

TEST_F(FocusTest, WhileItIsBlockedEveryRequestIsRefusedButTheUserStillMovesIt) {
    focus.UserMovesTo(FocusChild::TextArea);
    focus.SetBlocked(true);
    EXPECT_FALSE(focus.Request(FocusChild::SearchBox));
    EXPECT_FALSE(focus.Request(FocusChild::TextArea));
    focus.UserMovesTo(FocusChild::None);
    EXPECT_EQ(focus.Active(), FocusChild::None);
    focus.SetBlocked(false);
    EXPECT_TRUE(focus.Request(FocusChild::SearchBox));
}

TEST_F(FocusTest, AnElementThatLosesItMaySendItElsewhere) {
    focus.UserMovesTo(FocusChild::Editor);
    log.clear();
    focus.OnLost = [this](FocusChild child) {
        log.push_back("lost " + Name(child));
        if (child == FocusChild::Editor) focus.Request(FocusChild::TextArea);
    };
    focus.UserMovesTo(FocusChild::SearchBox);
    EXPECT_EQ(focus.Active(), FocusChild::TextArea);
    EXPECT_EQ(log, (std::vector<std::string>{"lost 4", "lost 2", "got 1"}))
        << "the search box, left again at once, never gets it";
}

}  // namespace
}  // namespace quorvale
