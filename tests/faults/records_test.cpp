#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>

#include <string>

#include "adapters/commit_record.h"
#include "adapters/helping_names.h"
#include "adapters/record_fields.h"
#include "workshop.h"

namespace quorvale {
namespace {

/// What lies beside a document and looks like ours: torn, forged, of others, or in use.
class Records : public testing::Test {
protected:
    void SetUp() override { shop_.Reset(); }

    fs::path Here(const std::string& name) const { return shop_.Root / "here" / name; }
    fs::path RecordPath() const { return Here(CommitRecordName(tag_)); }
    std::string Temporary(char digit = '0') const {
        return ".qbx-" + tag_ + "-" + std::string(32, digit);
    }

    CommitRecord RecordOf(const std::string& old, const std::string& fresh) const {
        CommitRecord record;
        record.Old = DigestOf(old);
        record.New = DigestOf(fresh);
        record.Temporary = Temporary();
        record.Journal = {DigestOf(shop_.Journal), shop_.Base + "!.xml", ""};
        return record;
    }

    void Put(const CommitRecord& record) {
        WriteBytes(RecordPath(), EncodeCommitRecord(record, shop_.Base));
    }

    JournalStanding Recovered() {
        auto standing = shop_.Recover(*shop_.NewProcess());
        if (!standing) {
            ADD_FAILURE() << standing.Failure().Reason;
            return JournalStanding::InForce;
        }
        return *standing;
    }

    Workshop shop_;
    std::string tag_ = NameTag(shop_.Base);
};

TEST_F(Records, ARecordIsReadAsItWasWritten) {
    const CommitRecord record = RecordOf("a", "b");
    const std::string bytes = EncodeCommitRecord(record, "name\nwith: all\n");
    EXPECT_FALSE(DecodeCommitRecord(bytes, "name"));
    CommitRecord named = record;
    named.Temporary = ".qbx-" + NameTag("x\ny") + "-" + std::string(32, 'f');
    const auto read = DecodeCommitRecord(EncodeCommitRecord(named, "x\ny"), "x\ny");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->Old, record.Old);
    EXPECT_EQ(read->New, record.New);
    EXPECT_EQ(read->Temporary, named.Temporary);
    EXPECT_EQ(read->Journal.Digest, record.Journal.Digest);
    EXPECT_EQ(read->Journal.Name, record.Journal.Name);
    EXPECT_FALSE(read->OldIsMissing);
}

TEST_F(Records, ATornRecordIsRemovedAndTheJournalIsInForce) {
    const std::string whole = EncodeCommitRecord(RecordOf(shop_.Old, shop_.Old), shop_.Base);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        WriteBytes(RecordPath(), whole.substr(0, size));
        ASSERT_EQ(Recovered(), JournalStanding::InForce);
        ASSERT_EQ(shop_.JournalBytes(), shop_.Journal);
        ASSERT_FALSE(fs::exists(RecordPath())) << size;
    }
    for (std::size_t at = 0; at < whole.size(); ++at) {
        std::string spoilt = whole;
        spoilt[at] = static_cast<char>(spoilt[at] ^ 1);
        WriteBytes(RecordPath(), spoilt);
        ASSERT_EQ(Recovered(), JournalStanding::InForce);
        ASSERT_EQ(shop_.JournalBytes(), shop_.Journal) << at;
    }
    WriteBytes(RecordPath(), whole + "x");
    EXPECT_EQ(Recovered(), JournalStanding::InForce);
    EXPECT_EQ(shop_.JournalBytes(), shop_.Journal);
    // And the whole one says what it should.
    WriteBytes(RecordPath(), whole);
    EXPECT_EQ(Recovered(), JournalStanding::InForce);
    EXPECT_EQ(shop_.JournalBytes(), std::nullopt);
}

// An archive may bring its own records along.
TEST_F(Records, ARecordLeadsToNoOtherFile) {
    const fs::path other = shop_.Root / "there" / "other.txt";
    for (const std::string name : {"../there/other.txt", "other.txt", ".qbx-other", ""}) {
        WriteBytes(other, "precious");
        WriteBytes(Here("other.txt"), "precious");
        WriteBytes(Here(".qbx-other"), "precious");
        CommitRecord record = RecordOf("precious", shop_.Old);
        record.Temporary = name;
        Put(record);
        Recovered();
        EXPECT_EQ(BytesOf(other), "precious");
        EXPECT_EQ(BytesOf(Here("other.txt")), "precious");
        EXPECT_EQ(BytesOf(Here(".qbx-other")), "precious");
    }
    for (const std::string journal : {"../there/other.txt", "other.txt", "../there/x!.xml"}) {
        WriteBytes(shop_.Root / "there" / "x!.xml", "precious");
        CommitRecord record = RecordOf("precious", shop_.Old);
        record.Journal = {DigestOf("precious"), journal, ""};
        Put(record);
        Recovered();
        EXPECT_EQ(BytesOf(other), "precious");
        EXPECT_EQ(BytesOf(shop_.Root / "there" / "x!.xml"), "precious");
    }
}

