#include "resources/spoken_words.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "base/text.h"

namespace quorvale {
namespace {

constexpr SpokenWord allWords[] = {
    SpokenWord::Rows,         SpokenWord::Blank,          SpokenWord::Folded,
    SpokenWord::Corrected,    SpokenWord::Line,           SpokenWord::ShowToolbar,
    SpokenWord::HideToolbar,  SpokenWord::SearchProgress, SpokenWord::EscapeEndsSearch,
    SpokenWord::MatchesSoFar, SpokenWord::ShownText,      SpokenWord::Results};

constexpr Language allLanguages[] = {Language::English, Language::Japanese, Language::Korean};

TEST(SpokenWords, EveryWordIsSaidInThreeLanguagesAndNoTwoSoundAlike) {
    std::set<std::u16string_view> said;
    for (const SpokenWord word : allWords) {
        for (const Language language : allLanguages) {
            EXPECT_FALSE(LoadSpoken(word, language).empty());
            said.insert(LoadSpoken(word, language));
        }
    }
    EXPECT_EQ(said.size(), std::size(allWords) * std::size(allLanguages));
}

TEST(SpokenWords, ALineIsNamedByItsNumberInEveryLanguage) {
    EXPECT_EQ(ToUtf8(LoadSpoken(SpokenWord::Line, Language::English)), "line %1");
    EXPECT_EQ(ToUtf8(LoadSpoken(SpokenWord::Line, Language::Japanese)), "行 %1");
    EXPECT_EQ(ToUtf8(LoadSpoken(SpokenWord::Line, Language::Korean)), "행 %1");
}

TEST(SpokenWords, ABlankLineIsSaidInTheUsersLanguage) {
    EXPECT_EQ(ToUtf8(LoadSpoken(SpokenWord::Blank, Language::English)), "blank");
    EXPECT_EQ(ToUtf8(LoadSpoken(SpokenWord::Blank, Language::Japanese)), "空行");
    EXPECT_EQ(ToUtf8(LoadSpoken(SpokenWord::Blank, Language::Korean)), "빈 행");
}

}  // namespace
}  // namespace quorvale
