#include <gtest/gtest.h>

#include <map>
#include <string>

#include "workshop.h"

namespace quorvale {
namespace {

/// A commit is killed at each of its calls, and what is found of it is held against what the next
/// load then does.
class InterruptionTest : public testing::TestWithParam<const char*> {
protected:
    InterruptionTest() {
        const std::string scene = GetParam();
        shop_.HardLink = scene == "HardLink";
        shop_.SymbolicLink = scene == "ThroughALink";
        // Writing stops in the middle too.
        shop_.Calls.Short = true;
    }

    void CommitKilledBefore(int call) {
        shop_.Reset();
        fs::remove_all(shop_.State());
        shop_.Calls.StartAnew();
        shop_.Calls.KillBefore = call;
        killed_ = shop_.Killed([this] {
            const auto files = shop_.Process(shop_.Calls);
            shop_.Commit(*files, shop_.Job());
        });
        shop_.Calls.KillBefore = 0;
    }

    std::map<std::string, std::string> EveryFile() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(shop_.Root)) {
            if (entry.is_regular_file()) {
                files[entry.path().string()] = BytesOf(entry.path()).value_or("");
            }
        }
        return files;
    }

    Interruption Find() {
        const auto before = EveryFile();
        const auto files = shop_.NewProcess();
        auto found = files->FindInterruption(NameOf(shop_.Named().string()));
        EXPECT_TRUE(found) << found.Failure().Reason;
        EXPECT_EQ(EveryFile(), before) << "finding it has changed something";
        EXPECT_TRUE(shop_.Notices.empty());
        return found ? *found : Interruption::None;
    }

    void ExpectTrue(Interruption found) {
        const bool wasOld = shop_.Document() == shop_.Old;
        const bool wasNew = shop_.Document() == shop_.New;
        const bool hadJournal = shop_.JournalBytes().has_value();
        EXPECT_TRUE(shop_.Recover(*shop_.NewProcess()));
        const bool isNew = shop_.Document() == shop_.New;
        switch (found) {
            case Interruption::None:
                EXPECT_TRUE(wasOld || !hadJournal);
                [[fallthrough]];
            case Interruption::NotBegun:
                EXPECT_EQ(isNew, wasNew);
                EXPECT_EQ(shop_.JournalBytes().has_value(), hadJournal);
                break;
            case Interruption::HalfWritten:
                EXPECT_FALSE(wasOld);
                EXPECT_TRUE(isNew);
                EXPECT_EQ(shop_.JournalBytes(), std::nullopt);
                break;
            case Interruption::Finished:
                EXPECT_TRUE(wasNew);
                EXPECT_TRUE(isNew);
                EXPECT_EQ(shop_.JournalBytes(), std::nullopt);
                break;
            default:
                ADD_FAILURE() << "nobody has touched the file";
        }
    }

    Workshop shop_;
    bool killed_ = true;
};

TEST_P(InterruptionTest, WhatIsFoundIsWhatTheNextLoadDoes) {
    std::map<Interruption, int> seen;
    for (int call = 1; killed_ && !HasFailure(); ++call) {
        SCOPED_TRACE(call);
        CommitKilledBefore(call);
        const Interruption found = Find();
        ++seen[found];
        ExpectTrue(found);
    }
    EXPECT_GT(seen[Interruption::NotBegun], 0);
    EXPECT_GT(seen[Interruption::Finished], 0);
    EXPECT_EQ(seen[Interruption::HalfWritten] > 0, shop_.HardLink);
}

TEST_P(InterruptionTest, AFileThatWasEditedSinceIsToldApart) {
    bool told = false;
    for (int call = 1; killed_ && !HasFailure(); ++call) {
        CommitKilledBefore(call);
        if (Find() != Interruption::Finished) continue;
        WriteBytes(shop_.Real(), "written by somebody else\n");
        EXPECT_EQ(Find(), Interruption::Edited) << "call " << call;
        EXPECT_TRUE(shop_.Recover(*shop_.NewProcess()));
        EXPECT_EQ(shop_.Document(), "written by somebody else\n");
        told = true;
    }
    EXPECT_TRUE(told);
}

INSTANTIATE_TEST_SUITE_P(Scenes, InterruptionTest,
                         testing::Values("Beside", "HardLink", "ThroughALink"),
                         [](const auto& scene) { return std::string(scene.param); });

TEST(Interruption, NothingWasInterruptedInAFolderWithoutRecords) {
    Workshop shop;
    shop.Reset();
    auto found = shop.NewProcess()->FindInterruption(NameOf(shop.Named().string()));
    ASSERT_TRUE(found);
    EXPECT_EQ(*found, Interruption::None);
}

TEST(Interruption, OfAFileThatWasTakenAwayEverythingStays) {
    Workshop shop;
    shop.Reset();
    int call = 0;
    shop.Calls.Before = [&](std::string_view name, std::string_view) {
        if (name == "rename" && ++call == 1) _exit(FaultyCalls::killed);
    };
    ASSERT_TRUE(shop.Killed([&] { shop.Commit(*shop.Process(shop.Calls), shop.Job()); }));
    fs::remove(shop.Real());
    auto found = shop.NewProcess()->FindInterruption(NameOf(shop.Named().string()));
    ASSERT_TRUE(found);
    EXPECT_EQ(*found, Interruption::DocumentGone);
    EXPECT_TRUE(shop.Recover(*shop.NewProcess()));
    EXPECT_EQ(shop.JournalBytes(), shop.Journal);
}

}  // namespace
}  // namespace quorvale