TEST_F(Records, AJournalElsewhereIsMovedAsideAtMost) {
    CommitRecord record = RecordOf(shop_.Old, shop_.Old);
    record.Journal = {DigestOf("elsewhere"), "x!.xml", (shop_.Root / "there").string()};
    WriteBytes(shop_.Root / "there" / "x!.xml", "not the recorded one");
    Put(record);
    Recovered();
    EXPECT_EQ(BytesOf(shop_.Root / "there" / "x!.xml"), "not the recorded one");
    WriteBytes(shop_.Root / "there" / "x!.xml", "elsewhere");
    Put(record);
    Recovered();
    EXPECT_EQ(BytesOf(shop_.Root / "there" / "x!.xml"), std::nullopt);
    ASSERT_EQ(shop_.Helpers(true).size(), 1U);
    EXPECT_EQ(BytesOf(shop_.Helpers(true)[0]), "elsewhere");
    // The journal of the name that was asked for was never spoken of.
    EXPECT_EQ(shop_.JournalBytes(), shop_.Journal);
}

TEST_F(Records, ATemporaryFileWithOtherBytesIsKept) {
    WriteBytes(Here(Temporary()), "somebody's");
    Put(RecordOf(shop_.Old, shop_.New));
    EXPECT_EQ(Recovered(), JournalStanding::InForce);
    EXPECT_EQ(shop_.JournalBytes(), shop_.Journal);
    ASSERT_EQ(shop_.Helpers(true).size(), 1U);
    EXPECT_EQ(BytesOf(shop_.Helpers(true)[0]), "somebody's");
    EXPECT_EQ(shop_.Helpers(), std::vector<std::string>());
}

TEST_F(Records, ARecordOfSomebodyElseIsNotBelieved) {
    Put(RecordOf("x", shop_.Old));
    if (MayGiveAway(RecordPath(), 65533, 65533)) {
        ASSERT_EQ(chown(RecordPath().c_str(), 65533, 65533), 0);
        EXPECT_EQ(Recovered(), JournalStanding::InForce);
        EXPECT_EQ(shop_.JournalBytes(), shop_.Journal);
        EXPECT_TRUE(fs::exists(RecordPath()));
        // The owner of the document may do with it as he likes.
        ASSERT_EQ(chown(shop_.Named().c_str(), 65533, 65533), 0);
    }
    EXPECT_EQ(Recovered(), JournalStanding::InForce);
    EXPECT_EQ(shop_.JournalBytes(), std::nullopt);
}

TEST_F(Records, WhatIsNoFileIsNoRecord) {
    fs::create_symlink(shop_.JournalPath(), RecordPath());
    EXPECT_EQ(Recovered(), JournalStanding::InForce);
    fs::remove(RecordPath());
    fs::create_directory(RecordPath());
    EXPECT_EQ(Recovered(), JournalStanding::InForce);
    EXPECT_EQ(shop_.JournalBytes(), shop_.Journal);
    // A commit that cannot announce itself does not take place.
    EXPECT_FALSE(shop_.Commit(*shop_.NewProcess(), shop_.Job()));
    EXPECT_EQ(shop_.Document(), shop_.Old);
}

