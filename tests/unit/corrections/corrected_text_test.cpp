#include "corrections/corrected_text.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "corrections_rig.h"
#include "support/error_of.h"

namespace quorvale {
namespace {

using Lines = std::vector<std::u16string>;

/// A file of the lines A, B, C, the last one without a line end.
class CorrectedTextTest : public testing::Test {
protected:
    /// The whole corrected text, as a commit without the kept format writes it.
    std::u16string All() { return rig.Corrected.BuildCorrectedText(1, rig.Document.LineSlots); }

    CorrectionsRig rig;
};

TEST_F(CorrectedTextTest, WithoutAJournalThereIsNone) {
    rig.Journal.Drop();
    EXPECT_EQ(All(), u"");
}

TEST_F(CorrectedTextTest, EveryLineEndsWithABreakWhenTheWholeFileIsAskedFor) {
    EXPECT_EQ(All(), u"A\r\nB\r\nC\r\n");
    rig.Put({{2, 1, u"X\n"}});
    EXPECT_EQ(All(), u"A\r\nX\r\nC\r\n");
}

TEST_F(CorrectedTextTest, SomeLinesComeWithoutTheLastBreak) {
    EXPECT_EQ(rig.Corrected.BuildCorrectedText(2, 1), u"B");
    EXPECT_EQ(rig.Corrected.BuildCorrectedText(1, 3), u"A\r\nB\r\nC");
    rig.Put({{2, 1, u"X\n"}});
    EXPECT_EQ(rig.Corrected.BuildCorrectedText(2, 1), u"X");
}

TEST_F(CorrectedTextTest, AnInsertionStandsBeforeItsLine) {
    rig.Put({{2, 0, u"N\n"}});
    EXPECT_EQ(All(), u"A\r\nN\r\nB\r\nC\r\n");
}

TEST_F(CorrectedTextTest, AnInsertionBehindTheLastLineIsTheNewLastLine) {
    rig.Put({{0, 1, u"Z\n"}, {5, 1, u"Z\n"}, {4, 0, u"N\n"}});
    EXPECT_EQ(All(), u"A\r\nB\r\nC\r\nN\r\n");
}

TEST_F(CorrectedTextTest, ACorrectionThatTakesThePlaceBehindTheEndEndsWithoutABreak) {
    rig.Put({{3, 2, u"X\n"}});
    EXPECT_EQ(All(), u"A\r\nB\r\nX");
    rig.Journal.RemoveAll();
    rig.Put({{3, 5, u"X\n"}});
    EXPECT_EQ(All(), u"A\r\nB\r\nX");
}

TEST_F(CorrectedTextTest, TheOrderOfRecordingDoesNotMatter) {
    rig.Put({{3, 1, u"Y\n"}, {1, 1, u"X\n"}});
    EXPECT_EQ(All(), u"X\r\nB\r\nY\r\n");
}

TEST_F(CorrectedTextTest, OfTwoThatOverlapOneIsDropped) {
    rig.Put({{2, 3, u"P\n"}, {3, 1, u"Q\n"}});
    EXPECT_EQ(All(), u"A\r\nP");
}

TEST_F(CorrectedTextTest, AllLinesCanGo) {
    rig.Put({{1, 3, u""}});
    EXPECT_EQ(All(), u"");
    EXPECT_EQ(rig.Corrected.FileBytes(false), "");
    EXPECT_EQ(rig.Corrected.FileBytes(true), "");
}

TEST_F(CorrectedTextTest, ATextWithoutItsLastLineFeedIsGluedToTheNextLine) {
    rig.Put({{2, 1, u"X"}});
    EXPECT_EQ(All(), u"A\r\nXC\r\n");
}

TEST_F(CorrectedTextTest, UncorrectedLinesLoseTheirTabsAndCorrectedOnesKeepThem) {
    rig.SetText(u"a\tb\r\n\t\tx\r\n12345678\ty\r\n\t");
    rig.Put({{2, 1, u"\tnew\n"}});
    EXPECT_EQ(All(), u"a       b\r\n\tnew\r\n12345678        y\r\n        \r\n");
}

TEST_F(CorrectedTextTest, BareLineFeedsBecomeCrLf) {
    rig.SetText(u"A\nB\nC");
    rig.Put({{2, 1, u"X\nY\n"}});
    EXPECT_EQ(All(), u"A\r\nX\r\nY\r\nC\r\n");
}

TEST_F(CorrectedTextTest, AFileThatEndsWithABreakGetsOneMore) {
    rig.SetText(u"A\r\nB\r\n");
    EXPECT_EQ(All(), u"A\r\nB\r\n\r\n");
}

TEST_F(CorrectedTextTest, UselessCorrectionsDoNotStopTheOthers) {
    rig.PutUpdate({{u"start", u"1"}, {u"loc", u"-1"}});
    rig.Put({{2, 1, u"X\n"}});
    EXPECT_EQ(All(), u"A\r\nX\r\nC\r\n");
}

TEST_F(CorrectedTextTest, ACorrectionWithoutTextTakesItsLinesAway) {
    rig.PutUpdate({{u"start", u"2"}, {u"loc", u"1"}});
    EXPECT_EQ(All(), u"A\r\nC\r\n");
}

TEST_F(CorrectedTextTest, SingleLinesKeepTheirTabs) {
    rig.SetText(u"a\tb\r\nB\r\nc\rd");
    rig.Put({{2, 1, u"x\ny\n"}, {4, 0, u"behind\n"}});
    EXPECT_EQ(rig.Corrected.CorrectedLines(1, 3), (Lines{u"a\tb", u"x", u"y", u"c\rd"}));
    EXPECT_EQ(rig.Corrected.CorrectedLines(2, 1), (Lines{u"x", u"y"}));
}

TEST_F(CorrectedTextTest, NoLineAndAnEmptyLineAreToldApart) {
    rig.Put({{2, 1, u""}});
    EXPECT_EQ(rig.Corrected.CorrectedLines(2, 1), Lines{});
    rig.Journal.RemoveAll();
    rig.Put({{2, 1, u"\n"}});
    EXPECT_EQ(rig.Corrected.CorrectedLines(2, 1), Lines{u""});
}

TEST_F(CorrectedTextTest, TheBytesAreThoseOfTheTextInTheFilesEncoding) {
    rig.SetText(u"\u00E9\u0081\tx\r\nB\r\nC");
    rig.Put({{2, 1, u"\u00FC\n"}});
    rig.Document.ReadAs = Encoding::SingleByte;
    EXPECT_EQ(rig.Corrected.FileBytes(false), "\xE9\x81      x\r\n\xFC\r\nC\r\n");
    rig.Document.ReadAs = Encoding::Windows1252;
    EXPECT_EQ(rig.Corrected.FileBytes(false), "\xE9\x81      x\r\n\xFC\r\nC\r\n");
    rig.Document.ReadAs = Encoding::Utf8;
    EXPECT_EQ(rig.Corrected.FileBytes(false), "\xC3\xA9\xC2\x81      x\r\n\xC3\xBC\r\nC\r\n");
}

TEST_F(CorrectedTextTest, ACharacterWithoutAByteIsNamedWithItsLine) {
    rig.Put({{2, 1, u"a\u65E5\n"}});
    rig.Document.ReadAs = Encoding::SingleByte;
    for (const bool keepFormat : {false, true}) {
        try {
            rig.Corrected.FileBytes(keepFormat);
            ADD_FAILURE() << "it was written";
        } catch (const ControlError& error) {
            EXPECT_STREQ(error.what(),
                         "The character U+65E5 in the correction of line 2 does not exist in the "
                         "file's encoding");
        }
    }
}

TEST_F(CorrectedTextTest, ACorrectionThatIsLeftOutNeedsNoBytes) {
    rig.Put({{2, 1, u"X\n"}, {9, 1, u"\u65E5\n"}});
    rig.Document.ReadAs = Encoding::SingleByte;
    EXPECT_EQ(rig.Corrected.FileBytes(false), "A\r\nX\r\nC\r\n");
}

TEST_F(CorrectedTextTest, TabsOfALongWideLineAreCountedOverItsBlocks) {
    std::u16string line = Times(TextStore::BlockUnits - 3) + u"\t";
    rig.SetText(line + u"\u65E5\ty");
    const std::u16string text = All();
    const auto stop = static_cast<std::size_t>(TextStore::BlockUnits);
    EXPECT_EQ(text.substr(stop - 4), u"x   \u65E5       y\r\n");
}

}  // namespace
}  // namespace quorvale
