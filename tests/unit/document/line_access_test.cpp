#include "document/line_access.h"

#include <gtest/gtest.h>

#include <string>

#include "base/numbers_in_text.h"
#include "document/display_text.h"
#include "document_fixture.h"
#include "state/slot_lines.h"
#include "support/documents.h"

namespace quorvale {
namespace {

/// A document of which the rows show the first lines, three of them whole. The border strip is 240
/// twips wide and the glyph column 315.
class LineAccessTest : public testing::Test {
protected:
    LineAccessTest() {
        surface_.picBorder.SetWidth(240);
        view_.TextLeftMargin = 315;
        view_.RowsPerView = 3;
        while (surface_.lblLine.UpperBound() < 5) surface_.lblLine.Load();
        for (Label& label : surface_.lblLine) label.SetTag(u"-1");
    }

    void Show(std::u16string_view text) { document_ = DocumentOf(text); }

    /// Slot 0 shows line 1 and so on, in their display form.
    void FillSlots() {
        for (int slot = 0; slot <= surface_.lblLine.UpperBound(); ++slot) {
            const Line line{slot + 1};
            SetSlot(surface_, slot, SharedText(DisplayForm(access_.RawLineText(line))), line);
        }
    }

    std::u16string Raw(std::int32_t line) const { return access_.RawLineText(Line{line}); }
    std::u16string Text(std::int32_t line) { return access_.LineText(Line{line}); }

