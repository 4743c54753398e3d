#include "document/loading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "base/errors.h"
#include "loading_fixture.h"
#include "support/documents.h"

namespace quorvale {
namespace {

using testing::ElementsAre;

TEST_F(DocumentLoadingTest, AFileIsReadAndClosedBeforeItIsShownAndItsJournalComesLast) {
    In("open journal /three", [&] {
        EXPECT_EQ(document_.FileName, u"") << "named only once its journal is open";
        EXPECT_FALSE(EditEnabled());
    });
    loading_.LoadFile(u"/three");
    EXPECT_THAT(log_,
                ElementsAre("close edit", "open /three", "size", "read", "close", "close journal",
                            "forget places", "show from start", "open journal /three"));
    EXPECT_EQ(document_.FileName, u"/three");
    EXPECT_TRUE(EditEnabled());
    EXPECT_EQ(Text(), u"A\r\nB\r\nC\r\n");
    ExpectConsistent();
}

TEST_F(DocumentLoadingTest, ATextIsShownWithoutAJournalAndReportedAtTheEnd) {
    loading_.LoadFile(u"/three");
    log_.clear();
    loading_.SetText(u"x");
    EXPECT_THAT(log_, ElementsAre("close edit", "close journal", "forget places", "show from start",
                                  "report"));
    EXPECT_EQ(Text(), u"x\r\n");
    EXPECT_EQ(document_.FileName, u"");
}

TEST_F(DocumentLoadingTest, AnOpenEditIsRecordedAgainstTheOldLines) {
    loading_.LoadFile(u"/three");
    const auto stillOld = [&] {
        EXPECT_EQ(Text(), u"A\r\nB\r\nC\r\n");
        EXPECT_EQ(document_.LineSlots, 4);
        EXPECT_EQ(document_.FileName, u"/three");
    };
    In("close edit", stillOld);
    loading_.LoadFile(u"/two");
    loading_.LoadFile(u"/three");
    In("close edit", stillOld);
    loading_.LoadFile(u"/missing");
    loading_.LoadFile(u"/three");
    In("close edit", stillOld);
    loading_.SetText(u"x");
    EXPECT_EQ(actions_["close edit"], nullptr) << "the edit was closed every time";
}

TEST_F(DocumentLoadingTest, TheOldJournalIsClosedUnderNoNameWithTheNewDocumentInPlace) {
    loading_.LoadFile(u"/three");
    In("close journal", [&] {
        EXPECT_EQ(document_.FileName, u"");
        EXPECT_EQ(Text(), u"X\nY\r\n");
        ExpectConsistent();
    });
    loading_.LoadFile(u"/two");
    EXPECT_EQ(actions_["close journal"], nullptr);
}

TEST_F(DocumentLoadingTest, AnythingThatFailsInALoadGivesOneEmptyLineAndNoError) {
    const std::vector<std::pair<std::string, std::function<void()>>> failures{
        {"edit", [&] { Fail("close edit"); }},
        {"read", [&] { files_.OnRead = [] { throw ControlError(ErrorKind::File, "gone"); }; }},
        {"journal that closes", [&] { Fail("close journal"); }},
        {"places", [&] { Fail("forget places", ErrorKind::Index); }},
        {"view", [&] { Fail("show from start", ErrorKind::Overflow); }},
        {"journal that opens", [&] { Fail("open journal /three"); }},
        {"something else", [&] { In("show from start", [] { throw std::runtime_error("?"); }); }},
    };
    for (const auto& [name, prepare] : failures) {
        SCOPED_TRACE(name);
        surface_.tbMore.SetButtonEnabled(u"Edit", false);
        actions_.clear();
        files_.OnRead = nullptr;
        prepare();
        EXPECT_NO_THROW(loading_.LoadFile(u"/three"));
        ExpectOneEmptyLineOfNoFile();
        EXPECT_EQ(log_.back(), "show from start") << "the empty line is shown too";
    }
}

TEST_F(DocumentLoadingTest, AMissingFileGivesOneEmptyLineAndClosesTheOldJournal) {
    loading_.LoadFile(u"/three");
    surface_.tbMore.SetButtonEnabled(u"Edit", false);
    log_.clear();
    loading_.LoadFile(u"/missing");
    EXPECT_THAT(log_, ElementsAre("close edit", "open /missing", "close journal", "forget places",
                                  "show from start"));
    ExpectOneEmptyLineOfNoFile();
}

TEST_F(DocumentLoadingTest, AJournalThatCannotBeSavedDoesNotStopTheLoadsAfterIt) {
    loading_.LoadFile(u"/three");
    surface_.tbMore.SetButtonEnabled(u"Edit", false);
    // The first failure ends the load, and the empty line's own reset meets the second.
    In("close journal", [&] {
        Fail("close journal");
        throw ControlError(ErrorKind::File, "read-only folder");
    });
    EXPECT_NO_THROW(loading_.LoadFile(u"/two"));
    ExpectOneEmptyLineOfNoFile();
    loading_.LoadFile(u"/two");
    EXPECT_EQ(Text(), u"X\nY\r\n");
    EXPECT_EQ(document_.FileName, u"/two");
    ExpectConsistent();
}

TEST_F(DocumentLoadingTest, AJournalThatCannotBeSavedIsReportedFromTextWithTheNewTextInPlace) {
    loading_.LoadFile(u"/three");
    Fail("close journal");
    log_.clear();
    try {
        loading_.SetText(u"y");
        ADD_FAILURE() << "the failure was swallowed";
    } catch (const ControlError& error) {
        EXPECT_EQ(error.Kind(), ErrorKind::File);
    }
    EXPECT_EQ(Text(), u"y\r\n");
    EXPECT_EQ(document_.FileName, u"");
    EXPECT_EQ(document_.LineSlots, 2);
    ExpectConsistent();
    EXPECT_THAT(log_, testing::IsSupersetOf({"forget places", "show from start"}))
        << "the reset is completed first";
}

TEST_F(DocumentLoadingTest, NoMemoryForTheFileGivesOneEmptyLine) {
    FailingMemory full(0);
    DocumentLoading loading(document_, surface_, files_, full, options_, *this);
    EXPECT_NO_THROW(loading.LoadFile(u"/three"));
    ExpectOneEmptyLineOfNoFile();
}

TEST_F(DocumentLoadingTest, AFailedReadOrOpenGivesOneEmptyLine) {
    files_.FailOpen = true;
    loading_.LoadFile(u"/three");
    ExpectOneEmptyLineOfNoFile();
    files_.FailOpen = false;
    files_.FailRead = true;
    loading_.LoadFile(u"/three");
    ExpectOneEmptyLineOfNoFile();
    EXPECT_EQ(std::count(log_.begin(), log_.end(), "close"), 1) << "and the file is closed";
}

TEST_F(DocumentLoadingTest, AHostThatLoadsAnotherFileWhileOneIsShownKeepsThatOne) {
    In("show from start", [&] { loading_.LoadFile(u"/two"); });
    loading_.LoadFile(u"/three");
    EXPECT_EQ(Text(), u"X\nY\r\n");
    EXPECT_EQ(document_.FileName, u"/two") << "the file that is shown";
    EXPECT_TRUE(EditEnabled());
    EXPECT_THAT(log_, testing::Contains("open journal /two"));
    EXPECT_THAT(log_, testing::Not(testing::Contains("open journal /three")));
    ExpectConsistent();
}

TEST_F(DocumentLoadingTest, AHostThatSetsATextWhileAFileIsShownHasNoFile) {
    In("show from start", [&] { loading_.SetText(u"mine"); });
    loading_.LoadFile(u"/three");
    EXPECT_EQ(Text(), u"mine\r\n");
    EXPECT_EQ(document_.FileName, u"");
    EXPECT_FALSE(EditEnabled());
    EXPECT_THAT(log_, testing::Not(testing::Contains("open journal /three")));
}

TEST_F(DocumentLoadingTest, AHostThatLoadsAFileWhileATextIsShownHasThatFile) {
    In("show from start", [&] { loading_.LoadFile(u"/two"); });
    loading_.SetText(u"mine");
    EXPECT_EQ(Text(), u"X\nY\r\n");
    EXPECT_EQ(document_.FileName, u"/two");
    EXPECT_TRUE(EditEnabled());
    ExpectConsistent();
}

TEST_F(DocumentLoadingTest, ALoadThatFailsAfterTheHostLoadedAnotherFileLeavesThatOne) {
    In("show from start", [&] {
        loading_.LoadFile(u"/two");
        throw ControlError(ErrorKind::Index, "and then the view fails");
    });
    loading_.LoadFile(u"/three");
    EXPECT_EQ(Text(), u"X\nY\r\n");
    EXPECT_EQ(document_.FileName, u"/two");
}

TEST_F(DocumentLoadingTest, TheNameMayBeTheDocumentsOwn) {
    loading_.LoadFile(u"/three");
    loading_.LoadFile(document_.FileName);
    EXPECT_EQ(document_.FileName, u"/three");
    EXPECT_EQ(Text(), u"A\r\nB\r\nC\r\n");
}

TEST_F(DocumentLoadingTest, LinesStartBehindEachLineFeed) {
    loading_.SetText(u"a\r\nb");
    EXPECT_EQ(document_.LineSlots, 3);
    EXPECT_THAT(Starts(), ElementsAre(1, 4, 7));
    loading_.SetText(u"\n\n");
    EXPECT_EQ(Text(), u"\n\n\r\n");
    EXPECT_EQ(document_.LineSlots, 4);
    EXPECT_THAT(Starts(), ElementsAre(1, 2, 3, 5));
    loading_.SetText(u"");
    EXPECT_THAT(Starts(), ElementsAre(1, 3));
}

TEST_F(DocumentLoadingTest, TextAndTableAgreeForRandomTextsFromFilesAndFromStrings) {
    std::mt19937 random(3);
    for (int round = 0; round < 200; ++round) {
        const std::u16string text = RandomText(random, static_cast<int>(random() % 80), 300);
        loading_.SetText(text);
        EXPECT_EQ(Text(), text + u"\r\n");
        ExpectConsistent();
        const std::vector<std::int32_t> starts = Starts();
        std::string bytes;
        for (const char16_t unit : text) bytes += static_cast<char>(unit);
        files_.Real.Put(u"/random", bytes);
        loading_.LoadFile(u"/random");
        EXPECT_EQ(Text(), text + u"\r\n");
        EXPECT_EQ(Starts(), starts);
        ExpectConsistent();
    }
}

TEST_F(DocumentLoadingTest, AScrollStepGetsALineMoreWithEvery32768Entries) {
    const std::pair<std::size_t, std::int16_t> scales[] = {
        {32767, 1}, {32768, 2}, {40001, 2}, {65535, 2}, {65536, 3}};
    for (const auto& [slots, scale] : scales) {
        loading_.SetText(Times(slots - 2, u'\n'));
        EXPECT_EQ(document_.LineSlots, static_cast<std::int32_t>(slots));
        EXPECT_EQ(document_.ScrollScale, scale) << slots;
    }
}

TEST_F(DocumentLoadingTest, WithWideScrollBarsAStepIsAlwaysOneLine) {
    options_.WideScrollBars = true;
    loading_.SetText(Times(70000, u'\n'));
    EXPECT_EQ(document_.ScrollScale, 1);
}

TEST_F(DocumentLoadingTest, EveryLineStartsWithTheControlsColoursNoPictureAndNoDepth) {
    surface_.UserControl.SetForeColor(0x11);
    surface_.UserControl.SetBackColor(0x22);
    loading_.SetText(u"a\nb");
    document_.Table.ForeColors.Set(1, 0x99);
    document_.Table.Images.Set(2, std::u16string(u"k"));
    document_.Table.HiddenDepth.Set(2, 3);
    document_.WidestLineWidth = 5000;
    surface_.UserControl.SetForeColor(0x33);
    loading_.LoadFile(u"/three");
    surface_.UserControl.SetBackColor(0x44);
    for (std::int32_t entry = 1; entry <= 4; ++entry) {
        EXPECT_EQ(document_.Table.ForeColors.Get(entry), 0x33U);
        EXPECT_EQ(document_.Table.BackColors.Get(entry), 0x22U);
        EXPECT_EQ(document_.Table.Images.Get(entry), Variant(std::int16_t{0}));
        EXPECT_EQ(document_.Table.HiddenDepth.Get(entry), 0);
    }
    EXPECT_EQ(document_.WidestLineWidth, 0);
}

TEST_F(DocumentLoadingTest, EveryReplacementIsANewGeneration) {
    std::uint64_t last = document_.Generation;
    const std::function<void()> replacements[] = {
        [&] { loading_.SetText(u"a"); }, [&] { loading_.SetText(u"a"); },
        [&] { loading_.LoadFile(u"/two"); }, [&] { loading_.LoadFile(u"/missing"); }};
    for (const auto& replace : replacements) {
        replace();
        EXPECT_GT(document_.Generation, last);
        last = document_.Generation;
    }
}

TEST_F(DocumentLoadingTest, BytesBecomeCharactersOneToOne) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    files_.Real.Put(u"/all", "\xEF\xBB\xBF" + bytes);
    loading_.LoadFile(u"/all");
    std::u16string expected = u"\u00EF\u00BB\u00BF";
    for (char16_t unit = 0; unit < 256; ++unit) expected += unit;
    EXPECT_EQ(Text(), expected + u"\r\n") << "a byte order mark is three characters";
}

TEST_F(DocumentLoadingTest, LinesWithoutColoursPicturesOrFoldsCostNoMemoryForThem) {
    loading_.SetText(Times(200000, u'\n'));
    EXPECT_EQ(document_.Table.ForeColors.SpreadChunks(), 0U);
    EXPECT_EQ(document_.Table.BackColors.SpreadChunks(), 0U);
    EXPECT_EQ(document_.Table.Images.SpreadChunks(), 0U);
    EXPECT_EQ(document_.Table.HiddenDepth.SpreadChunks(), 0U);
}

}  // namespace
}  // namespace quorvale
