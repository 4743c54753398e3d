#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <random>
#include <set>
#include <string>

#include "adapters/posix_files.h"
#include "platform/files.h"
#include "simulated_disk.h"
#include "workshop.h"

namespace quorvale {
namespace {

const std::string documentPath = "/home/logs/a.txt";
const std::string journalPath = documentPath + "!.xml";
const std::u16string documentName = u"/home/logs/a.txt";
const std::u16string journalName = u"/home/logs/a.txt!.xml";
const std::string stateFolder = "/home/state/quorvale";

/// Equal for disks that hold the same.
std::string Signature(const SimulatedDisk::Nodes& nodes) {
    std::string signature;
    for (const SimulatedDisk::Node& node : nodes) {
        const FileDigest digest = DigestOf(node.Data);
        signature += std::to_string(digest.Size) + "," + std::to_string(digest.Low) + ":";
        for (const auto& [name, target] : node.Entries) {
            signature += name + "=" + std::to_string(target) + ";";
        }
    }
    return signature;
}

/// The power is cut at every moment of an action, and again at every moment of the recovery.
class PowerCut : public testing::Test {
protected:
    void Arrange(bool withJournal, bool hardLink) {
        disk_ = SimulatedDisk();
        disk_.Put("/home/state/nothing", "");
        if (!documentIsGone_) disk_.Put(documentPath, old_);
        if (withJournal) disk_.Put(journalPath, journal_);
        if (hardLink) disk_.Link(documentPath, "/home/logs/other");
        journalBefore_ = withJournal ? std::optional(journal_) : std::nullopt;
    }

    PosixFiles Files(SimulatedDisk& disk) { return {disk, stateFolder}; }
    Replacement Job() const {
        return {documentName, journalName, DigestOf(old_), new_, Place().Known};
    }
    JournalPlace Place() const { return {journalName, documentName, {DigestOf(journal_)}}; }

    /// Every disk that may be found afterwards, each once.
    std::vector<SimulatedDisk::Nodes> Found(std::vector<SimulatedDisk::Moment> moments) {
        std::vector<SimulatedDisk::Nodes> found;
        std::set<std::string> seen;
        for (const SimulatedDisk::Moment& moment : moments) {
            for (auto& nodes : SimulatedDisk::AfterPowerCut(moment, 256, random_)) {
                if (seen.insert(Signature(nodes)).second) found.push_back(std::move(nodes));
            }
        }
        return found;
    }

    /// Recovers, and looks at what a load would then find.
    void Recover(SimulatedDisk& disk) {
        auto files = Files(disk);
        auto standing = files.Recover(documentName, journalName);
        ASSERT_TRUE(standing) << standing.Failure().Reason;
        ASSERT_EQ(*standing, JournalStanding::InForce);
    }

    void ExpectSound(const SimulatedDisk& disk) {
        const auto document = disk.Bytes(documentPath);
        const auto journal = disk.Bytes(journalPath);
        const auto before = documentIsGone_ ? std::nullopt : std::optional(old_);
        ASSERT_TRUE(document == before || document == new_) << "the document is damaged";
        if (document == new_) {
            ASSERT_EQ(journal, std::nullopt) << "the corrections would come in twice";
        } else {
            ASSERT_EQ(journal, journalBefore_) << "the corrections are lost";
        }
        for (const std::string folder : {"/home/logs", "/home/state/quorvale"}) {
            for (const std::string& name : disk.Names(folder)) {
                ASSERT_FALSE(name.starts_with(".qbx-") || name.ends_with(".redo")) << name;
            }
        }
    }

    /// After an action with the disk: the power is cut, recovered, cut in recovery, recovered
    /// again.
    void CutEverywhere(const char* name) {
        const auto first = Found(disk_.TakeMoments());
        std::size_t second = 0;
        for (const auto& nodes : first) {
            SimulatedDisk disk(nodes);
            Recover(disk);
            if (HasFatalFailure()) return;
            ExpectSound(disk);
            if (HasFatalFailure()) return;
            for (const auto& again : Found(disk.TakeMoments())) {
                SimulatedDisk last(again);
                Recover(last);
                if (HasFatalFailure()) return;
                ExpectSound(last);
                if (HasFatalFailure()) return;
                ++second;
            }
        }
        std::printf("[     CUTS ] %s: %zu states, %zu after a second cut\n", name, first.size(),
                    second);
        EXPECT_GT(first.size(), 5U);
    }

