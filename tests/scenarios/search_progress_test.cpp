#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "found_rows.h"
#include "headless/headless_box.h"
#include "platform/paced_progress.h"
#include "search/file_scan.h"
#include "support/documents.h"
#include "support/slow_files.h"

namespace quorvale {
namespace {

/// A host that looks on while many files are searched.
class Watcher final : public SearchProgress {
public:
    std::function<bool(const SearchPlace&)> OnProgress;
    int Calls = 0;

    bool GoOn(const SearchPlace& place) override {
        ++Calls;
        return !OnProgress || OnProgress(place);
    }
};

HeadlessSetup Watched(std::shared_ptr<SearchProgress> watcher) {
    HeadlessSetup setup;
    setup.Progress = std::move(watcher);
    return setup;
}

class LongSearch : public testing::Test {
protected:
    LongSearch() : box_(Watched(watcher_)) {
        std::u16string names;
        for (int file = 0; file < fileCount; ++file) {
            const std::u16string name = u"/many/" + Wide(std::to_string(file));
            box_.Files().Put(name, file % 10 == 0 ? "a match\n" : "nothing\n");
            names += name + u"\r";
        }
        box_->SearchFiles(names);
        box_.Load(DocFile(50), u"/doc");
    }

    static constexpr int fileCount = 20'000;

