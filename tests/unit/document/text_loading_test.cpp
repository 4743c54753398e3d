#include "document/text_loading.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "base/errors.h"
#include "document/encodings.h"
#include "platform/memory_files.h"
#include "support/noting_memory.h"

namespace quorvale {
namespace {

using namespace std::string_literals;

constexpr std::int32_t block = TextStore::BlockUnits;
constexpr std::int32_t farOut = std::numeric_limits<std::int32_t>::max();

/// A stream that hands out less than is asked for, or not what its size promised.
class OddStream final : public ReadStream {
public:
    OddStream(std::string bytes, std::uint64_t size, std::size_t most)
        : bytes_(std::move(bytes)), size_(size), most_(most) {}

    std::uint64_t Size() const override { return size_; }

    FileResult<std::size_t> Read(std::byte* into, std::size_t count) override {
        const std::size_t size = std::min({count, most_, bytes_.size() - at_});
        std::memcpy(into, bytes_.data() + at_, size);
        at_ += size;
        return size;
    }

private:
    std::string bytes_;
    std::uint64_t size_;
    std::size_t most_;
    std::size_t at_ = 0;
};

LoadedText Load(const std::string& bytes, Encoding encoding = Encoding::SingleByte) {
    OddStream stream(bytes, bytes.size(), bytes.size() + 1);
    PlainMemory memory;
    return ReadText(stream, encoding, memory);
}

std::u16string All(const LoadedText& loaded) { return loaded.Text.Mid(1, farOut); }

std::vector<std::int32_t> Starts(const LoadedText& loaded) {
    std::vector<std::int32_t> starts;
    for (std::int32_t i = 1; i <= loaded.Starts.Count(); ++i) starts.push_back(loaded.Starts[i]);
    return starts;
}

/// Which blocks are wide: "nnw" for two narrow ones and a wide one.
std::string BlocksOf(const TextStore& text) {
    std::string blocks;
    for (std::int32_t first = 1; first <= text.Length(); first += block) {
        text.VisitSpans(first, block,
                        [&](auto units) { blocks += sizeof(units[0]) == 1 ? 'n' : 'w'; });
    }
    return blocks;
}

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

TEST(ReadText, SingleByteIsOneToOne) {
    std::string bytes;
    std::u16string units;
    for (unsigned i = 0; i < 256; ++i) {
        bytes.push_back(static_cast<char>(i));
        units.push_back(static_cast<char16_t>(i));
    }
    const LoadedText loaded = Load(bytes);
    EXPECT_EQ(All(loaded), units + u"\r\n");
    EXPECT_EQ(Starts(loaded), (std::vector<std::int32_t>{1, 12, 259}));
    EXPECT_TRUE(loaded.Text.IsNarrow());
    EXPECT_EQ(loaded.Used, Encoding::SingleByte);
    EXPECT_EQ(All(Load(bytes, Encoding::Automatic)), units + u"\r\n");
}

TEST(ReadText, AutomaticReadsValidUtf8AsSuch) {
    const LoadedText loaded = Load("\xE3\x81\x82\nb", Encoding::Automatic);
    EXPECT_EQ(All(loaded), u"\u3042\nb\r\n");
    EXPECT_EQ(loaded.Used, Encoding::Utf8);
    EXPECT_EQ(Load("plain\n", Encoding::Automatic).Used, Encoding::Utf8);
    EXPECT_EQ(Load("", Encoding::Automatic).Used, Encoding::Utf8);
}

TEST(ReadText, AutomaticReadsAnythingElseOneToOne) {
    for (const std::string bytes :
         {"\xE3\x81\x82\xFF", "\xFF\xE3\x81\x82", "\xE9t\xE9", "a\xED\xA0\x80", "\xC0\x80"}) {
        const LoadedText loaded = Load(bytes, Encoding::Automatic);
        EXPECT_EQ(loaded.Used, Encoding::SingleByte);
        EXPECT_EQ(All(loaded), All(Load(bytes)));
    }
}

TEST(ReadText, ACharacterCutOffByTheEndOfTheFileIsNotUtf8) {
    for (const std::string cut : {"\xC3", "\xE3\x81", "\xF0\x9F\x98"}) {
        for (const std::size_t size : {0U, 5U, 262143U, 262144U, 262145U}) {
            const LoadedText loaded = Load(std::string(size, 'x') + cut, Encoding::Automatic);
            EXPECT_EQ(loaded.Used, Encoding::SingleByte);
        }
    }
}

TEST(ReadText, AByteOrderMarkIsACharacterLikeOthers) {
    EXPECT_EQ(All(Load("\xEF\xBB\xBFx", Encoding::Automatic)), u"\uFEFFx\r\n");
}

TEST(ReadText, Utf8KeepsInvalidBytes) {
    const LoadedText loaded = Load("a\xFF\n\xE3\x81", Encoding::Utf8);
    EXPECT_EQ(All(loaded), (std::u16string{u'a', 0xDCFF, u'\n', 0xDCE3, 0xDC81, u'\r', u'\n'}));
    EXPECT_EQ(loaded.Used, Encoding::Utf8);
}

TEST(ReadText, WesternCharactersAreRead) {
    const LoadedText loaded = Load("\x80 \x81 \xE9\n\x9F", Encoding::Windows1252);
    EXPECT_EQ(All(loaded), u"\u20AC \u0081 \u00E9\n\u0178\r\n");
    EXPECT_EQ(Starts(loaded), (std::vector<std::int32_t>{1, 7, 10}));
    EXPECT_EQ(loaded.Used, Encoding::Windows1252);
    EXPECT_TRUE(Load("\x81\x8D\x8F\x90\x9D\xA0\xFF", Encoding::Windows1252).Text.IsNarrow());
}

TEST(ReadText, WesternSpecialCharactersWidenTheirBlockOnly) {
    std::string bytes(3 * static_cast<std::size_t>(block), 'x');
    bytes[static_cast<std::size_t>(block) + 700'000] = '\x93';
    bytes.back() = '\x80';
    const LoadedText loaded = Load(bytes, Encoding::Windows1252);
    EXPECT_EQ(BlocksOf(loaded.Text), "nwwn");
    EXPECT_EQ(loaded.Text.At(block + 700'001), u'\u201C');
    EXPECT_EQ(loaded.Text.Mid(3 * block - 1, 9), u"x\u20AC\r\n");
}

TEST(ReadText, CharactersUpToFFStayNarrowInUtf8) {
    std::string bytes;
    std::u16string units;
    for (int i = 0; i < 300'000; ++i) {
        bytes += "\xC3\xA9t\xC3\xA9\n";
        units += u"\u00E9t\u00E9\n";
    }
    for (const Encoding encoding : {Encoding::Utf8, Encoding::Automatic}) {
        const LoadedText loaded = Load(bytes, encoding);
        EXPECT_TRUE(loaded.Text.IsNarrow());
        EXPECT_EQ(All(loaded), units + u"\r\n");
        EXPECT_EQ(loaded.Starts.Count(), 300'002);
        EXPECT_EQ(loaded.Starts[300'001], 1'200'001);
        EXPECT_EQ(loaded.Starts[300'002], 1'200'003);
    }
}

TEST(ReadText, OneJapaneseLineAtTheEndWidensTheLastBlockOnly) {
    std::string bytes;
    while (bytes.size() < 4'000'000) bytes += "a line of a log\n";
    const std::string log = bytes;
    const LoadedText loaded = Load(bytes + "\xE7\xB5\x82\n", Encoding::Automatic);
    EXPECT_EQ(BlocksOf(loaded.Text), "nnnw");
    EXPECT_EQ(loaded.Text.Mid(static_cast<std::int32_t>(log.size()), 9), u"\n\u7D42\n\r\n");
    EXPECT_EQ(Starts(loaded).back(), static_cast<std::int32_t>(log.size()) + 5);
    EXPECT_EQ(loaded.Starts.Count(), Load(log).Starts.Count() + 1);
}

TEST(ReadText, OneJapaneseLineAtTheStartMovesAllLineStarts) {
    std::string bytes = "\xE5\xA7\x8B\n";
    std::u16string units = u"\u59CB\n";
    while (bytes.size() < 3'000'000) {
        bytes += "a line of a log\n";
        units += u"a line of a log\n";
    }
    const LoadedText loaded = Load(bytes, Encoding::Automatic);
    EXPECT_EQ(BlocksOf(loaded.Text), "wnn");
    EXPECT_EQ(All(loaded), units + u"\r\n");
    const std::vector<std::int32_t> starts = Starts(loaded);
    EXPECT_EQ(starts[1], 3);
    EXPECT_EQ(starts[2], 19);
    EXPECT_EQ(starts[starts.size() - 2], static_cast<std::int32_t>(units.size()) + 1);
    EXPECT_EQ(starts.back(), static_cast<std::int32_t>(units.size()) + 3);
}

TEST(ReadText, ACharacterMayLieAcrossPiecesAndBlocks) {
    // Pieces are read up to a power of two at most a block; the character crosses it at each byte.
    for (const std::string character : {"\xC3\xA9", "\xE3\x81\x82", "\xF0\x9F\x98\x80"}) {
        for (const std::size_t border : {1U << 16, 1U << 18, 1U << 19, 1U << 20}) {
            for (std::size_t before = 0; before <= character.size(); ++before) {
                const std::string bytes = std::string(border - before, 'x') + character + "yz\n";
                const LoadedText loaded = Load(bytes, Encoding::Automatic);
                ASSERT_EQ(loaded.Used, Encoding::Utf8);
                const EncodedText encoded = EncodeText(All(loaded), Encoding::Utf8);
                ASSERT_TRUE(encoded);
                ASSERT_EQ(encoded.Bytes, bytes + "\r\n");
            }
        }
    }
}

TEST(ReadText, APairMayLieAcrossTwoWideBlocks) {
    const auto size = static_cast<std::size_t>(block);
    const LoadedText loaded = Load(std::string(size - 1, 'x') +
                                       "\xF0\x9F\x98\x80"
                                       "y",
                                   Encoding::Utf8);
    EXPECT_EQ(BlocksOf(loaded.Text), "ww");
    EXPECT_EQ(loaded.Text.Mid(block - 1, 9), u"x\U0001F600y\r\n");
    // Nothing but the second half is left for the next block.
    const LoadedText last = Load(std::string(size - 1, 'x') + "\xF0\x9F\x98\x80", Encoding::Utf8);
    EXPECT_EQ(last.Text.Mid(block, 9), u"\U0001F600\r\n");
}

TEST(ReadText, TheFinalLineBreakMayBeginABlockOrLieAcrossTwo) {
    for (const std::int32_t units : {block - 3, block - 2, block - 1, block, block + 1}) {
        for (const std::string first : {"x", "\xC3\xA9", "\xE3\x81\x82"}) {
            const auto rest = static_cast<std::size_t>(units - 1);
            const LoadedText loaded = Load(first + std::string(rest, 'y'), Encoding::Automatic);
            ASSERT_EQ(loaded.Text.Length(), units + 2);
            ASSERT_EQ(loaded.Text.Mid(units, 9), u"y\r\n");
            ASSERT_EQ(Starts(loaded), (std::vector<std::int32_t>{1, units + 3}));
        }
        const auto rest = static_cast<std::size_t>(units - 1);
        const LoadedText western = Load("\x80" + std::string(rest, 'y'), Encoding::Windows1252);
        ASSERT_EQ(western.Text.Mid(units, 9), u"y\r\n");
        ASSERT_EQ(western.Text.At(1), u'\u20AC');
    }
}

TEST(ReadText, TheMemoryOfDecodedBytesIsGivenBackAndNothingElse) {
    std::string bytes;
    while (bytes.size() < 17'500'000) bytes += "\xE3\x81\x82\xE3\x81\x84\n";
    bytes.append(5 << 20, 'x');  // blocks that stay narrow, in the place of decoded bytes
    const std::size_t secondPart = bytes.size();
    while (bytes.size() < secondPart + 17'500'000) bytes += "\xE3\x81\x82\n";
    OddStream stream(bytes, bytes.size(), bytes.size());
    NotingMemory memory;
    const LoadedText loaded = ReadText(stream, Encoding::Automatic, memory);
    EXPECT_EQ(std::count_if(memory.Notes.begin(), memory.Notes.end(),
                            [](const std::string& note) { return note.starts_with("discard"); }),
              2);
    EXPECT_NE(BlocksOf(loaded.Text).find("wnn"), std::string::npos);
    EXPECT_NE(BlocksOf(loaded.Text).find("nnw"), std::string::npos);
    std::string written = EncodeText(All(loaded), Encoding::Utf8).Bytes;
    EXPECT_TRUE(written == bytes + "\r\n");
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
