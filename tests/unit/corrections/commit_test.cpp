#include "corrections/commit.h"

#include <gtest/gtest.h>

#include "corrections/loaded_digest.h"
#include "corrections_rig.h"
#include "noted_files.h"

namespace quorvale {
namespace {

using Log = std::vector<std::string>;

/// The file "/doc.txt" with the lines A, B, C is shown; "C" was corrected to "X".
class CommitTest : public testing::Test, public CommitPeers {
protected:
    CommitTest() {
        files.Put(u"/doc.txt", "A\r\nB\r\nC");
        rig.Corrections.DocumentPath = u"/doc.txt";
        rig.Put({{3, 1, u"X\n"}});
        rig.Navigation.TopLine = Line{2};
        rig.Navigation.CaretRow = Line{3};
        rig.Navigation.CaretCol = 4;
    }

    bool MayCommit() override {
        if (OnMayCommit) OnMayCommit();
        return Allowed;
    }
    void LoadAgain(const std::u16string& name, const std::u16string& path) override {
        files.Log.push_back("load " + ToUtf8(name) + " from " + ToUtf8(path));
        rig.SetText(u"again");
        rig.Document.FileName = Vanishes ? u"" : name;
        if (OnLoad) OnLoad();
    }
    void SetTopLine(Line line) override {
        files.Log.push_back("top " + std::to_string(line.Number()));
        if (OnTop) OnTop();
    }
    void MoveTo(Line row, std::int32_t col) override {
        files.Log.push_back("caret " + std::to_string(row.Number()) + "," + std::to_string(col));
    }

    Log Committed() {
        files.Log.clear();
        commit.CommitUpdates();
        return files.Log;
    }

    void ExpectUntouched() {
        EXPECT_EQ(*files.Bytes(u"/doc.txt"), "A\r\nB\r\nC");
        EXPECT_EQ(rig.All(), (std::vector<Correction>{{3, 1, u"X\n"}}));
    }

    /// The reason that the user is told, without the message around it.
    std::string Reason() {
        if (rig.Messages.Log.size() != 1) return "not one message";
        EXPECT_EQ(rig.Messages.Log[0].Style, MessageStyle::Exclamation);
        const std::string text = ToUtf8(rig.Messages.Log[0].Text);
        const std::string before = "Fail to save file.\r\n";
        EXPECT_EQ(text.substr(0, before.size()), before);
        return text.substr(before.size());
    }

