#include "search/find.h"

#include <gtest/gtest.h>

#include "document/positions.h"
#include "noting_progress.h"
#include "platform/keys.h"
#include "search/match_search.h"
#include "search_rig.h"

namespace quorvale {
namespace {

using Log = std::vector<std::string>;

/// Moves the caret as the control does, and writes down what it was asked.
class Peers final : public FindPeers {
public:
    explicit Peers(SearchRig& rig) : rig_(rig) {}

    void SetOffset(std::int32_t position) override {
        rig_.Calls.push_back("SetOffset " + std::to_string(position));
        if (position >= rig_.Document.Text.Length()) return rig_.PutCaret(1, 1);
        const RowCol place = PlaceBehind(rig_.Document, position);
        rig_.PutCaret(place.Row.Number(), place.Col);
    }
    void BoxFocusChanged(FocusChild box, bool entered) override {
        const std::string name = box == FocusChild::SearchBox ? "search box" : "another box";
        const bool blinks = rig_.Elements.tmrImage.Enabled();
        rig_.Calls.push_back(name + (entered ? " entered" : " left") +
                             (blinks ? ", blinking" : ""));
    }
    void SearchEnded(FindOutcome outcome) override { Outcomes.push_back(outcome); }
    bool HasEnded() const override { return Ended; }

    std::vector<FindOutcome> Outcomes;
    bool Ended = false;

private:
    SearchRig& rig_;
};

class FindTest : public testing::Test {
protected:
    void Start(std::u16string_view text, std::int32_t row, std::int32_t col) {
        rig_.SetText(text);
        rig_.PutCaret(row, col);
    }

    void Type(std::u16string text) {
        rig_.Elements.txtSearch.SetText(std::move(text));
        find_.TextChanged();
    }

