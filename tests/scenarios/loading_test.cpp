#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "base/text.h"
#include "headless/headless_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

std::u16string Caption(HeadlessBox& box, int slot) {
    return std::u16string(box.Elements().lblLine[slot].Caption());
}

std::u16string Tag(HeadlessBox& box, int slot) { return box.Elements().lblLine[slot].Tag(); }

bool EditEnabled(HeadlessBox& box) { return box.Elements().tbMore.Button(u"Edit").Enabled; }

/// What a load leaves that could not be done.
void ExpectOneEmptyLine(HeadlessBox& box) {
    EXPECT_EQ(box->text(), u"\r\n");
    EXPECT_EQ(box->LineCount(), 1);
    EXPECT_EQ(box->LineText(1), u"");
    EXPECT_EQ(box.Rows(), std::vector<std::string>{""});
    EXPECT_FALSE(EditEnabled(box));
    EXPECT_TRUE(box.Messages().Log.empty());
}

TEST(LoadingADocument, BeforeAnyDocumentThereIsNoTextAndNoLine) {
    HeadlessBox box;
    EXPECT_EQ(box->text(), u"");
    EXPECT_EQ(box->LineCount(), -1);
    EXPECT_EQ(box->row(), 0);
    EXPECT_EQ(box->col(), 0);
    EXPECT_EQ(box->TopLine(), 1);
    EXPECT_EQ(box->LineText(1), u"");
}

TEST(LoadingADocument, TheTextHasALineBreakBehindTheFilesContent) {
    HeadlessBox box;
    box.Load("a\r\nb");
    EXPECT_EQ(box->text(), u"a\r\nb\r\n");
    EXPECT_EQ(box->LineCount(), 2);
    EXPECT_EQ(box.Rows(), (std::vector<std::string>{"a", "b"}));
}

TEST(LoadingADocument, AFileThatEndsWithALineBreakHasAnEmptyLastLine) {
    HeadlessBox box;
    box.Load("a\r\nb\r\n");
    EXPECT_EQ(box->LineCount(), 3);
    EXPECT_EQ(box->LineText(3), u"");
}

TEST(LoadingADocument, BareLineFeedsEndLinesTooAndBareCarriageReturnsDoNot) {
    HeadlessBox box;
    box.Load("a\nb");
    EXPECT_EQ(box->LineCount(), 2);
    EXPECT_EQ(box.Rows(), (std::vector<std::string>{"a", "b"}));
    box.Load("a\rb");
    EXPECT_EQ(box->LineCount(), 1);
    EXPECT_EQ(Caption(box, 0), u"a\u00B6b");
}

TEST(LoadingADocument, ALoneCarriageReturnIsMarkedOnScreenOnly) {
    HeadlessBox box;
    box.Load(DocFile(199) + "\r\na\rb");
    EXPECT_EQ(box->LineText(200), u"a\rb");
    box->TopLine(200);
    EXPECT_EQ(box->LineText(200), u"a\u00B6b");
}

TEST(LoadingADocument, ANulShowsAsAMiddleDot) {
    HeadlessBox box;
    box.Load(std::string("x\0y", 3));
    EXPECT_EQ(Caption(box, 0), u"x\u00B7y");
    EXPECT_EQ(box->text(), std::u16string(u"x\0y\r\n", 5));
}

TEST(LoadingADocument, EveryByteIsOneCharacter) {
    HeadlessBox box;
    std::string bytes = "\xEF\xBB\xBF";
    std::u16string expected = u"\u00EF\u00BB\u00BF";
    for (char16_t unit = 0x80; unit <= 0xFF; ++unit) {
        bytes += static_cast<char>(unit);
        expected += unit;
    }
    box.Load(bytes);
    EXPECT_EQ(box->LineText(1), expected);
}

TEST(LoadingADocument, AnEmptyFileIsOneEmptyLineThatCanBeEdited) {
    HeadlessBox box;
    box.Load("");
    EXPECT_EQ(box->text(), u"\r\n");
    EXPECT_EQ(box->LineCount(), 1);
    EXPECT_TRUE(EditEnabled(box));
}

