#include "document/text_loading.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "base/errors.h"
#include "loaded_text.h"
#include "platform/memory_files.h"

namespace quorvale {
namespace {

using namespace std::string_literals;

ErrorKind KindOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const ControlError& error) {
        return error.Kind();
    }
    ADD_FAILURE() << "no error was raised";
    return ErrorKind::Index;
}

TEST(ReadText, PutsALineBreakBehindTheText) {
    EXPECT_EQ(All(Load("A\r\nB\r\nC")), u"A\r\nB\r\nC\r\n");
    EXPECT_EQ(All(Load("A\r\n")), u"A\r\n\r\n");
    EXPECT_EQ(All(Load("")), u"\r\n");
}

TEST(ReadText, EveryLineFeedEndsALine) {
    EXPECT_EQ(Starts(Load("A\r\nB\r\nC")), (std::vector<std::int32_t>{1, 4, 7, 10}));
    EXPECT_EQ(Starts(Load("A\nB")), (std::vector<std::int32_t>{1, 3, 6}));
    EXPECT_EQ(Starts(Load("")), (std::vector<std::int32_t>{1, 3}));
    EXPECT_EQ(Starts(Load("\n\n\n")), (std::vector<std::int32_t>{1, 2, 3, 4, 6}));
    EXPECT_EQ(Starts(Load("A\rB\r\r\nC\n\r")), (std::vector<std::int32_t>{1, 7, 9, 12}));
}

TEST(ReadText, AFileOfSizeZeroIsNotRead) {
    MemoryFiles files;
    files.Put(u"empty", "");
    FailingFiles failing(files);
    failing.FailRead = 1;
    auto stream = failing.OpenForReading(u"empty");
    PlainMemory memory;
    EXPECT_EQ(All(ReadText(**stream, Encoding::Automatic, memory)), u"\r\n");
}

TEST(ReadText, OfAFileThatShrinksWhatIsLeftIsTaken) {
    OddStream stream("abc\n", 100, 100);
    PlainMemory memory;
    const LoadedText loaded = ReadText(stream, Encoding::SingleByte, memory);
    EXPECT_EQ(All(loaded), u"abc\n\r\n");
    EXPECT_EQ(Starts(loaded), (std::vector<std::int32_t>{1, 5, 7}));
    OddStream gone("", 100, 100);
    EXPECT_EQ(All(ReadText(gone, Encoding::SingleByte, memory)), u"\r\n");
}

TEST(ReadText, OfAFileThatGrowsNothingNewIsTaken) {
    OddStream stream("abc\ndef", 5, 100);
    PlainMemory memory;
    EXPECT_EQ(All(ReadText(stream, Encoding::SingleByte, memory)), u"abc\nd\r\n");
}

TEST(ReadText, TheStreamMayHandOutLittleAtATime) {
    for (const std::size_t most : {1U, 2U, 3U, 7U}) {
        for (const Encoding encoding : {Encoding::Automatic, Encoding::Utf8}) {
            const std::string bytes = "a\n\xE3\x81\x82\xF0\x9F\x98\x80\nb\xC3\xA9";
            OddStream stream(bytes, bytes.size(), most);
            PlainMemory memory;
            const LoadedText loaded = ReadText(stream, encoding, memory);
            EXPECT_EQ(All(loaded), u"a\n\u3042\U0001F600\nb\u00E9\r\n");
            EXPECT_EQ(Starts(loaded), (std::vector<std::int32_t>{1, 3, 7, 11}));
        }
        OddStream stream("a\x80\n\x99z", 5, most);
        PlainMemory memory;
        EXPECT_EQ(All(ReadText(stream, Encoding::Windows1252, memory)), u"a\u20AC\n\u2122z\r\n");
    }
}

TEST(ReadText, AFileTooLongFor32BitPositionsIsRefusedBeforeMemoryIsTaken) {
    FailingMemory none(0);
    OddStream tooLong("", 2147483645, 1);
    OddStream enormous("", std::numeric_limits<std::uint64_t>::max(), 1);
    OddStream longest("", 2147483644, 1);
    EXPECT_EQ(KindOf([&] { ReadText(tooLong, Encoding::Utf8, none); }), ErrorKind::Overflow);
    EXPECT_EQ(KindOf([&] { ReadText(enormous, Encoding::Utf8, none); }), ErrorKind::Overflow);
    EXPECT_EQ(KindOf([&] { ReadText(longest, Encoding::Utf8, none); }), ErrorKind::OutOfMemory);
}

