#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <string>

#include "adapters/helping_names.h"
#include "workshop.h"

namespace quorvale {
namespace {

/// Other programs write the document and its journal too, at the worst moments.
class ForeignVersions : public testing::Test {
protected:
    static inline const std::string foreign = NumberedLines(77, 40);

    void SetUp() override { shop_.Reset(); }

    /// Runs when the new file is about to be put in place.
    void AtTheLastMoment(std::function<void()> action) {
        shop_.Calls.Before = [this, action](std::string_view call, std::string_view name) {
            if (call != "rename" || name != shop_.Base || done_) return;
            done_ = true;
            action();
        };
    }

    void WithoutExchange() {
        shop_.Calls.Refuse = [](std::string_view call, std::string_view, unsigned flags) {
            return call == "rename" && flags != 0 ? EINVAL : 0;
        };
    }

    FileResult<Done> Commit() {
        files_ = shop_.Process(shop_.Calls);
        return shop_.Commit(*files_, shop_.Job());
    }

    void ExpectKept(FileNotice::Kind what, const std::string& bytes) {
        const auto aside = shop_.Helpers(true);
        ASSERT_EQ(aside.size(), 1U);
        EXPECT_EQ(BytesOf(aside[0]), bytes);
        ASSERT_EQ(shop_.Notices.size(), 1U);
        EXPECT_EQ(shop_.Notices[0].What, what);
        EXPECT_EQ(PathOf(shop_.Notices[0].KeptAs), aside[0]);
    }

