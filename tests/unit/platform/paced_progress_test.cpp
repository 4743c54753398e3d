#include "platform/paced_progress.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace quorvale {
namespace {

using std::chrono::milliseconds;
using Log = std::vector<std::string>;

class ClockOfTest final : public Clock {
public:
    std::chrono::nanoseconds Time{12345};
    std::chrono::nanoseconds Now() const override { return Time; }
};

class Turns final : public PacedProgress {
public:
    using PacedProgress::PacedProgress;

    std::function<bool()> OnTurn;
    Log Calls;

private:
    void TakesLong() override { Calls.push_back("long"); }
    bool Turn(const SearchPlace& place) override {
        Calls.push_back("turn " + std::to_string(place.Done));
        const auto answer = OnTurn;
        return !answer || answer();
    }
    void Over() noexcept override { Calls.push_back("over"); }
};

class PacedProgressTest : public testing::Test {
protected:
    /// Asks after so many milliseconds.
    bool AskAfter(int passed) {
        clock_->Time += milliseconds(passed);
        SearchPlace place;
        place.Done = ++asked_;
        return turns_.GoOn(place);
    }

    std::shared_ptr<ClockOfTest> clock_ = std::make_shared<ClockOfTest>();
    Turns turns_{clock_};
    std::uint64_t asked_ = 0;
};

TEST_F(PacedProgressTest, AShortSearchHasNoTurns) {
    turns_.Began();
    for (int i = 0; i < 299; ++i) EXPECT_TRUE(AskAfter(1));
    turns_.Ended();
    EXPECT_EQ(turns_.Calls, Log{});
}

TEST_F(PacedProgressTest, AfterThreeHundredMillisecondsTheFirstTurnComes) {
    turns_.Began();
    AskAfter(299);
    EXPECT_EQ(turns_.Calls, Log{});
    AskAfter(1);
    EXPECT_EQ(turns_.Calls, (Log{"long", "turn 2"}));
    turns_.Ended();
    EXPECT_EQ(turns_.Calls.back(), "over");
}

TEST_F(PacedProgressTest, TurnsComeThirtyMillisecondsApartHoweverOftenItIsAsked) {
    turns_.Began();
    AskAfter(300);
    for (int i = 0; i < 90; ++i) AskAfter(1);
    EXPECT_EQ(turns_.Calls, (Log{"long", "turn 1", "turn 31", "turn 61", "turn 91"}));
}

TEST_F(PacedProgressTest, ASlowTurnLeavesTheSearchItsTime) {
    turns_.Began();
    turns_.OnTurn = [&] {
        clock_->Time += milliseconds(500);
        return true;
    };
    AskAfter(300);
    AskAfter(29);
    EXPECT_EQ(turns_.Calls, (Log{"long", "turn 1"}));
    AskAfter(1);
    EXPECT_EQ(turns_.Calls.back(), "turn 3");
}

TEST_F(PacedProgressTest, ATurnEndsTheSearch) {
    turns_.Began();
    turns_.OnTurn = [] { return false; };
    EXPECT_TRUE(AskAfter(299));
    EXPECT_FALSE(AskAfter(1));
}

TEST_F(PacedProgressTest, EverySearchBeginsAnew) {
    for (int search = 0; search < 2; ++search) {
        turns_.Began();
        AskAfter(299);
        turns_.Ended();
    }
    EXPECT_EQ(turns_.Calls, Log{});
}

TEST_F(PacedProgressTest, ASearchInsideATurnHasATimeOfItsOwn) {
    turns_.Began();
    turns_.OnTurn = [&] {
        turns_.OnTurn = nullptr;
        turns_.Began();
        AskAfter(299);
        EXPECT_EQ(turns_.Calls, (Log{"long", "turn 1"}));
        AskAfter(1);
        turns_.Ended();
        return true;
    };
    AskAfter(300);
    EXPECT_EQ(turns_.Calls, (Log{"long", "turn 1", "long", "turn 3", "over"}));
    AskAfter(30);
    turns_.Ended();
    EXPECT_EQ(turns_.Calls.size(), 7U);
}

TEST_F(PacedProgressTest, TheMachinesClockGoesForward) {
    const SteadyClock clock;
    const auto then = clock.Now();
    EXPECT_GE(clock.Now(), then);
}

}  // namespace
}  // namespace quorvale
