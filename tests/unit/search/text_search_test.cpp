#include "search/text_search.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "support/documents.h"

namespace quorvale {
namespace {

constexpr auto nowhere = TextSearch::Nowhere;

const UnitKeys& Folds() { return CaseTableOf(nullptr)->Folds; }

/// What every way of searching has to come to.
template <class Text>
std::size_t FindNaively(const Text& text, std::u16string_view what) {
    for (std::size_t at = 0; at + what.size() <= text.size(); ++at) {
        std::size_t same = 0;
        while (same < what.size() &&
               Folds()[static_cast<char16_t>(text[at + same])] == Folds()[what[same]]) {
            ++same;
        }
        if (same == what.size()) return at;
    }
    return nowhere;
}

std::span<const char16_t> Units(const std::u16string& text) { return {text.data(), text.size()}; }

std::vector<std::uint8_t> Bytes(std::u16string_view text) { return {text.begin(), text.end()}; }

std::size_t FindInUnits(std::u16string_view what, const std::u16string& text) {
    return TextSearch(what).FindIn(Units(text));
}

std::size_t FindInBytes(std::u16string_view what, std::u16string_view text) {
    const auto bytes = Bytes(text);
    return TextSearch(what).FindIn(std::span(bytes));
}

TEST(TextSearch, FindsTheFirstMatchWhateverTheCase) {
    EXPECT_EQ(FindInUnits(u"abc", u"xx aBC ABC"), 3U);
    EXPECT_EQ(FindInBytes(u"abc", u"xx aBC ABC"), 3U);
    EXPECT_EQ(FindInUnits(u"ABC", u"abc"), 0U);
    EXPECT_EQ(FindInUnits(u"\u00C9t\u00C9", u"un \u00E9t\u00E9"), 3U);
    EXPECT_EQ(FindInBytes(u"\u00C9t\u00C9", u"un \u00E9t\u00E9"), 3U);
}

TEST(TextSearch, SaysWhenThereIsNone) {
    EXPECT_EQ(FindInUnits(u"abcd", u"abc"), nowhere);
    EXPECT_EQ(FindInBytes(u"abcd", u"abc"), nowhere);
    EXPECT_EQ(FindInUnits(u"x", u""), nowhere);
    EXPECT_EQ(FindInBytes(u"ss", u"stra\u00DFe"), nowhere);
    EXPECT_EQ(FindInUnits(u"i", u"\u0131\u0130"), nowhere);
    EXPECT_EQ(FindInBytes(u"\u3042", u"aaaa"), nowhere) << "no byte stands for it";
}

TEST(TextSearch, AnEmptyTextIsFoundWhereThereIsAnyUnit) {
    EXPECT_EQ(FindInUnits(u"", u"abc"), 0U);
    EXPECT_EQ(FindInBytes(u"", u"abc"), 0U);
    EXPECT_EQ(FindInUnits(u"", u""), nowhere);
    EXPECT_EQ(FindInBytes(u"", u""), nowhere);
}

TEST(TextSearch, UnitsBeyondAByteStandForOnesWithin) {
    EXPECT_EQ(FindInBytes(u"\u212Aelvin", u"a kelvin"), 2U);
    EXPECT_EQ(FindInBytes(u"\u03BCm", u"5 \u00B5m"), 2U);
    EXPECT_EQ(FindInBytes(u"\u0178", u"x\u00FF"), 1U);
    EXPECT_EQ(FindInUnits(u"s", u"\u017F"), 0U);
}

TEST(TextSearch, NothingIsReadBeyondTheText) {
    // Each text lies at the very end of its memory, for the sanitizers to see.
    for (std::size_t size = 1; size < 300; ++size) {
        const std::vector<std::uint8_t> bytes(size, 'a');
        for (const auto kernel : {SearchKernel::Avx2, SearchKernel::Portable}) {
            if (kernel == SearchKernel::Avx2 && BestSearchKernel() != kernel) continue;
            const TextSearch absent(u"aaab", CaseTableOf(nullptr), kernel);
            ASSERT_EQ(absent.FindIn(std::span(bytes)), nowhere);
            const TextSearch whole(Times(size, u'A'), CaseTableOf(nullptr), kernel);
            ASSERT_EQ(whole.FindIn(std::span(bytes)), 0U);
        }
    }
}

TEST(TextSearch, ANeedleOfEqualLettersTakesNoLongerThanAnother) {
    // Trying every place anew would take 10^11 steps.
    std::u16string text;
    for (int i = 0; i < 50; ++i) text += Times(19'999, u'a') + u"b";
    const std::u16string needle = Times(20'000, u'A');
    EXPECT_EQ(FindInBytes(needle, text), nowhere);
    EXPECT_EQ(FindInUnits(needle, text), nowhere);
    EXPECT_EQ(FindInBytes(needle, text + needle), text.size());
    EXPECT_EQ(FindInUnits(needle, text + needle), text.size());
    EXPECT_EQ(FindInBytes(u"b" + needle, text + needle), text.size() - 1);
}

TEST(TextSearch, RulesOfTheHostAreFollowed) {
    /// All vowels are the same, and all digits.
    class Sloppy final : public CaseRules {
    public:
        char16_t Fold(char16_t unit) const override {
            constexpr std::u16string_view vowels = u"aeiouAEIOU\u00E9\u4E00\u4E01\u4E02";
            if (vowels.find(unit) != vowels.npos) return u'a';
            return unit >= u'0' && unit <= u'9' ? u'0' : unit;
        }
        char16_t Upper(char16_t unit) const override { return unit; }
    };
    const Sloppy rules;
    for (const auto kernel : {BestSearchKernel(), SearchKernel::Portable}) {
        const TextSearch search(u"bird 7", CaseTableOf(&rules), kernel);
        const std::u16string text = u"no Bard 1, but b\u00E9rd 3";
        const auto bytes = Bytes(text);
        EXPECT_EQ(search.FindIn(std::span(bytes)), 15U);
        EXPECT_EQ(search.FindIn(Units(text)), 15U);
        const TextSearch vowel(u"o", CaseTableOf(&rules), kernel);
        EXPECT_EQ(vowel.FindIn(Units(Times(100) + u"\u4E01" + Times(100))), 100U);
    }
}

/// One needle and many texts that it may occur in, decided by the random numbers alone.
class RandomCase {
public:
    explicit RandomCase(std::mt19937& random, bool wide) : random_(random), wide_(wide) {
        needle_ = Text(1 + random_() % 9);
    }

    const std::u16string& Needle() const { return needle_; }

    std::u16string NextText() {
        std::u16string text = Text(random_() % (random_() % 8 == 0 ? 400 : 60));
        // Parts of the needle, so that much nearly fits.
        for (int i = 0; i < 3 && !text.empty(); ++i) {
            const std::size_t at = random_() % text.size();
            const std::size_t count = std::min(text.size() - at, 1 + random_() % needle_.size());
            text.replace(at, count, needle_.substr(0, count));
        }
        return text;
    }

private:
    std::u16string Text(std::size_t size) {
        static constexpr std::u16string_view narrow = u"aAbBkKsS\u00E9\u00C9\u00B5\u00FF.\t\n0";
        static constexpr std::u16string_view wide = u"aAkKsS\u212A\u017F\u03BC\u3042\xD83D\xDE00";
        const std::u16string_view alphabet = wide_ ? wide : narrow;
        // Now and then a text of two letters only.
        const std::size_t letters = random_() % 4 == 0 ? 4 : alphabet.size();
        std::u16string text(size, u' ');
        for (char16_t& unit : text) unit = alphabet[random_() % letters];
        return text;
    }

    std::mt19937& random_;
    bool wide_;
    std::u16string needle_;
};

constexpr int textsPerNeedle = 50;

TEST(TextSearch, VectorsAndBytesFindWhatTheNaiveWayFindsInAMillionTexts) {
    std::mt19937 random(1);
    for (int i = 0; i < 20'000; ++i) {
        RandomCase cases(random, false);
        const TextSearch best(cases.Needle());
        const TextSearch portable(cases.Needle(), CaseTableOf(nullptr), SearchKernel::Portable);
        for (int k = 0; k < textsPerNeedle; ++k) {
            const auto text = Bytes(cases.NextText());
            const std::size_t expected = FindNaively(text, cases.Needle());
            ASSERT_EQ(best.FindIn(std::span(text)), expected) << i << ' ' << k;
            ASSERT_EQ(portable.FindIn(std::span(text)), expected) << i << ' ' << k;
        }
    }
}

TEST(TextSearch, VectorsAndUnitsFindWhatTheNaiveWayFindsInHalfAMillionTexts) {
    std::mt19937 random(2);
    for (int i = 0; i < 10'000; ++i) {
        RandomCase cases(random, i % 2 == 0);
        const TextSearch search(cases.Needle());
        for (int k = 0; k < textsPerNeedle; ++k) {
            const std::u16string text = cases.NextText();
            ASSERT_EQ(search.FindIn(Units(text)), FindNaively(text, cases.Needle()))
                << i << ' ' << k;
        }
    }
}

}  // namespace
}  // namespace quorvale