TEST(LoadingADocument, ATextOfNoFileCannotBeEditedAndIsReportedOnce) {
    HeadlessBox box;
    box.Load("file");
    box.Site().Changed.clear();
    box->text(u"x");
    EXPECT_EQ(box->text(), u"x\r\n");
    EXPECT_FALSE(EditEnabled(box));
    EXPECT_EQ(box.Site().Changed, std::vector<std::u16string>{u"Text"});
    box->text(u"");
    EXPECT_EQ(box->text(), u"\r\n");
    EXPECT_EQ(box->LineCount(), 1);
}

TEST(LoadingADocument, AMissingFileReplacesTheDocumentByOneEmptyLine) {
    HeadlessBox box;
    box.Load(DocFile(100));
    box->TopLine(50);
    EXPECT_NO_THROW(box->LoadFile(u"/no/such/file"));
    ExpectOneEmptyLine(box);
    EXPECT_EQ(box->TopLine(), 1);
}

TEST(LoadingADocument, AFileThatCannotBeReadReplacesTheDocumentByOneEmptyLine) {
    MemoryFiles real;
    real.Put(u"/doc.txt", DocFile(100));
    const auto failing = std::make_shared<FailingFiles>(real);
    HeadlessSetup setup;
    setup.Files = failing;
    HeadlessBox box(setup);
    box->LoadFile(u"/doc.txt");
    ASSERT_EQ(box->LineCount(), 100);
    failing->FailRead = 1;
    EXPECT_NO_THROW(box->LoadFile(u"/doc.txt"));
    ExpectOneEmptyLine(box);
    failing->FailRead = 0;
    failing->FailOpen = true;
    EXPECT_NO_THROW(box->LoadFile(u"/doc.txt"));
    ExpectOneEmptyLine(box);
}

TEST(LoadingADocument, TooLittleMemoryReplacesTheDocumentByOneEmptyLine) {
    HeadlessSetup setup;
    setup.Memory = std::make_shared<FailingMemory>(0);
    HeadlessBox box(setup);
    EXPECT_NO_THROW(box.Load(DocFile(100)));
    ExpectOneEmptyLine(box);
}

TEST(LoadingADocument, EveryLineHasTheColoursThatTheControlHadAtTheTime) {
    HeadlessBox box;
    box->ForeColor(0x112233);
    box->BackColor(0x445566);
    box->text(Doc(40));
    box->BackColor(0xABCDEF);
    box->ForeColor(0x000001);
    for (const std::int32_t line : {1, 2, 40}) {
        EXPECT_EQ(box->LineForeColor(line), 0x112233U);
        EXPECT_EQ(box->LineBackColor(line), 0x445566U);
        EXPECT_EQ(box->LineImage(line), Variant(std::int16_t{0}));
    }
}

TEST(LoadingADocument, NothingOfTheOldPlaceIsLeft) {
    HeadlessBox box;
    box->text(Lines({Times(300), Doc(300)}));
    box->CollapseLines(10, 20);
    box->MoveTo(200, 3);
    box->SelectedRowsCount(-7);
    box.Elements().scrHorz.SetValue(500);
    box.Elements().lvFound.SetVisible(true);
    box.Load(DocFile(80));
    const Surface& surface = box.Elements();
    EXPECT_EQ(box->row(), 1);
    EXPECT_EQ(box->col(), 1);
    EXPECT_EQ(box->SelectedRowsCount(), 0);
    EXPECT_EQ(box->TopLine(), 1);
    EXPECT_EQ(surface.scrHorz.Value(), 0);
    EXPECT_EQ(surface.txtLn.Text(), u"1");
    EXPECT_FALSE(surface.tbMore.Button(u"Collapsed").Enabled);
    EXPECT_FALSE(surface.lvFound.Visible());
    EXPECT_EQ(surface.lnExpand.UpperBound(), 0);
    EXPECT_EQ(surface.lnExpandTo.UpperBound(), 0);
}

