#include "document/positions.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "document_fixture.h"
#include "support/documents.h"

namespace quorvale {
namespace {

/// "ab" and "cdef" with a line break behind each, so that the stored text has 12 characters and
/// its lines start at 1, 5 and 11.
DocumentState TwoWords() { return DocumentOf(u"ab\r\ncdef\r\n"); }

std::int32_t OffsetAt(const DocumentState& document, std::int32_t row, std::int32_t col) {
    return OffsetOfCaret(document, {Line{row}, col});
}

TEST(OffsetOfCaret, CountsTheCharactersInFrontOfTheCaret) {
    const DocumentState document = TwoWords();
    EXPECT_EQ(document.Text.Length(), 12);
    EXPECT_EQ(OffsetAt(document, 2, 3), 7);
    EXPECT_EQ(OffsetAt(document, 1, 0), 0);
    EXPECT_EQ(OffsetAt(document, 1, 1), 1);
    EXPECT_EQ(OffsetAt(document, 1, 3), 3);
    EXPECT_EQ(OffsetAt(document, 2, 0), 4);
    EXPECT_EQ(OffsetAt(document, 2, 1), 5);
    EXPECT_EQ(OffsetAt(document, 2, 5), 9);
    EXPECT_EQ(OffsetAt(document, 3, 0), 10);
    EXPECT_EQ(OffsetAt(document, 3, 1), 11);
}

TEST(OffsetOfCaret, IsZeroAboveTheFirstLineAndTheLastCharacterBelowTheLast) {
    const DocumentState document = TwoWords();
    EXPECT_EQ(OffsetAt(document, 0, 5), 0);
    EXPECT_EQ(OffsetAt(document, -3, 5), 0);
    EXPECT_EQ(OffsetAt(document, 4, 1), 11);
    EXPECT_EQ(OffsetAt(document, 400, 9), 11);
}

TEST(OffsetOfCaret, AllColumnsOfATabAreOneCharacter) {
    const DocumentState document = DocumentOf(u"a\tb");
    std::vector<std::int32_t> offsets;
    for (std::int32_t col = 0; col <= 10; ++col) offsets.push_back(OffsetAt(document, 1, col));
    EXPECT_EQ(offsets, (std::vector<std::int32_t>{0, 1, 2, 2, 2, 2, 2, 2, 2, 3, 4}));
}

TEST(OffsetOfCaret, AColumnFarBehindTheTextCountsOnWithoutFailing) {
    EXPECT_EQ(OffsetAt(DocumentOf(u"xxx"), 1, 100), 100);
    EXPECT_EQ(OffsetAt(DocumentOf(u"\txx"), 1, 108), 101);
}

TEST(OffsetOfCaret, ANegativeColumnIsTheLineStart) { EXPECT_EQ(OffsetAt(TwoWords(), 2, -4), 4); }

TEST(PlaceBehind, GivesLineAndColumnBehindEachCharacter) {
    const DocumentState document = TwoWords();
    const std::vector<std::pair<int, int>> places{{1, 1}, {1, 2}, {1, 3}, {1, 4}, {2, 1}, {2, 2},
                                                  {2, 3}, {2, 4}, {2, 5}, {2, 6}, {3, 1}};
    for (std::size_t i = 0; i < places.size(); ++i) {
        const RowCol place = PlaceBehind(document, static_cast<std::int32_t>(i) + 1);
        EXPECT_EQ(place.Row.Number(), places[i].first) << "position " << i + 1;
        EXPECT_EQ(place.Col, places[i].second) << "position " << i + 1;
    }
}

TEST(PlaceBehind, ATabMovesToTheNextTabStop) {
    const DocumentState document = DocumentOf(u"a\tb");
    const std::int32_t columns[] = {1, 8, 9, 10};
    for (std::int32_t position = 1; position <= 4; ++position) {
        EXPECT_EQ(PlaceBehind(document, position), (RowCol{Line{1}, columns[position - 1]}));
    }
}

TEST(PlaceBehind, ALineBreakBelongsToTheLineThatItEnds) {
    const DocumentState document = TwoWords();
    EXPECT_EQ(PlaceBehind(document, 4), (RowCol{Line{1}, 4})) << "the line feed: length plus two";
    const DocumentState bare = DocumentOf(u"ab\ncd");
    EXPECT_EQ(PlaceBehind(bare, 3), (RowCol{Line{1}, 3}));
    EXPECT_EQ(PlaceBehind(bare, 4), (RowCol{Line{2}, 1}));
}

TEST(PlaceBehind, FindsEveryLineOfALargeDocumentFromItsFirstCharacter) {
    const DocumentState document = DocumentOf(Doc(100000));
    for (const std::int32_t line : {1, 2, 50000, 99999, 100000}) {
        EXPECT_EQ(PlaceBehind(document, document.Table.Starts[line]), (RowCol{Line{line}, 1}));
    }
}

TEST(PlaceBehind, IsTheInverseOfTheOffsetForEveryColumnOfLinesWithoutTabs) {
    const DocumentState document = DocumentOf(u"first\r\n\r\nthe third line\nx\r\n");
    for (std::int32_t line = 1; line < document.LineSlots; ++line) {
        const std::int32_t length = document.Table.Starts[line + 1] - document.Table.Starts[line];
        for (std::int32_t col = 1; col <= length; ++col) {
            const std::int32_t offset = OffsetAt(document, line, col);
            if (offset >= document.Text.Length()) continue;
            EXPECT_EQ(PlaceBehind(document, offset), (RowCol{Line{line}, col}));
        }
    }
}

/// Position by position, with nothing but the text itself.
RowCol CountedPlace(const std::u16string& text, std::size_t position) {
    RowCol place{Line{1}, 0};
    for (std::size_t i = 0; i < position; ++i) {
        if (i > 0 && text[i - 1] == u'\n') {
            ++place.Row;
            place.Col = 0;
        }
        place.Col = text[i] == u'\t' ? (place.Col / 8 + 1) * 8 : place.Col + 1;
    }
    return place;
}

TEST(PlaceBehind, AgreesWithCountingThroughRandomTexts) {
    std::mt19937 random(11);
    for (int round = 0; round < 40; ++round) {
        const std::u16string text = RandomText(random, 60, 20) + u"\r\n";
        const DocumentState document = DocumentOf(text.substr(0, text.size() - 2));
        for (std::size_t position = 1; position < text.size(); ++position) {
            ASSERT_EQ(PlaceBehind(document, static_cast<std::int32_t>(position)),
                      CountedPlace(text, position))
                << "round " << round << ", position " << position;
        }
    }
}

}  // namespace
}  // namespace quorvale
