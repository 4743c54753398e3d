#include "search/find_all.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "noting_progress.h"
#include "search/found_rows.h"
#include "search_rig.h"

namespace quorvale {
namespace {

using Rows = std::vector<std::string>;

class FindAllTest : public testing::Test, public FindAllPeers {
protected:
    FindAllTest() {
        watcher_->OnGoOn = [this](const SearchPlace& place) { return SearchGoesOn(place); };
    }

    bool SearchGoesOn(const SearchPlace& place) {
        rig_.Calls.push_back(ToUtf8(place.File) + " " + std::to_string(place.FilesDone) + "/" +
                             std::to_string(place.Files) + " " + std::to_string(place.Done) + "/" +
                             std::to_string(place.Size) + " found " + std::to_string(place.Found));
        return !OnProgress || OnProgress(place);
    }
    bool HasEnded() const override { return ended_; }

    void Run(std::u16string typed, LineQuery::Kind kind = LineQuery::Kind::Plain) {
        rig_.Elements.txtSearch.SetText(std::move(typed));
        FindAll all({rig_.Search, rig_.Document, rig_.Navigation, rig_.Lines, rig_.Files,
                     rig_.Options, Language::English, CaseTableOf(nullptr), watcher_},
                    rig_.Elements, list_, *this);
        all.Run(kind);
    }

    /// Every row as its three columns and its tag; "Back:" in front of a way back.
    Rows Shown() const {
        const ListView& list = rig_.Elements.lvFound;
        Rows rows;
        for (std::size_t row = 0; row < list.RowCount(); ++row) {
            std::string text = list.SmallIcon(row) == u"Back" && list.IsBold(row) ? "Back:" : "";
            for (std::size_t column = 0; column < 3; ++column) {
                text += ToUtf8(list.Cell(row, column)) + "|";
            }
            std::u16string tag = list.RowTag(row);
            for (char16_t& unit : tag) unit = unit == u'\r' ? u'>' : unit;
            rows.push_back(text + ToUtf8(tag));
        }
        return rows;
    }

    std::optional<std::size_t> Selected() const { return rig_.Elements.lvFound.Selected(); }

