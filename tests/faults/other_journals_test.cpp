#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "workshop.h"

namespace quorvale {
namespace {

using Names = std::vector<std::string>;

/// Another control has put a journal beside the document that this one knows nothing of.
class OtherJournals : public testing::Test {
protected:
    void SetUp() override { shop_.Reset(); }

    /// The holder has read or written this version of the journal, or none.
    JournalPlace Place(const std::vector<std::string>& known) const {
        JournalPlace place = shop_.KnownJournal();
        place.Known.clear();
        for (const std::string& bytes : known) place.Known.push_back(DigestOf(bytes));
        return place;
    }

    Replacement JobKnowing(const std::vector<std::string>& known) const {
        Replacement job = shop_.Job();
        job.KnownJournals = Place(known).Known;
        return job;
    }

    /// Exactly these bytes lie aside, and the host was told of them.
    void ExpectKept(const std::string& bytes) {
        const auto aside = shop_.Helpers(true);
        ASSERT_EQ(aside.size(), 1U);
        EXPECT_EQ(BytesOf(aside[0]), bytes);
        ASSERT_EQ(shop_.Notices.size(), 1U);
        EXPECT_EQ(shop_.Notices[0].What, FileNotice::Kind::JournalKept);
        EXPECT_EQ(PathOf(shop_.Notices[0].Name), shop_.Base + "!.xml");
        EXPECT_EQ(PathOf(shop_.Notices[0].KeptAs), aside[0]);
        EXPECT_EQ(shop_.Helpers(), Names());
    }

    bool LiesSomewhere(const std::string& bytes) const {
        const auto aside = shop_.Helpers(true);
        return shop_.JournalBytes() == bytes ||
               std::any_of(aside.begin(), aside.end(),
                           [&](const std::string& path) { return BytesOf(path) == bytes; });
    }

