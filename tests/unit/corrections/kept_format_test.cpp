#include "corrections/kept_format.h"

#include <gtest/gtest.h>

#include "corrections_rig.h"

namespace quorvale {
namespace {

class KeptFormatTest : public testing::Test {
protected:
    /// The bytes of a file with these corrections, its format kept.
    std::string Committed(std::u16string_view file, std::initializer_list<Correction> corrections) {
        rig.SetText(file);
        rig.Journal.RemoveAll();
        rig.Put(corrections);
        return rig.Corrected.FileBytes(true).Spans().Gathered();
    }

    CorrectionsRig rig;
};

TEST_F(KeptFormatTest, WithoutCorrectionsEveryByteStays) {
    for (const std::u16string_view file :
         {u"", u"A", u"A\n", u"A\r\n", u"\n", u"\r\n\n", u"A\nB\r\nC\tD\n\r\n", u"a\rb\nc\r",
          u"A\r\n\r\n\r\n", u"\t\u00A0\u65E5\n"}) {
        EXPECT_EQ(Committed(file, {}), ToUtf8(file));
    }
}

TEST_F(KeptFormatTest, ALineThatReplacesAnotherTakesItsEnd) {
    EXPECT_EQ(Committed(u"A\nB\r\nC\n", {{1, 1, u"X\n"}}), "X\nB\r\nC\n");
    EXPECT_EQ(Committed(u"A\nB\r\nC\n", {{2, 1, u"X\n"}}), "A\nX\r\nC\n");
    EXPECT_EQ(Committed(u"A\nB\r\nC\n", {{1, 3, u"X\nY\nZ\n"}}), "X\nY\r\nZ\n");
}

TEST_F(KeptFormatTest, FurtherLinesTakeTheEndOfTheLastLineReplaced) {
    EXPECT_EQ(Committed(u"A\nB\r\nC\n", {{2, 1, u"X\nY\nZ\n"}}), "A\nX\r\nY\r\nZ\r\nC\n");
    EXPECT_EQ(Committed(u"A\r\nB\nC\n", {{1, 2, u"X\nY\nZ\n"}}), "X\r\nY\nZ\nC\n");
}

TEST_F(KeptFormatTest, InsertedLinesTakeTheFirstLinesEnd) {
    EXPECT_EQ(Committed(u"A\r\nB\nC\n", {{3, 0, u"N\n"}}), "A\r\nB\nN\r\nC\n");
    EXPECT_EQ(Committed(u"A\nB\r\nC\r\n", {{3, 0, u"N\nM\n"}}), "A\nB\r\nN\nM\nC\r\n");
}

TEST_F(KeptFormatTest, AMissingFinalLineEndStaysMissing) {
    EXPECT_EQ(Committed(u"A\r\nB\r\nC", {{3, 1, u"X\n"}}), "A\r\nB\r\nX");
    EXPECT_EQ(Committed(u"A\r\nB\r\nC", {{3, 1, u"X\nY\n"}}), "A\r\nB\r\nX\r\nY");
    EXPECT_EQ(Committed(u"A\nB\r\nC", {{4, 0, u"N\n"}}), "A\nB\r\nC\nN");
    EXPECT_EQ(Committed(u"A\r\nB\r\nC", {{3, 1, u""}}), "A\r\nB");
    EXPECT_EQ(Committed(u"A\r\nB\r\nC", {{1, 3, u""}}), "");
}

TEST_F(KeptFormatTest, AFinalLineEndStaysWithTheEmptyLineBehindIt) {
    EXPECT_EQ(Committed(u"A\nB\n", {{2, 1, u"X\n"}}), "A\nX\n");
    EXPECT_EQ(Committed(u"A\nB\n", {{2, 1, u""}}), "A\n");
    EXPECT_EQ(Committed(u"A\nB\n", {{3, 1, u"X\n"}}), "A\nB\nX");
    EXPECT_EQ(Committed(u"A\nB\n", {{3, 1, u"X\n\n"}}), "A\nB\nX\n");
}

TEST_F(KeptFormatTest, ADocumentOfOneLineHasLineFeeds) {
    EXPECT_EQ(Committed(u"A", {{1, 1, u"X\nY\n"}}), "X\nY");
    EXPECT_EQ(Committed(u"A", {{1, 0, u"N\n"}}), "N\nA");
    EXPECT_EQ(Committed(u"", {{1, 1, u"X\n"}}), "X");
}

TEST_F(KeptFormatTest, TabsAndEverythingElseOfOtherLinesStay) {
    EXPECT_EQ(Committed(u"\ta\tb\r\n\rx\r\r\nC\t", {{3, 1, u"\tX\n"}}), "\ta\tb\r\n\rx\r\r\n\tX");
}

TEST_F(KeptFormatTest, ACorrectionPastTheEndReplacesWhatIsThere) {
    EXPECT_EQ(Committed(u"A\nB\nC\n", {{3, 9, u"X\nY\n"}}), "A\nB\nX\nY");
    EXPECT_EQ(Committed(u"A\nB", {{3, 1, u"X\n"}}), "A\nB\nX") << "the place behind the end";
}

TEST_F(KeptFormatTest, ATextWithoutItsLastLineFeedIsALineAllTheSame) {
    EXPECT_EQ(Committed(u"A\nB\nC\n", {{2, 1, u"X"}}), "A\nX\nC\n");
}

TEST_F(KeptFormatTest, EveryByteThatIsNoTextInUtf8ComesBack) {
    rig.SetText(u"A\n\xDC80\xDCFF\n\U0001F600");
    rig.Put({{1, 1, u"\U0001F601\n"}});
    EXPECT_EQ(rig.Corrected.FileBytes(true), "\xF0\x9F\x98\x81\n\x80\xFF\n\xF0\x9F\x98\x80");
}

// Symptom: the mark, which nobody sees, went with the line that it stood in.
TEST_F(KeptFormatTest, AByteOrderMarkStaysAtTheFront) {
    const std::u16string file = u"\uFEFFA\nB\n";
    rig.SetText(file);
    rig.Document.ReadAs = Encoding::Utf8;
    const std::string mark = "\xEF\xBB\xBF";
    const auto committed = [&](std::initializer_list<Correction> corrections) {
        rig.Journal.RemoveAll();
        rig.Put(corrections);
        return rig.Corrected.FileBytes(true).Spans().Gathered();
    };
    EXPECT_EQ(committed({}), mark + "A\nB\n");
    EXPECT_EQ(committed({{2, 1, u"X\n"}}), mark + "A\nX\n");
    EXPECT_EQ(committed({{1, 1, u"X\n"}}), mark + "X\nB\n");
    EXPECT_EQ(committed({{1, 1, u"\uFEFFX\n"}}), mark + "X\nB\n");
    EXPECT_EQ(committed({{1, 0, u"N\n"}}), mark + "N\nA\nB\n");
    EXPECT_EQ(committed({{1, 1, u""}}), mark + "B\n");
}

}  // namespace
}  // namespace quorvale