    SearchRig rig_;
    FoundList list_{rig_.Elements};
    std::shared_ptr<NotingProgress> watcher_ = std::make_shared<NotingProgress>();
    std::function<bool(const SearchPlace&)> OnProgress;
    bool ended_ = false;
};

TEST_F(FindAllTest, ListsTheMatchesBetweenTwoWaysBack) {
    rig_.Files.Put(u"/dir/one.txt", "abc\nnone\n  ABC\nabcabc");
    rig_.Search.SearchFiles = u"/dir/one.txt";
    Run(u"abc");
    EXPECT_EQ(Shown(),
              (Rows{"Back:Return||3 match(es) found.|", "one.txt|      1|abc|/dir/one.txt>2",
                    "one.txt|      3|  ABC|/dir/one.txt>4", "one.txt|      4|abcabc|/dir/one.txt>2",
                    "Back:Return|||"}));
    EXPECT_TRUE(rig_.Elements.lvFound.Visible());
    EXPECT_EQ(rig_.Elements.Focus.Active(), FocusChild::FoundList);
    EXPECT_EQ(Selected(), 1U);
}

TEST_F(FindAllTest, SaysThatThereIsNoMatchAndSelectsNothing) {
    rig_.Files.Put(u"/one", "abc");
    rig_.Search.SearchFiles = u"/one";
    Run(u"x");
    EXPECT_EQ(Shown(), (Rows{"Back:Return||No match found.|"}));
    EXPECT_EQ(Selected(), std::nullopt);
    EXPECT_TRUE(rig_.Elements.lvFound.Visible());
}

TEST_F(FindAllTest, SearchesTheNamedFilesInTheirOrder) {
    rig_.Files.Put(u"/f1", "ab");
    rig_.Files.Put(u"/f2", "ab");
    rig_.Search.SearchFiles = u"/f2\r\r/missing\r/f1\r/f2\r";
    for (int twice = 0; twice < 2; ++twice) {
        Run(u"ab");
        EXPECT_EQ(Shown(), (Rows{"Back:Return||3 match(es) found.|", "f2|      1|ab|/f2>2",
                                 "f1|      1|ab|/f1>2", "f2|      1|ab|/f2>2", "Back:Return|||"}));
    }
    EXPECT_EQ(rig_.Search.SearchFiles, u"/f2\r\r/missing\r/f1\r/f2\r");
}

TEST_F(FindAllTest, ALineFeedIsPartOfTheNameItStandsIn) {
    rig_.Files.Put(u"/f1", "ab");
    rig_.Files.Put(u"/f2", "ab");
    rig_.Search.SearchFiles = u"/f1\r\n/f2";
    Run(u"ab");
    EXPECT_EQ(Shown().size(), 3U);
}

TEST_F(FindAllTest, TheShownFileIsReadAgainWhenNoneIsNamed) {
    rig_.SetText(u"in memory", u"/doc");
    rig_.Files.Put(u"/doc", "on the disk");
    Run(u"disk");
    EXPECT_EQ(Shown().at(1), "doc|      1|on the disk|/doc>9");
    Run(u"memory");
    EXPECT_EQ(Shown().size(), 1U);
}

TEST_F(FindAllTest, ATextOfNoFileIsSearchedInMemory) {
    rig_.SetText(u"one\r\n\ttwo\r\nTWO \u3042");
    Run(u"two");
    EXPECT_EQ(Shown(), (Rows{"Back:Return||2 match(es) found.|", "|      2|        two|*>10",
                             "|      3|TWO あ|*>2", "Back:Return|||"}));
    EXPECT_EQ(Selected(), 1U);
}

TEST_F(FindAllTest, SearchingInMemoryMeasuresTheLines) {
    rig_.SetText(u"short\r\n" + Times(500));
    Run(u"short");
    EXPECT_EQ(rig_.Document.WidestLineWidth, 500 * 120 + 240);
}

TEST_F(FindAllTest, BeforeAnyDocumentThereIsNoLine) {
    Run(u"");
    EXPECT_EQ(Shown(), (Rows{"Back:Return||No match found.|"}));
}

TEST_F(FindAllTest, AnInvalidPatternMatchesNothing) {
    rig_.SetText(u"a[b");
    Run(u"[", LineQuery::Kind::Wildcard);
    EXPECT_EQ(Shown().size(), 1U);
    rig_.Files.Put(u"/f", "a[b");
    rig_.Search.SearchFiles = u"/f\r*";
    Run(u"[Z-a]", LineQuery::Kind::Wildcard);
    EXPECT_EQ(Shown().size(), 1U) << "in capitals the range goes down";
    Run(u"[");
    EXPECT_EQ(Shown().size(), 4U) << "as a text it is found in both";
}

TEST_F(FindAllTest, TheFirstMatchFromTheCaretOnInTheShownFileIsSelected) {
    rig_.SetText(Doc(100), u"/doc");
    rig_.PutCaret(50, 1);
    std::string lines;
    for (int line = 1; line <= 100; ++line) lines += line % 10 == 0 ? "match\n" : "\n";
    rig_.Files.Put(u"/doc", lines);
    Run(u"match");
    EXPECT_EQ(Selected(), 5U) << "the one right on the caret's line";
    EXPECT_EQ(rig_.Elements.lvFound.EnsuredRow(), 5U);
    rig_.PutCaret(51, 1);
    Run(u"match");
    EXPECT_EQ(Selected(), 6U);
    rig_.PutCaret(101, 1);
    Run(u"match");
    EXPECT_EQ(Selected(), 1U);
    EXPECT_EQ(rig_.Elements.lvFound.EnsuredRow(), std::nullopt);
}

TEST_F(FindAllTest, FilesBehindTheShownOneMayHaveTheSelectionFilesInFrontOfItNever) {
    rig_.SetText(Doc(100), u"/doc");
    rig_.PutCaret(50, 1);
    rig_.Files.Put(u"/doc", std::string(9, '\n') + "match");
    rig_.Files.Put(u"/other", std::string(69, '\n') + "match");
    rig_.Search.SearchFiles = u"/doc\r/other";
    Run(u"match");
    EXPECT_EQ(Selected(), 2U);
    rig_.Search.SearchFiles = u"/other\r/doc";
    Run(u"match");
    EXPECT_EQ(Selected(), 1U);
    EXPECT_EQ(rig_.Elements.lvFound.EnsuredRow(), std::nullopt);
}

TEST_F(FindAllTest, EachFileIsReportedBeforeItIsReadAndOnTheWay) {
    rig_.Files.Put(u"/f1", "ab\nab");
    rig_.Search.SearchFiles = u"/f1\r/f2";
    Run(u"ab");
    EXPECT_EQ(rig_.Calls,
              (Rows{"/f1 0/2 0/0 found 0", "/f1 0/2 5/5 found 2", "/f2 1/2 0/0 found 2"}));
}

TEST_F(FindAllTest, WhatWasFoundIsListedWhenTheSearchIsEnded) {
    for (const auto* name : {u"/f1", u"/f2", u"/f3"}) rig_.Files.Put(name, "ab");
    rig_.Search.SearchFiles = u"/f1\r/f2\r/f3";
    OnProgress = [](const SearchPlace& place) { return place.File != u"/f2"; };
    Run(u"ab");
    EXPECT_EQ(Shown(),
              (Rows{"Back:Return||1 match(es) found.|", "f1|      1|ab|/f1>2", "Back:Return|||"}));
    EXPECT_TRUE(rig_.Elements.lvFound.Visible());
}

TEST_F(FindAllTest, NothingIsShownOnceTheControlHasEnded) {
    rig_.Files.Put(u"/f1", "ab");
    rig_.Search.SearchFiles = u"/f1";
    OnProgress = [&](const SearchPlace&) { return ended_ = true; };
    Run(u"ab");
    EXPECT_FALSE(rig_.Elements.lvFound.Visible());
    EXPECT_EQ(rig_.Calls.size(), 1U) << "and nothing more is read";
}

TEST_F(FindAllTest, ASearchWithinASearchHasTheLastWord) {
    rig_.Files.Put(u"/f1", "outer\ninner");
    rig_.Search.SearchFiles = u"/f1";
    OnProgress = [&](const SearchPlace&) {
        OnProgress = nullptr;
        Run(u"inner");
        return true;
    };
    Run(u"outer");
    EXPECT_EQ(Shown().at(1), "f1|      2|inner|/f1>2");
    EXPECT_EQ(Shown().size(), 3U);
    EXPECT_EQ(rig_.Calls.size(), 3U) << "the outer one reads no more";
}

TEST_F(FindAllTest, AnotherDocumentEndsTheSearch) {
    rig_.SetText(Doc(5000));
    OnProgress = [&](const SearchPlace& place) {
        if (place.Done > 0) rig_.SetText(u"L9999");
        return true;
    };
    Run(u"L");
    EXPECT_FALSE(rig_.Elements.lvFound.Visible());
    EXPECT_LT(rig_.Elements.lvFound.RowCount(), 2000U) << "for the recent list";
    EXPECT_GT(rig_.Elements.lvFound.RowCount(), 100U);
}

TEST_F(FindAllTest, TheWatcherHearsItsBeginningAndItsEndBeforeTheListIsShown) {
    rig_.SetText(u"L1");
    watcher_->OnEnded = [&] { EXPECT_FALSE(rig_.Elements.lvFound.Visible()); };
    Run(u"L");
    EXPECT_EQ(watcher_->Log, (Rows{"began", "0", "1", "ended"}));
    EXPECT_TRUE(rig_.Elements.lvFound.Visible());
}

TEST_F(FindAllTest, AnotherDocumentInTheLastMomentIsSeen) {
    rig_.SetText(u"L1");
    watcher_->OnEnded = [&] { rig_.SetText(u"another"); };
    Run(u"L");
    EXPECT_FALSE(rig_.Elements.lvFound.Visible());
}

TEST_F(FindAllTest, LongLinesInMemoryAreToldMoreOften) {
    std::u16string text;
    for (int line = 0; line < 100; ++line) text += Times(10'000) + u"\r\n";
    rig_.SetText(text);
    std::uint64_t last = 0;
    OnProgress = [&](const SearchPlace& place) {
        EXPECT_LE(place.Done - last, 7U) << "64 Ki characters and a line";
        last = place.Done;
        return true;
    };
    Run(u"nowhere");
    EXPECT_EQ(last, 101U);
}

TEST_F(FindAllTest, LineNumbersOfEightDigitsAreNotCut) {
    FoundRows rows(Language::English);
    const auto source = rows.Results().AddSource(u"C", LineForm::SingleByte);
    rows.Results().Add(source, Line{12345678}, 2147483647, {});
    EXPECT_EQ(rows.Cell(1, 1, 100), u"12345678");
    EXPECT_EQ(rows.Tag(1), u"C\r2147483648");
    EXPECT_EQ(rows.Cell(0, 0, 3), u"Ret") << "no more than is asked for";
}

TEST_F(FindAllTest, TheTextsAreTheLanguages) {
    FoundRows rows(Language::Japanese);
    const auto source = rows.Results().AddSource(u"C", LineForm::SingleByte);
    rows.Results().Add(source, Line{1}, 1, {});
    rows.Finish();
    EXPECT_EQ(ToUtf8(rows.Cell(0, 0, 99)), "戻る");
    EXPECT_EQ(ToUtf8(rows.Cell(0, 2, 99)), "1 の一致が見つかりました。");
    EXPECT_EQ(ToUtf8(rows.Cell(2, 0, 99)), "戻る");
}

TEST(StartsOfLines, CostNoMoreThanWhatIsAskedFor) {
    const std::string bytes = "\xC3\xA9\xF0\x9F\x98\x80\tabc";
    const std::span<const std::uint8_t> all(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                            bytes.size());
    const std::u16string whole = TextOfLine(all, LineForm::Utf8);
    for (std::size_t most = 0; most < 20; ++most) {
        EXPECT_EQ(StartOfLine(all, LineForm::Utf8, most), whole.substr(0, most));
    }
    EXPECT_EQ(StartOfLine(all, LineForm::Utf8, ListView::WholeText), whole);
}

}  // namespace
}  // namespace quorvale
