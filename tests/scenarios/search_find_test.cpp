#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "find_scenario.h"
#include "support/documents.h"
#include "support/error_of.h"

namespace quorvale {
namespace {

using testing::ElementsAre;

TEST_F(FindScenario, TheBoxStartsWithATextOfTheLanguage) {
    HeadlessSetup setup;
    for (const auto& [language, text] :
         {std::pair{1033, u"Searchg"}, std::pair{1041, u"Searchg"}, std::pair{1042, u"검색"}}) {
        setup.LanguageId = language;
        EXPECT_EQ(HeadlessBox(setup)->SearchText(), text);
    }
    EXPECT_TRUE(CanFind());
}

TEST_F(FindScenario, TheButtonFollowsTheBox) {
    box_->SearchText(u"");
    EXPECT_FALSE(CanFind());
    box_->SearchText(u"x");
    EXPECT_TRUE(CanFind());
}

TEST_F(FindScenario, AHostsTextMovesNothingBeforeTheBoxHadTheKeyboard) {
    Start(u"xabx");
    box_->SearchText(u"ab");
    EXPECT_EQ(Caret(), (Place{1, 1}));
    EXPECT_TRUE(box_.Log().Entries().empty());
}

TEST_F(FindScenario, AHostsTextSearchesAsTypingDoesLater) {
    Start(u"xabx");
    EnterSearchBox();
    box_->SearchText(u"ab");
    EXPECT_EQ(Caret(), (Place{1, 2}));
    EXPECT_THAT(box_.Log().Entries(), ElementsAre("SelChanged"));
}

TEST_F(FindScenario, TypingGoesToTheFirstMatchFromTheCaretOn) {
    Start(u"xabx abx");
    EnterSearchBox();
    TypeAnew(u"ab");
    EXPECT_EQ(Caret(), (Place{1, 2}));
    EXPECT_EQ(box_->Offset(), 2);
}

TEST_F(FindScenario, TypingStaysOnAMatchAtTheCaretAndWrapsOnce) {
    Start(u"xabx abx", 1, 6);
    EnterSearchBox();
    TypeAnew(u"ab");
    EXPECT_EQ(Caret(), (Place{1, 6}));
    Start(u"xabx abx", 1, 7);
    EnterSearchBox();
    TypeAnew(u"ab");
    EXPECT_EQ(Caret(), (Place{1, 2}));
}

TEST_F(FindScenario, TypingWithoutAMatchRaisesNothing) {
    Start(u"xabx");
    EnterSearchBox();
    box_.Elements().txtSearch.SetText(u"y");
    EXPECT_EQ(Caret(), (Place{1, 1}));
    EXPECT_TRUE(box_.Log().Entries().empty());
    EXPECT_TRUE(box_.Messages().Log.empty());
}

TEST_F(FindScenario, EveryCharacterSearchesFromWhereTheBoxGotTheKeyboard) {
    Start(u"ab xx a", 1, 4);
    EnterSearchBox();
    box_.Elements().txtSearch.SetText(u"a");
    EXPECT_EQ(box_->Offset(), 7);
    box_.Type(u"b");
    EXPECT_EQ(box_->Offset(), 1) << "back to a match in front of the last one";
}

TEST_F(FindScenario, InFrontOfTheTextOnlyFindNextMoves) {
    Start(u"ab ab", 1, 0);
    EnterSearchBox();
    TypeAnew(u"ab");
    EXPECT_EQ(Caret(), (Place{1, 0}));
    box_.Press(key_code::F3);
    EXPECT_EQ(Caret(), (Place{1, 1}));
}

TEST_F(FindScenario, FindNextIgnoresCaseAndWraps) {
    std::u16string text = Doc(12);
    text.replace(text.find(u"L5"), 2, u"xx abc");
    text.replace(text.find(u"L9"), 2, u"yy ABC");
    Start(text);
    box_->SearchText(u"abc");
    EXPECT_THAT(FindNext(3), ElementsAre(Place{5, 4}, Place{9, 4}, Place{5, 4}));
}

TEST_F(FindScenario, TheOnlyMatchIsFoundAgainAndAgain) {
    Start(u"one match here");
    box_->SearchText(u"match");
    EXPECT_THAT(FindNext(3), ElementsAre(Place{1, 5}, Place{1, 5}, Place{1, 5}));
    EXPECT_EQ(box_.Log().Count("SelChanged"), 1U);
}

TEST_F(FindScenario, WithoutAMatchOnlyTheKeyboardMoves) {
    Start(u"text", 1, 3);
    box_.FocusOn(FocusChild::TextArea);
    box_->SearchText(u"nowhere");
    EXPECT_THAT(FindNext(1), ElementsAre(Place{1, 3}));
    EXPECT_EQ(Focused(), FocusChild::SearchBox);
    EXPECT_TRUE(box_.Log().Entries().empty());
    EXPECT_TRUE(box_.Messages().Log.empty());
}

TEST_F(FindScenario, OverlappingMatchesAreAllFound) {
    box_->SearchText(u"aa");
    Start(u"aaaa", 1, 0);
    EXPECT_THAT(FindNext(4), ElementsAre(Place{1, 1}, Place{1, 2}, Place{1, 3}, Place{1, 1}));
    Start(u"aaaa", 1, 1);
    EXPECT_THAT(FindNext(3), ElementsAre(Place{1, 2}, Place{1, 3}, Place{1, 1}))
        << "a match right at the caret is passed over";
}

TEST_F(FindScenario, TabsCountAsOneCharacterAndAreFound) {
    Start(u"\tabc\tabc");
    box_->SearchText(u"abc");
    EXPECT_THAT(FindNext(1), ElementsAre(Place{1, 9}));
    EXPECT_EQ(box_->Offset(), 2);
    EXPECT_THAT(FindNext(1), ElementsAre(Place{1, 17}));
    EXPECT_EQ(box_->Offset(), 6);
    box_->SearchText(u"\ta");
    EXPECT_THAT(FindNext(1), ElementsAre(Place{1, 8})) << "behind the tab in front of the first";
    EXPECT_EQ(box_->Offset(), 1);
}

TEST_F(FindScenario, AnEmptyBoxStepsThroughTheText) {
    box_->SearchText(u"");
    Start(u"ab\ncd");
    EnterSearchBox();
    std::vector<std::int32_t> offsets;
    for (int i = 0; i < 7; ++i) {
        box_.Press(key_code::F3);
        offsets.push_back(box_->Offset());
    }
    EXPECT_THAT(offsets, ElementsAre(2, 3, 4, 5, 6, 4, 5)) << "the end is the last line's start";
}

TEST_F(FindScenario, AnEmptyBoxStaysAtTheEndOfALineOfTwoCharactersBreak) {
    box_->SearchText(u"");
    Start(u"ab\r\ncd");
    EnterSearchBox();
    std::vector<std::int32_t> offsets;
    for (int i = 0; i < 4; ++i) {
        box_.Press(key_code::Return);
        offsets.push_back(box_->Offset());
    }
    EXPECT_THAT(offsets, ElementsAre(2, 3, 3, 3));
}

TEST_F(FindScenario, FourWaysLeadToTheNextMatch) {
    box_->SearchText(u"ab");
    const std::vector<std::function<void()>> ways = {
        [&] { box_.Press(key_code::F3); },
        [&] { box_.Press(key_code::Return); },
        [&] { box_.Elements().tbMore.UserClick(u"Find"); },
        [&] { box_.Elements().tbMore.UserMenuClick(u"Find", 0); },
    };
    for (const auto& way : ways) {
        Start(u"xab ab");
        EnterSearchBox();
        way();
        EXPECT_EQ(Caret(), (Place{1, 2}));
        EXPECT_THAT(box_.Log().Entries(), ElementsAre("SelChanged"));
        EXPECT_EQ(Focused(), FocusChild::SearchBox);
    }
}

TEST_F(FindScenario, EscapeGivesTheKeyboardToTheTextAndOtherKeysAreTheBoxs) {
    Start(u"xab");
    EnterSearchBox();
    for (const std::int16_t key : {std::int16_t{65}, key_code::Up, key_code::F2}) box_.Press(key);
    EXPECT_EQ(Focused(), FocusChild::SearchBox);
    EXPECT_TRUE(box_.Log().Entries().empty());
    box_.Press(key_code::Escape);
    EXPECT_EQ(Focused(), FocusChild::TextArea);
}

TEST_F(FindScenario, ARefusedFocusIsNoFailure) {
    Start(u"xab");
    box_->SearchText(u"ab");
    box_.Elements().Focus.OnRequest = [](FocusChild) { return false; };
    EXPECT_THAT(FindNext(1), ElementsAre(Place{1, 2}));
    EXPECT_EQ(Focused(), FocusChild::None);
    EnterSearchBox();
    box_.Press(key_code::Escape);
    EXPECT_EQ(Focused(), FocusChild::SearchBox);
}

TEST_F(FindScenario, AHiddenToolbarDoesNotHinder) {
    Start(u"xab");
    box_->SearchText(u"ab");
    box_.FocusOn(FocusChild::TextArea);
    box_.Elements().cmdMore.UserClick();
    const auto keyDown = box_.Elements().txtSearch.OnKeyDown;
    std::int16_t key = key_code::F3;
    keyDown(key, 0);
    EXPECT_EQ(Caret(), (Place{1, 2}));
    EXPECT_EQ(Focused(), FocusChild::TextArea);
}

TEST_F(FindScenario, AMatchInAFoldIsShown) {
    Start(Doc(100));
    box_->CollapseLines(10, 60);
    box_->CollapseAll();
    box_->SearchText(u"l42");
    EXPECT_THAT(FindNext(1), ElementsAre(Place{42, 1}));
    EXPECT_THAT(box_.RowLines(), testing::Contains(42));
}

TEST_F(FindScenario, AMatchFarAwayIsScrolledIntoView) {
    Start(Doc(1000));
    box_->SearchText(u"L900");
    FindNext(1);
    EXPECT_THAT(box_.RowLines(), testing::Contains(900));
    EXPECT_THAT(box_.Log().Entries(), ElementsAre("Scrolled", "SelChanged"));
}

TEST_F(FindScenario, LettersAreComparedByTheirSimpleFold) {
    const std::vector<std::tuple<const char16_t*, const char16_t*, bool>> cases = {
        {u"x\u00E9", u"\u00C9", true},      {u"x\u00DF", u"ss", false},
        {u"x\u0131", u"i", false},          {u"x\u0130", u"i", false},
        {u"xk", u"\u212A", true},           {u"x\u30A2", u"\u3042", false},
        {u"\u3042\u3044", u"\u3044", true},
    };
    for (const auto& [text, what, found] : cases) {
        Start(text);
        box_->SearchText(what);
        EXPECT_THAT(FindNext(1), ElementsAre(Place{1, found ? 2 : 1}));
    }
}

TEST_F(FindScenario, AHostMayBringItsOwnRulesOfCase) {
    class AllDigitsAreTheSame final : public CaseRules {
    public:
        char16_t Fold(char16_t unit) const override {
            return unit >= u'0' && unit <= u'9' ? u'0' : unit;
        }
        char16_t Upper(char16_t unit) const override { return unit; }
    };
    HeadlessSetup setup;
    setup.Case = std::make_shared<AllDigitsAreTheSame>();
    HeadlessBox box(setup);
    box->text(u"A12 b34");
    box->SearchText(u"b77");
    box.Elements().tbMore.UserClick(u"Find");
    EXPECT_EQ(box->col(), 5);
    box->SearchText(u"a");
    box.Elements().tbMore.UserClick(u"Find");
    EXPECT_EQ(box->col(), 5) << "letters are not";
}

TEST_F(FindScenario, BeforeAnyDocumentNothingHappens) {
    HeadlessBox box;
    for (const auto* text : {u"x", u""}) {
        box->SearchText(text);
        box.FocusOn(FocusChild::SearchBox);
        box.Press(key_code::F3);
        EXPECT_EQ(box->row(), 0);
    }
    EXPECT_TRUE(box.Log().Entries().empty());
}

TEST_F(FindScenario, AMatchMayReachOverALineEnd) {
    Start(u"ABC\r\nDEF");
    box_->SearchText(u"c\r\nd");
    EXPECT_THAT(FindNext(1), ElementsAre(Place{1, 3}));
    EXPECT_EQ(box_->Offset(), 3);
}

TEST_F(FindScenario, TheMarkerBlinksWhileTheBoxHasTheKeyboard) {
    Start(u"text");
    box_.FocusOn(FocusChild::TextArea);
    box_.FocusOn(FocusChild::SearchBox);
    EXPECT_TRUE(box_.Elements().tmrImage.Enabled());
}

/// An element that cannot be set.
class RefusesLineBox final : public ElementWatcher {
public:
    void Setting(const Element& element, std::string_view) override {
        if (element.Name() != "txtLn") return;
        ++Refused;
        throw ControlError(ErrorKind::InvalidValue, "refused");
    }
    int Refused = 0;
};

TEST_F(FindScenario, AFailureInsideIsNeitherTheHostsNorTheUsers) {
    Start(u"xab ab");
    EnterSearchBox();
    RefusesLineBox refuses;
    box_.Elements().Watch(&refuses);
    EXPECT_EQ(ErrorOf([&] { box_->SearchText(u"ab"); }), std::nullopt);
    EXPECT_EQ(refuses.Refused, 1);
    EXPECT_EQ(ErrorOf([&] { box_.Press(key_code::F3); }), std::nullopt);
    EXPECT_EQ(refuses.Refused, 2);
    box_.Elements().Watch(nullptr);
    box_->MoveTo(1, 1);
    EXPECT_THAT(FindNext(1), ElementsAre(Place{1, 2}));
}

}  // namespace
}  // namespace quorvale