    EvenMetrics metrics_;
    HostOptions options_;
    ViewState view_;
    Surface surface_{metrics_};
    DocumentState document_;
    LineAccess access_{document_, view_, surface_, metrics_, options_};
};

TEST_F(LineAccessTest, ALineIsCutWithoutItsLineBreak) {
    Show(u"a\r\nb\nc");
    EXPECT_EQ(Raw(1), u"a");
    EXPECT_EQ(Raw(2), u"b");
    EXPECT_EQ(Raw(3), u"c");
}

TEST_F(LineAccessTest, ExactlyOneCarriageReturnGoesWithTheLineBreak) {
    Show(u"a\r\r\n\r\n\rb");
    EXPECT_EQ(Raw(1), u"a\r");
    EXPECT_EQ(Raw(2), u"");
    EXPECT_EQ(Raw(3), u"\rb") << "inside a line it is a character";
}

TEST_F(LineAccessTest, BadLineNumbersGiveAnEmptyText) {
    for (const std::u16string_view text : {u"", u"a\r\nb"}) {
        Show(text);
        for (const std::int32_t line : {0, -1, document_.LineSlots, 2147483647, -2147483647 - 1}) {
            EXPECT_EQ(Raw(line), u"") << line;
            EXPECT_EQ(Text(line), u"") << line;
        }
    }
}

TEST_F(LineAccessTest, BeforeAnyDocumentNoLineIsValid) {
    EXPECT_EQ(Raw(1), u"");
    EXPECT_EQ(Text(1), u"");
    EXPECT_EQ(Text(0), u"");
}

TEST_F(LineAccessTest, OffScreenALineHasItsTabsExpandedAndNothingMarked) {
    Show(std::u16string(u"a\tb\rc\0d", 7));
    EXPECT_EQ(Text(1), std::u16string(u"a       b\rc\0d", 13));
}

TEST_F(LineAccessTest, OnScreenALineComesBackAsItsRowShowsIt) {
    Show(u"a\tb\rc");
    FillSlots();
    EXPECT_EQ(Text(1), u"a       b\u00B6c");
    surface_.lblLine[0].SetCaption(u"as it stands");
    EXPECT_EQ(Text(1), u"as it stands");
}

TEST_F(LineAccessTest, TheRowCutByTheBottomEdgeIsOnScreenAndTheOneBelowItIsNot) {
    Show(Doc(6));
    FillSlots();
    for (Label& label : surface_.lblLine) label.SetCaption(u"row");
    EXPECT_EQ(Text(4), u"row");
    EXPECT_EQ(Text(5), u"L5");
}

TEST_F(LineAccessTest, TheDisplayFormIsMadeFromTheDocumentNeverFromARow) {
    Show(u"a\rb");
    FillSlots();
    surface_.lblLine[0].SetCaption(u"an old caption");
    EXPECT_EQ(access_.DisplayText(Line{1}).View(), u"a\u00B6b");
}

TEST_F(LineAccessTest, ReadingOffScreenMeasuresTheLine) {
    Show(Times(50));
    Text(1);
    EXPECT_EQ(document_.WidestLineWidth, 240 + 6000 + 315);
}

TEST_F(LineAccessTest, TheMeasureIsRoundedToWholeTwips) {
    view_.TextLeftMargin = 315.5;
    Show(u"x");
    Text(1);
    EXPECT_EQ(document_.WidestLineWidth, 676) << "675.5, ties to even";
    view_.TextLeftMargin = 317.4;
    Text(1);
    EXPECT_EQ(document_.WidestLineWidth, 677);
}

TEST_F(LineAccessTest, ReadingOnScreenMeasuresNothing) {
    Show(Times(50));
    FillSlots();
    Text(1);
    EXPECT_EQ(document_.WidestLineWidth, 0);
}

TEST_F(LineAccessTest, TheWidestLineNeverGetsNarrower) {
    Show(Lines({Times(50), u"short"}));
    Text(1);
    Text(2);
    EXPECT_EQ(document_.WidestLineWidth, 6555);
}

TEST_F(LineAccessTest, AFilledRowIsMeasuredAlsoWhenItWasOnScreenBefore) {
    Show(Times(50));
    FillSlots();
    access_.DisplayText(Line{1});
    EXPECT_EQ(document_.WidestLineWidth, 6555);
}

TEST_F(LineAccessTest, ALineThatCannotBeMeasuredIsReadAllTheSame) {
    Show(Lines({u"a\tb", Times(20000)}));
    metrics_.Fails = ErrorKind::Overflow;
    EXPECT_EQ(Text(1), u"a       b");
    EXPECT_EQ(Text(2), Times(20000));
    EXPECT_EQ(access_.DisplayText(Line{2}).View(), Times(20000));
    EXPECT_EQ(document_.WidestLineWidth, 0);
}

TEST_F(LineAccessTest, AVeryLongLineIsNotTakenForAnOldOneOfAnotherDocument) {
    Show(Times(30000, u'a'));
    access_.BeginFill();
    EXPECT_EQ(access_.DisplayText(Line{1}).View(), Times(30000, u'a'));
    access_.EndFill();
    EXPECT_EQ(Text(1), Times(30000, u'a'));
    document_ = DocumentOf(Times(30000, u'b'));
    document_.Generation = 2;
    access_.BeginFill();
    EXPECT_EQ(access_.DisplayText(Line{1}).View(), Times(30000, u'b'));
    access_.EndFill();
    EXPECT_EQ(Text(1), Times(30000, u'b'));
    EXPECT_EQ(document_.WidestLineWidth, 240 + 30000 * 120 + 315);
}

TEST_F(LineAccessTest, AVeryLongLineIsMeasuredAgainInANewFont) {
    Show(Times(30000));
    access_.BeginFill();
    access_.DisplayText(Line{1});
    access_.EndFill();
    document_.WidestLineWidth = 0;
    surface_.UserControl.SetFont({.Name = u"Another"});
    metrics_.Fails = ErrorKind::Overflow;
    access_.BeginFill();
    access_.DisplayText(Line{1});
    access_.EndFill();
    EXPECT_EQ(document_.WidestLineWidth, 0) << "the old font's width says nothing";
}

TEST_F(LineAccessTest, TheWidthInFrontOfAColumnCountsTheCharactersBeforeIt) {
    const SharedText text(u"abcdef");
    EXPECT_EQ(access_.WidthBefore(text, 1), 0);
    EXPECT_EQ(access_.WidthBefore(text, 0), 0);
    EXPECT_EQ(access_.WidthBefore(text, -4), 0);
    EXPECT_EQ(access_.WidthBefore(text, 4), 360);
    EXPECT_EQ(access_.WidthBefore(text, 7), 720);
    EXPECT_EQ(access_.WidthBefore(text, 100), 720);
}

}  // namespace
}  // namespace quorvale
