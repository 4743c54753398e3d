#include "search/unicode_case.h"

#include <gtest/gtest.h>

#include "search/case_table.h"

namespace quorvale {
namespace {

const UnicodeCase unicode;

bool Same(char16_t a, char16_t b) { return unicode.Fold(a) == unicode.Fold(b); }

TEST(UnicodeCase, LettersAreTheSameInBothCases) {
    for (const auto& [capital, small] : {
             std::pair{u'A', u'a'},
             std::pair{u'Z', u'z'},
             std::pair{u'\u00C9', u'\u00E9'},
             std::pair{u'\u0178', u'\u00FF'},
             std::pair{u'\u0391', u'\u03B1'},
             std::pair{u'\u042F', u'\u044F'},
             std::pair{u'\u0531', u'\u0561'},
             std::pair{u'\uFF21', u'\uFF41'},
         }) {
        EXPECT_TRUE(Same(capital, small)) << int{capital};
        EXPECT_EQ(unicode.Upper(small), capital);
        EXPECT_EQ(unicode.Upper(capital), capital);
    }
}

TEST(UnicodeCase, LettersOfMoreThanTwoFormsAreAllTheSame) {
    EXPECT_TRUE(Same(u'\u00B5', u'\u03BC')) << "the micro sign and the letter mu";
    EXPECT_TRUE(Same(u'\u00B5', u'\u039C'));
    EXPECT_TRUE(Same(u'\u017F', u's')) << "the long s";
    EXPECT_TRUE(Same(u'\u212A', u'k')) << "the sign of the kelvin";
    EXPECT_TRUE(Same(u'\u212B', u'\u00E5')) << "the sign of the angstrom";
    EXPECT_TRUE(Same(u'\u03A3', u'\u03C3'));
    EXPECT_TRUE(Same(u'\u03A3', u'\u03C2')) << "the final sigma";
    EXPECT_TRUE(Same(u'\u00DF', u'\u1E9E')) << "the sharp s and its capital";
    EXPECT_TRUE(Same(u'\u01C4', u'\u01C5')) << "the capital and the title form";
}

TEST(UnicodeCase, WhatIsWrittenDifferentlyIsNotTheSame) {
    EXPECT_FALSE(Same(u'\u00DF', u's'));
    EXPECT_FALSE(Same(u'\u0131', u'i')) << "the dotless i";
    EXPECT_FALSE(Same(u'\u0130', u'i')) << "the capital with a dot";
    EXPECT_FALSE(Same(u'\u0130', u'I'));
    EXPECT_FALSE(Same(u'\uFF21', u'A')) << "full width";
    EXPECT_FALSE(Same(u'\u3042', u'\u30A2')) << "hiragana and katakana";
    EXPECT_FALSE(Same(u'\u00E9', u'e')) << "an accent counts";
    EXPECT_FALSE(Same(u'@', u'`'));
    EXPECT_FALSE(Same(u'[', u'{'));
}

TEST(UnicodeCase, OnlyTheFirstOfEachPairFolds) {
    EXPECT_EQ(unicode.Fold(u'\u0100'), u'\u0101');
    EXPECT_EQ(unicode.Fold(u'\u0101'), u'\u0101');
    EXPECT_EQ(unicode.Fold(u'\u0102'), u'\u0103');
    EXPECT_EQ(unicode.Fold(u'\u0138'), u'\u0138') << "between two runs of pairs";
    EXPECT_EQ(unicode.Fold(u'\u00D7'), u'\u00D7') << "the sign between two runs of letters";
    EXPECT_EQ(unicode.Fold(u'\0'), u'\0');
    EXPECT_EQ(unicode.Fold(u'\uFFFF'), u'\uFFFF');
}

TEST(UnicodeCase, SurrogatesStayWhatTheyAre) {
    for (char16_t unit = 0xD800; unit < 0xE000; ++unit) {
        ASSERT_EQ(unicode.Fold(unit), unit);
        ASSERT_EQ(unicode.Upper(unit), unit);
    }
}

TEST(UnicodeCase, ALetterWhoseCapitalIsAnotherLettersKeepsItsForm) {
    EXPECT_EQ(unicode.Upper(u'\u0131'), u'\u0131') << "not I, which is the capital of i";
    EXPECT_EQ(unicode.Upper(u'\u00DF'), u'\u00DF');
    EXPECT_EQ(unicode.Upper(u'\u00B5'), u'\u039C');
    EXPECT_EQ(unicode.Upper(u'\u017F'), u'S');
}

TEST(UnicodeCase, FoldingIsFinishedAfterOneStepAndACapitalIsTheSameLetter) {
    int folded = 0;
    for (int code = 0; code <= 0xFFFF; ++code) {
        const auto unit = static_cast<char16_t>(code);
        const char16_t fold = unicode.Fold(unit);
        folded += fold != unit;
        ASSERT_EQ(unicode.Fold(fold), fold) << code;
        ASSERT_TRUE(Same(unicode.Upper(unit), unit)) << code;
        ASSERT_EQ(unicode.Upper(unicode.Upper(unit)), unicode.Upper(unit)) << code;
    }
    // As many as Unicode 14 names in the first plane.
    EXPECT_EQ(folded, 1194);
}

TEST(CaseTables, HoldTheRulesForEveryUnit) {
    const CaseTablePtr table = CaseTableOf(nullptr);
    for (int code = 0; code <= 0xFFFF; ++code) {
        const auto unit = static_cast<char16_t>(code);
        ASSERT_EQ(table->Folds[unit], unicode.Fold(unit));
        ASSERT_EQ(table->Capitals[unit], unicode.Upper(unit));
    }
    EXPECT_EQ(CaseTableOf(nullptr), table) << "made once";
}

TEST(CaseTables, AreMadeFromTheHostsRules) {
    class NoLetters final : public CaseRules {
    public:
        char16_t Fold(char16_t unit) const override { return unit == u'b' ? u'a' : unit; }
        char16_t Upper(char16_t unit) const override { return unit == u'x' ? u'y' : unit; }
    };
    const NoLetters rules;
    const CaseTablePtr table = CaseTableOf(&rules);
    EXPECT_EQ(KeysOf(u"aAbB", table->Folds), u"aAaB");
    EXPECT_EQ(KeysOf(u"xyz", table->Capitals), u"yyz");
}

}  // namespace
}  // namespace quorvale
