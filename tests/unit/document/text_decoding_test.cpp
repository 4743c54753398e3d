#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "document/encodings.h"
#include "document/text_loading.h"
#include "loaded_text.h"
#include "support/noting_memory.h"

namespace quorvale {
namespace {

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
    std::string bytes(static_cast<std::size_t>(block) - 1, 'x');
    bytes += "\xF0\x9F\x98\x80";
    // Nothing but the second half is left for the next block.
    const LoadedText last = Load(bytes, Encoding::Utf8);
    EXPECT_EQ(last.Text.Mid(block, 9), u"\U0001F600\r\n");
    bytes += 'y';
    const LoadedText loaded = Load(bytes, Encoding::Utf8);
    EXPECT_EQ(BlocksOf(loaded.Text), "ww");
    EXPECT_EQ(loaded.Text.Mid(block - 1, 9), u"x\U0001F600y\r\n");
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

}  // namespace
}  // namespace quorvale