TEST_F(Records, WhileAnotherProcessReplacesTheFileEverybodyWaitsForAnotherTime) {
    Put(RecordOf("x", shop_.Old));
    const int file = open(RecordPath().c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(flock(file, LOCK_EX), 0);
    const auto files = shop_.NewProcess();
    EXPECT_FALSE(shop_.Recover(*files));
    EXPECT_FALSE(files->ReplaceDocument(shop_.Job()));
    EXPECT_FALSE(shop_.Save(*files, shop_.NextJournal));
    EXPECT_EQ(shop_.JournalBytes(), shop_.Journal);
    EXPECT_EQ(shop_.Document(), shop_.Old);
    close(file);
    EXPECT_TRUE(shop_.Recover(*files));
    EXPECT_EQ(shop_.JournalBytes(), std::nullopt);
}

TEST_F(Records, OnlyTemporaryFilesInNobodysUseAreRemoved) {
    const std::string other = ".qbx-" + NameTag("other.txt") + "-" + std::string(32, '0');
    const std::vector<std::string> strangers = {
        other,          ".qbx-notes",      ".qbx-" + tag_ + "-short",
        Temporary('g'), Temporary() + "0", "x" + Temporary()};
    for (const std::string& name : strangers) WriteBytes(Here(name), "x");
    WriteBytes(Here(Temporary('a')), "x");
    WriteBytes(Here(Temporary('b')), "x");
    fs::create_directory(Here(Temporary('c')));
    const int used = open(Here(Temporary('b')).c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(flock(used, LOCK_EX), 0);
    Recovered();
    EXPECT_FALSE(fs::exists(Here(Temporary('a'))));
    EXPECT_TRUE(fs::exists(Here(Temporary('b'))));
    EXPECT_TRUE(fs::exists(Here(Temporary('c'))));
    for (const std::string& name : strangers) EXPECT_TRUE(fs::exists(Here(name))) << name;
    close(used);
    Recovered();
    EXPECT_FALSE(fs::exists(Here(Temporary('b'))));
}

TEST_F(Records, ADocumentThatIsGoneIsWaitedFor) {
    Put(RecordOf(shop_.Old, shop_.New));
    fs::remove(shop_.Named());
    EXPECT_EQ(Recovered(), JournalStanding::InForce);
    EXPECT_TRUE(fs::exists(RecordPath()));
    WriteBytes(shop_.Named(), shop_.New);
    EXPECT_EQ(Recovered(), JournalStanding::InForce);
    EXPECT_FALSE(fs::exists(RecordPath()));
    EXPECT_EQ(shop_.JournalBytes(), std::nullopt);
}

// The whole folder was renamed between a crash and the next load.
TEST_F(Records, TheJournalIsFoundInAFolderThatWasMoved) {
    const auto files = shop_.NewProcess();
    ASSERT_TRUE(files->ReplaceDocument(shop_.Job()));
    fs::rename(shop_.Root / "here", shop_.Root / "moved");
    const std::string document = (shop_.Root / "moved" / shop_.Base).string();
    auto standing = shop_.NewProcess()->Recover(NameOf(document), NameOf(document + "!.xml"));
    ASSERT_TRUE(standing);
    EXPECT_FALSE(fs::exists(document + "!.xml"));
}

// A write into a file with two names was interrupted; it is loaded by the other one.
TEST_F(Records, AnInterruptedWriteIsEndedThroughAnyNameOfTheFile) {
    shop_.HardLink = true;
    shop_.Reset();
    shop_.Calls.StartAnew();
    const auto writer = shop_.Process(shop_.Calls);
    ASSERT_TRUE(writer->ReplaceDocument(shop_.Job()));
    // As if it had been killed in the middle.
    const std::string half = shop_.New.substr(0, 1024) + shop_.Old.substr(1024);
    WriteBytes(shop_.Named(), half);
    const std::string other = (shop_.Root / "there" / "other name").string();
    auto standing = shop_.NewProcess()->Recover(NameOf(other), NameOf(other + "!.xml"));
    ASSERT_TRUE(standing) << standing.Failure().Reason;
    EXPECT_EQ(BytesOf(other), shop_.New);
    EXPECT_EQ(shop_.JournalBytes(), std::nullopt);
    ASSERT_EQ(shop_.Helpers(true).size(), 1U);
    EXPECT_EQ(BytesOf(shop_.Helpers(true)[0]), shop_.Journal);
    EXPECT_EQ(shop_.Helpers(), std::vector<std::string>());
    bool told = false;
    for (const FileNotice& notice : shop_.Notices) {
        told = told || notice.What == FileNotice::Kind::WriteEnded;
    }
    EXPECT_TRUE(told);
}

// Somebody tidied up between the two steps of a commit.
TEST_F(Records, ACommitRemovesItsJournalWithoutItsRecordToo) {
    for (const bool hardLink : {false, true}) {
        for (const bool another : {false, true}) {
            shop_.HardLink = hardLink;
            shop_.Reset();
            const auto files = shop_.NewProcess();
            ASSERT_TRUE(files->ReplaceDocument(shop_.Job()));
            for (const std::string& helper : shop_.Helpers()) fs::remove(helper);
            if (another) WriteBytes(shop_.JournalPath(), shop_.NextJournal);
            ASSERT_TRUE(files->RemoveSpentJournal(shop_.Job()));
            EXPECT_EQ(shop_.JournalBytes(),
                      another ? std::optional(shop_.NextJournal) : std::nullopt);
            EXPECT_EQ(shop_.Document(), shop_.New);
        }
    }
}

TEST_F(Records, AFolderForRecordsThatOthersCanWriteIsNotUsed) {
    shop_.HardLink = true;
    shop_.Reset();
    fs::create_directories(shop_.State());
    fs::permissions(shop_.State(), fs::perms::all);
    auto committed = shop_.Commit(*shop_.NewProcess(), shop_.Job());
    ASSERT_FALSE(committed);
    EXPECT_EQ(committed.Failure().Reason, "It belongs to somebody else");
    EXPECT_EQ(shop_.Document(), shop_.Old);
    PosixFiles nowhere(SystemCalls(), "");
    EXPECT_FALSE(nowhere.ReplaceDocument(shop_.Job()));
    EXPECT_EQ(shop_.Document(), shop_.Old);
}

}  // namespace
}  // namespace quorvale
