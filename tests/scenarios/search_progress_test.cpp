#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "found_rows.h"
#include "headless/headless_box.h"
#include "support/documents.h"

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
    EXPECT_EQ(box.Elements().lvFound.Cell(0, 2), u"3072 match(es) found.");
}

}  // namespace
}  // namespace quorvale
