#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "workshop.h"

namespace quorvale {
namespace {

/// A commit is killed, and then its recovery fails or is killed as well.
class RecoveryFaults : public testing::TestWithParam<const char*> {
protected:
    RecoveryFaults() {
        const std::string scene = GetParam();
        shop_.HardLink = scene == "HardLink";
        shop_.SymbolicLink = scene == "ThroughALink";
        shop_.HasJournal = scene != "WithoutJournal";
    }

    std::string JournalInForce() const { return shop_.HasJournal ? shop_.Journal : ""; }

    /// The calls after which the files are no longer as they were.
    std::vector<int> ChangingCalls() {
        shop_.Reset();
        shop_.Calls.StartAnew();
        const auto files = shop_.Process(shop_.Calls);
        EXPECT_TRUE(shop_.Commit(*files, shop_.Job()));
        std::vector<int> changing;
        for (int at = 1; at <= shop_.Calls.Count(); ++at) {
            const std::string& call = shop_.Calls.Log()[static_cast<std::size_t>(at) - 1];
            const auto is = [&call](std::string_view name) { return call.starts_with(name); };
            if (is("write") || is("truncate") || is("rename") || is("unlink") || is("open .qbx") ||
                (is("open") && call.ends_with(".redo"))) {
                changing.push_back(at);
            }
        }
        return changing;
    }

    void CommitKilledAfter(int call) {
        shop_.Reset();
        shop_.Calls.StartAnew();
        shop_.Calls.KillAfter = call;
        EXPECT_TRUE(shop_.Killed([this] {
            const auto files = shop_.Process(shop_.Calls);
            shop_.Commit(*files, shop_.Job());
        }));
        shop_.Calls.KillAfter = 0;
    }

    int CallsOfTheRecoveryAfter(int call) {
        CommitKilledAfter(call);
        shop_.Calls.StartAnew();
        const auto files = shop_.Process(shop_.Calls);
        EXPECT_TRUE(shop_.Recover(*files));
        return shop_.Calls.Count();
    }

    /// What a control may conclude from a recovery, whatever failed in it.
    void ExpectHonest(FileResult<JournalStanding>& standing) {
        // A journal that is not in force is neither used nor touched.
        if (!standing) return;
        const bool corrected = shop_.Document() == shop_.New;
        if (*standing == JournalStanding::Spent) {
            ASSERT_TRUE(corrected);
        } else if (corrected) {
            ASSERT_EQ(shop_.JournalBytes(), std::nullopt) << "in force, and in the document too";
        } else {
            ASSERT_EQ(shop_.Document(), shop_.Old);
            ASSERT_EQ(shop_.JournalBytes().value_or(""), JournalInForce());
        }
    }

    Workshop shop_;
};

TEST_P(RecoveryFaults, WhateverFailsInARecoveryTheNextOneFindsEverything) {
    int runs = 0;
    for (const int killedAt : ChangingCalls()) {
        const int calls = CallsOfTheRecoveryAfter(killedAt);
        for (int at = 1; at <= calls; ++at) {
            for (const FaultyCalls::Fault& fault :
                 {FaultyCalls::Fault{at, EIO, true}, FaultyCalls::Fault{at, EIO, false},
                  FaultyCalls::Fault{at, EACCES, true}}) {
                CommitKilledAfter(killedAt);
                shop_.Calls.StartAnew();
                shop_.Calls.Failing = fault;
                const auto files = shop_.Process(shop_.Calls);
                auto standing = shop_.Recover(*files);
                SCOPED_TRACE("killed at " + std::to_string(killedAt) + ", then " +
                             shop_.Calls.Log()[static_cast<std::size_t>(at) - 1] + " fails");
                // A folder for records that we have no way into is one that we left nothing in.
                const bool noWayIn = fault.Error == EACCES && shop_.HardLink;
                if (!noWayIn) ExpectHonest(standing);
                if (HasFatalFailure()) return;
                shop_.ExpectSound(JournalInForce());
                if (HasFatalFailure()) return;
                ASSERT_EQ(shop_.Helpers(true), std::vector<std::string>());
                ++runs;
            }
        }
    }
    std::printf("[   FAULTS ] recovery, %s: %d runs\n", GetParam(), runs);
}

TEST_P(RecoveryFaults, KilledInARecoveryTheNextOneFindsEverything) {
    int points = 0;
    for (const int killedAt : ChangingCalls()) {
        const int calls = CallsOfTheRecoveryAfter(killedAt);
        for (int at = 1; at <= calls; ++at) {
            CommitKilledAfter(killedAt);
            shop_.Calls.StartAnew();
            shop_.Calls.KillAfter = at;
            const bool killed = shop_.Killed([this] {
                const auto files = shop_.Process(shop_.Calls);
                shop_.Recover(*files);
            });
            shop_.Calls.KillAfter = 0;
            SCOPED_TRACE("killed at " + std::to_string(killedAt) + " and then at " +
                         std::to_string(at) + " of " + std::to_string(calls));
            ASSERT_TRUE(killed);
            shop_.ExpectSound(JournalInForce());
            if (HasFatalFailure()) return;
            ASSERT_EQ(shop_.Helpers(true), std::vector<std::string>());
            ++points;
        }
    }
    std::printf("[    KILLS ] recovery, %s: %d points\n", GetParam(), points);
}

INSTANTIATE_TEST_SUITE_P(Scenes, RecoveryFaults,
                         testing::Values("WithJournal", "WithoutJournal", "ThroughALink",
                                         "HardLink"),
                         [](const auto& scene) { return std::string(scene.param); });

}  // namespace
}  // namespace quorvale
