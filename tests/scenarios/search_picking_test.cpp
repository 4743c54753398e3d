#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "control/host_extras.h"
#include "control/member_ids.h"
#include "control/search_extras.h"
#include "found_rows.h"
#include "headless/headless_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

using testing::ElementsAre;

/// A control that shows /doc, with results in it and in /other.
class PickScenario : public testing::Test {
protected:
    PickScenario() {
        box_.Files().Put(u"/other", DocFile(80, 'o') + "\r\n  match");
        box_.Load("one\r\nmatch here\r\nthree match", u"/doc");
        box_->SearchFiles(u"/doc\r/other");
        FindAll(box_, u"match");
        box_.Log().Clear();
    }

    ListView& List() { return box_.Elements().lvFound; }

    void ExpectBackInTheText() {
        EXPECT_FALSE(List().Visible());
        EXPECT_EQ(box_.Elements().Focus.Active(), FocusChild::TextArea);
    }

    void ExpectCaret(std::int32_t row, std::int32_t col) {
        EXPECT_EQ(box_->row(), row);
        EXPECT_EQ(box_->col(), col);
    }

    HeadlessBox box_;
};

constexpr std::size_t here = 1;
constexpr std::size_t elsewhere = 3;

TEST_F(PickScenario, InTheShownFileOnlyTheCaretMoves) {
    const std::u16string before = box_->text();
    List().UserDoubleClick(2);
    ExpectCaret(3, 8);
    EXPECT_THAT(box_.Log().Entries(), ElementsAre("SelChanged"));
    EXPECT_EQ(box_->text(), before);
    ExpectBackInTheText();
}

TEST_F(PickScenario, AnotherFileIsLoadedAfterTheEvent) {
    List().UserDoubleClick(elsewhere);
    EXPECT_EQ(box_->LineCount(), 81);
    ExpectCaret(81, 4);
    EXPECT_THAT(box_.Log().Entries(),
                ElementsAre("BeforeFileChange(/other)", "Scrolled", "SelChanged"));
    ExpectBackInTheText();
}

TEST_F(PickScenario, WhenTheHostChangesTheFileTheCaretMovesInWhatIsThereThen) {
    box_.Log().HostChangesFile = true;
    box_.Log().OnEvent = [&](const std::string&) {
        box_.Log().OnEvent = nullptr;
        box_->text(Doc(200));
    };
    List().UserDoubleClick(elsewhere);
    EXPECT_EQ(box_->LineCount(), 200);
    ExpectCaret(81, 4);
    EXPECT_EQ(box_.Log().Count("BeforeFileChange(/other)"), 1U);
}

// A pick that the host shows elsewhere used to open folds here: the caret went to its line.
TEST_F(PickScenario, AHostThatShowsOtherFilesElsewhereKeepsThePlaceHere) {
    box_->Extras().Search().StayWhenTakenOver(true);
    box_.Log().HostChangesFile = true;
    box_->MoveTo(2, 3);
    box_.Log().Clear();
    std::vector<PickedPlace> heard;
    box_->Extras().Search().OnPickedElsewhere = [&](const PickedPlace& place) {
        heard.push_back(place);
    };
    List().UserDoubleClick(elsewhere);
    ExpectCaret(2, 3);
    EXPECT_THAT(box_.Log().Entries(), ElementsAre("BeforeFileChange(/other)"));
    EXPECT_EQ(heard, (std::vector<PickedPlace>{{u"/other", 81, 4}}));
    ExpectBackInTheText();
    // Here, and where the control changes the file itself, the caret goes there as ever.
    box_.Log().HostChangesFile = false;
    box_.Elements().tbMore.UserMenuClick(u"Find", find_menu::Recent);
    List().UserDoubleClick(2);
    ExpectCaret(3, 8);
    box_.Elements().tbMore.UserMenuClick(u"Find", find_menu::Recent);
    List().UserDoubleClick(elsewhere);
    ExpectCaret(81, 4);
}