TEST(LoadingADocument, RowsAreShownAnewWithTheirTagsAndNothingBesideThem) {
    HeadlessBox box;
    const auto list = std::make_shared<ImageList>();
    list->Add(u"k", std::make_shared<Picture>("k", 240, 240));
    box->ImageList(list);
    box->text(Doc(100));
    box->CollapseLines(2, 9);
    for (std::int32_t line = 1; line <= 30; ++line) box->LineImage(line, std::u16string(u"k"));
    box->CollapseAll();
    box.Load("A\r\nB\rb\r\nC");
    const std::u16string captions[] = {u"A", u"B\u00B6b", u"C"};
    Surface& surface = box.Elements();
    for (int slot = 0; slot <= 30; ++slot) {
        EXPECT_EQ(Caption(box, slot), slot < 3 ? captions[slot] : u"") << slot;
        EXPECT_EQ(Tag(box, slot), slot < 3 ? FromUtf8(std::to_string(slot + 1)) : u"4") << slot;
        EXPECT_TRUE(surface.imgLine[slot].Visible()) << slot;
        EXPECT_EQ(surface.imgLine[slot].Shown(), nullptr) << slot;
        EXPECT_FALSE(surface.imgExpand[slot].Visible()) << slot;
        EXPECT_FALSE(surface.imgEdit[slot].Visible()) << slot;
        EXPECT_FALSE(surface.lblLine[slot].Bold()) << slot;
    }
}

TEST(LoadingADocument, ALoadIsNoMoveOfTheCaret) {
    HeadlessBox box;
    box->text(Doc(100));
    box->MoveTo(60, 2);
    box.Log().Clear();
    box.Load(DocFile(50));
    EXPECT_EQ(box.Log().Count("SelChanged"), 0U);
}

TEST(LoadingADocument, ALoadIsReportedAsScrollingOnlyWhenTheViewStoodElsewhere) {
    HeadlessBox box;
    box->text(Doc(100));
    box->text(Doc(90));
    EXPECT_EQ(box.Log().Count("Scrolled"), 0U);
    box->TopLine(40);
    box.Log().Clear();
    box->text(Doc(80));
    EXPECT_EQ(box.Log().Entries(), std::vector<std::string>{"Scrolled"});
    EXPECT_EQ(box->TopLine(), 1);
}

TEST(LoadingADocument, TheRowBelowTheLastWholeOneShowedTheOldDocument) {
    HeadlessBox box;
    box->text(Doc(100, 'o'));
    box->text(Doc(100, 'n'));
    EXPECT_EQ(box->LineText(31), u"n31");
    EXPECT_EQ(Caption(box, 30), u"n31");
    box->TopLine(2);
    EXPECT_EQ(Caption(box, 29), u"n31");
    EXPECT_EQ(box->LineText(31), u"n31");
}

TEST(LoadingADocument, BlankRowsOfAShortDocumentAnsweredForLinesOfTheNextOne) {
    HeadlessBox box;
    box->text(Doc(4, 'o'));
    box->text(Doc(100, 'n'));
    for (std::int32_t line = 1; line <= 40; ++line) {
        EXPECT_EQ(box->LineText(line), u"n" + FromUtf8(std::to_string(line)));
    }
    EXPECT_EQ(box.Rows().at(4), "n5");
}

TEST(LoadingADocument, FoldsOfTheOldDocumentLeftGlyphsBehind) {
    HeadlessBox box;
    box->text(Doc(100));
    box->CollapseLines(5, 20);
    box->CollapseAll();
    box->text(Doc(12));
    for (const Image& glyph : box.Elements().imgExpand) EXPECT_FALSE(glyph.Visible());
    EXPECT_EQ(box.Rows().size(), 12U);
    box->CollapseAll();
    EXPECT_EQ(box.Rows().size(), 12U) << "there is nothing to fold";
}

