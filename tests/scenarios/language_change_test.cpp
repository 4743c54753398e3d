#include <gtest/gtest.h>

#include "control/host_extras.h"
#include "control/search_extras.h"
#include "find_scenario.h"
#include "found_rows.h"

namespace quorvale {
namespace {

/// A control that is told to speak another language while it is in use.
class LanguageChange : public FindScenario {
protected:
    HostExtras& Extras() { return box_->Extras(); }
    std::u16string Tip(const char16_t* key) { return box_.Elements().tbMore.Button(key).ToolTip; }
};

TEST_F(LanguageChange, TakesTheControlsOwnTextsAlong) {
    Extras().Speak(Language::Japanese);
    EXPECT_EQ(Extras().Language(), Language::Japanese);
    EXPECT_EQ(Tip(u"Find"), u"検索");
    EXPECT_EQ(box_.Elements().lvFound.Headers()[1], u"行番号");
    Extras().Speak(Language::Korean);
    EXPECT_EQ(Tip(u"Find"), u"찾기");
    EXPECT_EQ(box_->SearchText(), u"검색");
    Extras().Speak(Language::English);
    EXPECT_EQ(Tip(u"Find"), u"Find");
}

// Results, search text and place used to be thrown away with the control that had them.
TEST_F(LanguageChange, KeepsWhatIsSearchedForAndFound) {
    Start(u"one\r\ntwo ab\r\nthree ab", 2, 3);
    FindAll(box_, u"ab");
    ListView& list = box_.Elements().lvFound;
    const std::u16string english = list.Cell(0, 2);
    Extras().Speak(Language::Japanese);
    EXPECT_EQ(box_->SearchText(), u"ab");
    ASSERT_EQ(list.RowCount(), 4U);
    EXPECT_EQ(list.Cell(2, 2), u"three ab");
    EXPECT_NE(list.Cell(0, 2), english);
    EXPECT_NE(list.Cell(0, 2).find(u'2'), std::u16string::npos);
    EXPECT_EQ(Caret(), (Place{2, 3}));
    EXPECT_TRUE(list.Visible());
}

TEST_F(LanguageChange, SearchesForNothing) {
    Start(u"one\r\n검색\r\nthree", 1, 2);
    EnterSearchBox();
    Extras().Speak(Language::Korean);
    EXPECT_EQ(box_->SearchText(), u"검색");
    EXPECT_EQ(Caret(), (Place{1, 2}));
    box_.Elements().txtSearch.SetText(u"");
    box_.Type(u"thr");
    EXPECT_EQ(Caret().Row, 3) << "what is typed is searched for as before";
}

// A text for a search in other files used to move the caret and open folds on its way.
TEST_F(LanguageChange, ATextThatIsPutIsNotSearchedFor) {
    Start(u"one\r\ntwo\r\nmarker", 2, 1);
    box_->CollapseLines(2, 3);
    box_->CollapseAll();
    ASSERT_LT(box_->RowTop(3), 0);
    EnterSearchBox();
    Extras().Search().PutText(u"marker");
    EXPECT_EQ(box_->SearchText(), u"marker");
    EXPECT_TRUE(CanFind());
    EXPECT_EQ(Caret(), (Place{2, 1}));
    EXPECT_LT(box_->RowTop(3), 0) << "the fold stays closed";
}

}  // namespace
}  // namespace quorvale
