#include "resources/spoken_words.h"

#include <array>
#include <cstddef>

namespace quorvale {

namespace {

/// A word in English, Japanese and Korean, in the order of the enumeration.
struct Translated {
    std::u16string_view English;
    std::u16string_view Japanese;
    std::u16string_view Korean;
};

constexpr std::array<Translated, 12> words{{
    {u"Text", u"テキスト", u"텍스트"},
    {u"blank", u"空行", u"빈 행"},
    {u"folded", u"折りたたみ", u"접힘"},
    {u"corrected", u"修正済み", u"정정됨"},
    {u"line %1", u"行 %1", u"행 %1"},
    {u"Show Toolbar", u"ツールバーの表示", u"도구 모음 표시"},
    {u"Hide Toolbar", u"ツールバーの非表示", u"도구 모음 숨기기"},
    {u"Search results", u"検索結果", u"검색 결과"},
    {u"Search progress", u"検索の進行状況", u"검색 진행 상황"},
    {u"Esc ends the search", u"Esc キーで検索を終了", u"Esc 키로 검색 끝내기"},
    {u"%1 found", u"%1 件見つかりました", u"%1개 찾음"},
    {u"The text shown", u"表示中のテキスト", u"표시 중인 텍스트"},
}};

}  // namespace

std::u16string_view LoadSpoken(SpokenWord word, Language language) {
    const Translated& found = words[static_cast<std::size_t>(word)];
    if (language == Language::Japanese) return found.Japanese;
    return language == Language::Korean ? found.Korean : found.English;
}

}  // namespace quorvale