TEST_F(PickScenario, AHostHearsOfAPickInAnotherFileAlsoWhileNoFileIsShown) {
    std::vector<PickedPlace> heard;
    box_->Extras().Search().OnPickedElsewhere = [&](const PickedPlace& place) {
        heard.push_back(place);
    };
    List().UserDoubleClick(here);
    EXPECT_TRUE(heard.empty());
    box_->text(Doc(100));
    box_.Elements().tbMore.UserMenuClick(u"Find", find_menu::Recent);
    List().UserDoubleClick(elsewhere);
    EXPECT_EQ(heard, (std::vector<PickedPlace>{{u"/other", 81, 4}}));
    ExpectBackInTheText();
}

TEST_F(PickScenario, AHostMayDestroyTheControlWhenItHearsOfAPick) {
    box_->Extras().Search().OnPickedElsewhere = [&](const PickedPlace&) { box_.Destroy(); };
    const auto activate = List().OnActivate;
    List().Select(elsewhere);
    activate();
    EXPECT_TRUE(box_.Destroyed());
}

TEST_F(PickScenario, ATextOfNoFileIsNotReplaced) {
    box_->text(Doc(100));
    box_.Elements().tbMore.UserMenuClick(u"Find", find_menu::Recent);
    box_.Log().Clear();
    List().UserDoubleClick(elsewhere);
    EXPECT_EQ(box_->LineCount(), 100);
    ExpectCaret(81, 4);
    EXPECT_EQ(box_.Log().Count("BeforeFileChange(/other)"), 0U);
}

TEST_F(PickScenario, AMatchFoundInMemoryNeverChangesTheFile) {
    box_->SearchFiles(u"*");
    FindAll(box_, u"match");
    EXPECT_THAT(FoundRows(box_), testing::Contains("Sel:|      2|match here|*>2"));
    box_.Log().Clear();
    List().UserDoubleClick(2);
    ExpectCaret(3, 8);
    EXPECT_THAT(box_.Log().Entries(), ElementsAre("SelChanged"));
    EXPECT_EQ(box_->LineCount(), 3);
}

TEST_F(PickScenario, AMatchInATextOfNoFileIsPickedWithoutAnEvent) {
    box_->text(u"x\r\nab match");
    box_->SearchFiles(u"");
    FindAll(box_, u"match");
    EXPECT_THAT(FoundRows(box_), testing::Contains("Sel:|      2|ab match|*>5"));
    box_.Log().Clear();
    List().UserDoubleClick(1);
    ExpectCaret(2, 5);
    EXPECT_THAT(box_.Log().Entries(), ElementsAre("SelChanged"));
    EXPECT_EQ(box_->LineCount(), 2);
}

TEST_F(PickScenario, AMatchFoundInMemoryBelongsToAFileThatIsShownLater) {
    box_->text(u"x match");
    box_->SearchFiles(u"");
    FindAll(box_, u"match");
    box_.Load(DocFile(10), u"/later");
    box_.Elements().tbMore.UserMenuClick(u"Find", find_menu::Recent);
    box_.Log().Clear();
    List().UserDoubleClick(1);
    EXPECT_EQ(box_->LineCount(), 10);
    ExpectCaret(1, 3);
    EXPECT_EQ(box_.Log().Count("BeforeFileChange(*)"), 0U);
}

TEST_F(PickScenario, NothingSelectedNothingHappens) {
    List().SetRows(List().Rows());
    List().UserKey(key_code::Return, 0);
    List().UserDoubleClickBeside();
    EXPECT_TRUE(List().Visible());
    EXPECT_TRUE(box_.Log().Entries().empty());
}

TEST_F(PickScenario, AWayBackHidesTheListAndMovesNothing) {
    for (const std::size_t row : {0U, 4U}) {
        box_.Elements().tbMore.UserMenuClick(u"Find", find_menu::Recent);
        List().UserDoubleClick(row);
        ExpectBackInTheText();
        ExpectCaret(1, 1);
    }
    EXPECT_TRUE(box_.Log().Entries().empty());
}