    Workshop shop_;
};

// Two controls had the document open, and the second one's corrections replaced the first one's.
TEST_F(OtherJournals, AreMovedAsideWhenAJournalIsSaved) {
    for (const bool plainRenames : {false, true}) {
        for (const auto& known : {std::vector<std::string>{}, {"what was there in the morning"}}) {
            shop_.Reset();
            shop_.Calls.Refuse = [=](std::string_view call, std::string_view, unsigned flags) {
                return plainRenames && call == "rename" && flags != 0 ? EINVAL : 0;
            };
            const auto files = shop_.Process(shop_.Calls);
            ASSERT_TRUE(files->SaveJournal(Place(known), shop_.NextJournal));
            EXPECT_EQ(shop_.JournalBytes(), shop_.NextJournal);
            ExpectKept(shop_.Journal);
        }
    }
}

TEST_F(OtherJournals, AreMovedAsideWhenAJournalIsDeleted) {
    const auto files = shop_.NewProcess();
    ASSERT_TRUE(files->DeleteJournal(Place({}), true));
    EXPECT_EQ(shop_.JournalBytes(), std::nullopt);
    ExpectKept(shop_.Journal);
}

TEST_F(OtherJournals, AreNotTheOnesThatWereReadOrWritten) {
    const auto files = shop_.NewProcess();
    ASSERT_TRUE(files->SaveJournal(Place({shop_.Journal}), shop_.NextJournal));
    ASSERT_TRUE(files->SaveJournal(Place({shop_.NextJournal}), shop_.Journal));
    ASSERT_TRUE(files->DeleteJournal(Place({shop_.NextJournal, shop_.Journal}), true));
    EXPECT_EQ(shop_.JournalBytes(), std::nullopt);
    EXPECT_EQ(shop_.Helpers(true), Names());
    EXPECT_TRUE(shop_.Notices.empty());
}

// The journal that belongs to no document is anybody's.
TEST_F(OtherJournals, DoNotExistWithoutADocument) {
    const JournalPlace place{NameOf((shop_.Root / "here" / "!.xml").string()), u"", {}};
    const auto files = shop_.NewProcess();
    ASSERT_TRUE(files->SaveJournal(place, "one"));
    ASSERT_TRUE(files->SaveJournal(place, "two"));
    EXPECT_EQ(BytesOf(PathOf(place.Name)), "two");
    ASSERT_TRUE(files->DeleteJournal(place, true));
    EXPECT_EQ(shop_.Helpers(true), Names());
}

// The document got its corrections from one journal, and the journal of another control was
// deleted.
TEST_F(OtherJournals, AreMovedAsideByACommit) {
    for (const bool hardLink : {false, true}) {
        for (const bool restarted : {false, true}) {
            shop_.HardLink = hardLink;
            shop_.Reset();
            const auto files = shop_.NewProcess();
            ASSERT_TRUE(files->ReplaceDocument(JobKnowing({shop_.NextJournal})));
            if (restarted) {
                ASSERT_EQ(*shop_.Recover(*shop_.NewProcess()), JournalStanding::InForce);
            } else {
                ASSERT_TRUE(files->RemoveSpentJournal(JobKnowing({shop_.NextJournal})));
            }
            EXPECT_EQ(shop_.Document(), shop_.New);
            EXPECT_EQ(shop_.JournalBytes(), std::nullopt);
            ExpectKept(shop_.Journal);
        }
    }
}

TEST_F(OtherJournals, ThatComeAtTheLastMomentAreKeptToo) {
    for (const bool hasJournal : {false, true}) {
        shop_.HasJournal = hasJournal;
        shop_.Reset();
        bool read = false;
        bool done = false;
        shop_.Calls.Before = [&](std::string_view call, std::string_view name) {
            // It has been seen to be ours, or not there, and is about to be replaced.
            read = read || call == "read";
            const bool last = hasJournal ? call == "look" && read : call == "rename";
            if (done || !last || name != shop_.Base + "!.xml") return;
            done = true;
            WriteBytes(shop_.JournalPath(), "from somebody else");
        };
        const auto files = shop_.Process(shop_.Calls);
        ASSERT_TRUE(files->SaveJournal(Place({shop_.Journal}), shop_.NextJournal));
        EXPECT_EQ(shop_.JournalBytes(), shop_.NextJournal);
        ExpectKept("from somebody else");
    }
}

TEST_F(OtherJournals, AreNotSearchedForEver) {
    shop_.HasJournal = false;
    shop_.Reset();
    int written = 0;
    shop_.Calls.Before = [&](std::string_view call, std::string_view name) {
        if (call != "rename" || name != shop_.Base + "!.xml") return;
        WriteBytes(shop_.JournalPath(), "version " + std::to_string(++written));
    };
    const auto files = shop_.Process(shop_.Calls);
    EXPECT_FALSE(files->SaveJournal(Place({}), shop_.NextJournal));
    EXPECT_LT(written, 10);
    for (int i = 1; i <= written; ++i) {
        EXPECT_TRUE(LiesSomewhere("version " + std::to_string(i)));
    }
    EXPECT_EQ(shop_.Helpers(), Names());
}

TEST_F(OtherJournals, AreNeverLostWhateverFails) {
    int runs = 0;
    for (const bool save : {true, false}) {
        const auto act = [&](PosixFiles& files) {
            return bool(save ? files.SaveJournal(Place({}), shop_.NextJournal)
                             : files.DeleteJournal(Place({}), true));
        };
        shop_.Reset();
        shop_.Calls.StartAnew();
        ASSERT_TRUE(act(*shop_.Process(shop_.Calls)));
        const int calls = shop_.Calls.Count();
        const auto check = [&](bool succeeded) {
            ASSERT_TRUE(LiesSomewhere(shop_.Journal));
            ASSERT_TRUE(!succeeded || !save || shop_.JournalBytes() == shop_.NextJournal);
            const auto files = shop_.NewProcess();
            ASSERT_TRUE(shop_.Recover(*files));
            ASSERT_EQ(shop_.Helpers(), Names());
            ASSERT_TRUE(files->SaveJournal(Place({shop_.NextJournal}), shop_.NextJournal));
            ASSERT_TRUE(LiesSomewhere(shop_.Journal));
            ASSERT_EQ(shop_.JournalBytes(), shop_.NextJournal);
            ASSERT_EQ(shop_.Helpers(true).size(), 1U);
            ++runs;
        };
        for (int at = 1; at <= calls; ++at) {
            for (const int error : TheErrors()) {
                for (const bool once : {true, false}) {
                    SCOPED_TRACE(std::to_string(at) + " " + std::to_string(error));
                    shop_.Reset();
                    shop_.Calls.StartAnew();
                    shop_.Calls.Failing = {at, error, once};
                    check(act(*shop_.Process(shop_.Calls)));
                    if (HasFatalFailure()) return;
                }
            }
            SCOPED_TRACE("killed after " + std::to_string(at));
            shop_.Reset();
            shop_.Calls.StartAnew();
            shop_.Calls.KillAfter = at;
            ASSERT_TRUE(shop_.Killed([&] { act(*shop_.Process(shop_.Calls)); }));
            shop_.Calls.KillAfter = 0;
            check(false);
            if (HasFatalFailure()) return;
        }
    }
    std::printf("[   FAULTS ] journals of others: %d runs\n", runs);
}

// A commit failed when all was done but the last synchronisation: every attempt to save made one
// more copy, and said so.
TEST_F(OtherJournals, CorrectionsThatAreInTheDocumentAlreadyAreSetAsideOnce) {
    int syncs = 0;
    shop_.Calls.Refuse = [&](std::string_view call, std::string_view, unsigned) {
        const bool placed = shop_.Document() == shop_.New;
        return call == "sync" && placed && ++syncs == 1 ? EIO : 0;
    };
    const auto files = shop_.Process(shop_.Calls);
    ASSERT_FALSE(files->ReplaceDocument(shop_.Job()));
    ASSERT_EQ(shop_.Document(), shop_.New);
    for (int attempt = 0; attempt < 3; ++attempt) {
        auto saved = shop_.Save(*files, shop_.NextJournal);
        ASSERT_FALSE(saved);
        EXPECT_EQ(saved.Failure().Reason, "The corrections are in the file already");
    }
    ExpectKept(shop_.NextJournal);
    // Other corrections, or a copy that is gone, are another matter.
    ASSERT_FALSE(shop_.Save(*files, "more"));
    EXPECT_EQ(shop_.Helpers(true).size(), 2U);
    EXPECT_TRUE(LiesSomewhere("more"));
    for (const std::string& path : shop_.Helpers(true)) fs::remove(path);
    ASSERT_FALSE(shop_.Save(*files, "more"));
    EXPECT_TRUE(LiesSomewhere("more"));
}

// Another control has committed the journal and removed it: saving it again would bring its
// corrections in twice.
TEST_F(OtherJournals, AreNotBroughtBackOverAChangedDocument) {
    JournalPlace place = Place({shop_.Journal});
    place.Loaded = LateDigest(DigestOf(shop_.Old));
    for (const std::string& document : {shop_.Old, shop_.New}) {
        shop_.Reset();
        fs::remove(shop_.JournalPath());
        WriteBytes(shop_.Real(), document);
        const auto files = shop_.NewProcess();
        const bool saved{files->SaveJournal(place, shop_.Journal)};
        EXPECT_EQ(saved, document == shop_.Old);
        if (saved) continue;
        // Trying again leaves no second copy.
        EXPECT_FALSE(files->SaveJournal(place, shop_.Journal));
        EXPECT_EQ(shop_.JournalBytes(), std::nullopt);
        ExpectKept(shop_.Journal);
    }
}

TEST_F(OtherJournals, AreCopiedAsideOnce) {
    const auto files = shop_.NewProcess();
    for (int attempt = 0; attempt < 2; ++attempt) {
        ASSERT_TRUE(files->CopyJournalAside(NameOf(shop_.JournalPath().string())));
    }
    EXPECT_EQ(shop_.Helpers(true).size(), 1U);
    EXPECT_EQ(shop_.Notices.size(), 2U);
}

}  // namespace
}  // namespace quorvale
