#include "resources/string_table.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "base/errors.h"
#include "base/text.h"
#include "resources/text_ids.h"

namespace quorvale {
namespace {

struct Expected {
    int Id;
    std::string English;
    std::string Japanese;
    std::string Korean;
};

/// Every text in UTF-8.
const std::vector<Expected>& ExpectedTexts() {
    static const std::vector<Expected> texts{
        {100, "FileName", "ファイル名", "파일 이름"},
        {101, "Line No.", "行番号", "행 번호"},
        {102, "Source Line", "ソース行", "소스 행"},
        {103, "Find", "検索", "찾기"},
        {104, "Find All", "すべて検索", "모두 찾기"},
        {105, "Wildcard Find All", "ワイルドカードですべて検索", "와일드카드로 모두 찾기"},
        {106, "-", "-", "-"},
        {107, "Recent Search List", "最新の検索リスト", "최근 검색 목록"},
        {108, "Go to Line", "指定行へジャンプ", "행으로 이동"},
        {109, "Collapse Lines", "行の縮小", "행 접기"},
        {110, "Edit", "編集", "편집"},
        {111, "Show Boundaries", "境界の表示", "경계 표시"},
        {112, "Searchg", "Searchg", "검색"},
        {113, "999999", "999999", "999999"},
        {114, " Line 0 ", " 行 0 ", "행 0 "},
        {115, "Popup", "ポップアップ", "팝업"},
        {116, "&Edit", "編集(&E)", "편집(&E)"},
        {117, "&Undo", "取り消し(&U)", "실행 취소(&U)"},
        {118, "Undo &All", "すべて取り消し(&A)", "모두 실행 취소(&A)"},
        {119, "&Previous Correction", "前の修正(&P)", "이전 정정(&P)"},
        {120, "&Next Correction", "次の修正(&N)", "다음 정정(&N)"},
        {121, "&Commit Updates", "更新のコミット(&C)", "업데이트 사항 확약(&C)"},
        {122, "PopupCollapse", "ポップアップ縮小", "PopupCollapse"},
        {123, "&Collapse All", "すべて縮小(&C)", "모두 접기(&C)"},
        {124, "&Expand All", "すべて拡張(&E)", "모두 펼치기(&E)"},
        {125, "Find Next", "次を検索", "다음 찾기"},
        {500, "Fail to save file.%1", "ファイルの保管に失敗しました。%1", "파일 저장 실패.%1"},
        {501, "This is the last update to the file.", "これはファイルの最後の更新です。",
         "파일에 대한 마지막 업데이트입니다."},
        {502, "This is the first update to the file.", "これはファイルの最初の更新です。",
         "파일에 대한 첫 번째 업데이트입니다."},
        {503, "You are about to undo all corrections made to the file.%1Continue?",
         "ファイルに行ったすべての修正を取り消そうとしています。%1続行しますか?",
         "파일 정정사항을 모두 실행 취소하려고 합니다.%1계속하시겠습니까?"},
        {504, "Return", "戻る", "리턴"},
        {505, "%1 match(es) found.", "%1 の一致が見つかりました。",
         "%1개 일치 항목이 발견되었습니다."},
        {506, "No match found.", "一致が見つかりませんでした。", "일치 항목이 없습니다."},
        {507, " Line %1 ", " 行 %1 ", "행 %1 "},
    };
    return texts;
}

TEST(StringTable, HasThe34TextsInEveryLanguage) {
    EXPECT_EQ(ExpectedTexts().size(), 34U);
    for (const auto& text : ExpectedTexts()) {
        EXPECT_EQ(ToUtf8(LoadText(text.Id, Language::English)), text.English) << text.Id;
        EXPECT_EQ(ToUtf8(LoadText(text.Id, Language::Japanese)), text.Japanese) << text.Id;
        EXPECT_EQ(ToUtf8(LoadText(text.Id, Language::Korean)), text.Korean) << text.Id;
    }
}

TEST(StringTable, TheScrollTipHasALeadingBlankExceptInKorean) {
    for (const int id : {text_id::InitialScrollTip, text_id::ScrollTip}) {
        EXPECT_EQ(LoadText(id, Language::English).front(), u' ') << id;
        EXPECT_EQ(LoadText(id, Language::Japanese).front(), u' ') << id;
        EXPECT_NE(LoadText(id, Language::Korean).front(), u' ') << id;
        for (const auto language : {Language::English, Language::Japanese, Language::Korean}) {
            EXPECT_EQ(LoadText(id, language).back(), u' ') << id;
        }
    }
}

TEST(StringTable, TheKoreanCollapseMenuKeepsItsEnglishName) {
    EXPECT_EQ(LoadText(text_id::CollapseMenu, Language::Korean), u"PopupCollapse");
}

TEST(StringTable, AnUnknownNumberIsAnIndexError) {
    for (const auto language : {Language::English, Language::Japanese, Language::Korean}) {
        for (const int id : {-1, 0, 99, 126, 127, 499, 508, 65536 + 100}) {
            try {
                LoadText(id, language);
                ADD_FAILURE() << "no error for " << id;
            } catch (const ControlError& error) {
                EXPECT_EQ(error.Kind(), ErrorKind::Index) << id;
                EXPECT_NE(std::string(error.what()).find(std::to_string(id)), std::string::npos);
            }
        }
    }
}

TEST(StringTable, EachLanguageNumberHasItsTable) {
    EXPECT_EQ(LanguageFromId(1033), Language::English);
    EXPECT_EQ(LanguageFromId(1041), Language::Japanese);
    EXPECT_EQ(LanguageFromId(1042), Language::Korean);
}

TEST(StringTable, EveryOtherLanguageIsServedInEnglish) {
    for (const int id : {-1, 0, 1, 1031, 1036, 2052, 2057, 17 /* Japanese without a country */}) {
        EXPECT_EQ(LanguageFromId(id), Language::English) << id;
    }
}

TEST(StringTable, TheNamedNumbersAreThoseOfTheTable) {
    using namespace text_id;
    const std::set<int> named{FileNameColumn,
                              LineNumberColumn,
                              SourceLineColumn,
                              Find,
                              FindAll,
                              WildcardFindAll,
                              FindMenuSeparator,
                              RecentSearchList,
                              GoToLine,
                              CollapseLines,
                              Edit,
                              ShowBoundaries,
                              FindNext,
                              InitialSearchText,
                              InitialLineText,
                              InitialScrollTip,
                              CorrectionsMenu,
                              EditItem,
                              UndoItem,
                              UndoAllItem,
                              PreviousCorrectionItem,
                              NextCorrectionItem,
                              CommitItem,
                              CollapseMenu,
                              CollapseAllItem,
                              ExpandAllItem,
                              SaveFailed,
                              LastUpdate,
                              FirstUpdate,
                              ConfirmUndoAll,
                              Return,
                              MatchesFound,
                              NoMatchFound,
                              ScrollTip};
    std::set<int> known;
    for (const auto& text : ExpectedTexts()) known.insert(text.Id);
    EXPECT_EQ(named, known);
    EXPECT_EQ(ToUtf8(LoadText(FindNext, Language::English)), "Find Next");
    EXPECT_EQ(ToUtf8(LoadText(CommitItem, Language::English)), "&Commit Updates");
    EXPECT_EQ(ToUtf8(LoadText(ConfirmUndoAll, Language::English)),
              "You are about to undo all corrections made to the file.%1Continue?");
}

}  // namespace
}  // namespace quorvale
