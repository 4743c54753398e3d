#include "platform/memory_files.h"

#include <gtest/gtest.h>

#include <string>

namespace quorvale {
namespace {

using namespace std::string_literals;

std::string ReadAll(ReadStream& stream, std::size_t step) {
    std::string all;
    while (true) {
        std::string piece(step, '?');
        auto got = stream.Read(reinterpret_cast<std::byte*>(piece.data()), step);
        if (!got) return all + "<" + got.Failure().Reason + ">";
        if (*got == 0) return all;
        all += piece.substr(0, *got);
    }
}

TEST(MemoryFiles, AFileIsReadInPiecesOfAnySize) {
    MemoryFiles files;
    files.Put(u"a.txt", "one\r\n\0two"s);
    for (const std::size_t step : {1U, 3U, 100U}) {
        auto stream = files.OpenForReading(u"a.txt");
        ASSERT_TRUE(stream);
        EXPECT_EQ((*stream)->Size(), 9U);
        EXPECT_EQ(ReadAll(**stream, step), "one\r\n\0two"s);
    }
}

TEST(MemoryFiles, AnEmptyFileHasNothingToRead) {
    MemoryFiles files;
    files.Put(u"empty", "");
    auto stream = files.OpenForReading(u"empty");
    ASSERT_TRUE(stream);
    EXPECT_EQ((*stream)->Size(), 0U);
    EXPECT_EQ(ReadAll(**stream, 10), "");
    EXPECT_EQ(*(*stream)->Read(nullptr, 0), 0U);
}

TEST(MemoryFiles, AMissingNameFailsAndSaysWhichAndWhy) {
    MemoryFiles files;
    files.Put(u"a", "x");
    files.Remove(u"a");
    files.Remove(u"never there");
    auto stream = files.OpenForReading(u"a");
    ASSERT_FALSE(stream);
    EXPECT_EQ(stream.Failure().Operation, "open");
    EXPECT_EQ(stream.Failure().Name, u"a");
    EXPECT_EQ(stream.Failure().Reason, "No such file or directory");
}

TEST(MemoryFiles, AnOpenStreamKeepsWhatItOpened) {
    MemoryFiles files;
    files.Put(u"a", "first");
    auto stream = files.OpenForReading(u"a");
    files.Put(u"a", "second");
    EXPECT_EQ(ReadAll(**stream, 100), "first");
    stream = files.OpenForReading(u"a");
    files.Remove(u"a");
    EXPECT_EQ(ReadAll(**stream, 100), "second");
}

TEST(MemoryFiles, AJournalThatIsNotThereIsNoFailure) {
    MemoryFiles files;
    auto journal = files.OpenJournalForReading(u"a!.xml");
    ASSERT_TRUE(journal);
    EXPECT_EQ(*journal, nullptr);
    files.Put(u"a!.xml", "<corrections/>");
    journal = files.OpenJournalForReading(u"a!.xml");
    ASSERT_TRUE(journal);
    EXPECT_EQ(ReadAll(**journal, 100), "<corrections/>");
}

TEST(MemoryFiles, AReplacedDocumentMakesItsJournalSpent) {
    MemoryFiles files;
    files.Put(u"a", "old");
    files.Put(u"a!.xml", "journal");
    const Replacement replacement{u"a", u"a!.xml", DigestOf("old"), "new", {DigestOf("journal")}};
    ASSERT_TRUE(files.ReplaceDocument(replacement));
    EXPECT_EQ(*files.Bytes(u"a"), "new");
    EXPECT_EQ(*files.Bytes(u"a!.xml"), "journal");
    files.SetReadOnly(u"a!.xml");
    EXPECT_FALSE(files.RemoveSpentJournal(replacement));
    EXPECT_EQ(*files.Recover(u"a", u"a!.xml"), JournalStanding::Spent);
    ASSERT_TRUE(files.SaveJournal({u"a!.xml", u"a", {}}, "another"));
    EXPECT_EQ(*files.Recover(u"a", u"a!.xml"), JournalStanding::InForce);
    const JournalPlace another{u"a!.xml", u"a", {DigestOf("another")}};
    EXPECT_FALSE(files.DeleteJournal(another, false));
    EXPECT_TRUE(files.DeleteJournal(another, true));
    EXPECT_FALSE(*files.Exists(u"a!.xml"));
}

TEST(MemoryFiles, AJournalThatIsNotKnownIsMovedAside) {
    MemoryFiles files;
    files.Put(u"a", "old");
    files.Put(u"a!.xml", "one");
    ASSERT_TRUE(files.SaveJournal({u"a!.xml", u"a", {DigestOf("one")}}, "two"));
    EXPECT_TRUE(files.Displaced().empty());
    ASSERT_TRUE(files.SaveJournal({u"a!.xml", u"a", {DigestOf("one")}}, "three"));
    EXPECT_EQ(files.Displaced(), std::vector<std::string>{"two"});
    ASSERT_TRUE(files.DeleteJournal({u"a!.xml", u"a", {}}, true));
    files.Put(u"a!.xml", "four");
    const Replacement replacement{u"a", u"a!.xml", DigestOf("old"), "new", {}};
    ASSERT_TRUE(files.ReplaceDocument(replacement));
    ASSERT_TRUE(files.RemoveSpentJournal(replacement));
    EXPECT_EQ(files.Displaced(), (std::vector<std::string>{"two", "three", "four"}));
    EXPECT_FALSE(*files.Exists(u"a!.xml"));
    files.Put(u"!.xml", "of no document");
    ASSERT_TRUE(files.SaveJournal({u"!.xml", u"", {}}, "another"));
    EXPECT_EQ(files.Displaced().size(), 3U);
}

TEST(FailingFiles, EveryCallFailsThatIsToldTo) {
    MemoryFiles files;
    files.Put(u"a", "text");
    FailingFiles failing(files);
    const Replacement replacement{u"a", u"a!.xml", {}, "new"};
    EXPECT_EQ(*failing.OpenJournalForReading(u"a!.xml"), nullptr);
    failing.FailOpen = failing.FailExists = failing.FailSave = failing.FailDelete = true;
    failing.FailReplace = failing.FailRemoveSpent = failing.FailRecover = true;
    EXPECT_FALSE(failing.Exists(u"a"));
    EXPECT_FALSE(failing.OpenJournalForReading(u"a!.xml"));
    EXPECT_FALSE(failing.SaveJournal({u"a!.xml", u"a", {}}, "x"));
    EXPECT_FALSE(failing.DeleteJournal({u"a", u"", {}}, true));
    EXPECT_FALSE(failing.ReplaceDocument(replacement));
    EXPECT_FALSE(failing.RemoveSpentJournal(replacement));
    EXPECT_FALSE(failing.Recover(u"a", u"a!.xml"));
    EXPECT_EQ(failing.AbsoluteName(u"a"), u"a");
    EXPECT_EQ(*files.Bytes(u"a"), "text");
}

TEST(FailingFiles, AJournalsStreamFailsToo) {
    MemoryFiles files;
    files.Put(u"a!.xml", "text");
    FailingFiles failing(files);
    failing.FailRead = 1;
    EXPECT_EQ(ReadAll(**failing.OpenJournalForReading(u"a!.xml"), 3), "<Reading was made to fail>");
    EXPECT_EQ(*failing.OpenJournalForReading(u"b!.xml"), nullptr);
}

TEST(FailingFiles, HandsThroughWhenNothingIsToFail) {
    MemoryFiles files;
    files.Put(u"a", "text");
    FailingFiles failing(files);
    auto stream = failing.OpenForReading(u"a");
    ASSERT_TRUE(stream);
    EXPECT_EQ((*stream)->Size(), 4U);
    EXPECT_EQ(ReadAll(**stream, 3), "text");
    EXPECT_FALSE(failing.OpenForReading(u"b"));
}

TEST(FailingFiles, OpeningFails) {
    MemoryFiles files;
    files.Put(u"a", "text");
    FailingFiles failing(files);
    failing.FailOpen = true;
    auto stream = failing.OpenForReading(u"a");
    ASSERT_FALSE(stream);
    EXPECT_EQ(stream.Failure().Operation, "open");
    EXPECT_EQ(stream.Failure().Name, u"a");
    EXPECT_FALSE(stream.Failure().Reason.empty());
}

TEST(FailingFiles, TheChosenReadFailsInEveryStream) {
    MemoryFiles files;
    files.Put(u"a", "text");
    FailingFiles failing(files);
    failing.FailRead = 2;
    for (int round = 0; round < 2; ++round) {
        auto stream = failing.OpenForReading(u"a");
        ASSERT_TRUE(stream);
        EXPECT_EQ((*stream)->Size(), 4U);
        EXPECT_EQ(ReadAll(**stream, 3), "tex<Reading was made to fail>");
    }
    failing.FailRead = 1;
    auto stream = failing.OpenForReading(u"a");
    auto got = (*stream)->Read(nullptr, 0);
    ASSERT_FALSE(got);
    EXPECT_EQ(got.Failure().Operation, "read");
    EXPECT_EQ(got.Failure().Name, u"a");
}

TEST(Holds, TellsAFileFromWhatItWas) {
    MemoryFiles files;
    const std::string bytes(300000, 'x');
    files.Put(u"a", bytes);
    EXPECT_TRUE(Holds(files, u"a", DigestOf(bytes)));
    files.Put(u"a", bytes.substr(1) + "y");
    EXPECT_FALSE(Holds(files, u"a", DigestOf(bytes)));
    files.Put(u"a", bytes + "x");
    EXPECT_FALSE(Holds(files, u"a", DigestOf(bytes)));
    EXPECT_FALSE(Holds(files, u"missing", DigestOf("")));
    files.Put(u"empty", "");
    EXPECT_TRUE(Holds(files, u"empty", DigestOf("")));
    FailingFiles failing(files);
    failing.FailRead = 1;
    files.Put(u"a", bytes);
    EXPECT_FALSE(Holds(failing, u"a", DigestOf(bytes)));
}

}  // namespace
}  // namespace quorvale