TEST(LoadingADocument, TheKeptPlaceAlongTheLineWasThatOfTheOldCaret) {
    HeadlessBox box;
    box->text(Lines({Times(80), Times(80)}));
    box->MoveTo(1, 60);
    box->text(Lines({Times(80), Times(80)}));
    box->row(2);
    EXPECT_EQ(box->col(), 1);
}

TEST(LoadingADocument, WhilePaintingIsSuspendedTheRowsAreWrittenAndTheRestWaits) {
    HeadlessBox box;
    box->text(Doc(100, 'o'));
    box->TopLine(50);
    box->AutoRedraw(false);
    box->text(Doc(100, 'n'));
    for (int slot = 0; slot < 30; ++slot) {
        const std::u16string number = FromUtf8(std::to_string(slot + 1));
        EXPECT_EQ(Caption(box, slot), u"n" + number);
        EXPECT_EQ(Tag(box, slot), number);
    }
    EXPECT_EQ(Tag(box, 30), u"-1") << "no fill has taken place";
    box->AutoRedraw(true);
    EXPECT_EQ(box->TopLine(), 1);
    EXPECT_EQ(Tag(box, 30), u"31");
    EXPECT_EQ(box.Rows().size(), 30U);
    EXPECT_EQ(box.Rows().back(), "n30");
}

TEST(LoadingADocument, AWidestLineOfTheOldDocumentLeavesNoHorizontalBar) {
    HeadlessBox box;
    box->text(Lines({Times(300), u"short"}));
    EXPECT_TRUE(box.Elements().scrHorz.Visible());
    box->text(Doc(5));
    EXPECT_FALSE(box.Elements().scrHorz.Visible());
    EXPECT_FALSE(box.Elements().scrVert.Visible());
}

TEST(LoadingADocument, TheNextDocumentReplacesALargerOneAfterAFailedLoad) {
    HeadlessBox box;
    box->text(Doc(40000));
    box->TopLine(20000);
    box->LoadFile(u"/missing");
    box.Load(DocFile(50000), u"/large");
    EXPECT_EQ(box->TopLine(), 1);
    EXPECT_EQ(box->LineText(50000), u"L50000");
    EXPECT_EQ(box.Rows().front(), "L1");
}

TEST(LoadingADocument, TwoHundredThousandLinesLoadInNoTimeWorthNoticing) {
    HeadlessBox box;
    const std::string bytes = DocFile(200000);
    const auto start = std::chrono::steady_clock::now();
    box.Load(bytes);
    const auto passed = std::chrono::steady_clock::now() - start;
    EXPECT_EQ(box->LineCount(), 200000);
    EXPECT_EQ(box->LineText(200000), u"L200000");
    EXPECT_LT(passed, std::chrono::seconds(5)) << "linear work on 1.7 MB, even in a slow build";
}

TEST(LoadingADocument, RandomDocumentsAreShownLineByLine) {
    std::mt19937 random(5);
    HeadlessBox box;
    for (int round = 0; round < 50; ++round) {
        const std::u16string text = RandomText(random, 60, 40);
        std::string bytes;
        for (const char16_t unit : text) bytes += static_cast<char>(unit);
        box.Load(bytes);
        EXPECT_EQ(box->text(), text + u"\r\n");
        std::vector<std::string> lines{""};
        for (const char unit : bytes) {
            if (unit == '\n') {
                lines.emplace_back();
            } else if (unit != '\t') {
                lines.back() += unit;
            } else {
                lines.back().append(8 - lines.back().size() % 8, ' ');
            }
        }
        for (std::size_t i = 0; i < box.Rows().size(); ++i) {
            std::u16string shown;
            const std::string& line = lines.at(i);
            const bool ended = i + 1 < lines.size() && !line.empty() && line.back() == '\r';
            for (const char unit : ended ? line.substr(0, line.size() - 1) : line) {
                const auto code = static_cast<unsigned char>(unit);
                shown += code == 0 ? u'\u00B7' : code == '\r' ? u'\u00B6' : char16_t{code};
            }
            ASSERT_EQ(Caption(box, static_cast<int>(i)), shown) << "round " << round;
        }
    }
}

}  // namespace
}  // namespace quorvale
