#include "corrections/fitting.h"

#include <gtest/gtest.h>

#include "corrections/journal.h"
#include "document/text_loading.h"

namespace quorvale {
namespace {

using Problems = std::vector<std::string>;

constexpr const char* ends = "the file ends before";
constexpr const char* overlaps = "it overlaps another correction";

/// A file of four lines and a journal.
class FittingTest : public testing::Test {
protected:
    FittingTest() {
        LoadedText loaded = TextFromString(u"a\nb\nc\nd");
        document_.LineSlots = loaded.Starts.Count();
        document_.Text = std::move(loaded.Text);
        document_.Table.Starts = std::move(loaded.Starts);
        document_.ReadAs = Encoding::SingleByte;
        journal_.Open(nullptr);
    }

    void Put(std::int32_t start, std::int32_t count, std::u16string_view text = u"x\n") {
        journal_.AppendCorrection({start, count}, text);
    }

    Problems Found() {
        Problems problems;
        for (const auto& pending : FindPending(state_, &document_)) {
            problems.push_back(pending.Problem);
        }
        return problems;
    }

    DocumentState document_;
    CorrectionsState state_;
    Journal journal_{state_};
};

TEST_F(FittingTest, NeighboursFit) {
    Put(3, 2);
    Put(1, 1);
    Put(2, 1);
    Put(5, 0);
    EXPECT_EQ(Found(), Problems(4, ""));
}

TEST_F(FittingTest, WhatReachesBehindTheEndDoesNot) {
    Put(4, 2);
    Put(5, 1);
    Put(6, 0);
    Put(2, 2147483000);
    EXPECT_EQ(Found(), (Problems{ends, ends, ends, ends}));
}

TEST_F(FittingTest, ThereIsNoLineZero) {
    Put(0, 1);
    Put(-3, 0);
    EXPECT_EQ(Found(), Problems(2, "there is no such line"));
}

TEST_F(FittingTest, OfTwoThatOverlapTheLaterOneHasNoPlace) {
    Put(2, 2);
    Put(3, 1);
    EXPECT_EQ(Found(), (Problems{"", overlaps}));
}

TEST_F(FittingTest, OneThatReachesOverAnEarlierOneDoesNotDoWhatItSays) {
    Put(3, 1);
    Put(2, 2);
    EXPECT_EQ(Found(), (Problems{"", overlaps}));
}

TEST_F(FittingTest, AnInsertionInFrontOfACorrectedLineFitsWhenItComesFirst) {
    Put(2, 0);
    Put(2, 1);
    EXPECT_EQ(Found(), Problems(2, ""));
}

TEST_F(FittingTest, OneWithoutNumbersIsStillCounted) {
    journal_.Append(CreateXmlElement(u"update"));
    Put(1, 1);
    const auto pending = FindPending(state_, &document_);
    ASSERT_EQ(pending.size(), 2U);
    EXPECT_FALSE(pending[0].Range);
    EXPECT_EQ(pending[0].Problem, "it does not say where it belongs");
    EXPECT_TRUE(pending[1].Fits());
}

TEST_F(FittingTest, ACharacterThatTheFileCannotHoldDoesNotFit) {
    Put(1, 1, u"\u65E5\n");
    EXPECT_EQ(Found(), Problems{"the file's encoding has no U+65E5"});
}

TEST_F(FittingTest, WithoutAFileOnlyTheNumbersAreLookedAt) {
    Put(1000, 1);
    const auto pending = FindPending(state_, nullptr);
    ASSERT_EQ(pending.size(), 1U);
    EXPECT_TRUE(pending[0].Fits());
    EXPECT_TRUE(FindPending(CorrectionsState(), nullptr).empty());
}

// Symptom: of a text in two pieces the second one was lost without a word.
TEST_F(FittingTest, OneThatHoldsMoreThanATextDoesNotFit) {
    const XmlNodePtr split = CreateUpdate({1, 1}, u"one\n");
    split->AppendChild(CreateXmlText(u"two\n"));
    journal_.Append(split);
    const XmlNodePtr foreign = CreateXmlElement(u"update");
    foreign->SetAttribute(u"start", u"2");
    foreign->SetAttribute(u"loc", u"1");
    foreign->AppendChild(CreateXmlElement(u"b"));
    journal_.Append(foreign);
    Put(3, 1, u"");
    EXPECT_EQ(Found(),
              (Problems{"it holds more than one text", "it holds more than one text", ""}));
}

TEST_F(FittingTest, ACharacterTakesNoPlaceAway) {
    Put(1, 1, u"\u65E5\n");
    Put(9, 1);
    const auto pending = FindPending(state_, &document_);
    EXPECT_TRUE(pending[0].HasPlace());
    EXPECT_FALSE(pending[1].HasPlace());
}

}  // namespace
}  // namespace quorvale
