#include "corrections/journal_file.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "corrections_rig.h"
#include "noted_files.h"
#include "support/error_of.h"

namespace quorvale {
namespace {

using All = std::vector<Correction>;
using Log = std::vector<std::string>;

/// The file "/doc.txt" is being loaded: it has been opened, and its text is there.
class JournalFileTest : public testing::Test {
protected:
    JournalFileTest() {
        rig.Journal.Drop();
        files.Put(u"/doc.txt", "A\r\nB\r\nC");
        OpenDocument(u"/doc.txt");
    }

    void OpenDocument(const std::u16string& name) {
        EXPECT_TRUE(path.OpenForReading(name));
        rig.Document.FileName = name;
        files.Log.clear();
    }

    /// What somebody left beside the file.
    void PutJournal(std::initializer_list<Correction> corrections) {
        rig.Journal.Open(nullptr);
        rig.Put(corrections);
        files.Put(u"/doc.txt!.xml", xml.Keep(rig.Corrections.JournalDocument));
        rig.Journal.Drop();
    }

    /// The corrections that are in a file.
    All Stored(const std::u16string& name) {
        const std::string* bytes = files.Bytes(name);
        if (bytes == nullptr) return {};
        CorrectionsRig other;
        other.Journal.Open(xml.Read(*bytes, {}).Document);
        return other.All();
    }