    /// The process is killed at every moment of an action, recovers, and then the power is cut.
    void KillAndCutEverywhere(const char* name) {
        std::size_t states = 0;
        for (const SimulatedDisk::Moment& moment : disk_.TakeMoments()) {
            SimulatedDisk disk(moment);
            disk.OnlyPlainRenames = disk_.OnlyPlainRenames;
            disk.TakeMoments();
            Recover(disk);
            if (HasFatalFailure()) return;
            ExpectSound(disk);
            for (const auto& nodes : Found(disk.TakeMoments())) {
                SimulatedDisk last(nodes);
                Recover(last);
                if (HasFatalFailure()) return;
                ExpectSound(last);
                if (HasFatalFailure()) return;
                ++states;
            }
        }
        std::printf("[     CUTS ] %s: %zu states after a kill and a cut\n", name, states);
    }

    void Commit() {
        auto files = Files(disk_);
        ASSERT_TRUE(files.ReplaceDocument(Job()));
        ASSERT_TRUE(files.RemoveSpentJournal(Job()));
        ASSERT_EQ(disk_.Bytes(documentPath), new_);
    }

    std::string old_ = NumberedLines(1, 200);
    std::string new_ = NumberedLines(7000, 230);
    std::string journal_ = "<corrections><update start=\"1\" loc=\"1\">a\n</update></corrections>";
    std::optional<std::string> journalBefore_;
    bool documentIsGone_ = false;
    SimulatedDisk disk_;
    std::mt19937 random_{5};
};

TEST_F(PowerCut, ACommitThatRenamesIsDoneOrNotDone) {
    for (const bool withJournal : {true, false}) {
        Arrange(withJournal, false);
        Commit();
        const SimulatedDisk committed = disk_;
        CutEverywhere(withJournal ? "renaming" : "renaming, no journal");
        if (HasFatalFailure()) return;
        disk_ = committed;
        KillAndCutEverywhere(withJournal ? "renaming" : "renaming, no journal");
        if (HasFatalFailure()) return;
    }
}

TEST_F(PowerCut, ACommitWithoutAnExchangeIsDoneOrNotDone) {
    Arrange(true, false);
    disk_.OnlyPlainRenames = true;
    Commit();
    CutEverywhere("renaming, no exchange");
}

TEST_F(PowerCut, ACommitOfADocumentThatIsGoneIsDoneOrNotDone) {
    for (const bool plain : {true, false}) {
        documentIsGone_ = true;
        Arrange(true, false);
        disk_.OnlyPlainRenames = plain;
        Commit();
        CutEverywhere("the document is gone");
    }
}

TEST_F(PowerCut, AnotherProgramsVersionIsNeverLost) {
    for (const int way : {0, 1, 2}) {
        Arrange(true, way == 2);
        disk_.OnlyPlainRenames = way == 1;
        const std::string foreign = NumberedLines(50, 150);
        disk_.Put(documentPath, foreign);
        Commit();
        for (const auto& nodes : Found(disk_.TakeMoments())) {
            SimulatedDisk disk(nodes);
            Recover(disk);
            const auto document = disk.Bytes(documentPath);
            ASSERT_TRUE(document == foreign || document == new_);
            const bool corrected = document == new_;
            ASSERT_TRUE(!corrected || !disk.Bytes(journalPath));
            bool foreignIsKept = !corrected;
            bool journalIsKept = corrected || disk.Bytes(journalPath) == journal_;
            for (const std::string& name : disk.Names("/home/logs")) {
                const auto bytes = disk.Bytes("/home/logs/" + name);
                if (!name.starts_with(".qbx-")) continue;
                ASSERT_TRUE(name.starts_with(".qbx-displaced-")) << name;
                foreignIsKept = foreignIsKept || bytes == foreign;
                journalIsKept = journalIsKept || bytes == journal_;
            }
            ASSERT_TRUE(foreignIsKept);
            ASSERT_TRUE(journalIsKept);
        }
    }
}

TEST_F(PowerCut, ACommitInPlaceIsDoneOrNotDone) {
    for (const bool withJournal : {true, false}) {
        for (const int lines : {230, 200, 90, 0}) {
            new_ = NumberedLines(7000, lines);
            Arrange(withJournal, true);
            Commit();
            const SimulatedDisk committed = disk_;
            CutEverywhere(withJournal ? "in place" : "in place, no journal");
            if (HasFatalFailure()) return;
            disk_ = committed;
            KillAndCutEverywhere(withJournal ? "in place" : "in place, no journal");
            if (HasFatalFailure()) return;
        }
    }
}

TEST_F(PowerCut, ACommitThatIsTriedAgainIsDoneOrNotDone) {
    Arrange(true, false);
    auto files = Files(disk_);
    ASSERT_TRUE(files.ReplaceDocument(Job()));
    // The journal was not removed: the next commit meets the record of the first one.
    ASSERT_TRUE(files.ReplaceDocument(Job()));
    ASSERT_TRUE(files.RemoveSpentJournal(Job()));
    CutEverywhere("renaming twice");
}

TEST_F(PowerCut, WhatWasReportedAsDoneStaysDone) {
    const std::string next = "<corrections>next</corrections>";
    for (const bool hardLink : {true, false}) {
        Arrange(true, hardLink);
        auto files = Files(disk_);
        ASSERT_TRUE(files.ReplaceDocument(Job()));
        for (const auto& nodes : Found({disk_.TakeMoments().back()})) {
            SimulatedDisk disk(nodes);
            Recover(disk);
            ASSERT_EQ(disk.Bytes(documentPath), new_);
        }
        ASSERT_TRUE(files.RemoveSpentJournal(Job()));
        ASSERT_TRUE(files.SaveJournal(Place(), next));
        auto moments = disk_.TakeMoments();
        for (const auto& nodes : Found({moments.back()})) {
            SimulatedDisk disk(nodes);
            Recover(disk);
            ASSERT_EQ(disk.Bytes(documentPath), new_);
            ASSERT_EQ(disk.Bytes(journalPath), next);
        }
        for (const auto& nodes : Found(std::move(moments))) {
            SimulatedDisk disk(nodes);
            Recover(disk);
            ASSERT_EQ(disk.Bytes(documentPath), new_);
            ASSERT_TRUE(!disk.Bytes(journalPath) || disk.Bytes(journalPath) == next);
            for (const std::string& name : disk.Names("/home/logs")) {
                ASSERT_FALSE(name.starts_with(".qbx-")) << name;
            }
        }
        ASSERT_TRUE(files.DeleteJournal(Place(), true));
        for (const auto& nodes : Found({disk_.TakeMoments().back()})) {
            SimulatedDisk disk(nodes);
            Recover(disk);
            ASSERT_EQ(disk.Bytes(journalPath), std::nullopt);
        }
    }
}

TEST_F(PowerCut, ASavedJournalIsTheOldOneOrTheNewOne) {
    Arrange(true, false);
    const std::string next = NumberedLines(1, 100);
    auto files = Files(disk_);
    ASSERT_TRUE(files.SaveJournal(Place(), next));
    for (const auto& nodes : Found(disk_.TakeMoments())) {
        SimulatedDisk disk(nodes);
        Recover(disk);
        const auto journal = disk.Bytes(journalPath);
        ASSERT_TRUE(journal == journal_ || journal == next);
        journalBefore_ = journal;
        ExpectSound(disk);
    }
}

// Its corrections are in the document, and it could not be removed; then others are saved.
TEST_F(PowerCut, ASpentJournalNeverComesBack) {
    for (const bool hardLink : {true, false}) {
        Arrange(true, hardLink);
        const std::string next = "<corrections>next</corrections>";
        auto files = Files(disk_);
        ASSERT_TRUE(files.ReplaceDocument(Job()));
        disk_.TakeMoments();
        ASSERT_TRUE(files.SaveJournal(Place(), next));
        auto moments = disk_.TakeMoments();
        for (const auto& nodes : Found({moments.back()})) {
            SimulatedDisk disk(nodes);
            Recover(disk);
            ASSERT_EQ(disk.Bytes(journalPath), next);
        }
        for (const auto& nodes : Found(std::move(moments))) {
            SimulatedDisk disk(nodes);
            Recover(disk);
            ASSERT_EQ(disk.Bytes(documentPath), new_);
            const auto journal = disk.Bytes(journalPath);
            ASSERT_TRUE(!journal || journal == next) << *journal;
        }
    }
}

// A write into the document was interrupted, and then somebody else wrote into it: nobody knows
// whether the corrections are in it.
TEST_F(PowerCut, AJournalThatWasSetAsideStaysAside) {
    Arrange(true, true);
    auto files = Files(disk_);
    ASSERT_TRUE(files.ReplaceDocument(Job()));
    disk_.Put(documentPath, NumberedLines(90, 40));
    Recover(disk_);
    for (const auto& nodes : Found(disk_.TakeMoments())) {
        SimulatedDisk disk(nodes);
        Recover(disk);
        ASSERT_EQ(disk.Bytes(documentPath), NumberedLines(90, 40));
        ASSERT_EQ(disk.Bytes(journalPath), std::nullopt);
        const auto names = disk.Names("/home/logs");
        const auto aside = std::count_if(names.begin(), names.end(), [](const std::string& name) {
            return name.starts_with(".qbx-displaced-");
        });
        ASSERT_EQ(aside, 1);
    }
}

}  // namespace
}  // namespace quorvale
