#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "found_rows.h"
#include "headless/headless_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

class FindAllScenario : public testing::Test {
protected:
    /// The lines that a search lists, without the ways back: the third column.
    std::vector<std::string> Lines(const std::u16string& what, std::size_t entry = find_menu::All) {
        FindAll(box_, what, entry);
        std::vector<std::string> lines;
        const ListView& list = box_.Elements().lvFound;
        for (std::size_t row = 1; row + 1 < list.RowCount(); ++row) {
            lines.push_back(ToUtf8(list.Cell(row, 2)));
        }
        return lines;
    }

    void Named(const std::u16string& files) { box_->SearchFiles(files); }
    ListView& List() { return box_.Elements().lvFound; }

    HeadlessBox box_;
};

TEST_F(FindAllScenario, TheColumnsHaveTheirNames) {
    EXPECT_THAT(List().Headers(), ElementsAre(u"FileName", u"Line No.", u"Source Line"));
}

TEST_F(FindAllScenario, ThreeMatchesStandBetweenTwoWaysBack) {
    box_.Files().Put(u"/dir/file.txt", "abc\r\nx\r\nxxABC\r\nabc abc\r\n");
    Named(u"/dir/file.txt");
    FindAll(box_, u"ABC");
    EXPECT_THAT(
        FoundRows(box_),
        ElementsAre("Back:Return||3 match(es) found.|", "Sel:file.txt|      1|abc|/dir/file.txt>2",
                    "file.txt|      3|xxABC|/dir/file.txt>4",
                    "file.txt|      4|abc abc|/dir/file.txt>2", "Back:Return|||"));
}

TEST_F(FindAllScenario, OneMatchIsCountedToo) {
    box_.Files().Put(u"/f", "abc");
    Named(u"/f");
    FindAll(box_, u"abc");
    EXPECT_THAT(FoundRows(box_), ElementsAre("Back:Return||1 match(es) found.|",
                                             "Sel:f|      1|abc|/f>2", "Back:Return|||"));
}

TEST_F(FindAllScenario, WithoutAMatchThereIsOneWayBackAndNoSelection) {
    box_.Files().Put(u"/f", "abc");
    Named(u"/f");
    FindAll(box_, u"nowhere");
    EXPECT_THAT(FoundRows(box_), ElementsAre("Back:Return||No match found.|"));
    EXPECT_TRUE(box_.Messages().Log.empty());
}

TEST_F(FindAllScenario, TheListIsShownInFrontWithTheKeyboard) {
    box_->text(u"abc");
    box_.FocusOn(FocusChild::TextArea);
    const std::uint32_t before = List().Revision();
    FindAll(box_, u"abc");
    EXPECT_TRUE(List().Visible());
    EXPECT_EQ(box_.Elements().Focus.Active(), FocusChild::FoundList);
    EXPECT_GT(List().Revision(), before);
}

TEST_F(FindAllScenario, ASecondSearchReplacesEverything) {
    box_->text(u"abc\r\nabc\r\nxyz");
    FindAll(box_, u"abc");
    List().Select(2);
    FindAll(box_, u"xyz");
    EXPECT_THAT(FoundRows(box_), ElementsAre("Back:Return||1 match(es) found.|",
                                             "Sel:|      3|xyz|*>2", "Back:Return|||"));
}

TEST_F(FindAllScenario, AWildcardsColumnIsTheSecond) {
    box_.Files().Put(u"/f", "xxabc");
    Named(u"/f");
    FindAll(box_, u"ABC", find_menu::WildAll);
    EXPECT_THAT(FoundRows(box_), Contains("Sel:f|      1|xxabc|/f>2"));
}

TEST_F(FindAllScenario, ATabInFrontOfAMatchIsEightBlanks) {
    box_.Files().Put(u"/f", "\tabc");
    Named(u"/f");
    FindAll(box_, u"abc");
    EXPECT_THAT(FoundRows(box_), Contains("Sel:f|      1|        abc|/f>10"));
    EXPECT_THAT(Lines(u"\t"), ElementsAre()) << "a tab is never found, eight blanks are";
    EXPECT_THAT(Lines(u"        a"), ElementsAre("        abc"));
}

TEST_F(FindAllScenario, WildcardsAreWildOnlyWhenAskedFor) {
    box_.Files().Put(u"/f", "xABCx\naxc\nac\na?c\nbx\n[ab]x");
    Named(u"/f");
    EXPECT_THAT(Lines(u"a?c", find_menu::WildAll), ElementsAre("xABCx", "axc", "a?c"));
    EXPECT_THAT(Lines(u"a?c"), ElementsAre("a?c"));
    EXPECT_THAT(Lines(u"[ab]x", find_menu::WildAll), ElementsAre("axc", "bx"));
    EXPECT_THAT(Lines(u"[ab]x"), ElementsAre("[ab]x"));
}