    Workshop shop_;
    std::unique_ptr<PosixFiles> files_;
    bool done_ = false;
};

TEST_F(ForeignVersions, WhatAnotherProgramWroteSinceTheLoadIsKeptBesideTheFile) {
    for (const bool exchange : {true, false}) {
        shop_.Reset();
        if (!exchange) WithoutExchange();
        WriteBytes(shop_.Named(), foreign);
        ASSERT_TRUE(Commit());
        EXPECT_EQ(shop_.Document(), shop_.New);
        EXPECT_EQ(shop_.JournalBytes(), std::nullopt);
        ExpectKept(FileNotice::Kind::DocumentKept, foreign);
        EXPECT_EQ(PathOf(shop_.Notices[0].Name), shop_.Base);
        EXPECT_EQ(shop_.Helpers(), std::vector<std::string>());
    }
}

TEST_F(ForeignVersions, OneThatCameAtTheLastMomentIsKeptToo) {
    AtTheLastMoment([this] {
        WriteBytes(shop_.Root / "new log", foreign);
        fs::rename(shop_.Root / "new log", shop_.Named());
    });
    ASSERT_TRUE(Commit());
    EXPECT_EQ(shop_.Document(), shop_.New);
    ExpectKept(FileNotice::Kind::DocumentKept, foreign);
}

TEST_F(ForeignVersions, WithoutAnExchangeTheLastMomentIsNoticedAndNothingIsOverwritten) {
    WithoutExchange();
    bool seen = false;
    shop_.Calls.Before = [&](std::string_view call, std::string_view name) {
        // The document has been looked at, and is about to be looked at once more.
        if (call == "read") seen = true;
        if (call == "look" && name == shop_.Base && seen && done_)
            WriteBytes(shop_.Named(), foreign);
        if (call == "rename" && name == shop_.Base) done_ = true;
    };
    EXPECT_FALSE(Commit());
    EXPECT_EQ(shop_.Document(), foreign);
    EXPECT_EQ(shop_.JournalBytes(), shop_.Journal);
    EXPECT_EQ(shop_.Helpers(), std::vector<std::string>());
    shop_.Calls.Before = nullptr;
    EXPECT_TRUE(Commit());
    EXPECT_EQ(shop_.Document(), shop_.New);
}

TEST_F(ForeignVersions, ADocumentThatComesBackAtTheLastMomentIsKept) {
    for (const bool exchange : {true, false}) {
        shop_.Reset();
        if (!exchange) WithoutExchange();
        fs::remove(shop_.Named());
        done_ = false;
        int renames = 0;
        shop_.Calls.Before = [&](std::string_view call, std::string_view name) {
            if (call != "rename" || name != shop_.Base) return;
            // Between the exchange that finds nothing and the renaming that must not overwrite.
            if (++renames == (exchange ? 2 : 1)) WriteBytes(shop_.Named(), foreign);
        };
        ASSERT_TRUE(Commit());
        EXPECT_EQ(shop_.Document(), shop_.New);
        ExpectKept(FileNotice::Kind::DocumentKept, foreign);
    }
}

TEST_F(ForeignVersions, ADocumentThatGoesAtTheLastMomentIsCreatedAnew) {
    AtTheLastMoment([this] { fs::remove(shop_.Named()); });
    ASSERT_TRUE(Commit());
    EXPECT_EQ(shop_.Document(), shop_.New);
    EXPECT_EQ(shop_.Helpers(), std::vector<std::string>());
    EXPECT_EQ(shop_.Helpers(true), std::vector<std::string>());
}

TEST_F(ForeignVersions, WhatIsNoFileAnyMoreIsLeftAlone) {
    const std::function<void()> kinds[] = {
        [this] { ASSERT_EQ(mkfifo(shop_.Named().c_str(), 0600), 0); },
        [this] { fs::create_directory(shop_.Named()); },
        [this] { fs::create_symlink("/dev/null", shop_.Named()); },
    };
    for (const auto& make : kinds) {
        shop_.Reset();
        fs::remove(shop_.Named());
        make();
        const auto before = fs::symlink_status(shop_.Named()).type();
        auto committed = Commit();
        ASSERT_FALSE(committed);
        EXPECT_FALSE(committed.Failure().Reason.empty());
        EXPECT_EQ(fs::symlink_status(shop_.Named()).type(), before);
        EXPECT_EQ(shop_.JournalBytes(), shop_.Journal);
        EXPECT_EQ(shop_.Helpers(), std::vector<std::string>());
    }
}

TEST_F(ForeignVersions, AFolderThatTakesThePlaceAtTheLastMomentIsKept) {
    AtTheLastMoment([this] {
        fs::remove(shop_.Named());
        fs::create_directory(shop_.Named());
        WriteBytes(shop_.Named() / "inside", foreign);
    });
    ASSERT_TRUE(Commit());
    EXPECT_EQ(shop_.Document(), shop_.New);
    ASSERT_EQ(shop_.Notices.size(), 1U);
    EXPECT_EQ(BytesOf(fs::path(PathOf(shop_.Notices[0].KeptAs)) / "inside"), foreign);
}

TEST_F(ForeignVersions, BeforeWritingInPlaceTheOtherVersionIsCopied) {
    shop_.HardLink = true;
    shop_.Reset();
    WriteBytes(shop_.Named(), foreign);
    ASSERT_TRUE(Commit());
    EXPECT_EQ(shop_.Document(), shop_.New);
    EXPECT_EQ(BytesOf(shop_.Root / "there" / "other name"), shop_.New);
    ExpectKept(FileNotice::Kind::DocumentKept, foreign);
}

TEST_F(ForeignVersions, WhereTheFolderTakesNoCopyTheFolderForRecordsDoes) {
    WriteBytes(shop_.Named(), foreign);
    shop_.Calls.Refuse = [](std::string_view call, std::string_view, unsigned flags) {
        static int creations = 0;
        // The temporary file, and the first try of a copy; the record itself is let through.
        if (call != "open" || (flags & O_CREAT) == 0) return 0;
        ++creations;
        return creations == 1 || creations == 3 ? EACCES : 0;
    };
    ASSERT_TRUE(Commit());
    EXPECT_EQ(shop_.Document(), shop_.New);
    ExpectKept(FileNotice::Kind::DocumentKept, foreign);
    EXPECT_EQ(fs::path(shop_.Helpers(true)[0]).parent_path(), shop_.State());
}

TEST_F(ForeignVersions, ADocumentThatChangesWhileItIsRecordedIsNotWrittenInto) {
    shop_.HardLink = true;
    shop_.Reset();
    int opened = 0;
    shop_.Calls.Before = [&](std::string_view call, std::string_view name) {
        // First for reading, then for writing.
        if (call == "open" && name == shop_.Base && ++opened == 2) {
            WriteBytes(shop_.Named(), foreign);
        }
    };
    EXPECT_FALSE(Commit());
    EXPECT_EQ(shop_.Document(), foreign);
    EXPECT_EQ(shop_.JournalBytes(), shop_.Journal);
    EXPECT_EQ(shop_.Helpers(), std::vector<std::string>());
}

// The corrections are in the document, and then another control saves its own.
TEST_F(ForeignVersions, AJournalThatIsNotTheSpentOneIsKept) {
    for (const bool hardLink : {false, true}) {
        shop_.HardLink = hardLink;
        shop_.Reset();
        files_ = shop_.Process(shop_.Calls);
        ASSERT_TRUE(files_->ReplaceDocument(shop_.Job()));
        WriteBytes(shop_.JournalPath(), shop_.NextJournal);
        auto standing = shop_.Recover(*shop_.NewProcess());
        ASSERT_TRUE(standing);
        EXPECT_EQ(*standing, JournalStanding::InForce);
        EXPECT_EQ(shop_.JournalBytes(), std::nullopt);
        ExpectKept(FileNotice::Kind::JournalKept, shop_.NextJournal);
        EXPECT_EQ(shop_.Helpers(), std::vector<std::string>());
    }
}

TEST_F(ForeignVersions, TheSameWhenTheCommitItselfFindsIt) {
    files_ = shop_.Process(shop_.Calls);
    ASSERT_TRUE(files_->ReplaceDocument(shop_.Job()));
    WriteBytes(shop_.JournalPath(), shop_.NextJournal);
    ASSERT_TRUE(files_->RemoveSpentJournal(shop_.Job()));
    ExpectKept(FileNotice::Kind::JournalKept, shop_.NextJournal);
}

// A commit was interrupted, and then somebody edited the file: are the corrections in it?
TEST_F(ForeignVersions, ADocumentThatIsNeitherOldNorNewPutsItsJournalAside) {
    for (const bool hardLink : {false, true}) {
        shop_.HardLink = hardLink;
        shop_.Reset();
        files_ = shop_.Process(shop_.Calls);
        ASSERT_TRUE(files_->ReplaceDocument(shop_.Job()));
        WriteBytes(shop_.Named(), foreign);
        auto standing = shop_.Recover(*shop_.NewProcess());
        ASSERT_TRUE(standing);
        EXPECT_EQ(*standing, JournalStanding::InForce);
        EXPECT_EQ(shop_.Document(), foreign);
        EXPECT_EQ(shop_.JournalBytes(), std::nullopt);
        EXPECT_EQ(shop_.Helpers(), std::vector<std::string>());
        const auto aside = shop_.Helpers(true);
        EXPECT_EQ(
            std::count_if(aside.begin(), aside.end(),
                          [this](const auto& path) { return BytesOf(path) == shop_.Journal; }),
            1);
        // The next load has nothing more to say about it.
        shop_.Notices.clear();
        WriteBytes(shop_.JournalPath(), shop_.NextJournal);
        ASSERT_TRUE(shop_.Recover(*shop_.NewProcess()));
        EXPECT_EQ(shop_.JournalBytes(), shop_.NextJournal);
        EXPECT_TRUE(shop_.Notices.empty());
    }
}

TEST_F(ForeignVersions, AHandlerMayLetGoOfTheFilesItHearsFrom) {
    WriteBytes(shop_.Named(), foreign);
    files_ = shop_.Process(shop_.Calls);
    files_->SetNoticeHandler([this](const FileNotice&) { files_.reset(); });
    ASSERT_TRUE(files_->ReplaceDocument(shop_.Job()));
    EXPECT_EQ(files_, nullptr);
}

}  // namespace
}  // namespace quorvale
