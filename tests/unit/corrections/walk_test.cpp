#include "corrections/walk.h"

#include <gtest/gtest.h>

#include "corrections_rig.h"

namespace quorvale {
namespace {

class NotedRows final : public CorrectionWalkPeers {
public:
    std::vector<std::int32_t> Rows;
    void SetRow(Line row) override { Rows.push_back(row.Number()); }
};

class CorrectionWalkTest : public testing::Test {
protected:
    CorrectionWalkTest() { rig.SetText(Doc(20)); }

    void Pick(std::size_t child) {
        rig.Corrections.Current = rig.Corrections.JournalRoot->ChildNodes().at(child);
    }

    std::vector<std::int32_t> Next() { return Go(WalkDirection::Next); }
    std::vector<std::int32_t> Previous() { return Go(WalkDirection::Previous); }

    std::vector<std::int32_t> Go(WalkDirection direction) {
        peers.Rows.clear();
        walk.GoToCorrection(direction);
        return peers.Rows;
    }

    CorrectionsRig rig;
    NotedRows peers;
    CorrectionWalk walk{rig.Corrections, rig.Index, rig.Messages, Language::English, peers};
};

using Rows = std::vector<std::int32_t>;

TEST_F(CorrectionWalkTest, WithoutAPickedCorrectionNothingHappens) {
    rig.Put({{5, 1, u"x\n"}});
    EXPECT_EQ(Next(), Rows{});
    EXPECT_EQ(Previous(), Rows{});
    EXPECT_TRUE(rig.Messages.Log.empty());
}

TEST_F(CorrectionWalkTest, GoesToTheNeighboursByLineWhateverTheOrderOfRecording) {
    rig.Put({{9, 1, u"x\n"}, {2, 1, u"x\n"}, {5, 1, u"x\n"}, {14, 1, u"x\n"}});
    Pick(2);
    EXPECT_EQ(Next(), Rows{9});
    EXPECT_EQ(Previous(), Rows{2});
}

TEST_F(CorrectionWalkTest, ASecondStepLeadsToTheSamePlace) {
    rig.Put({{9, 1, u"x\n"}, {2, 1, u"x\n"}, {5, 1, u"x\n"}, {14, 1, u"x\n"}});
    Pick(2);
    Next();
    EXPECT_EQ(Next(), Rows{9});
    EXPECT_EQ(rig.Corrections.Current, rig.Corrections.JournalRoot->ChildNodes().at(2));
}

TEST_F(CorrectionWalkTest, SaysSoAtEitherEnd) {
    rig.Put({{9, 1, u"x\n"}, {2, 1, u"x\n"}});
    Pick(0);
    EXPECT_EQ(Next(), Rows{});
    Pick(1);
    EXPECT_EQ(Previous(), Rows{});
    ASSERT_EQ(rig.Messages.Log.size(), 2U);
    EXPECT_EQ(rig.Messages.Log[0].Text, u"This is the last update to the file.");
    EXPECT_EQ(rig.Messages.Log[1].Text, u"This is the first update to the file.");
    EXPECT_EQ(rig.Messages.Log[0].Style, MessageStyle::Exclamation);
}

TEST_F(CorrectionWalkTest, OfEqualStartsTheOneThatWasRecordedFirst) {
    rig.Put({{2, 1, u"x\n"}, {5, 0, u"first\n"}, {5, 1, u"second\n"}});
    Pick(0);
    EXPECT_EQ(Next(), Rows{5});
    rig.Journal.RemoveAll();
    rig.Put({{5, 0, u"a\n"}, {5, 1, u"b\n"}});
    Pick(0);
    EXPECT_EQ(Next(), Rows{});
    EXPECT_EQ(rig.Messages.Log.size(), 1U);
}

TEST_F(CorrectionWalkTest, InsertionsAreVisitedAndUselessOnesAreNot) {
    rig.PutUpdate({{u"start", u"3"}, {u"loc", u"-1"}});
    rig.Put({{2, 1, u"x\n"}, {7, 0, u"x\n"}});
    Pick(1);
    EXPECT_EQ(Next(), Rows{7});
}

TEST_F(CorrectionWalkTest, GoesOnFromACorrectionThatWasUndone) {
    rig.Put({{2, 1, u"x\n"}, {5, 1, u"x\n"}, {9, 1, u"x\n"}});
    Pick(1);
    rig.Journal.Remove(*rig.Corrections.Current);
    EXPECT_EQ(Next(), Rows{9});
    EXPECT_EQ(Previous(), Rows{2});
}

TEST_F(CorrectionWalkTest, TheEdgesOfAllNumbersAreNoTrap) {
    rig.Put({{-2147483647 - 1, 1, u"x\n"}, {2147483647, 0, u"x\n"}});
    Pick(0);
    EXPECT_EQ(Next(), Rows{2147483647});
    EXPECT_EQ(Previous(), Rows{});
    Pick(1);
    EXPECT_EQ(Previous(), Rows{-2147483647 - 1});
}

TEST_F(CorrectionWalkTest, WithoutAJournalNothingHappens) {
    rig.Put({{2, 1, u"x\n"}});
    Pick(0);
    rig.Journal.Drop();
    EXPECT_EQ(Next(), Rows{});
    EXPECT_TRUE(rig.Messages.Log.empty());
}

}  // namespace
}  // namespace quorvale