    CorrectionsRig rig;
    NotedFiles files;
    KeptDocuments xml;
    DocumentPath path{files};
    JournalFile file{rig.Document, rig.Corrections, rig.Journal, rig.Recording, rig.Marks,
                     path,         files,           xml,         rig.Options};
};

TEST(JournalName, IsTheDocumentsWithFiveCharactersMore) {
    EXPECT_EQ(JournalName(u"/w/d3.txt"), u"/w/d3.txt!.xml");
}

TEST_F(JournalFileTest, AMissingJournalOpensEmpty) {
    file.OpenJournal();
    EXPECT_TRUE(rig.Journal.IsOpen());
    EXPECT_FALSE(rig.Journal.HasCorrections());
    EXPECT_EQ(rig.Corrections.DocumentPath, u"/doc.txt");
    EXPECT_EQ(files.Log, Log{"open journal /doc.txt!.xml"});
    EXPECT_TRUE(xml.Options.empty());
}

TEST_F(JournalFileTest, AJournalIsReadStrictlyWithItsWhiteSpaceAndAtOnce) {
    PutJournal({{2, 1, u"x\n"}});
    file.OpenJournal();
    ASSERT_EQ(xml.Options.size(), 1U);
    EXPECT_TRUE(xml.Options[0].ValidateOnParse);
    EXPECT_TRUE(xml.Options[0].PreserveWhiteSpace);
    EXPECT_FALSE(xml.Options[0].Async);
    EXPECT_EQ(rig.All(), (All{{2, 1, u"x\n"}}));
}

TEST_F(JournalFileTest, RowsAreMarkedAtOnce) {
    PutJournal({{1, 1, u"x\n"}});
    rig.ShowRows();
    file.OpenJournal();
    EXPECT_TRUE(rig.IsMarked(0));
}

TEST_F(JournalFileTest, AMalformedJournalOpensEmptyAndIsRemovedAtTheEnd) {
    files.Put(u"/doc.txt!.xml", "<corrections><update");
    file.OpenJournal();
    EXPECT_FALSE(rig.Journal.HasCorrections());
    file.CloseJournal();
    EXPECT_EQ(files.Bytes(u"/doc.txt!.xml"), nullptr);
}

TEST_F(JournalFileTest, AMalformedJournalIsReplacedByNewCorrections) {
    files.Put(u"/doc.txt!.xml", "<corrections><update");
    file.OpenJournal();
    rig.Put({{2, 1, u"x\n"}});
    file.CloseJournal();
    EXPECT_EQ(Stored(u"/doc.txt!.xml"), (All{{2, 1, u"x\n"}}));
}

TEST_F(JournalFileTest, ASpentJournalOpensEmpty) {
    PutJournal({{2, 1, u"x\n"}});
    files.Standing = JournalStanding::Spent;
    OpenDocument(u"/doc.txt");
    file.OpenJournal();
    EXPECT_FALSE(rig.Journal.HasCorrections());
    rig.Put({{3, 1, u"new\n"}});
    file.CloseJournal();
    EXPECT_EQ(Stored(u"/doc.txt!.xml"), (All{{3, 1, u"new\n"}}));
}

TEST_F(JournalFileTest, ASpentJournalIsNobodysWhenThereIsNothingToSave) {
    PutJournal({{2, 1, u"x\n"}});
    files.Standing = JournalStanding::Spent;
    OpenDocument(u"/doc.txt");
    file.OpenJournal();
    file.CloseJournal();
    EXPECT_EQ(files.Bytes(u"/doc.txt!.xml"), nullptr);
    EXPECT_TRUE(files.Displaced().empty());
}

TEST_F(JournalFileTest, ASpentJournalThatCannotBeReadDoesNoHarm) {
    PutJournal({{2, 1, u"x\n"}});
    files.Standing = JournalStanding::Spent;
    files.Fails["open journal"] = true;
    OpenDocument(u"/doc.txt");
    file.OpenJournal();
    EXPECT_FALSE(rig.Corrections.Unreadable.has_value());
}

// Two controls have the document open.
TEST_F(JournalFileTest, AJournalThatAnotherControlHasSavedMeanwhileIsKept) {
    for (const bool hasCorrections : {true, false}) {
        PutJournal({{2, 1, u"x\n"}});
        OpenDocument(u"/doc.txt");
        file.OpenJournal();
        files.Put(u"/doc.txt!.xml", "another's");
        if (!hasCorrections) rig.Journal.RemoveAll();
        file.CloseJournal();
        EXPECT_EQ(Stored(u"/doc.txt!.xml"), hasCorrections ? (All{{2, 1, u"x\n"}}) : All{});
    }
    EXPECT_EQ(files.Displaced(), (Log{"another's", "another's"}));
}

TEST_F(JournalFileTest, WhatThisControlHasReadOrSavedIsItsOwn) {
    PutJournal({{2, 1, u"x\n"}});
    file.OpenJournal();
    for (const std::int32_t line : {3, 4, 5}) {
        rig.Put({{line, 1, u"y\n"}});
        file.SaveNow();
    }
    rig.Journal.RemoveAll();
    file.SaveNow();
    rig.Put({{2, 1, u"z\n"}});
    file.CloseJournal();
    EXPECT_EQ(Stored(u"/doc.txt!.xml"), (All{{2, 1, u"z\n"}}));
    EXPECT_TRUE(files.Displaced().empty());
    // Of the earlier ones only the last is.
    file.OpenJournal();
    rig.Document.FileName = u"/doc.txt";
    const std::string first = *files.Bytes(u"/doc.txt!.xml");
    rig.Put({{3, 1, u"y\n"}});
    file.SaveNow();
    files.Put(u"/doc.txt!.xml", first);
    file.CloseJournal();
    EXPECT_EQ(files.Displaced(), Log{first});
}

TEST_F(JournalFileTest, ASaveThatWasReportedAsFailedMayHaveSucceeded) {
    file.OpenJournal();
    rig.Put({{2, 1, u"x\n"}});
    files.FailsAfterSaving = true;
    EXPECT_EQ(ErrorOf([&] { file.SaveNow(); }), ErrorKind::File);
    rig.Put({{3, 1, u"y\n"}});
    EXPECT_EQ(ErrorOf([&] { file.SaveNow(); }), ErrorKind::File);
    files.FailsAfterSaving = false;
    rig.Put({{4, 1, u"z\n"}});
    file.SaveNow();
    EXPECT_EQ(Stored(u"/doc.txt!.xml").size(), 3U);
    EXPECT_TRUE(files.Displaced().empty());
}

/// Ways in which a journal cannot be read although it may be good.
class UnreadableJournal : public JournalFileTest, public testing::WithParamInterface<const char*> {
protected:
    UnreadableJournal() {
        PutJournal({{2, 1, u"x\n"}});
        const std::string way = GetParam();
        if (way == "not xml") {
            files.Put(u"/doc.txt!.xml", "too much");
            xml.Error.CannotBeRead = true;
        } else {
            files.Fails[way] = true;
        }
        before = *files.Bytes(u"/doc.txt!.xml");
        OpenDocument(u"/doc.txt");
        file.OpenJournal();
        files.Fails.clear();
    }