    std::shared_ptr<Watcher> watcher_ = std::make_shared<Watcher>();
    HeadlessBox box_;
};

TEST_F(LongSearch, IsTheSameWhetherSomebodyLooksOnOrNot) {
    FindAll(box_, u"match");
    EXPECT_EQ(box_.Elements().lvFound.RowCount(), fileCount / 10 + 2U);
    EXPECT_GE(watcher_->Calls, fileCount);
}

TEST_F(LongSearch, TellsWhichFileItReadsAndHowManyThereAre) {
    std::size_t last = 0;
    watcher_->OnProgress = [&](const SearchPlace& place) {
        EXPECT_EQ(place.Files, static_cast<std::size_t>(fileCount));
        EXPECT_EQ(place.File, u"/many/" + Wide(std::to_string(place.FilesDone)));
        EXPECT_GE(place.FilesDone, last);
        last = place.FilesDone;
        return true;
    };
    FindAll(box_, u"match");
    EXPECT_EQ(last, fileCount - 1U);
}

TEST_F(LongSearch, MayBeEndedAndListsWhatItFound) {
    watcher_->OnProgress = [](const SearchPlace& place) { return place.FilesDone < 5'000; };
    FindAll(box_, u"match");
    ListView& list = box_.Elements().lvFound;
    EXPECT_EQ(list.RowCount(), 500U + 2);
    EXPECT_EQ(list.Cell(0, 2), u"500 match(es) found.");
    EXPECT_TRUE(list.Visible());
    EXPECT_EQ(list.Selected(), 1U);
    list.UserDoubleClick(1);
    EXPECT_EQ(box_->LineCount(), 2) << "the control is as usable as ever";
}

TEST_F(LongSearch, EndsAtOnceWhenTheControlIsDestroyed) {
    watcher_->OnProgress = [&](const SearchPlace& place) {
        if (place.FilesDone == 100) box_.Destroy();
        return true;
    };
    FindAll(box_, u"match");
    EXPECT_TRUE(box_.Destroyed());
    EXPECT_LE(watcher_->Calls, 2 * 101);
}

TEST_F(LongSearch, GivesWayToAnotherOneInside) {
    watcher_->OnProgress = [&](const SearchPlace& place) {
        if (place.FilesDone != 100) return true;
        watcher_->OnProgress = nullptr;
        box_->SearchFiles(u"/doc");
        FindAll(box_, u"L42");
        return true;
    };
    FindAll(box_, u"match");
    EXPECT_EQ(box_.Elements().lvFound.Cell(1, 2), u"L42");
    EXPECT_EQ(box_.Elements().lvFound.RowCount(), 3U);
}

TEST_F(LongSearch, GivesWayToAnotherDocument) {
    watcher_->OnProgress = [&](const SearchPlace& place) {
        if (place.FilesDone == 100) box_->text(u"another");
        return true;
    };
    FindAll(box_, u"match");
    EXPECT_FALSE(box_.Elements().lvFound.Visible());
    EXPECT_EQ(box_->text(), u"another\r\n");
}

TEST(LongSearchInMemory, MayBeEndedToo) {
    const auto watcher = std::make_shared<Watcher>();
    HeadlessBox box(Watched(watcher));
    box->text(Doc(10'000));
    watcher->OnProgress = [](const SearchPlace& place) {
        EXPECT_EQ(place.File, u"*");
        return place.Done < 3'000;
    };
    FindAll(box, u"L");
    const std::size_t rows = box.Elements().lvFound.RowCount();
    EXPECT_GT(rows, 3'000U);
    EXPECT_LT(rows, 5'000U);
    EXPECT_EQ(box.Elements().lvFound.Cell(0, 2),
              Wide(std::to_string(rows - 2)) + u" match(es) found.");
}

using std::chrono::milliseconds;

/// A host that shows something once a search takes long, and ends it when it is told to.
class PatientHost final : public PacedProgress {
public:
    using PacedProgress::PacedProgress;

    std::function<bool(const SearchPlace&)> OnTurn;
    int Turns = 0;
    int Ends = 0;

private:
    bool Turn(const SearchPlace& place) override {
        ++Turns;
        return !OnTurn || OnTurn(place);
    }
    void Over() noexcept override { ++Ends; }
};

/// 20,000 files, every tenth with a match, each of which takes two milliseconds.
class SlowSearch : public testing::Test {
protected:
    SlowSearch() : box_(Slow()) {
        std::u16string names;
        for (int file = 0; file < fileCount; ++file) {
            const std::u16string name = u"/many/" + Wide(std::to_string(file));
            memory_->Put(name, file % 10 == 0 ? "a match\n" : "nothing\n");
            names += name + u"\r";
        }
        box_->SearchFiles(names);
    }

    HeadlessSetup Slow() {
        HeadlessSetup setup;
        setup.Files = files_;
        setup.Progress = host_;
        return setup;
    }

    static constexpr int fileCount = 20'000;

    std::shared_ptr<HandClock> clock_ = std::make_shared<HandClock>();
    std::shared_ptr<MemoryFiles> memory_ = std::make_shared<MemoryFiles>();
    std::shared_ptr<SlowFiles> files_ = std::make_shared<SlowFiles>(memory_, clock_);
    std::shared_ptr<PatientHost> host_ = std::make_shared<PatientHost>(clock_);
    HeadlessBox box_;
};

TEST_F(SlowSearch, TheFirstTurnComesAfterThreeHundredMilliseconds) {
    const auto start = clock_->Now();
    host_->OnTurn = [&](const SearchPlace& place) {
        EXPECT_GE(clock_->Now() - start, milliseconds(300));
        EXPECT_LE(clock_->Now() - start, milliseconds(302));
        EXPECT_EQ(place.FilesDone, 149U) << "and it is read";
        return false;
    };
    FindAll(box_, u"match");
    EXPECT_EQ(host_->Turns, 1);
    EXPECT_EQ(host_->Ends, 1);
    EXPECT_EQ(box_.Elements().lvFound.RowCount(), 15U + 2);
}

TEST_F(SlowSearch, EveryTurnComesWithinAFewMillisecondsOfTheOneBefore) {
    auto last = clock_->Now() + milliseconds(270);
    host_->OnTurn = [&](const SearchPlace&) {
        EXPECT_LE(clock_->Now() - last, milliseconds(34)) << "far below what a user notices";
        last = clock_->Now();
        return true;
    };
    FindAll(box_, u"match");
    EXPECT_GT(host_->Turns, 1'000);
    EXPECT_EQ(box_.Elements().lvFound.RowCount(), 2'000U + 2) << "the result is the same";
}

TEST_F(SlowSearch, AShortOneHasNoTurn) {
    box_->SearchFiles(u"/many/0\r/many/10");
    FindAll(box_, u"match");
    EXPECT_EQ(host_->Turns, 0);
    EXPECT_EQ(host_->Ends, 0);
    EXPECT_EQ(box_.Elements().lvFound.RowCount(), 4U);
}

/// Asked so often that a host can answer a user at once.
class AskedOften final : public SearchProgress {
public:
    explicit AskedOften(const SlowFiles& files) : files_(files) {}

    bool GoOn(const SearchPlace&) override {
        MostFiles = std::max(MostFiles, files_.Opened() - opened_);
        MostBytes = std::max(MostBytes, files_.BytesRead() - bytes_);
        opened_ = files_.Opened();
        bytes_ = files_.BytesRead();
        return true;
    }

    std::uint64_t MostFiles = 0;
    std::uint64_t MostBytes = 0;

private:
    const SlowFiles& files_;
    std::uint64_t opened_ = 0;
    std::uint64_t bytes_ = 0;
};

TEST(AskingWhetherToGoOn, HappensForEveryFileAndEveryPiece) {
    const auto memory = std::make_shared<MemoryFiles>();
    const auto files = std::make_shared<SlowFiles>(memory, std::make_shared<HandClock>());
    const auto asked = std::make_shared<AskedOften>(*files);
    HeadlessSetup setup;
    setup.Files = files;
    setup.Progress = asked;
    HeadlessBox box(setup);
    std::u16string names;
    for (int file = 0; file < 100; ++file) {
        const std::u16string name = u"/f" + Wide(std::to_string(file));
        // One line of many megabytes among them.
        memory->Put(name, file == 50 ? std::string(20'000'000, 'x') : std::string(700'000, '\n'));
        names += name + u"\r";
    }
    box->SearchFiles(names);
    FindAll(box, u"nowhere");
    EXPECT_EQ(asked->MostFiles, 1U);
    EXPECT_LE(asked->MostBytes, FileScan::UsualCapacity);
    EXPECT_GT(asked->MostBytes, 0U);
}

}  // namespace
}  // namespace quorvale
