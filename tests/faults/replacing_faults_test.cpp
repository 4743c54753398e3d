#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "workshop.h"

namespace quorvale {
namespace {

/// One way in which a document can lie there, and be replaced.
struct Scene {
    const char* Name;
    std::function<void(Workshop&)> Arrange;
};

void PrintTo(const Scene& scene, std::ostream* out) { *out << scene.Name; }

void WithoutExchange(Workshop& shop) {
    shop.Calls.Refuse = [](std::string_view call, std::string_view, unsigned flags) {
        return call == "rename" && flags != 0 ? ENOSYS : 0;
    };
}

/// Refuses the exchange that would put the new file in place.
void CannotBeMoved(Workshop& shop) {
    shop.Calls.Refuse = [](std::string_view call, std::string_view to, unsigned) {
        return call == "rename" && to == "log.txt" ? EBUSY : 0;
    };
}

void FolderTakesNoFiles(Workshop& shop) {
    shop.Calls.Refuse = [](std::string_view call, std::string_view name, unsigned flags) {
        return call == "open" && (flags & O_CREAT) != 0 && name.starts_with(".qbx-") ? EACCES : 0;
    };
}

const Scene scenes[] = {
    {"WithJournal", [](Workshop&) {}},
    {"WithoutJournal", [](Workshop& shop) { shop.HasJournal = false; }},
    {"WrittenJustNow", [](Workshop& shop) { shop.WrittenJustNow = true; }},
    {"DocumentIsGone", [](Workshop& shop) { shop.HasDocument = false; }},
    {"NoExchange", WithoutExchange},
    {"NoExchangeAndGone",
     [](Workshop& shop) {
         shop.HasDocument = false;
         WithoutExchange(shop);
     }},
    {"ThroughALink", [](Workshop& shop) { shop.SymbolicLink = true; }},
    {"ShortReadsAndWrites", [](Workshop& shop) { shop.Calls.Short = true; }},
    {"HardLinkGrowing", [](Workshop& shop) { shop.HardLink = true; }},
    {"HardLinkShrinking",
     [](Workshop& shop) {
         shop.HardLink = true;
         shop.New = "short\n";
         shop.Calls.Short = true;
     }},
    {"HardLinkWithoutJournal",
     [](Workshop& shop) {
         shop.HardLink = true;
         shop.HasJournal = false;
         shop.New = "";
     }},
    {"CannotBeMoved", CannotBeMoved},
    {"FolderTakesNoFiles", FolderTakesNoFiles},
};

class Replacing : public testing::TestWithParam<Scene> {
protected:
    Replacing() { GetParam().Arrange(shop_); }

    std::string JournalInForce() const { return shop_.HasJournal ? shop_.Journal : ""; }

    /// How many calls a commit takes.
    int CallsOfACommit() {
        shop_.Reset();
        shop_.Calls.StartAnew();
        const auto files = shop_.Process(shop_.Calls);
        auto committed = shop_.Commit(*files, shop_.Job());
        EXPECT_TRUE(committed) << committed.Failure().Operation << committed.Failure().Reason;
        EXPECT_EQ(shop_.Document(), shop_.New);
        EXPECT_EQ(shop_.JournalBytes(), std::nullopt);
        EXPECT_EQ(shop_.Helpers(), std::vector<std::string>());
        EXPECT_TRUE(shop_.Notices.empty());
        return shop_.Calls.Count();
    }

    /// Commits with a fault in the way, and leaves the process as it is then.
    std::unique_ptr<PosixFiles> CommitWith(FaultyCalls::Fault fault) {
        shop_.Reset();
        shop_.Calls.StartAnew();
        shop_.Calls.Failing = fault;
        auto files = shop_.Process(shop_.Calls);
        succeeded_ = bool(shop_.Commit(*files, shop_.Job()));
        failed_ = shop_.Calls.Count() >= fault.At ? shop_.Calls.Log()[size_t(fault.At) - 1] : "";
        shop_.Calls.StartAnew();
        return files;
    }

    /// Every call, with each error, once and from then on.
    void ForEveryFault(const std::vector<int>& errors,
                       const std::function<void(PosixFiles&)>& after) {
        const int calls = CallsOfACommit();
        const auto refuse = shop_.Calls.Refuse;
        int runs = 0;
        for (int at = 1; at <= calls; ++at) {
            for (const int error : errors) {
                for (const bool once : {true, false}) {
                    shop_.Calls.Refuse = refuse;
                    const auto files = CommitWith({at, error, once});
                    SCOPED_TRACE(std::string(once ? "once " : "from then on ") +
                                 std::to_string(at) + " of " + std::to_string(calls) + " (" +
                                 failed_ + ") " + std::to_string(error));
                    after(*files);
                    if (HasFatalFailure()) return;
                    ++runs;
                }
            }
        }
        std::printf("[   FAULTS ] %s: %d calls, %d runs\n", GetParam().Name, calls, runs);
    }

