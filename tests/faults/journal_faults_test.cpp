#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <string>

#include "workshop.h"

namespace quorvale {
namespace {

class JournalFaults : public testing::Test {
protected:
    using Action = std::function<bool(PosixFiles&)>;

    int CallsOf(const Action& action) {
        Arrange();
        const auto files = shop_.Process(shop_.Calls);
        EXPECT_TRUE(action(*files));
        return shop_.Calls.Count();
    }

    /// Every call fails with every error, once and from then on, and the process is killed at every
    /// call; `after` is told whether the action succeeded.
    void ForEveryFault(const char* name, const Action& action,
                       const std::function<void(bool)>& after) {
        const int calls = CallsOf(action);
        int runs = 0;
        for (int at = 1; at <= calls; ++at) {
            for (const int error : TheErrors()) {
                for (const bool once : {true, false}) {
                    Arrange();
                    shop_.Calls.Failing = {at, error, once};
                    const auto files = shop_.Process(shop_.Calls);
                    const bool succeeded = action(*files);
                    SCOPED_TRACE(std::to_string(at) + " (" +
                                 shop_.Calls.Log()[static_cast<std::size_t>(at) - 1] + ") " +
                                 std::to_string(error) + (once ? " once" : " from then on"));
                    after(succeeded);
                    if (HasFatalFailure()) return;
                    ++runs;
                }
            }
            Arrange();
            shop_.Calls.KillAfter = at;
            ASSERT_TRUE(shop_.Killed([&] {
                const auto files = shop_.Process(shop_.Calls);
                action(*files);
            }));
            SCOPED_TRACE("killed after " + std::to_string(at));
            after(false);
            if (HasFatalFailure()) return;
        }
        std::printf("[   FAULTS ] %s: %d calls, %d runs, %d kill points\n", name, calls, runs,
                    calls);
    }

    void Arrange() {
        shop_.Reset();
        if (arrange_) arrange_();
        shop_.Calls.StartAnew();
        shop_.Calls.KillBefore = shop_.Calls.KillAfter = 0;
    }

    Workshop shop_;
    std::function<void()> arrange_;
};

TEST_F(JournalFaults, ASavedJournalIsTheOldOneOrTheNewOne) {
    for (const bool hasJournal : {true, false}) {
        for (const bool isShort : {true, false}) {
            shop_.HasJournal = hasJournal;
            shop_.Calls.Short = isShort;
            ForEveryFault(
                "save",
                [this](PosixFiles& files) { return bool(shop_.Save(files, shop_.NextJournal)); },
                [&](bool succeeded) {
                    const auto found = shop_.JournalBytes();
                    if (found != shop_.NextJournal) {
                        ASSERT_FALSE(succeeded);
                        ASSERT_EQ(found, hasJournal ? std::optional(shop_.Journal) : std::nullopt);
                    }
                    shop_.ExpectSound(found.value_or(""));
                    if (HasFatalFailure()) return;
                    ASSERT_EQ(shop_.Document(), shop_.Old);
                    const auto files = shop_.NewProcess();
                    ASSERT_TRUE(shop_.Save(*files, shop_.NextJournal));
                    ASSERT_EQ(shop_.JournalBytes(), shop_.NextJournal);
                });
        }
    }
}

// The journal of before could not be removed after its corrections were written.
TEST_F(JournalFaults, AJournalSavedOverASpentOneIsInForceOrNotThere) {
    arrange_ = [this] {
        const auto files = shop_.NewProcess();
        ASSERT_TRUE(files->ReplaceDocument(shop_.Job()));
        ASSERT_EQ(shop_.JournalBytes(), shop_.Journal);
    };
    ForEveryFault(
        "save over a spent one",
        [this](PosixFiles& files) { return bool(shop_.Save(files, shop_.NextJournal)); },
        [this](bool succeeded) {
            const auto files = shop_.NewProcess();
            auto standing = shop_.Recover(*files);
            ASSERT_TRUE(standing);
            ASSERT_EQ(*standing, JournalStanding::InForce);
            ASSERT_EQ(shop_.Document(), shop_.New);
            const auto found = shop_.JournalBytes();
            ASSERT_TRUE(found == shop_.NextJournal || (!found && !succeeded)) << *found;
            ASSERT_EQ(shop_.Helpers(), std::vector<std::string>());
            ASSERT_EQ(shop_.Helpers(true), std::vector<std::string>());
        });
}

TEST_F(JournalFaults, ADeletedJournalIsThereOrGone) {
    const JournalPlace place = shop_.KnownJournal();
    ForEveryFault(
        "delete", [&](PosixFiles& files) { return bool(files.DeleteJournal(place, true)); },
        [&](bool succeeded) {
            const auto found = shop_.JournalBytes();
            ASSERT_TRUE(!found || (found == shop_.Journal && !succeeded));
            ASSERT_EQ(shop_.Document(), shop_.Old);
            ASSERT_EQ(shop_.Helpers(), std::vector<std::string>());
            ASSERT_TRUE(shop_.NewProcess()->DeleteJournal(place, true));
            ASSERT_EQ(shop_.JournalBytes(), std::nullopt);
        });
}

// The journal that belongs to no document: nobody ever loads it.
TEST_F(JournalFaults, WhatAKilledSaveLeavesGoesWithTheNextOneInThatFolder) {
    shop_.HasJournal = false;
    const JournalPlace place{NameOf((shop_.Root / "here" / "!.xml").string()), u"", {}};
    const auto save = [&](PosixFiles& files) {
        return bool(files.SaveJournal(place, shop_.NextJournal));
    };
    ForEveryFault("save for no document", save, [&](bool) {
        ASSERT_TRUE(shop_.NewProcess()->DeleteJournal(place, true));
        ASSERT_EQ(BytesOf(shop_.Root / "here" / "!.xml"), std::nullopt);
        ASSERT_EQ(shop_.Helpers(), std::vector<std::string>());
        ASSERT_EQ(shop_.Document(), shop_.Old);
    });
}

TEST_F(JournalFaults, LookingForAndReadingFailsOrTellsTheTruth) {
    const std::u16string name = NameOf(shop_.JournalPath().string());
    for (const bool hasJournal : {true, false}) {
        shop_.HasJournal = hasJournal;
        const auto read = [&](PosixFiles& files) {
            auto exists = files.Exists(name);
            auto journal = files.OpenJournalForReading(name);
            if (!exists || !journal) return false;
            EXPECT_EQ(*exists, hasJournal);
            EXPECT_EQ(*journal != nullptr, hasJournal);
            if (*journal == nullptr) return true;
            std::string bytes((*journal)->Size() + 1, '?');
            auto got = (*journal)->Read(reinterpret_cast<std::byte*>(bytes.data()), bytes.size());
            if (!got) return false;
            EXPECT_EQ(bytes.substr(0, *got), shop_.Journal);
            return true;
        };
        ForEveryFault("read", read, [&](bool) {
            ASSERT_EQ(shop_.JournalBytes().has_value(), hasJournal);
            ASSERT_EQ(shop_.Helpers(), std::vector<std::string>());
        });
    }
}

}  // namespace
}  // namespace quorvale