    SearchRig rig_;
    Peers peers_{rig_};
    std::shared_ptr<NotingProgress> watcher_ = std::make_shared<NotingProgress>();
    Find find_{rig_.Search,          rig_.Elements, rig_.Document, rig_.Navigation,
               CaseTableOf(nullptr), watcher_,      peers_};
};

TEST_F(FindTest, TheButtonIsEnabledWhileThereIsSomethingToFind) {
    Type(u"x");
    EXPECT_TRUE(rig_.Elements.tbMore.Button(u"Find").Enabled);
    Type(u"");
    EXPECT_FALSE(rig_.Elements.tbMore.Button(u"Find").Enabled);
}

TEST_F(FindTest, NothingIsSearchedBeforeTheBoxHadTheKeyboard) {
    Start(u"xabx", 1, 1);
    Type(u"ab");
    EXPECT_EQ(rig_.Calls, Log{});
    EXPECT_TRUE(peers_.Outcomes.empty());
}

TEST_F(FindTest, TheBoxNotesTheCaretsOffsetAndLetsTheMarkerBlink) {
    Start(u"ab\r\ncdef", 2, 3);
    find_.BoxGotFocus();
    EXPECT_EQ(rig_.Search.SearchStartOffset, 7);
    EXPECT_EQ(rig_.Calls, (Log{"search box entered, blinking"}));
    rig_.PutCaret(1, 1);
    rig_.Elements.tmrImage.SetEnabled(false);
    find_.BoxLostFocus();
    EXPECT_EQ(rig_.Search.SearchStartOffset, 7) << "until the box gets the keyboard again";
    EXPECT_EQ(rig_.Calls.back(), "search box left");
    find_.BoxGotFocus();
    EXPECT_EQ(rig_.Search.SearchStartOffset, 1) << "the caret stands in front of the text's first";
}

TEST_F(FindTest, TypingSearchesFromTheNotedPlaceAndWrapsOnce) {
    Start(u"xabx abx", 1, 6);
    find_.BoxGotFocus();
    Type(u"ab");
    EXPECT_EQ(rig_.Calls.back(), "SetOffset 6") << "a match right at the place counts";
    rig_.PutCaret(1, 7);
    find_.BoxGotFocus();
    Type(u"abx");
    EXPECT_EQ(rig_.Calls.back(), "SetOffset 2");
    EXPECT_EQ(peers_.Outcomes, (std::vector{FindOutcome::Found, FindOutcome::Wrapped}));
}

TEST_F(FindTest, TypingWithoutAMatchAsksForNothing) {
    Start(u"xabx", 1, 1);
    find_.BoxGotFocus();
    rig_.Calls.clear();
    Type(u"abc");
    EXPECT_EQ(rig_.Calls, Log{});
    EXPECT_EQ(peers_.Outcomes, std::vector{FindOutcome::NotFound});
    EXPECT_EQ(rig_.Search.LastOutcome, FindOutcome::NotFound);
}

TEST_F(FindTest, ANotedPlaceBeyondANewTextFindsFromTheStart) {
    Start(u"a long text with a place far behind", 1, 30);
    find_.BoxGotFocus();
    Start(u"xx b", 1, 1);
    Type(u"b");
    EXPECT_EQ(rig_.Calls.back(), "SetOffset 4");
}

TEST_F(FindTest, FindNextStartsBehindTheCaretAndGivesTheBoxTheKeyboard) {
    Start(u"aaaa", 1, 0);
    rig_.Elements.txtSearch.SetText(u"aa");
    for (int i = 0; i < 4; ++i) find_.FindNext();
    EXPECT_EQ(rig_.Calls, (Log{"SetOffset 1", "SetOffset 2", "SetOffset 3", "SetOffset 1"}));
    EXPECT_EQ(peers_.Outcomes.back(), FindOutcome::Wrapped);
    EXPECT_EQ(rig_.Elements.Focus.Active(), FocusChild::SearchBox);
}

TEST_F(FindTest, FindNextWithoutAMatchOnlyGivesTheBoxTheKeyboard) {
    Start(u"abc", 1, 1);
    rig_.Elements.txtSearch.SetText(u"x");
    find_.FindNext();
    EXPECT_EQ(rig_.Calls, Log{});
    EXPECT_EQ(rig_.Elements.Focus.Active(), FocusChild::SearchBox);
}

TEST_F(FindTest, BeforeAnyDocumentNothingIsFound) {
    for (const auto* text : {u"x", u""}) {
        rig_.Elements.txtSearch.SetText(text);
        find_.FindNext();
        EXPECT_EQ(find_.FindAgain(FindDirection::Backward), FindOutcome::NotFound);
    }
    EXPECT_EQ(rig_.Calls, Log{});
}

TEST_F(FindTest, BackwardsTheMatchesComeInTheOtherOrderAndTheKeyboardStays) {
    Start(u"ab ab ab", 1, 4);
    rig_.Elements.txtSearch.SetText(u"AB");
    EXPECT_EQ(find_.FindAgain(FindDirection::Backward), FindOutcome::Found);
    EXPECT_EQ(find_.FindAgain(FindDirection::Backward), FindOutcome::Wrapped);
    EXPECT_EQ(find_.FindAgain(FindDirection::Backward), FindOutcome::Found);
    EXPECT_EQ(find_.FindAgain(FindDirection::Forward), FindOutcome::Found);
    EXPECT_EQ(rig_.Calls, (Log{"SetOffset 1", "SetOffset 7", "SetOffset 4", "SetOffset 7"}));
    EXPECT_EQ(rig_.Elements.Focus.Active(), FocusChild::None);
}

TEST_F(FindTest, BackwardsFromInFrontOfTheTextItWraps) {
    Start(u"ab ab", 1, 0);
    rig_.Elements.txtSearch.SetText(u"ab");
    EXPECT_EQ(find_.FindAgain(FindDirection::Backward), FindOutcome::Wrapped);
    EXPECT_EQ(rig_.Calls, (Log{"SetOffset 4"}));
}

TEST_F(FindTest, BackwardsAnEmptyTextStepsThroughTheText) {
    Start(u"abcd", 1, 3);
    rig_.Elements.txtSearch.SetText(u"");
    EXPECT_EQ(find_.FindAgain(FindDirection::Backward), FindOutcome::Found);
    EXPECT_EQ(rig_.Calls, (Log{"SetOffset 2"}));
    rig_.PutCaret(1, 1);
    EXPECT_EQ(find_.FindAgain(FindDirection::Backward), FindOutcome::Wrapped);
}

TEST_F(FindTest, KeysThatAreNotTheSearchsAreTheBoxs) {
    Start(u"xab", 1, 1);
    rig_.Elements.txtSearch.SetText(u"ab");
    for (std::int16_t key : {std::int16_t{65}, key_code::Up, std::int16_t{113}}) {
        const std::int16_t pressed = key;
        find_.KeyDown(key);
        EXPECT_EQ(key, pressed);
    }
    EXPECT_EQ(rig_.Calls, Log{});
    for (std::int16_t key : {key_code::F3, key_code::Return}) {
        rig_.PutCaret(1, 1);
        find_.KeyDown(key);
        EXPECT_EQ(key, 0) << "is not typed";
        EXPECT_EQ(rig_.Calls.back(), "SetOffset 2");
    }
    std::int16_t escape = key_code::Escape;
    find_.KeyDown(escape);
    EXPECT_EQ(escape, 0);
    EXPECT_EQ(rig_.Elements.Focus.Active(), FocusChild::TextArea);
}

/// A text that takes a few questions to search, with one match in the last stretch.
class LongFindTest : public FindTest {
protected:
    LongFindTest() {
        Start(Times(matchAt - 1) + u"match", 1, 1);
        rig_.Elements.txtSearch.SetText(u"match");
    }