    Workshop shop_;
    bool succeeded_ = false;
    std::string failed_;
};

TEST_P(Replacing, AfterAnyFaultARestartFindsEverything) {
    ForEveryFault(TheErrors(), [this](PosixFiles&) {
        ASSERT_TRUE(!succeeded_ || shop_.Document() == shop_.New);
        shop_.ExpectSound(JournalInForce());
        if (HasFatalFailure()) return;
        ASSERT_EQ(shop_.Helpers(true), std::vector<std::string>());
        shop_.ExpectNextCommit();
    });
}

TEST_P(Replacing, AfterAnyFaultTryingAgainSucceeds) {
    ForEveryFault({EIO, EACCES}, [this](PosixFiles& files) {
        if (succeeded_) return;
        auto again = shop_.Commit(files, shop_.Job());
        ASSERT_TRUE(again) << again.Failure().Operation << again.Failure().Reason;
        ASSERT_EQ(shop_.Document(), shop_.New);
        ASSERT_EQ(shop_.JournalBytes(), std::nullopt);
        shop_.ExpectSound(JournalInForce());
        ASSERT_EQ(shop_.Helpers(true), std::vector<std::string>());
    });
}

// The user gives up after the failure and closes: the journal is saved as it is in memory.
TEST_P(Replacing, AfterAnyFaultTheSavedJournalIsInForceOrItsCorrectionsAreInTheDocument) {
    if (!shop_.HasDocument) shop_.HasJournal = false;
    ForEveryFault({EIO, EACCES}, [this](PosixFiles& files) {
        // From then on the journal in memory is gone.
        if (shop_.Replaced) return;
        shop_.Calls.Refuse = nullptr;
        const bool inDocument = shop_.Document() == shop_.New;
        const bool saved = bool(shop_.Save(files, shop_.NextJournal));
        shop_.ExpectSound(shop_.NextJournal);
        if (HasFatalFailure()) return;
        if (shop_.Document() == shop_.New) {
            ASSERT_FALSE(saved);
            ASSERT_FALSE(shop_.Save(files, shop_.NextJournal));
            const auto aside = shop_.Helpers(true);
            ASSERT_EQ(aside.size(), 1U);
            ASSERT_EQ(BytesOf(aside[0]), shop_.NextJournal);
        } else {
            ASSERT_TRUE(saved);
            ASSERT_FALSE(inDocument);
            ASSERT_EQ(shop_.Helpers(true), std::vector<std::string>());
        }
    });
}

TEST_P(Replacing, KilledAtAnyCallARestartFindsEverything) {
    const int calls = CallsOfACommit();
    int points = 0;
    for (int at = 1; at <= calls; ++at) {
        for (const bool before : {true, false}) {
            shop_.Reset();
            shop_.Calls.StartAnew();
            (before ? shop_.Calls.KillBefore : shop_.Calls.KillAfter) = at;
            const bool killed = shop_.Killed([this] {
                const auto files = shop_.Process(shop_.Calls);
                shop_.Commit(*files, shop_.Job());
            });
            shop_.Calls.KillBefore = shop_.Calls.KillAfter = 0;
            SCOPED_TRACE((before ? "before " : "after ") + std::to_string(at));
            ASSERT_TRUE(killed);
            shop_.ExpectSound(JournalInForce());
            if (HasFatalFailure()) return;
            ASSERT_EQ(shop_.Helpers(true), std::vector<std::string>());
            ++points;
        }
    }
    std::printf("[    KILLS ] %s: %d points\n", GetParam().Name, points);
}

TEST_P(Replacing, ACallThatIsDoneAndReportedAsFailedMakesNoDifference) {
    const int calls = CallsOfACommit();
    for (int at = 1; at <= calls; ++at) {
        const auto files = CommitWith({at, EIO, true, true});
        SCOPED_TRACE(failed_);
        shop_.ExpectSound(JournalInForce());
        if (HasFatalFailure()) return;
        shop_.ExpectNextCommit();
        if (HasFatalFailure()) return;
    }
}

// Of a large file the disk gets pieces while others are still written.
TEST(ReplacingALargeFile, EveryPieceMayFail) {
    Workshop shop;
    shop.New = std::string(9 << 20, 'x');
    shop.Reset();
    {
        const auto files = shop.Process(shop.Calls);
        ASSERT_TRUE(shop.Commit(*files, shop.Job()));
    }
    const auto calls = shop.Calls.Log();
    int hints = 0;
    for (std::size_t at = 1; at <= calls.size(); ++at) {
        const bool isHint = calls[at - 1].starts_with("hint");
        if (!isHint && !calls[at - 1].starts_with("write")) continue;
        hints += isHint ? 1 : 0;
        shop.Reset();
        shop.Calls.StartAnew();
        shop.Calls.Failing = {static_cast<int>(at), EIO, true};
        const auto files = shop.Process(shop.Calls);
        // What was a hint only need not be followed.
        EXPECT_EQ(bool(shop.Commit(*files, shop.Job())), isHint);
        shop.ExpectSound(shop.Journal);
    }
    EXPECT_EQ(hints, 2);
}

INSTANTIATE_TEST_SUITE_P(Scenes, Replacing, testing::ValuesIn(scenes),
                         [](const auto& scene) { return std::string(scene.param.Name); });

}  // namespace
}  // namespace quorvale