TEST_F(FindAllScenario, PatternsHaveDigitsListsAndLiterals) {
    box_.Files().Put(u"/f", "r2d2\n5z\nxz\nwhat?\nend]\na-b\n");
    Named(u"/f");
    const auto wild = find_menu::WildAll;
    EXPECT_THAT(Lines(u"r#d#", wild), ElementsAre("r2d2"));
    EXPECT_THAT(Lines(u"[!0-9]z", wild), ElementsAre("xz"));
    EXPECT_THAT(Lines(u"[?]", wild), ElementsAre("what?"));
    EXPECT_THAT(Lines(u"]", wild), ElementsAre("end]"));
    EXPECT_THAT(Lines(u"[-?]", wild), ElementsAre("what?", "a-b"));
    EXPECT_THAT(Lines(u"[?-]", wild), ElementsAre("what?", "a-b"));
    EXPECT_THAT(Lines(u"w[]h", wild), ElementsAre("what?"));
}

TEST_F(FindAllScenario, AnInvalidPatternFindsNothingWithoutAWord) {
    box_.Files().Put(u"/f", "[z-a]");
    for (const auto* files : {u"/f", u"*"}) {
        Named(files);
        box_->text(u"[z-a]");
        for (const auto* pattern : {u"[", u"[z-a]", u"[Z-a]"}) {
            FindAll(box_, pattern, find_menu::WildAll);
            EXPECT_THAT(FoundRows(box_), ElementsAre("Back:Return||No match found.|"));
        }
    }
    EXPECT_TRUE(box_.Messages().Log.empty());
}

TEST_F(FindAllScenario, TheShownFileIsReadAgainFromTheDisk) {
    box_.Load("old abc", u"/doc");
    box_.Files().Put(u"/doc", "new abc\nmore abc");
    EXPECT_THAT(Lines(u"abc"), ElementsAre("new abc", "more abc"));
    EXPECT_THAT(Lines(u"old"), ElementsAre());
    box_->SearchText(u"old");
    box_->MoveTo(1, 5);
    box_.Elements().tbMore.UserClick(u"Find");
    EXPECT_EQ(box_->col(), 1) << "one match at a time is found in memory";
}

TEST_F(FindAllScenario, ATextOfNoFileIsSearchedInMemory) {
    box_->text(u"one\r\ntwo abc");
    FindAll(box_, u"abc");
    EXPECT_THAT(FoundRows(box_), Contains("Sel:|      2|two abc|*>6"));
}

TEST_F(FindAllScenario, RowsOnScreenAreSearchedAsTheyAreShown) {
    std::u16string text = u"a\rb";
    for (int line = 2; line <= 200; ++line) text += u"\r\n";
    text += u"c\rd";
    box_->text(text);
    EXPECT_THAT(Lines(u"\u00B6"), ElementsAre("a¶b")) << "the last line is off screen";
    EXPECT_THAT(Lines(u"c\rd"), ElementsAre("c\rd"));
}

TEST_F(FindAllScenario, SearchingInMemoryMeasuresLinesOffScreen) {
    box_->text(Doc(200) + u"\r\n" + Times(300));
    const std::int32_t before = box_.Elements().scrHorz.Max();
    FindAll(box_, u"L1");
    box_.Resize(12000, 7560);
    EXPECT_GT(box_.Elements().scrHorz.Max(), before);
}

TEST_F(FindAllScenario, SeveralFilesAreSearchedInOrderAsOftenAsNamed) {
    box_.Load("shown", u"/doc");
    box_.Files().Put(u"/f1", "abc");
    box_.Files().Put(u"/f2", "abc");
    Named(u"/f2\r\r/missing\r/f1\r/f2\r");
    for (int twice = 0; twice < 2; ++twice) {
        FindAll(box_, u"abc");
        EXPECT_THAT(FoundRows(box_),
                    ElementsAre("Back:Return||3 match(es) found.|", "Sel:f2|      1|abc|/f2>2",
                                "f1|      1|abc|/f1>2", "f2|      1|abc|/f2>2", "Back:Return|||"));
    }
}

TEST_F(FindAllScenario, AnEmptyNameIsThatOfATextOfNoFile) {
    box_->text(u"shown");
    box_.Files().Put(u"/f1", "abc");
    box_.Files().Put(u"/f2", "abc");
    Named(u"/f1\r\r/f2");
    FindAll(box_, u"abc");
    EXPECT_EQ(List().Selected(), 2U) << "the first at or behind the caret's line from there on";
}

TEST_F(FindAllScenario, BehindALineFeedNoNameIsFound) {
    box_.Files().Put(u"/f1", "abc");
    box_.Files().Put(u"/f2", "abc");
    Named(u"/f1\r\n/f2");
    EXPECT_THAT(Lines(u"abc").size(), 1U);
}

