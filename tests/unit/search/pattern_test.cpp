#include "search/pattern.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <set>
#include <vector>

#include "support/documents.h"
#include "support/error_of.h"

namespace quorvale {
namespace {

const UnitKeys& Capitals() { return CaseTableOf(nullptr)->Capitals; }

bool Matches(std::u16string_view text, std::u16string_view pattern) {
    return Pattern(pattern).Matches(std::span<const char16_t>(text.data(), text.size()),
                                    Capitals());
}

TEST(Patterns, OrdinaryCharactersStandForThemselvesInEitherCase) {
    EXPECT_TRUE(Matches(u"abc", u"ABC"));
    EXPECT_TRUE(Matches(u"\u00E9t\u00E9", u"\u00C9T\u00C9"));
    EXPECT_FALSE(Matches(u"abcd", u"ABC")) << "the whole text has to match";
    EXPECT_FALSE(Matches(u"ab", u"ABC"));
    EXPECT_TRUE(Matches(u"a]!-b", u"A]!-B"));
    EXPECT_TRUE(Matches(u"", u""));
    EXPECT_FALSE(Matches(u"a", u""));
}

TEST(Patterns, AStarIsAnyRunAlsoAnEmptyOne) {
    EXPECT_TRUE(Matches(u"xabcx", u"*ABC*"));
    EXPECT_TRUE(Matches(u"abc", u"*ABC*"));
    EXPECT_TRUE(Matches(u"", u"*"));
    EXPECT_TRUE(Matches(u"", u"**"));
    EXPECT_TRUE(Matches(u"abXcdXef", u"AB*X*EF"));
    EXPECT_FALSE(Matches(u"abXcd", u"AB*X*EF"));
    EXPECT_TRUE(Matches(u"aab", u"*AB")) << "the run has to be made longer";
}

TEST(Patterns, AQuestionMarkIsOneCharacterAndAHashOneDigit) {
    EXPECT_TRUE(Matches(u"xABCx", u"*A?C*"));
    EXPECT_TRUE(Matches(u"axc", u"*A?C*"));
    EXPECT_FALSE(Matches(u"ac", u"*A?C*"));
    EXPECT_TRUE(Matches(u"r2d2", u"R#D#"));
    EXPECT_FALSE(Matches(u"rxd2", u"R#D#"));
    EXPECT_FALSE(Matches(u"r\uFF12d2", u"R#D#")) << "a digit of full width is none";
}

TEST(Patterns, ASurrogatePairIsTwoCharacters) {
    EXPECT_TRUE(Matches(u"\U0001F600", u"??"));
    EXPECT_FALSE(Matches(u"\U0001F600", u"?"));
}

TEST(Patterns, AListIsOneOfItsCharacters) {
    EXPECT_TRUE(Matches(u"bx", u"[AB]X"));
    EXPECT_FALSE(Matches(u"cx", u"[AB]X"));
    EXPECT_FALSE(Matches(u"[ab]x", u"[AB]X"));
    EXPECT_TRUE(Matches(u"m", u"[A-CK-N]"));
    EXPECT_FALSE(Matches(u"d", u"[A-CK-N]"));
    EXPECT_TRUE(Matches(u"xz", u"?[!0-9]"));
    EXPECT_FALSE(Matches(u"x5", u"?[!0-9]"));
    EXPECT_FALSE(Matches(u"x", u"?[!0-9]")) << "one character there must be";
}

TEST(Patterns, InAListSpecialCharactersStandForThemselves) {
    EXPECT_TRUE(Matches(u"?", u"[?]"));
    EXPECT_TRUE(Matches(u"*", u"[*]"));
    EXPECT_TRUE(Matches(u"#", u"[#]"));
    EXPECT_TRUE(Matches(u"[", u"[[]"));
    EXPECT_FALSE(Matches(u"x", u"[?*#[]"));
    EXPECT_TRUE(Matches(u"!", u"[A!]")) << "special in front only";
    EXPECT_TRUE(Matches(u"a", u"[A!]"));
}

TEST(Patterns, AHyphenAtAnEndOfAListStandsForItself) {
    for (const auto* pattern : {u"[-A]", u"[A-]"}) {
        EXPECT_TRUE(Matches(u"-", pattern));
        EXPECT_TRUE(Matches(u"a", pattern));
        EXPECT_FALSE(Matches(u"b", pattern));
    }
    EXPECT_TRUE(Matches(u"-", u"[-]"));
    EXPECT_FALSE(Matches(u"-", u"[!-]"));
    EXPECT_TRUE(Matches(u"x", u"[!-]"));
    EXPECT_TRUE(Matches(u"-", u"[A-C-]"));
    EXPECT_TRUE(Matches(u"b", u"[A-C-]"));
}

TEST(Patterns, AnEmptyListIsNothingAndANegatedOneTheMark) {
    EXPECT_TRUE(Matches(u"ab", u"A[]B"));
    EXPECT_TRUE(Matches(u"", u"[]"));
    EXPECT_TRUE(Matches(u"!", u"[!]"));
    EXPECT_FALSE(Matches(u"x", u"[!]"));
}

TEST(Patterns, WhatIsNotWellFormedIsInvalidWhenItIsUsed) {
    for (const auto* pattern : {u"*[*", u"[", u"A[B", u"[Z-A]", u"[A--Z]", u"[A-C-E]", u"[!Z-A]"}) {
        const Pattern invalid(pattern);
        EXPECT_FALSE(invalid.IsValid());
        EXPECT_EQ(ErrorOf([&] { invalid.Matches(std::span<const char16_t>(), Capitals()); }),
                  ErrorKind::InvalidValue);
    }
    for (const auto* pattern : {u"]", u"[A-CX-Z]", u"[A-C-]", u"[--A]", u"[]", u"*"}) {
        EXPECT_TRUE(Pattern(pattern).IsValid());
    }
}

TEST(Patterns, TheirLiteralsStandInEveryMatchingText) {
    using Runs = std::vector<std::u16string>;
    EXPECT_EQ(Pattern(u"*THREAD*MARKER*").Literals(), (Runs{u"THREAD", u"MARKER"}));
    EXPECT_EQ(Pattern(u"A[]B?C#[XY]D").Literals(), (Runs{u"AB", u"C", u"D"}));
    EXPECT_EQ(Pattern(u"**").Literals(), Runs{});
}

TEST(Patterns, OnlyStarsAskForLiteralsOnly) {
    EXPECT_TRUE(Pattern(u"*A*B*").AsksForLiteralsOnly());
    EXPECT_TRUE(Pattern(u"**").AsksForLiteralsOnly());
    for (const auto* pattern : {u"A*", u"*A", u"*A?*", u"*[A]*", u"*#*", u"", u"*[*"}) {
        EXPECT_FALSE(Pattern(pattern).AsksForLiteralsOnly());
    }
}

TEST(Patterns, ManyStarsOverALongLineTakeNoTime) {
    // Trying all ways to share out the letters would not end.
    const std::u16string line = Times(100'000, u'a');
    EXPECT_FALSE(Matches(line, u"*A*A*A*A*A*A*B*"));
    EXPECT_TRUE(Matches(line + u"b", u"*A*A*A*A*A*A*B*"));
}

/// The rules read off the pattern each time, all ways tried in turn.
class SlowMatcher {
public:
    /// Nothing for an invalid pattern.
    static std::optional<bool> Matches(std::u16string_view text, std::u16string_view pattern) {
        for (std::size_t at = 0; at < pattern.size(); ++at) {
            if (pattern[at] != u'[') continue;
            const std::size_t end = pattern.find(u']', at);
            if (end == pattern.npos || !Members(Inner(pattern.substr(at + 1, end - at - 1)))) {
                return std::nullopt;
            }
            at = end;
        }
        return Fits(text, pattern);
    }

private:
    static std::u16string_view Inner(std::u16string_view list) {
        return list.size() > 1 && list[0] == u'!' ? list.substr(1) : list;
    }

    static std::optional<std::set<char16_t>> Members(std::u16string_view list) {
        std::vector<bool> joins(list.size(), false);
        for (std::size_t i = 1; i + 1 < list.size(); ++i) joins[i] = list[i] == u'-';
        std::set<char16_t> members;
        for (std::size_t i = 0; i < list.size(); ++i) {
            if (joins[i]) return std::nullopt;
            char16_t last = list[i];
            if (i + 1 < list.size() && joins[i + 1]) {
                if (joins[i + 2] || list[i + 2] < last) return std::nullopt;
                last = list[i + 2];
            }
            for (char16_t unit = list[i]; unit <= last; ++unit) members.insert(unit);
            if (last != list[i] || (i + 1 < list.size() && joins[i + 1])) i += 2;
        }
        return members;
    }

    static bool Fits(std::u16string_view text, std::u16string_view pattern) {
        if (pattern.empty()) return text.empty();
        const auto rest = pattern.substr(1);
        if (pattern[0] == u'*') {
            for (std::size_t run = 0; run <= text.size(); ++run) {
                if (Fits(text.substr(run), rest)) return true;
            }
            return false;
        }
        if (pattern[0] == u'[') return ListFits(text, rest);
        if (text.empty()) return false;
        const bool digit = text[0] >= u'0' && text[0] <= u'9';
        const bool one = pattern[0] == u'?' || (pattern[0] == u'#' && digit) ||
                         (pattern[0] != u'#' && Capitals()[text[0]] == pattern[0]);
        return one && Fits(text.substr(1), rest);
    }

    static bool ListFits(std::u16string_view text, std::u16string_view behind) {
        const std::size_t end = behind.find(u']');
        const auto list = behind.substr(0, end);
        const auto rest = behind.substr(end + 1);
        if (list.empty()) return Fits(text, rest);
        if (text.empty()) return false;
        const bool negated = list[0] == u'!' && list.size() > 1;
        const bool within = Members(Inner(list))->contains(Capitals()[text[0]]);
        return within != negated && Fits(text.substr(1), rest);
    }
};

std::u16string RandomUnits(std::mt19937& random, std::u16string_view alphabet, std::size_t most) {
    std::u16string text(random() % (most + 1), u' ');
    for (char16_t& unit : text) unit = alphabet[random() % alphabet.size()];
    return text;
}

TEST(Patterns, OneMillionOfThemMatchWhatTheSlowWayMatches) {
    std::mt19937 random(5);
    int matched = 0;
    int invalid = 0;
    for (int round = 0; round < 1'000'000; ++round) {
        const std::u16string pattern = RandomUnits(random, u"AB1***??#[]!-", 9);
        const std::u16string text = RandomUnits(random, u"abAB1-!]", 8);
        const auto expected = SlowMatcher::Matches(text, pattern);
        const Pattern fast(pattern);
        ASSERT_EQ(fast.IsValid(), expected.has_value()) << round;
        if (!expected) {
            ++invalid;
            continue;
        }
        const std::span<const char16_t> units(text.data(), text.size());
        const std::vector<std::uint8_t> bytes(text.begin(), text.end());
        ASSERT_EQ(fast.Matches(units, Capitals()), *expected) << round;
        ASSERT_EQ(fast.Matches(std::span(bytes), Capitals()), *expected) << round;
        matched += *expected;
    }
    EXPECT_GT(matched, 20'000);
    EXPECT_GT(invalid, 100'000);
}

}  // namespace
}  // namespace quorvale
