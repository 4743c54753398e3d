#include <gtest/gtest.h>

#include <random>

#include "search/text_search.h"
#include "support/documents.h"

namespace quorvale {
namespace {

constexpr std::int32_t block = TextStore::BlockUnits;

std::int32_t Find(std::u16string_view text, std::int32_t start, std::u16string_view what) {
    return FindText(TextStore::FromString(text), start, TextSearch(what));
}

TEST(FindText, CountsPositionsFromOne) {
    EXPECT_EQ(Find(u"xabxAbx", 1, u"ab"), 2);
    EXPECT_EQ(Find(u"xabxAbx", 2, u"ab"), 2);
    EXPECT_EQ(Find(u"xabxAbx", 3, u"ab"), 5);
    EXPECT_EQ(Find(u"xabxAbx", 6, u"ab"), 0);
}

TEST(FindText, FindsNothingInAnEmptyTextOrBehindTheEnd) {
    EXPECT_EQ(Find(u"", 1, u"a"), 0);
    EXPECT_EQ(Find(u"", 1, u""), 0);
    EXPECT_EQ(Find(u"abc", 4, u"a"), 0);
    EXPECT_EQ(Find(u"abc", 4, u""), 0);
    EXPECT_EQ(Find(u"abc", 2147483647, u"c"), 0);
}

TEST(FindText, FindsAnEmptyTextWhereItStarts) {
    EXPECT_EQ(Find(u"abc", 1, u""), 1);
    EXPECT_EQ(Find(u"abc", 3, u""), 3);
}

TEST(FindText, FindsOverlappingMatches) {
    EXPECT_EQ(Find(u"aaaa", 1, u"aa"), 1);
    EXPECT_EQ(Find(u"aaaa", 2, u"aa"), 2);
    EXPECT_EQ(Find(u"aaaa", 3, u"aa"), 3);
    EXPECT_EQ(Find(u"aaaa", 4, u"aa"), 0);
}

/// A text of three blocks, of which some are wide, with the needle across every place near the
/// borders of the blocks.
class FindTextAcrossBlocks : public testing::TestWithParam<int> {
protected:
    std::u16string Text() const {
        std::u16string text = Times(3 * static_cast<std::size_t>(block) - 500, u'.');
        for (int i = 0; i < 3; ++i) {
            const bool wide = (GetParam() >> i & 1) != 0;
            if (wide) text[static_cast<std::size_t>(i * block + block / 2)] = u'\u3042';
        }
        return text;
    }
};

TEST_P(FindTextAcrossBlocks, AMatchMayLieAnywhere) {
    const std::u16string needle = u"NeeDLE";
    const TextSearch search(u"needle");
    std::u16string text = Text();
    for (const std::int32_t border : {block, 2 * block}) {
        for (std::int32_t at = border - 7; at <= border + 1; ++at) {
            const auto index = static_cast<std::size_t>(at);
            std::u16string with = text;
            with.replace(index, needle.size(), needle);
            const TextStore store = TextStore::FromString(with);
            ASSERT_EQ(FindText(store, 1, search), at + 1) << at - border;
            ASSERT_EQ(FindText(store, at + 1, search), at + 1) << at - border;
            ASSERT_EQ(FindText(store, at + 2, search), 0) << at - border;
            ASSERT_EQ(search.FirstIn(store, 1, at), 0) << "a match begins where it is asked for";
            ASSERT_EQ(search.FirstIn(store, 1, at + 1), at + 1);
            ASSERT_EQ(search.LastIn(store, 1, store.Length()), at + 1);
            ASSERT_EQ(search.LastIn(store, 1, at), 0);
            ASSERT_EQ(search.LastIn(store, at + 1, at + 1), at + 1);
        }
    }
}

TEST_P(FindTextAcrossBlocks, AMatchMayTakeMoreThanABlock) {
    std::u16string text = Text();
    text.back() = u'!';
    const std::size_t from = 77;
    const std::u16string needle = text.substr(from) + u"";
    const TextStore store = TextStore::FromString(text);
    EXPECT_EQ(FindText(store, 1, TextSearch(needle)), 78);
    EXPECT_EQ(FindText(store, 79, TextSearch(needle)), 0);
}

INSTANTIATE_TEST_SUITE_P(WideAndNarrow, FindTextAcrossBlocks, testing::Range(0, 8));

TEST(FindTextBackwards, FindsTheLastMatchUpToAPlace) {
    const TextStore text = TextStore::FromString(u"ab xAB ab");
    const TextSearch search(u"ab");
    EXPECT_EQ(search.LastIn(text, 1, 9), 8);
    EXPECT_EQ(search.LastIn(text, 1, 7), 5);
    EXPECT_EQ(search.LastIn(text, 1, 5), 5);
    EXPECT_EQ(search.LastIn(text, 1, 4), 1);
    EXPECT_EQ(search.LastIn(text, 2, 4), 0);
    EXPECT_EQ(search.LastIn(text, 6, 100), 8) << "no further than the text";
    EXPECT_EQ(search.LastIn(text, 1, 0), 0);
}

TEST(FindTextBackwards, FindsInALongTextWhatTheWayForwardFinds) {
    std::mt19937 random(7);
    std::u16string units = Times(300'000, u'.');
    for (int i = 0; i < 40; ++i) units.replace(random() % 299'990, 3, u"xyz");
    const TextStore text = TextStore::FromString(units);
    const TextSearch search(u"XYZ");
    std::vector<std::int32_t> forward;
    for (std::int32_t at = FindText(text, 1, search); at != 0;
         at = FindText(text, at + 1, search)) {
        forward.push_back(at);
    }
    std::vector<std::int32_t> backward;
    for (std::int32_t at = search.LastIn(text, 1, text.Length()); at != 0;
         at = search.LastIn(text, 1, at - 1)) {
        backward.insert(backward.begin(), at);
    }
    EXPECT_GT(forward.size(), 30U);
    EXPECT_EQ(backward, forward);
}

}  // namespace
}  // namespace quorvale
