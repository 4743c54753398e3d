#include "corrections/edit_range.h"

#include <gtest/gtest.h>

#include <random>

#include "corrections_rig.h"

namespace quorvale {
namespace {

std::vector<Update> Updates(std::initializer_list<UpdateRange> ranges) {
    std::vector<Update> updates;
    for (const UpdateRange& range : ranges) updates.push_back({nullptr, range, updates.size()});
    return updates;
}

UpdateRange Widened(UpdateRange lines, std::initializer_list<UpdateRange> ranges,
                    std::int32_t lastLine = 20) {
    return WidenedToCorrections(lines, Updates(ranges), Line{lastLine});
}

TEST(SelectedLines, NothingSelectedMeansTheCaretsLine) {
    EXPECT_EQ(SelectedLines(Line{2}, 0, Line{3}), (UpdateRange{2, 1}));
}

TEST(SelectedLines, RowsDownOrUpFromTheCaret) {
    EXPECT_EQ(SelectedLines(Line{2}, 2, Line{9}), (UpdateRange{2, 2}));
    EXPECT_EQ(SelectedLines(Line{3}, -2, Line{9}), (UpdateRange{2, 2}));
    EXPECT_EQ(SelectedLines(Line{5}, 1, Line{9}), (UpdateRange{5, 1}));
    EXPECT_EQ(SelectedLines(Line{5}, -1, Line{9}), (UpdateRange{5, 1}));
}

TEST(SelectedLines, ASelectionOfEverythingBeginsAtTheFirstLine) {
    EXPECT_EQ(SelectedLines(Line{3}, -4, Line{3}), (UpdateRange{1, 3}));
}

TEST(SelectedLines, ACountPastTheDocumentEndsWithIt) {
    EXPECT_EQ(SelectedLines(Line{2}, 1000000, Line{3}), (UpdateRange{2, 2}));
    EXPECT_EQ(SelectedLines(Line{2}, 2147483647, Line{3}), (UpdateRange{2, 2}));
    EXPECT_EQ(SelectedLines(Line{2}, -2147483647 - 1, Line{3}), (UpdateRange{1, 2}));
}

TEST(IsRemovedBy, WhatHoldsTheFirstLineOrBeginsInTheLinesOrRightBehindThem) {
    const UpdateRange edited{4, 2};
    for (const UpdateRange& range : {UpdateRange{2, 3}, {4, 1}, {5, 0}, {6, 1}, {6, 0}, {4, 0}}) {
        EXPECT_TRUE(IsRemovedBy(edited, range)) << range.Start << ',' << range.Count;
    }
    for (const UpdateRange& range : {UpdateRange{1, 3}, {7, 1}, {3, 1}, {3, 0}, {7, 0}}) {
        EXPECT_FALSE(IsRemovedBy(edited, range)) << range.Start << ',' << range.Count;
    }
}

TEST(WidenedToCorrections, TheNextLinesCorrectionIsTakenIn) {
    EXPECT_EQ(Widened({1, 1}, {{2, 1}}), (UpdateRange{1, 2}));
    EXPECT_EQ(Widened({1, 1}, {{3, 1}}), (UpdateRange{1, 1}));
}

TEST(WidenedToCorrections, APartOfACorrectionMeansAllOfIt) {
    EXPECT_EQ(Widened({5, 1}, {{3, 3}}), (UpdateRange{3, 3}));
    EXPECT_EQ(Widened({4, 2}, {{5, 3}}), (UpdateRange{4, 4}));
    EXPECT_EQ(Widened({6, 1}, {{3, 3}}), (UpdateRange{6, 1})) << "it ends before";
}

TEST(WidenedToCorrections, AnInsertionBehindIsLeftThere) {
    EXPECT_EQ(Widened({2, 1}, {{3, 0}}), (UpdateRange{2, 1}));
    EXPECT_EQ(Widened({2, 1}, {{2, 0}}), (UpdateRange{2, 1}));
}

TEST(WidenedToCorrections, ChainsAreFollowedInAnyOrder) {
    EXPECT_EQ(Widened({1, 1}, {{2, 1}, {3, 1}, {4, 1}}), (UpdateRange{1, 4}));
    EXPECT_EQ(Widened({1, 1}, {{4, 1}, {3, 1}, {2, 1}}), (UpdateRange{1, 4}));
    EXPECT_EQ(Widened({9, 1}, {{3, 3}, {5, 3}, {7, 3}}), (UpdateRange{3, 7}));
    EXPECT_EQ(Widened({9, 1}, {{7, 3}, {5, 3}, {3, 3}, {10, 2}}), (UpdateRange{3, 9}));
}

TEST(WidenedToCorrections, NeverPastTheDocument) {
    EXPECT_EQ(Widened({3, 1}, {{3, 5}}, 3), (UpdateRange{3, 1}));
    EXPECT_EQ(Widened({2, 1}, {{3, 5}}, 3), (UpdateRange{2, 2}));
    EXPECT_EQ(Widened({3, 1}, {{4, 1}}, 3), (UpdateRange{3, 1})) << "the place behind the end";
    EXPECT_EQ(Widened({2, 1}, {{-4, 7}}, 3), (UpdateRange{1, 2}));
    EXPECT_EQ(Widened({2, 1}, {{-2147483647, 2147483647}}, 3), (UpdateRange{2, 1}));
}

/// The rule as one says it: as long as anything that would be removed sticks out, take it in.
UpdateRange SlowlyWidened(UpdateRange lines, const std::vector<Update>& updates,
                          std::int32_t last) {
    for (bool again = true; again;) {
        again = false;
        for (const Update& update : updates) {
            const std::int32_t s = update.Range.Start;
            const std::int32_t end = update.Range.End();
            const bool holds = s <= lines.Start && lines.Start < end;
            const bool begins = lines.Start <= s && s < lines.End();
            const bool follows = s == lines.End() && end > s;
            if (s > last || !(holds || begins || follows)) continue;
            UpdateRange wider{std::max(1, std::min(s, lines.Start)), 0};
            wider.Count = std::min(last + 1, std::max(end, lines.End())) - wider.Start;
            again = again || wider != lines;
            lines = wider;
        }
    }
    return lines;
}

TEST(WidenedToCorrections, AgreesWithTheRuleTakenSlowly) {
    std::mt19937 random(3);
    const auto below = [&](unsigned limit) { return static_cast<std::int32_t>(random() % limit); };
    for (int round = 0; round < 50000; ++round) {
        std::vector<Update> updates;
        for (auto left = random() % 9; left > 0; --left) {
            updates.push_back({nullptr, {below(24) - 2, below(6)}, updates.size()});
        }
        const std::int32_t first = 1 + below(20);
        const UpdateRange asked{first, 1 + below(static_cast<unsigned>(21 - first))};
        const UpdateRange wide = WidenedToCorrections(asked, updates, Line{20});
        ASSERT_EQ(wide, SlowlyWidened(asked, updates, 20)) << round;
        for (const Update& update : updates) {
            if (!IsRemovedBy(wide, update.Range) || update.Range.Start == wide.End()) continue;
            ASSERT_GE(std::max(update.Range.Start, 1), wide.Start) << round;
            ASSERT_LE(std::min(update.Range.End(), 21), wide.End()) << round;
        }
    }
}

TEST(InsertionsBehind, AreThoseThatBeginRightThereInTheirOrder) {
    const auto found = InsertionsBehind({2, 1}, Updates({{3, 0}, {2, 0}, {4, 0}, {3, 0}}));
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].Number, 0U);
    EXPECT_EQ(found[1].Number, 3U);
}

}  // namespace
}  // namespace quorvale