TEST_F(PickScenario, EscapeHidesTheListAndKeepsIt) {
    box_.Press(key_code::Escape);
    ExpectBackInTheText();
    EXPECT_EQ(List().RowCount(), 5U);
    ExpectCaret(1, 1);
}

TEST_F(PickScenario, AClickSelectsEnterPicks) {
    List().UserClick(2);
    EXPECT_TRUE(List().Visible());
    ExpectCaret(1, 1);
    box_.Press(key_code::Return);
    ExpectCaret(3, 8);
    ExpectBackInTheText();
}

TEST_F(PickScenario, TheArrowKeysMoveTheSelectionNotTheCaret) {
    box_.Press(key_code::End);
    EXPECT_EQ(List().Selected(), 4U);
    box_.Press(key_code::Up);
    box_.Press(key_code::Up);
    EXPECT_EQ(List().Selected(), 2U);
    box_.Press(key_code::Home);
    box_.Press(key_code::Down);
    EXPECT_EQ(List().Selected(), 1U);
    ExpectCaret(1, 1);
    EXPECT_TRUE(box_.Log().Entries().empty());
}

TEST_F(PickScenario, LoadingHidesTheListAndItsRowsStay) {
    box_->LoadFile(u"/other");
    EXPECT_FALSE(List().Visible());
    EXPECT_EQ(List().RowCount(), 5U);
    box_.Elements().tbMore.UserMenuClick(u"Find", find_menu::Recent);
    box_->text(u"x");
    EXPECT_FALSE(List().Visible());
    EXPECT_EQ(List().RowCount(), 5U);
}

TEST_F(PickScenario, AFileThatIsGoneShowsOneEmptyLine) {
    box_.Files().Remove(u"/other");
    List().UserDoubleClick(elsewhere);
    EXPECT_EQ(box_->LineCount(), 1);
    ExpectCaret(1, 1);
    ExpectBackInTheText();
}

TEST_F(PickScenario, AHostMayRefillTheListInTheEvent) {
    box_.Log().OnEvent = [&](const std::string&) {
        box_.Log().OnEvent = nullptr;
        List().Clear();
        box_->SearchFiles(u"/doc");
        FindAll(box_, u"one");
    };
    List().UserDoubleClick(elsewhere);
    ExpectCaret(81, 4);
    EXPECT_EQ(List().RowCount(), 3U);
}

TEST_F(PickScenario, AHostMayDestroyTheControlInTheEvent) {
    for (const bool changes : {true, false}) {
        HeadlessBox box;
        box.Log().HostChangesFile = changes;
        box.Files().Put(u"/other", "match");
        box.Load("match", u"/doc");
        box->SearchFiles(u"/other");
        FindAll(box, u"match");
        box.Log().OnEvent = [&](const std::string&) { box.Destroy(); };
        box.Elements().lvFound.UserDoubleClick(1);
        EXPECT_TRUE(box.Destroyed());
    }
}

TEST_F(PickScenario, AHostMayDestroyTheControlWhenTheCaretMoves) {
    box_.Log().OnEvent = [&](const std::string&) { box_.Destroy(); };
    List().UserDoubleClick(2);
    EXPECT_TRUE(box_.Destroyed());
}

TEST_F(PickScenario, AHostLearnsThePickedPlaceInTheEvent) {
    std::optional<PickedPlace> picked;
    box_.Log().OnEvent = [&](const std::string& event) {
        if (event == "BeforeFileChange(/other)") picked = box_->Extras().Search().Picked();
    };
    List().UserDoubleClick(elsewhere);
    EXPECT_EQ(picked, (PickedPlace{u"/other", 81, 4}));
    EXPECT_EQ(box_->Extras().Search().Picked(), std::nullopt);
}