    bool Allowed = true;
    bool Vanishes = false;
    std::function<void()> OnMayCommit;
    std::function<void()> OnLoad;
    std::function<void()> OnTop;
    CorrectionsRig rig;
    NotedFiles files;
    Commit commit{rig.Document,  rig.Corrections, rig.Navigation,    rig.Journal,
                  rig.Corrected, rig.Recording,   rig.Marks,         files,
                  rig.Options,   rig.Messages,    Language::English, *this};
};

TEST_F(CommitTest, WritesTheFileRemovesTheJournalLoadsAgainAndGoesBack) {
    EXPECT_EQ(Committed(), (Log{"replace /doc.txt", "remove spent /doc.txt!.xml",
                                "load /doc.txt from /doc.txt", "top 2", "caret 3,4"}));
    EXPECT_EQ(*files.Bytes(u"/doc.txt"), "A\r\nB\r\nX\r\n");
    EXPECT_TRUE(rig.Messages.Log.empty());
}

TEST_F(CommitTest, TheReplacementSaysWhatWasLoaded) {
    Committed();
    EXPECT_EQ(files.Last.Document, u"/doc.txt");
    EXPECT_EQ(files.Last.Journal, u"/doc.txt!.xml");
    EXPECT_EQ(files.Last.Loaded, DigestOf("A\r\nB\r\nC"));
}

TEST_F(CommitTest, TheFormatIsKeptWhereTheHostWishesSo) {
    rig.SetText(u"a\tb\nB\nC");
    rig.Options.KeepLineFormat = true;
    Committed();
    EXPECT_EQ(files.LastBytes, "a\tb\nB\nX");
}

TEST_F(CommitTest, AnOpenEditIsWrittenToo) {
    rig.OpenOver(1, 1);
    rig.Elements.rtbEdit.SetText(u"typed");
    Committed();
    EXPECT_EQ(files.LastBytes, "typed\r\nB\r\nX\r\n");
}

TEST_F(CommitTest, AnEmptyJournalIsNoReasonToDoAnything) {
    rig.Journal.RemoveAll();
    EXPECT_EQ(Committed(), Log{});
    EXPECT_TRUE(rig.Messages.Log.empty());
}

TEST_F(CommitTest, WithoutAJournalNothingHappens) {
    rig.Journal.Drop();
    EXPECT_EQ(Committed(), Log{});
    EXPECT_TRUE(rig.Messages.Log.empty());
}

TEST_F(CommitTest, AHostThatRefusesIsObeyed) {
    Allowed = false;
    EXPECT_EQ(Committed(), Log{});
    ExpectUntouched();
    EXPECT_TRUE(rig.Messages.Log.empty());
}

TEST_F(CommitTest, ADocumentThatComesWhileTheHostIsAskedIsNotWritten) {
    OnMayCommit = [this] {
        rig.Journal.Open(nullptr);
        rig.Put({{1, 1, u"of another file\n"}});
    };
    EXPECT_EQ(Committed(), Log{});
}

TEST_F(CommitTest, AFileThatCannotBeWrittenLeavesEverythingForTheNextTry) {
    files.Fails["replace"] = true;
    EXPECT_EQ(Committed(), Log{"replace /doc.txt"});
    EXPECT_EQ(Reason(), "replace '/doc.txt': as the test wants it");
    ExpectUntouched();
    files.Fails.clear();
    Committed();
    EXPECT_EQ(*files.Bytes(u"/doc.txt"), "A\r\nB\r\nX\r\n");
}

TEST_F(CommitTest, ACharacterWithoutAByteStopsItBeforeTheFileIsTouched) {
    rig.Document.ReadAs = Encoding::SingleByte;
    rig.Journal.RemoveAll();
    rig.Put({{2, 1, u"\u65E5\n"}});
    EXPECT_EQ(Committed(), Log{});
    EXPECT_NE(Reason().find("U+65E5"), std::string::npos);
    EXPECT_EQ(rig.All().size(), 1U);
}

TEST_F(CommitTest, AJournalThatCouldNotBeReadStopsItToo) {
    rig.Corrections.Unreadable = FileFailure{"read", u"/doc.txt!.xml", "Input/output error"};
    EXPECT_EQ(Committed(), Log{});
    EXPECT_EQ(Reason(), "read '/doc.txt!.xml': Input/output error");
    ExpectUntouched();
}

TEST_F(CommitTest, AJournalThatStaysIsReportedAndTheCorrectionsAreNotKept) {
    rig.ShowRows();
    rig.Marks.RefreshCorrectionMarks();
    files.Fails["remove spent"] = true;
    EXPECT_EQ(Committed(), (Log{"replace /doc.txt", "remove spent /doc.txt!.xml"}));
    EXPECT_EQ(Reason(), "delete '/doc.txt!.xml': as the test wants it");
    EXPECT_EQ(*files.Bytes(u"/doc.txt"), "A\r\nB\r\nX\r\n");
    EXPECT_FALSE(rig.Journal.IsOpen());
    EXPECT_EQ(rig.Corrections.JournalRoot, nullptr);
    EXPECT_FALSE(rig.IsMarked(2));
    rig.Messages.Log.clear();
    EXPECT_EQ(Committed(), Log{}) << "a second one must not empty the file";
    EXPECT_TRUE(rig.Messages.Log.empty());
}

TEST_F(CommitTest, AFileThatIsGoneWhenItIsLoadedAgainIsReported) {
    Vanishes = true;
    EXPECT_EQ(Committed().back(), "load /doc.txt from /doc.txt");
    EXPECT_EQ(Reason(), "'/doc.txt' could not be loaded again");
}

TEST_F(CommitTest, ANameWithAPlaceholderInItIsShownAsItIs) {
    rig.Document.FileName = u"/100%1.txt";
    Vanishes = true;
    Committed();
    EXPECT_EQ(Reason(), "'/100%1.txt' could not be loaded again");
}

TEST_F(CommitTest, ARelativeNameStaysAndTheFileIsTheOneThatWasLoaded) {
    rig.Document.FileName = u"doc.txt";
    EXPECT_EQ(Committed()[2], "load doc.txt from /doc.txt");
    EXPECT_EQ(rig.Document.FileName, u"doc.txt");
    EXPECT_TRUE(rig.Messages.Log.empty());
}

TEST_F(CommitTest, AHostThatOpensAnotherFileMeanwhileIsLeftAlone) {
    OnLoad = [this] { rig.Document.FileName = u"/other.txt"; };
    EXPECT_EQ(Committed().back(), "load /doc.txt from /doc.txt");
    EXPECT_TRUE(rig.Messages.Log.empty());
}

TEST_F(CommitTest, AHostThatOpensAnotherFileWhenTheViewMovesIsLeftAlone) {
    OnTop = [this] { rig.SetText(u"other"); };
    EXPECT_EQ(Committed().back(), "top 2");
}

TEST_F(CommitTest, TheDigestIsThatOfTheBytesInEveryEncoding) {
    const std::string bytes("\xE9\x81\xF0\x9F\x98\x80\xFF\r\n\0tail\n", 15);
    for (const Encoding encoding : {Encoding::SingleByte, Encoding::Windows1252, Encoding::Utf8}) {
        MemoryFiles memory;
        memory.Put(u"/x", bytes);
        auto stream = memory.OpenForReading(u"/x");
        PlainMemory blocks;
        LoadedText loaded = ReadText(**stream, encoding, blocks);
        rig.Document.Text = std::move(loaded.Text);
        rig.Document.ReadAs = loaded.Used;
        EXPECT_EQ(LoadedDigest(rig.Document), DigestOf(bytes));
    }
    rig.SetText(u"");
    EXPECT_EQ(LoadedDigest(rig.Document), DigestOf(""));
}

// Symptom: the corrections of the file that was opened meanwhile were dropped, and the one before
// came back.
TEST_F(CommitTest, AHostThatLoadsAnotherFileInTheMiddleKeepsIt) {
    files.OnReplaced = [this] {
        rig.SetText(u"other");
        rig.Journal.Open(nullptr);
        rig.Put({{1, 1, u"Y\n"}});
    };
    EXPECT_EQ(Committed(), (Log{"replace /doc.txt", "remove spent /doc.txt!.xml"}));
    EXPECT_EQ(rig.All(), (std::vector<Correction>{{1, 1, u"Y\n"}}));
    EXPECT_EQ(*files.Bytes(u"/doc.txt"), "A\r\nB\r\nX\r\n");
}

TEST_F(CommitTest, AHostThatOnlyShowsCommitsNothing) {
    rig.Options.ReadOnly = true;
    EXPECT_EQ(Committed(), Log{});
    ExpectUntouched();
}

}  // namespace
}  // namespace quorvale
