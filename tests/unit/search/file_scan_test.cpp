#include "search/file_scan.h"

#include <gtest/gtest.h>

#include "file_scan_fixture.h"
#include "support/error_of.h"

namespace quorvale {
namespace {

using Found = std::vector<FoundLine>;
constexpr auto wildcard = LineQuery::Kind::Wildcard;
constexpr auto plain = LineQuery::Kind::Plain;

TEST(FileScan, ListsEachLineWithTheFirstPlaceOfTheText) {
    FileScanRig rig;
    EXPECT_EQ(rig.Find("one\nxxABC abc\nnone\nabc", u"abc"),
              (Found{{2, 3, "xxABC abc"}, {4, 1, "abc"}}));
    EXPECT_EQ(rig.Find("one\ntwo", u"abc"), Found{});
    EXPECT_EQ(rig.Find("", u"abc"), Found{});
}

TEST(FileScan, ALineFeedEndsALineAndOneReturnInFrontOfItIsDropped) {
    FileScanRig rig;
    EXPECT_EQ(rig.Find("a\rb\nc", u"c"), (Found{{2, 1, "c"}})) << "a lone CR ends no line";
    EXPECT_EQ(rig.Find("a\rb\nc", u"B"), (Found{{1, 3, "a\rb"}}));
    EXPECT_EQ(rig.Find("a\r\r\nb", u"a"), (Found{{1, 1, "a\r"}}));
    EXPECT_EQ(rig.Find("a\r\nb\r", u"b"), (Found{{2, 1, "b\r"}})) << "no line feed behind it";
    EXPECT_EQ(rig.Find("a\n", u"", wildcard), (Found{{1, 1, "a"}})) << "no line behind the last";
    EXPECT_EQ(rig.Find("\n\r\n\n", u"", wildcard), (Found{{1, 1, ""}, {2, 1, ""}, {3, 1, ""}}));
}

TEST(FileScan, TheReturnThatIsDroppedIsNotFound) {
    FileScanRig rig;
    EXPECT_EQ(rig.Find("ab\r\nab\r\r\nab\r", u"ab\r"), (Found{{2, 1, "ab\r"}, {3, 1, "ab\r"}}));
    EXPECT_EQ(rig.Find("a\nb", u"a\nb"), Found{}) << "lines are searched one by one";
}

TEST(FileScan, AnEmptyTextIsInEveryLineThatIsNotEmpty) {
    FileScanRig rig;
    EXPECT_EQ(rig.Find("a\n\nb\r\n\r\n", u""), (Found{{1, 1, "a"}, {3, 1, "b"}}));
    EXPECT_EQ(rig.Find("a\n\nb", u"", wildcard), (Found{{1, 1, "a"}, {2, 1, ""}, {3, 1, "b"}}));
}

TEST(FileScan, TabsAreBlanksUpToTheNextStop) {
    FileScanRig rig;
    EXPECT_EQ(rig.Find("\tabc", u"abc"), (Found{{1, 9, "        abc"}}));
    EXPECT_EQ(rig.Find("a\tb", u"\t"), Found{}) << "a tab is never found";
    EXPECT_EQ(rig.Find("a\tb", u"a       b"), (Found{{1, 1, "a       b"}}));
    EXPECT_EQ(rig.Find("1234567\tx\n12345678\tx", u"7 x"), (Found{{1, 7, "1234567 x"}}));
    EXPECT_EQ(rig.Find("a b\na\tb\nab", u" "), (Found{{1, 2, "a b"}, {2, 2, "a       b"}}));
    EXPECT_EQ(rig.Find("x\ty\tz", u"y*z", wildcard), (Found{{1, 1, "x       y       z"}}));
}

TEST(FileScan, WildcardsMatchWholeLinesInCapitals) {
    FileScanRig rig;
    EXPECT_EQ(rig.Find("xABCx\naxc\nac\na?c", u"a?c", wildcard),
              (Found{{1, 1, "xABCx"}, {2, 1, "axc"}, {4, 1, "a?c"}}));
    EXPECT_EQ(rig.Find("xABCx\naxc\nac\na?c", u"a?c"), (Found{{4, 1, "a?c"}}));
    EXPECT_EQ(rig.Find("bx\n[ab]x", u"[ab]x", wildcard), (Found{{1, 1, "bx"}}));
    EXPECT_EQ(rig.Find("bx\n[ab]x", u"[ab]x"), (Found{{2, 1, "[ab]x"}}));
    EXPECT_EQ(rig.Find("one two\ntwo one\none\ntwo\nsome two", u"one*two", wildcard),
              (Found{{1, 1, "one two"}}));
}

TEST(FileScan, AnInvalidPatternFailsAtTheFirstLine) {
    FileScanRig rig;
    EXPECT_EQ(ErrorOf([&] { rig.Find("a", u"[", wildcard); }), ErrorKind::InvalidValue);
    EXPECT_EQ(ErrorOf([&] { rig.Find("", u"[", wildcard); }), std::nullopt);
}

TEST(FileScan, EveryEncodingIsReadAsADocumentWouldBe) {
    FileScanRig rig;
    const std::string utf8 = "\xC3\x89t\xC3\xA9 \xE3\x81\x82 x";
    EXPECT_EQ(rig.Find(utf8, u"X", plain, Encoding::Utf8), (Found{{1, 7, "Été あ x"}}));
    EXPECT_EQ(rig.Find(utf8, u"\u3042", plain, Encoding::Utf8), (Found{{1, 5, "Été あ x"}}));
    EXPECT_EQ(rig.Find(utf8, u"x", plain, Encoding::SingleByte).at(0).Column, 11);
    EXPECT_EQ(rig.Find("\x8A x", u"\u0161", plain, Encoding::Windows1252), (Found{{1, 1, "Š x"}}));
    EXPECT_EQ(rig.Find("\xFF", u"\u0178", plain, Encoding::Windows1252), (Found{{1, 1, "ÿ"}}));
    EXPECT_EQ(rig.Find("\x9F", u"\u00FF", plain, Encoding::Windows1252), (Found{{1, 1, "Ÿ"}}));
    EXPECT_EQ(rig.Find("\x9F", u"\u00FF", plain, Encoding::SingleByte), Found{});
}

TEST(FileScan, LettersBeyondAsciiCountAsThoseWithin) {
    FileScanRig rig;
    const std::string kelvin = "5 \xE2\x84\xAA\n5 k\n\xC5\xBFs";
    EXPECT_EQ(rig.Find(kelvin, u"5 K", plain, Encoding::Utf8).size(), 2U);
    EXPECT_EQ(rig.Find(kelvin, u"ss", plain, Encoding::Utf8), (Found{{3, 1, "ſs"}}));
    EXPECT_EQ(rig.Find(kelvin, u"s", plain, Encoding::Utf8).size(), 1U);
}

TEST(FileScan, BytesThatAreNotValidAreWhatTheyAreInADocument) {
    FileScanRig rig;
    rig.Find(
        "a\xFF"
        "b\xC3\n\xE3\x81\n",
        u"b", plain, Encoding::Utf8);
    ASSERT_EQ(rig.Store.Count(), 1U);
    EXPECT_EQ(TextOfLine(rig.Store[0].Text, rig.Store[0].Form),
              u"a\xDCFF"
              u"b\xDCC3");
    EXPECT_EQ(rig.Store[0].Column, 3);
}

TEST(FileScan, AutomaticJudgesEachFileByItself) {
    FileScanRig rig;
    EXPECT_EQ(rig.Find("\xC3\xA9 x", u"x", plain, Encoding::Automatic).at(0).Column, 3);
    EXPECT_EQ(rig.Find("\xE9 x", u"x", plain, Encoding::Automatic), (Found{{1, 3, "é x"}}));
    EXPECT_EQ(rig.Find("\xC3\xA9\xE9 x", u"x", plain, Encoding::Automatic).at(0).Column, 5);
    EXPECT_EQ(rig.Find("\xC3\xA9 x\n\xE3\x81", u"x", plain, Encoding::Automatic).at(0).Column, 4)
        << "a character cut off at the end makes the file no UTF-8";
}

TEST(FileScan, AutomaticStartsAgainWhenALaterPieceIsNotUtf8) {
    FileScanRig rig;
    rig.Capacity = 16;
    const std::string start = "x \xC3\xA9 x1\n";
    EXPECT_EQ(rig.Find(start + "plain x2\n" + "\xC3\xA9 x3\n", u"x3", plain, Encoding::Automatic),
              (Found{{3, 3, "é x3"}}));
    EXPECT_EQ(rig.Find(start + "plain x2\n" + "\xE9 x3\n", u"x", plain, Encoding::Automatic),
              (Found{{1, 1, "x Ã© x1"}, {2, 7, "plain x2"}, {3, 3, "é x3"}}));
    EXPECT_EQ(rig.Find(start + "plain x2\n" + "\xE9 x3\n", u"x1", plain, Encoding::Automatic),
              (Found{{1, 6, "x Ã© x1"}}))
        << "columns too are those of single bytes";
    EXPECT_EQ(rig.Find("ascii x1\nascii x2\n\xE9 x3\n", u"x3", plain, Encoding::Automatic),
              (Found{{3, 3, "é x3"}}))
        << "nothing was taken for UTF-8 so far";
}

TEST(FileScan, LinesLongerThanTheBufferAreFoundWhole) {
    FileScanRig rig;
    rig.Capacity = 8;
    const std::string line(1000, 'a');
    EXPECT_EQ(rig.Find("b\n" + line + "b\nc b", u"b"),
              (Found{{1, 1, "b"}, {2, 1001, line + "b"}, {3, 3, "c b"}}));
}

TEST(FileScan, AFileThatCannotBeOpenedHasNoLines) {
    FileScanRig rig;
    EXPECT_TRUE(rig.Search(rig.Files, u"/missing", u"a", plain, Encoding::SingleByte,
                           [](auto, auto) { return true; }));
    EXPECT_EQ(rig.Store.Count(), 0U);
}

TEST(FileScan, WhatWasReadBeforeAFailureStays) {
    FileScanRig rig;
    rig.Capacity = 8;
    rig.Files.Put(u"/f", "abc 1\nabc 2\nabc 3\nabc 4\n");
    FailingFiles failing(rig.Files);
    failing.FailRead = 3;
    EXPECT_TRUE(rig.Search(failing, u"/f", u"abc", plain, Encoding::SingleByte,
                           [](auto, auto) { return true; }));
    EXPECT_EQ(rig.Found(), (Found{{1, 1, "abc 1"}, {2, 1, "abc 2"}}));
}

TEST(FileScan, EndsWhenItIsToldTo) {
    FileScanRig rig;
    rig.Capacity = 8;
    rig.Files.Put(u"/f", "abc 1\nabc 2\nabc 3\nabc 4\n");
    std::vector<std::uint64_t> done;
    EXPECT_FALSE(rig.Search(rig.Files, u"/f", u"abc", plain, Encoding::SingleByte,
                            [&](std::uint64_t bytes, std::uint64_t size) {
                                EXPECT_EQ(size, 24U);
                                done.push_back(bytes);
                                return bytes < 16;
                            }));
    EXPECT_EQ(done, (std::vector<std::uint64_t>{8, 14, 20}));
    EXPECT_EQ(rig.Found().size(), 3U);
}

TEST(FileScan, NoPieceIsLargerThanTheFirstHoweverLongTheLine) {
    FileScanRig rig;
    rig.Capacity = 1000;
    std::string line(100'000, 'a');
    line.push_back('b');
    rig.Files.Put(u"/f", line);
    std::uint64_t last = 0;
    rig.Search(rig.Files, u"/f", u"b", plain, Encoding::SingleByte,
               [&](std::uint64_t bytes, std::uint64_t) {
                   EXPECT_LE(bytes - last, 1000U);
                   last = bytes;
                   return true;
               });
    EXPECT_EQ(last, 100'001U);
    EXPECT_EQ(rig.Store.Count(), 1U);
}

TEST(FileScan, OneScanSearchesManyFilesAfterOneAnother) {
    FileScanRig rig;
    rig.Files.Put(u"/1", "x\nabc");
    rig.Files.Put(u"/2",
                  "\xC3\xA9"
                  "abc");
    rig.Files.Put(u"/3",
                  "\xE9"
                  "abc");
    const LineQuery query(u"ABC", plain);
    FileScan scan(rig.Files, Encoding::Automatic, query, rig.Store);
    for (const auto* name : {u"/1", u"/missing", u"/2", u"/3", u"/1"}) {
        scan.Search(name, [](auto, auto) { return true; });
    }
    EXPECT_EQ(rig.Found(), (Found{{2, 1, "abc"}, {1, 2, "éabc"}, {1, 2, "éabc"}, {2, 1, "abc"}}));
    EXPECT_EQ(rig.Store[1].Source, u"/2");
    EXPECT_EQ(rig.Store[3].Source, u"/1");
}

TEST(FileScan, ALineThatNoDocumentCouldHoldEndsTheSearchOfItsFile) {
    // Symptom: the image of a disk, which has no line feeds, took twice its size of memory.
    FileScanRig rig;
    const LineQuery query(u"abc", plain);
    const auto search = [&](std::size_t length) {
        rig.Files.Put(u"/f", "abc\n" + std::string(length - 3, '.') + "abc\nabc");
        const std::size_t before = rig.Store.Count();
        FileScan scan(rig.Files, Encoding::SingleByte, query, rig.Store, BestSearchKernel(), 16,
                      100);
        EXPECT_TRUE(scan.Search(u"/f", [](auto, auto) { return true; }));
        return rig.Store.Count() - before;
    };
    EXPECT_EQ(search(95), 3U);
    EXPECT_EQ(search(200), 1U) << "what was found in front of it stays";
}

}  // namespace
}  // namespace quorvale