    std::string before;
};

INSTANTIATE_TEST_SUITE_P(Ways, UnreadableJournal,
                         testing::Values("open journal", "recover", "not xml"),
                         [](const auto& tested) {
                             std::string name = tested.param;
                             std::erase(name, ' ');
                             return name;
                         });

TEST_P(UnreadableJournal, OpensEmptyAndStaysWhenNothingIsCorrected) {
    EXPECT_TRUE(rig.Journal.IsOpen());
    EXPECT_FALSE(rig.Journal.HasCorrections());
    EXPECT_NO_THROW(file.CloseJournal());
    ASSERT_NE(files.Bytes(u"/doc.txt!.xml"), nullptr);
    EXPECT_EQ(*files.Bytes(u"/doc.txt!.xml"), before);
}

TEST_P(UnreadableJournal, IsNeverOverwritten) {
    rig.Put({{3, 1, u"new\n"}});
    EXPECT_EQ(ErrorOf([&] { file.CloseJournal(); }), ErrorKind::File);
    EXPECT_EQ(*files.Bytes(u"/doc.txt!.xml"), before);
    EXPECT_FALSE(rig.Journal.IsOpen());
}

TEST_P(UnreadableJournal, NewCorrectionsAreSavedWithADocumentThatIsReplaced) {
    rig.Put({{3, 1, u"new\n"}});
    rig.Document.FileName.clear();
    EXPECT_NO_THROW(file.CloseJournal());
    EXPECT_EQ(Stored(u"!.xml"), (All{{3, 1, u"new\n"}}));
    EXPECT_EQ(*files.Bytes(u"/doc.txt!.xml"), before);
}

TEST_P(UnreadableJournal, IsForgottenWithItsDocument) {
    file.CloseJournal();
    OpenDocument(u"/doc.txt");
    PutJournal({{2, 1, u"x\n"}});
    file.OpenJournal();
    EXPECT_EQ(rig.All(), (All{{2, 1, u"x\n"}}));
    EXPECT_NO_THROW(file.CloseJournal());
}

TEST_F(JournalFileTest, ClosingSavesWhatIsThere) {
    file.OpenJournal();
    rig.Put({{2, 1, u"x\n"}});
    files.Log.clear();
    file.CloseJournal();
    EXPECT_EQ(files.Log, Log{"save /doc.txt!.xml beside '/doc.txt'"});
    EXPECT_EQ(Stored(u"/doc.txt!.xml"), (All{{2, 1, u"x\n"}}));
    EXPECT_FALSE(rig.Journal.IsOpen());
    EXPECT_EQ(rig.Document.FileName, u"");
}

TEST_F(JournalFileTest, ClosingAnEmptyJournalRemovesItsFileAndSaysNothingOfFailures) {
    PutJournal({{2, 1, u"x\n"}});
    file.OpenJournal();
    rig.Journal.RemoveAll();
    files.SetReadOnly(u"/doc.txt!.xml");
    files.Log.clear();
    file.CloseJournal();
    EXPECT_EQ(files.Log, Log{"delete with force /doc.txt!.xml"});
    EXPECT_EQ(files.Bytes(u"/doc.txt!.xml"), nullptr);
    OpenDocument(u"/doc.txt");
    file.OpenJournal();
    files.Fails["delete with force"] = true;
    EXPECT_NO_THROW(file.CloseJournal());
    EXPECT_FALSE(rig.Journal.IsOpen());
}

TEST_F(JournalFileTest, WhiteSpaceAloneIsSavedToo) {
    file.OpenJournal();
    rig.Corrections.JournalRoot->AppendChild(CreateXmlText(u"\n"));
    file.CloseJournal();
    EXPECT_NE(files.Bytes(u"/doc.txt!.xml"), nullptr);
}

TEST_F(JournalFileTest, AnOpenEditIsRecordedFirst) {
    file.OpenJournal();
    rig.OpenOver(2, 1);
    rig.Elements.rtbEdit.SetText(u"typed");
    file.CloseJournal();
    EXPECT_EQ(Stored(u"/doc.txt!.xml"), (All{{2, 1, u"typed\n"}}));
}

TEST_F(JournalFileTest, AJournalThatCannotBeSavedIsDroppedAllTheSame) {
    for (const bool byXml : {false, true}) {
        OpenDocument(u"/doc.txt");
        file.OpenJournal();
        rig.Put({{2, 1, u"x\n"}});
        files.Fails["save"] = !byXml;
        xml.WriteFails = byXml;
        EXPECT_EQ(ErrorOf([&] { file.CloseJournal(); }), ErrorKind::File);
        EXPECT_TRUE(rig.Corrections.OwnFiles.empty());
        EXPECT_EQ(rig.Corrections.JournalDocument, nullptr);
        EXPECT_EQ(rig.Corrections.JournalRoot, nullptr);
        EXPECT_EQ(rig.Document.FileName, u"");
        files.Log.clear();
        EXPECT_NO_THROW(file.CloseJournal());
        EXPECT_EQ(files.Log, Log{});
    }
}

TEST_F(JournalFileTest, WithTheNameGoneTheJournalGoesToTheCurrentFolder) {
    PutJournal({{9, 1, u"of the day before\n"}});
    file.OpenJournal();
    rig.Put({{2, 1, u"x\n"}});
    rig.Document.FileName.clear();
    file.CloseJournal();
    EXPECT_EQ(Stored(u"!.xml"), (All{{9, 1, u"of the day before\n"}, {2, 1, u"x\n"}}));
    EXPECT_EQ(Stored(u"/doc.txt!.xml"), (All{{9, 1, u"of the day before\n"}}));
}

TEST_F(JournalFileTest, WithTheNameGoneAnEmptyJournalRemovesTheFileInTheCurrentFolder) {
    files.Put(u"!.xml", "anything");
    file.OpenJournal();
    rig.Document.FileName.clear();
    file.CloseJournal();
    EXPECT_EQ(files.Bytes(u"!.xml"), nullptr);
}

TEST_F(JournalFileTest, SavingNowKeepsTheJournalOpen) {
    file.OpenJournal();
    rig.OpenOver(2, 1);
    rig.Elements.rtbEdit.SetText(u"typed");
    file.SaveNow();
    EXPECT_EQ(Stored(u"/doc.txt!.xml"), (All{{2, 1, u"typed\n"}}));
    EXPECT_EQ(rig.All(), (All{{2, 1, u"typed\n"}}));
    rig.Journal.RemoveAll();
    file.SaveNow();
    EXPECT_EQ(files.Bytes(u"/doc.txt!.xml"), nullptr);
    rig.Put({{3, 1, u"kept\n"}});
    files.Fails["save"] = true;
    EXPECT_EQ(ErrorOf([&] { file.SaveNow(); }), ErrorKind::File);
    EXPECT_EQ(rig.All(), (All{{3, 1, u"kept\n"}}));
    EXPECT_EQ(rig.Document.FileName, u"/doc.txt");
}

TEST_F(JournalFileTest, WithoutAJournalThereIsNothingToSave) {
    EXPECT_NO_THROW(file.SaveNow());
    EXPECT_NO_THROW(file.CloseJournal());
    EXPECT_EQ(files.Log, Log{});
}

TEST_F(JournalFileTest, ARelativeNameIsFixedWhenTheDocumentIsOpened) {
    files.Folder = u"/first/";
    files.Put(u"/first/a.txt", "x");
    OpenDocument(u"a.txt");
    files.Folder = u"/second/";
    file.OpenJournal();
    rig.Put({{1, 1, u"y\n"}});
    file.CloseJournal();
    EXPECT_EQ(Stored(u"/first/a.txt!.xml"), (All{{1, 1, u"y\n"}}));
}

TEST_F(JournalFileTest, WhatAnEarlierCommitLeftIsEndedBeforeTheDocumentIsRead) {
    EXPECT_TRUE(path.OpenForReading(u"/doc.txt"));
    EXPECT_EQ(files.Log, (Log{"recover /doc.txt", "open /doc.txt"}));
}

TEST_F(JournalFileTest, ANameThatWasFixedBeforeIsUsedOnce) {
    files.Folder = u"/second/";
    path.OpenNext(u"/doc.txt");
    EXPECT_TRUE(path.OpenForReading(u"doc.txt"));
    EXPECT_EQ(path.OfLastOpened(), u"/doc.txt");
    EXPECT_FALSE(path.OpenForReading(u"doc.txt"));
    EXPECT_EQ(path.OfLastOpened(), u"/second/doc.txt");
}

}  // namespace
}  // namespace quorvale
