#include "corrections/edit_lines.h"

#include <gtest/gtest.h>

#include "corrections_rig.h"

namespace quorvale {
namespace {

using Document = std::vector<std::u16string>;

/// What is left of a text in the editor over some lines of a document.
Correction Left(const Document& document, UpdateRange shown, std::u16string_view text) {
    const EditedLines edited = WithoutUnchanged(text, shown, [&](std::int32_t line, auto typed) {
        return document.at(static_cast<std::size_t>(line) - 1) == typed;
    });
    return {edited.Range.Start, edited.Range.Count, edited.Text};
}

const Document three{u"A", u"B", u"C"};

TEST(WithoutUnchanged, OneLineBecomesOneLine) {
    EXPECT_EQ(Left(three, {2, 1}, u"new"), (Correction{2, 1, u"new\n"}));
    EXPECT_EQ(Left(three, {2, 1}, u"b"), (Correction{2, 1, u"b\n"})) << "its case counts";
    EXPECT_EQ(Left(three, {2, 1}, u""), (Correction{2, 1, u"\n"})) << "an empty line";
}

TEST(WithoutUnchanged, OneLineBecomesTwo) {
    EXPECT_EQ(Left(three, {2, 1}, u"n1\r\nn2"), (Correction{2, 1, u"n1\nn2\n"}));
}

TEST(WithoutUnchanged, LinesAtTheFrontAndAtTheBackAreLeftOut) {
    EXPECT_EQ(Left(three, {2, 2}, u"b\r\nc"), (Correction{2, 2, u"b\nc\n"}));
    EXPECT_EQ(Left(three, {2, 2}, u"b\r\nC"), (Correction{2, 1, u"b\n"}));
    EXPECT_EQ(Left(three, {2, 2}, u"B\r\nc"), (Correction{3, 1, u"c\n"}));
    const Document eight{u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8"};
    EXPECT_EQ(Left(eight, {5, 3}, u"5\r\nx\r\n7"), (Correction{6, 1, u"x\n"}));
}

TEST(WithoutUnchanged, ALineBehindAnUnchangedOneIsInserted) {
    EXPECT_EQ(Left(three, {2, 1}, u"B\r\nnew"), (Correction{3, 0, u"new\n"}));
    EXPECT_EQ(Left(three, {3, 1}, u"C\r\nnew"), (Correction{4, 0, u"new\n"}));
}

TEST(WithoutUnchanged, ALineBeforeAnUnchangedOneReplacesItWithBoth) {
    EXPECT_EQ(Left(three, {2, 1}, u"n\r\nB"), (Correction{2, 1, u"n\nB\n"}));
}

TEST(WithoutUnchanged, LinesThatWereTakenAwayLeaveNoBlankOnes) {
    EXPECT_EQ(Left(three, {2, 2}, u"B"), (Correction{3, 1, u""}));
    EXPECT_EQ(Left(three, {2, 2}, u"C"), (Correction{2, 1, u""}));
    const Document same{u"X", u"X", u"X"};
    EXPECT_EQ(Left(same, {1, 3}, u"X"), (Correction{2, 2, u""}));
    const Document blank{u"A", u"B", u""};
    EXPECT_EQ(Left(blank, {2, 2}, u"B"), (Correction{3, 1, u""}));
}

TEST(WithoutUnchanged, WhatIsAsInTheFileIsNothing) {
    const auto same = [](std::int32_t, std::u16string_view) { return true; };
    EXPECT_TRUE(WithoutUnchanged(u"B", {2, 1}, same).IsNothing());
    EXPECT_TRUE(WithoutUnchanged(u"B\r\nC", {2, 2}, same).IsNothing());
    EXPECT_FALSE(WithoutUnchanged(u"B", {2, 2}, same).IsNothing()) << "a line is gone";
    EXPECT_FALSE(WithoutUnchanged(u"B\nC\nD", {2, 2}, same).IsNothing());
}

TEST(WithoutUnchanged, OnlyLineFeedsEndLines) {
    EXPECT_EQ(Left(three, {2, 1}, u"a\rb"), (Correction{2, 1, u"a\rb\n"}));
    EXPECT_EQ(Left(three, {2, 1}, u"a\nb"), (Correction{2, 1, u"a\nb\n"}));
    EXPECT_EQ(Left(three, {2, 1}, u"a\r\r\nb"), (Correction{2, 1, u"a\r\nb\n"}));
    EXPECT_EQ(Left(three, {2, 1}, u"a\r"), (Correction{2, 1, u"a\r\n"})) << "no break follows";
}

}  // namespace
}  // namespace quorvale