TEST(ReadText, WithoutMemoryThereIsAnErrorWhereverItRunsOut) {
    std::string bytes;
    for (int i = 0; i < 3000; ++i) bytes += "\xE3\x81\x82\n";
    bool loaded = false;
    int grants = 0;
    for (; !loaded && grants < 100; ++grants) {
        OddStream stream(bytes, bytes.size(), bytes.size());
        FailingMemory memory(grants);
        try {
            loaded = ReadText(stream, Encoding::Utf8, memory).Starts.Count() == 3002;
        } catch (const ControlError& error) {
            EXPECT_EQ(error.Kind(), ErrorKind::OutOfMemory);
        }
    }
    EXPECT_TRUE(loaded);
    EXPECT_GT(grants, 4);  // the text, three sizes of the line table, a wide block
}

TEST(ReadText, AFailingReadSaysWhatFailed) {
    MemoryFiles files;
    files.Put(u"log \u65E5.txt", std::string(3 << 20, 'x'));
    FailingFiles failing(files);
    failing.FailRead = 3;
    auto stream = failing.OpenForReading(u"log \u65E5.txt");
    PlainMemory memory;
    try {
        ReadText(**stream, Encoding::SingleByte, memory);
        FAIL() << "no error";
    } catch (const ControlError& error) {
        EXPECT_EQ(error.Kind(), ErrorKind::File);
        const std::string text = error.what();
        EXPECT_NE(text.find("read"), text.npos) << text;
        EXPECT_NE(text.find("log \xE6\x97\xA5.txt"), text.npos) << text;
        EXPECT_NE(text.find("Reading was made to fail"), text.npos) << text;
    }
}

TEST(ReadText, ATextOfLineFeedsAloneFillsTheTable) {
    const std::int32_t lines = 2'000'000;
    const LoadedText loaded = Load(std::string(static_cast<std::size_t>(lines), '\n'));
    ASSERT_EQ(loaded.Starts.Count(), lines + 2);
    for (std::int32_t i = 1; i <= lines + 1; ++i) ASSERT_EQ(loaded.Starts[i], i);
    EXPECT_EQ(loaded.Starts[lines + 2], lines + 3);
}

TEST(TextFromString, TakesAnyUnits) {
    const std::u16string value = {u'a', u'\n', 0xD800, 0, 0xFFFF, u'\r'};
    const LoadedText loaded = TextFromString(value);
    EXPECT_EQ(All(loaded), value + u"\r\n");
    EXPECT_EQ(Starts(loaded), (std::vector<std::int32_t>{1, 3, 9}));
    EXPECT_EQ(loaded.Used, Encoding::Utf8);
}

TEST(TextFromString, NothingIsOneEmptyLine) {
    const LoadedText loaded = TextFromString(u"");
    EXPECT_EQ(All(loaded), u"\r\n");
    EXPECT_EQ(Starts(loaded), (std::vector<std::int32_t>{1, 3}));
}

TEST(TextFromString, IsStoredNarrowWhereItCanBe) {
    std::u16string value(static_cast<std::size_t>(block) + 5, u'x');
    EXPECT_TRUE(TextFromString(value).Text.IsNarrow());
    value.back() = u'\u3042';
    EXPECT_EQ(BlocksOf(TextFromString(value).Text), "nw");
}

TEST(RaiseFileFailure, NamesOperationNameAndReason) {
    try {
        RaiseFileFailure({"open", u"caf\u00E9", "No such file or directory"});
        FAIL() << "no error";
    } catch (const ControlError& error) {
        EXPECT_EQ(error.Kind(), ErrorKind::File);
        EXPECT_STREQ(error.what(), "open 'caf\xC3\xA9': No such file or directory");
    }
}

}  // namespace
}  // namespace quorvale
