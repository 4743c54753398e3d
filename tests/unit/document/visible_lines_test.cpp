#include "document/visible_lines.h"

#include <gtest/gtest.h>

#include "document_fixture.h"
#include "support/documents.h"

namespace quorvale {
namespace {

/// A hundred lines, of which 6 to 20 are hidden.
DocumentState Folded() {
    DocumentState document = DocumentOf(Doc(100));
    document.Table.HiddenDepth.Fill(6, 20, 1);
    return document;
}

std::int32_t Above(const DocumentState& document, std::int32_t line) {
    return PreviousVisibleLine(document, Line{line}).Number();
}

std::int32_t Below(const DocumentState& document, std::int32_t line) {
    return NextVisibleLine(document, Line{line}).Number();
}

TEST(PreviousVisibleLine, StepsOverHiddenLines) {
    const DocumentState document = Folded();
    EXPECT_EQ(Above(document, 21), 5);
    EXPECT_EQ(Above(document, 6), 5);
    EXPECT_EQ(Above(document, 5), 4);
    EXPECT_EQ(Above(document, 2), 1);
}

TEST(PreviousVisibleLine, NeverGoesAboveTheFirstLine) {
    const DocumentState document = Folded();
    EXPECT_EQ(Above(document, 1), 1);
    EXPECT_EQ(Above(document, 0), 1);
    EXPECT_EQ(Above(document, -5), 1);
}

TEST(PreviousVisibleLine, GivesTheFirstLineEvenWhenItIsHidden) {
    DocumentState document = Folded();
    document.Table.HiddenDepth.Fill(1, 20, 2);
    EXPECT_EQ(Above(document, 21), 1);
    EXPECT_EQ(Above(document, 2), 1);
}

TEST(PreviousVisibleLine, OutsideTheTableNothingIsHidden) {
    EXPECT_EQ(Above(Folded(), 500), 499);
    EXPECT_EQ(Above(DocumentState(), 2), 1);
    EXPECT_EQ(Above(DocumentState(), 9), 8);
}

TEST(NextVisibleLine, StepsOverHiddenLines) {
    const DocumentState document = Folded();
    EXPECT_EQ(Below(document, 5), 21);
    EXPECT_EQ(Below(document, 4), 5);
    EXPECT_EQ(Below(document, 20), 21);
}

TEST(NextVisibleLine, EndsAtTheSentinelBehindTheLastLine) {
    const DocumentState document = Folded();
    EXPECT_EQ(Below(document, 100), 101);
    EXPECT_EQ(Below(document, 101), 101);
    EXPECT_EQ(Below(document, 200), 101);
}

TEST(NextVisibleLine, FromTheLastShownLineIsTheSentinel) {
    DocumentState document = Folded();
    document.Table.HiddenDepth.Fill(91, 100, 1);
    EXPECT_EQ(Below(document, 90), 101);
    document.Table.HiddenDepth.Fill(101, 101, 1);
    EXPECT_EQ(Below(document, 90), 101) << "even when the sentinel itself is folded away";
}

TEST(NextVisibleLine, ZeroStaysZeroAndANegativeLineCountsAsOne) {
    const DocumentState document = Folded();
    EXPECT_EQ(Below(document, 0), 1);
    EXPECT_EQ(Below(document, -3), 2);
}

TEST(NextVisibleLine, WithoutADocumentIsTheSentinel) {
    EXPECT_EQ(Below(DocumentState(), 0), 0);
    EXPECT_EQ(Below(DocumentState(), 7), 0);
}

TEST(VisibleAtOrAbove, IsTheLineItselfOrTheNearestShownOneAboveIt) {
    const DocumentState document = Folded();
    EXPECT_EQ(VisibleAtOrAbove(document, Line{30}), Line{30});
    EXPECT_EQ(VisibleAtOrAbove(document, Line{15}), Line{5});
    EXPECT_EQ(VisibleAtOrAbove(document, Line{5}), Line{5});
}

}  // namespace
}  // namespace quorvale