    static constexpr std::int32_t matchAt = 3 * MatchSearch::Stretch + 100;
};

TEST_F(LongFindTest, IsToldFromItsBeginningToItsEnd) {
    watcher_->OnGoOn = [](const SearchPlace& place) {
        EXPECT_EQ(place.File, u"*");
        EXPECT_EQ(place.Files, 1U);
        EXPECT_EQ(place.Size, static_cast<std::uint64_t>(matchAt + 6));
        return true;
    };
    find_.FindNext();
    EXPECT_EQ(watcher_->Log, (Log{"began", "1048576", "2097152", "3145728", "ended"}));
    EXPECT_EQ(rig_.Calls, (Log{"SetOffset " + std::to_string(matchAt)}));
}

TEST_F(LongFindTest, TheNameOfAShownFileIsTold) {
    rig_.Document.FileName = u"/shown";
    watcher_->OnGoOn = [](const SearchPlace& place) {
        EXPECT_EQ(place.File, u"/shown");
        return true;
    };
    find_.FindNext();
    EXPECT_GT(watcher_->Log.size(), 2U);
}

TEST_F(LongFindTest, MayBeEndedAndLeavesTheCaret) {
    watcher_->OnGoOn = [](const SearchPlace& place) { return place.Done < 2'000'000; };
    find_.FindNext();
    EXPECT_EQ(watcher_->Log, (Log{"began", "1048576", "2097152", "ended"}));
    EXPECT_EQ(rig_.Calls, Log{});
    EXPECT_EQ(peers_.Outcomes, std::vector{FindOutcome::Stopped});
    EXPECT_EQ(rig_.Elements.Focus.Active(), FocusChild::SearchBox);
    EXPECT_EQ(find_.FindAgain(FindDirection::Backward), FindOutcome::Wrapped) << "from the end";
}

TEST_F(LongFindTest, BackwardsItMayBeEndedToo) {
    rig_.PutCaret(1, matchAt - 10);
    watcher_->OnGoOn = [](const SearchPlace& place) { return place.Done < 2'000'000; };
    EXPECT_EQ(find_.FindAgain(FindDirection::Backward), FindOutcome::Stopped);
    EXPECT_EQ(watcher_->Log, (Log{"began", "1048576", "2097152", "ended"}));
}

TEST_F(LongFindTest, IsNotToldWhileTheUserTypes) {
    rig_.Search.SearchStartOffset = 1;
    find_.TextChanged();
    EXPECT_EQ(watcher_->Log, Log{});
    EXPECT_EQ(rig_.Calls, (Log{"SetOffset " + std::to_string(matchAt)}));
}

TEST_F(LongFindTest, AnotherDocumentOrTheControlsEndEndsIt) {
    watcher_->OnGoOn = [&](const SearchPlace&) {
        Start(u"match", 1, 0);
        return true;
    };
    find_.FindNext();
    EXPECT_EQ(watcher_->Log, (Log{"began", "1048576", "ended"}));
    watcher_->OnEnded = [&] { peers_.Ended = true; };
    find_.FindNext();
    EXPECT_EQ(rig_.Calls, Log{}) << "also when that happens in the last moment";
}

TEST_F(LongFindTest, ALaterOneInsideHasTheLastWord) {
    watcher_->OnGoOn = [&](const SearchPlace&) {
        watcher_->OnGoOn = nullptr;
        rig_.Elements.txtSearch.SetText(u"XX");
        find_.FindNext();
        return true;
    };
    find_.FindNext();
    EXPECT_EQ(rig_.Calls, (Log{"SetOffset 2"}));
    EXPECT_EQ(rig_.Search.LastOutcome, FindOutcome::Found);
}

}  // namespace
}  // namespace quorvale
