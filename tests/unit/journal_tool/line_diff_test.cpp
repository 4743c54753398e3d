#include "journal_tool/line_diff.h"

#include <gtest/gtest.h>

namespace quorvale {
namespace {

/// Some corrections and what they make of a file.
class LineDiffTest : public testing::Test {
protected:
    void Correct(std::int32_t start, std::int32_t count, std::u16string_view text) {
        updates_.push_back({CreateUpdate({start, count}, text), {start, count}, updates_.size()});
    }

    std::string Diff(std::string_view before, std::string_view after, std::int32_t lines) {
        std::string diff;
        WriteLineDiff(
            before, after, MakeEditScript(1, lines + 1, updates_),
            [](std::string_view line) { return std::string(line); },
            [&](std::string_view piece) { diff += piece; });
        return diff;
    }

    std::vector<Update> updates_;
};

TEST_F(LineDiffTest, OfEqualVersionsIsNothing) { EXPECT_EQ(Diff("a\nb\n", "a\nb\n", 3), ""); }

TEST_F(LineDiffTest, AReplacedLineHasThreeLinesAroundIt) {
    Correct(5, 1, u"E\n");
    EXPECT_EQ(Diff("a\nb\nc\nd\ne\nf\ng\nh\ni\n", "a\nb\nc\nd\nE\nf\ng\nh\ni\n", 10),
              "@@ -2,7 +2,7 @@\n b\n c\n d\n-e\n+E\n f\n g\n h\n");
}

TEST_F(LineDiffTest, ChangesFarApartAreHunksOfTheirOwn) {
    Correct(1, 1, u"A\nA\n");
    Correct(9, 1, u"");
    EXPECT_EQ(Diff("a\nb\nc\nd\ne\nf\ng\nh\ni\n", "A\nA\nb\nc\nd\ne\nf\ng\nh\n", 10),
              "@@ -1,4 +1,5 @@\n-a\n+A\n+A\n b\n c\n d\n"
              "@@ -6,4 +7,3 @@\n f\n g\n h\n-i\n");
}

TEST_F(LineDiffTest, ChangesSixLinesApartAreOneHunk) {
    Correct(1, 1, u"A\n");
    Correct(8, 1, u"H\n");
    const std::string diff = Diff("a\nb\nc\nd\ne\nf\ng\nh\n", "A\nb\nc\nd\ne\nf\ng\nH\n", 9);
    EXPECT_EQ(diff, "@@ -1,8 +1,8 @@\n-a\n+A\n b\n c\n d\n e\n f\n g\n-h\n+H\n");
}

TEST_F(LineDiffTest, AMissingLineFeedAtTheEndIsTold) {
    Correct(2, 0, u"b\n");
    EXPECT_EQ(Diff("a", "a\nb", 1),
              "@@ -1,1 +1,2 @@\n-a\n\\ No newline at end of file\n"
              "+a\n+b\n\\ No newline at end of file\n");
}

TEST_F(LineDiffTest, WhatIsPutIntoAnEmptyFileStandsBehindLineNone) {
    Correct(1, 1, u"a\n");
    EXPECT_EQ(Diff("", "a", 1), "@@ -0,0 +1,1 @@\n+a\n\\ No newline at end of file\n");
}

TEST_F(LineDiffTest, AWrongScriptGivesALongDiffButARightOne) {
    Correct(1, 0, u"not there\n");
    EXPECT_EQ(Diff("a\nb\n", "b\n", 3), "@@ -1,2 +1,1 @@\n-a\n-b\n+b\n");
}

}  // namespace
}  // namespace quorvale