TEST_F(PickScenario, AHostBoundByNumberMayChangeTheFileToo) {
    class Taker final : public EventSink {
    public:
        void OnEvent(std::int32_t id, std::span<Variant> arguments) override {
            if (id != event_id::BeforeFileChange) return;
            Name = std::get<std::u16string>(arguments[0]);
            Was = std::get<bool>(arguments[1]);
            arguments[0] = std::u16string(u"/spoiled");
            arguments[1] = true;
        }
        std::u16string Name;
        bool Was = true;
    };
    Taker taker;
    box_->SetEventSink(&taker);
    List().UserDoubleClick(elsewhere);
    EXPECT_EQ(taker.Name, u"/other");
    EXPECT_FALSE(taker.Was);
    EXPECT_EQ(box_->LineCount(), 3) << "not loaded, under no name";
}

TEST_F(PickScenario, AHostsKeysGoFromResultToResult) {
    SearchExtras& extras = box_->Extras().Search();
    box_.Press(key_code::Escape);
    List().SetRows(List().Rows());
    EXPECT_TRUE(extras.PickNextResult());
    ExpectCaret(2, 2);
    EXPECT_TRUE(extras.PickNextResult());
    ExpectCaret(3, 8);
    EXPECT_TRUE(extras.PickNextResult());
    EXPECT_EQ(box_->LineCount(), 81);
    EXPECT_FALSE(extras.PickNextResult());
    EXPECT_TRUE(extras.PickPreviousResult());
    EXPECT_EQ(box_->LineCount(), 3);
    ExpectCaret(3, 8);
    EXPECT_EQ(List().Selected(), 2U);
}

TEST_F(PickScenario, TheFirstNextResultAfterASearchIsTheSelectedOne) {
    // Symptom: the only result could not be reached, and of two the first was passed over.
    SearchExtras& extras = box_->Extras().Search();
    for (const auto& [text, lines] :
         {std::pair<const char16_t*, std::vector<int>>{u"one", {1}}, {u"match", {2, 3}}}) {
        box_->SearchFiles(u"/doc");
        FindAll(box_, text);
        for (const int line : lines) {
            EXPECT_TRUE(extras.PickNextResult());
            EXPECT_EQ(box_->row(), line);
        }
        EXPECT_FALSE(extras.PickNextResult());
        box_->MoveTo(1, 1);
    }
}

TEST_F(PickScenario, AListThatIsShownAgainGoesOnBehindTheResultThatWasPicked) {
    SearchExtras& extras = box_->Extras().Search();
    List().UserDoubleClick(here);
    extras.ShowLastList();
    EXPECT_TRUE(List().Visible());
    EXPECT_EQ(box_.Elements().Focus.Active(), FocusChild::FoundList);
    EXPECT_TRUE(extras.PickNextResult());
    ExpectCaret(3, 8);
}

TEST_F(PickScenario, AHostPicksTheSelectedResult) {
    SearchExtras& extras = box_->Extras().Search();
    EXPECT_TRUE(extras.PickSelected());
    ExpectCaret(2, 2);
    ExpectBackInTheText();
    EXPECT_TRUE(extras.PickSelected()) << "as often as it likes, also while the list is hidden";
    List().Select(0);
    EXPECT_FALSE(extras.PickSelected()) << "a way back leads to no result";
    List().SetRows(List().Rows());
    EXPECT_FALSE(extras.PickSelected());
    List().Clear();
    EXPECT_FALSE(extras.PickSelected());
    ExpectCaret(2, 2);
}

TEST_F(PickScenario, TheCaretGoesBehindTheMatchsFirstCharacterAsFindNextDoesNot) {
    List().UserDoubleClick(here);
    ExpectCaret(2, 2);
    box_->MoveTo(1, 1);
    box_.Elements().tbMore.UserClick(u"Find");
    ExpectCaret(2, 1);
}

}  // namespace
}  // namespace quorvale