TEST_F(FindAllScenario, AReadErrorKeepsWhatWasListed) {
    const auto memory = std::make_shared<MemoryFiles>();
    const auto failing = std::make_shared<FailingFiles>(*memory);
    // The second piece cannot be read.
    memory->Put(u"/large", "abc\n" + std::string(300'000, 'x') + "\nabc\n");
    memory->Put(u"/small", "abc\n");
    failing->FailRead = 2;
    HeadlessSetup setup;
    setup.Files = failing;
    HeadlessBox box(setup);
    box->SearchFiles(u"/large\r/small");
    FindAll(box, u"abc");
    EXPECT_THAT(FoundRows(box),
                ElementsAre("Back:Return||2 match(es) found.|", "Sel:large|      1|abc|/large>2",
                            "small|      1|abc|/small>2", "Back:Return|||"));
}

TEST_F(FindAllScenario, LinesAreCountedAsTheDocumentCountsThem) {
    box_.Files().Put(u"/f", "a\rb\nc\n");
    box_.Files().Put(u"/empty", "");
    Named(u"/f\r/empty");
    FindAll(box_, u"", find_menu::WildAll);
    EXPECT_THAT(FoundRows(box_), ElementsAre(HasSubstr("2 match(es)"), HasSubstr("|      1|a\rb|"),
                                             HasSubstr("|      2|c|"), "Back:Return|||"));
}

TEST_F(FindAllScenario, AnEmptyTextListsLines) {
    box_.Files().Put(u"/f", "a\n\nb\n");
    Named(u"/f");
    FindAll(box_, u"");
    EXPECT_THAT(FoundRows(box_), ElementsAre(HasSubstr("2 match(es)"), "Sel:f|      1|a|/f>2",
                                             "f|      3|b|/f>2", "Back:Return|||"));
    EXPECT_THAT(Lines(u"", find_menu::WildAll), ElementsAre("a", "", "b"));
}

TEST_F(FindAllScenario, TheFirstMatchFromTheCaretOnIsSelectedInTheShownFile) {
    std::string lines;
    for (int line = 1; line <= 1000; ++line) lines += "match " + std::to_string(line) + "\n";
    box_.Load(lines, u"/doc");
    box_->MoveTo(500, 1);
    FindAll(box_, u"match");
    EXPECT_EQ(List().Selected(), 500U);
    EXPECT_EQ(List().EnsuredRow(), 500U);
}

TEST_F(FindAllScenario, AMatchInAFileBehindTheShownOneMayBeSelected) {
    box_.Load(std::string(9, '\n') + "match" + std::string(90, '\n'), u"/doc");
    box_.Files().Put(u"/other", std::string(69, '\n') + "match");
    box_->MoveTo(50, 1);
    Named(u"/doc\r/other");
    FindAll(box_, u"match");
    EXPECT_THAT(FoundRows(box_), Contains("Sel:other|     70|match|/other>2"));
    Named(u"/other\r/doc");
    FindAll(box_, u"match");
    EXPECT_EQ(List().Selected(), 1U) << "of a file in front of it the first is, as ever";
}

TEST_F(FindAllScenario, ATextOfNoFileIsNotPreselectedByTheCaret) {
    box_->text(Doc(100));
    box_->MoveTo(50, 1);
    FindAll(box_, u"L");
    EXPECT_EQ(List().Selected(), 1U);
    EXPECT_EQ(List().EnsuredRow(), std::nullopt);
}

TEST_F(FindAllScenario, TheListsTextsAreTheLanguages) {
    HeadlessSetup setup;
    setup.LanguageId = 1042;
    HeadlessBox box(setup);
    box->text(u"abc");
    FindAll(box, u"abc");
    EXPECT_THAT(FoundRows(box), ElementsAre("Back:리턴||1개 일치 항목이 발견되었습니다.|",
                                            "Sel:|      1|abc|*>2", "Back:리턴|||"));
    EXPECT_THAT(box.Elements().lvFound.Headers(),
                ElementsAre(u"파일 이름", u"행 번호", u"소스 행"));
}

TEST_F(FindAllScenario, EncodingsAreThoseOfDocuments) {
    HostOptions options;
    options.Encoding = Encoding::Automatic;
    box_->SetOptions(options);
    box_.Files().Put(u"/utf8", "\xC3\xA9 x");
    box_.Files().Put(u"/latin", "\xE9 x");
    Named(u"/utf8\r/latin");
    EXPECT_THAT(Lines(u"\u00C9 X"), ElementsAre("é x", "é x"));
}

TEST_F(FindAllScenario, ManyStarsOverALongLineTakeNoTime) {
    // With the last letter in front, or the line would be passed over for want of it.
    box_.Files().Put(u"/f", "b" + std::string(100'000, 'a'));
    Named(u"/f");
    EXPECT_THAT(Lines(u"*a*a*a*a*a*a*b", find_menu::WildAll), ElementsAre());
}

}  // namespace
}  // namespace quorvale
