#include "document/text_writing.h"

#include <gtest/gtest.h>

#include <random>

#include "base/errors.h"
#include "document/encodings.h"
#include "support/documents.h"
#include "support/error_of.h"

namespace quorvale {
namespace {

using Bytes = std::span<const std::uint8_t>;

class TextWriterTest : public testing::Test {
protected:
    TextWriter Writer(Encoding encoding) { return TextWriter(encoding, out); }

    PlainMemory memory;
    ByteRope out{memory};
};

TEST_F(TextWriterTest, PiecesStandBehindOneAnother) {
    TextWriter writer = Writer(Encoding::SingleByte);
    writer.Put(std::u16string_view(u"a\u00E9"));
    const std::uint8_t narrow[] = {'b', 0x81, 0xFF};
    writer.Put(Bytes(narrow));
    writer.Put(std::u16string_view());
    writer.Finish();
    EXPECT_EQ(out,
              "a\xE9"
              "b\x81\xFF");
}

TEST_F(TextWriterTest, NarrowUnitsAreCharactersNotBytes) {
    const std::uint8_t narrow[] = {'a', 0xE9, 0x81, 'z'};
    Writer(Encoding::Utf8).Put(Bytes(narrow));
    EXPECT_EQ(out, "a\xC3\xA9\xC2\x81z");
    out.Clear();
    Writer(Encoding::Windows1252).Put(Bytes(narrow));
    EXPECT_EQ(out, "a\xE9\x81z");
}

TEST_F(TextWriterTest, TheWesternCodePageHasNoByteForWhatItCannotRead) {
    const std::uint8_t euroAsByte[] = {0x80};
    EXPECT_EQ(ErrorOf([&] { Writer(Encoding::Windows1252).Put(Bytes(euroAsByte)); }),
              ErrorKind::InvalidValue);
    Writer(Encoding::Windows1252).Put(std::u16string_view(u"\u20AC"));
    EXPECT_EQ(out, "\x80");
}

TEST_F(TextWriterTest, ACharacterMayBeSplitBetweenPieces) {
    TextWriter writer = Writer(Encoding::Utf8);
    writer.Put(std::u16string_view(u"x\xD83D"));
    writer.Put(std::u16string_view());
    writer.Put(std::u16string_view(u"\xDE00y"));
    writer.Finish();
    EXPECT_EQ(out, "x\xF0\x9F\x98\x80y");
}

TEST_F(TextWriterTest, HalfACharacterIsRefused) {
    const std::uint8_t narrow[] = {'a'};
    const auto half = [this] {
        TextWriter writer = Writer(Encoding::Utf8);
        writer.Put(std::u16string_view(u"\xD83D"));
        return writer;
    };
    EXPECT_EQ(ErrorOf([&] { half().Finish(); }), ErrorKind::InvalidValue);
    EXPECT_EQ(ErrorOf([&] { half().Put(Bytes(narrow)); }), ErrorKind::InvalidValue);
    EXPECT_EQ(ErrorOf([&] { half().Put(std::u16string_view(u"a")); }), ErrorKind::InvalidValue);
}

TEST_F(TextWriterTest, ACharacterWithoutAByteIsNamed) {
    try {
        Writer(Encoding::SingleByte).Put(std::u16string_view(u"a\u65E5"));
        ADD_FAILURE() << "it was written";
    } catch (const ControlError& error) {
        EXPECT_STREQ(error.what(), "The character U+65E5 does not exist in the file's encoding");
    }
}

TEST_F(TextWriterTest, ATextComesInAnyPiecesAsTheSameBytes) {
    std::mt19937 random(5);
    for (int round = 0; round < 200; ++round) {
        std::u16string text = RandomText(random, 40, 9000);
        if (round % 2 == 1) text += u"\u65E5\U0001F600\xDC81";
        const TextStore store = TextStore::FromString(text);
        out.Clear();
        TextWriter writer = Writer(Encoding::Utf8);
        for (std::int32_t start = 1; start <= store.Length();) {
            const auto size = static_cast<std::int32_t>(1 + random() % 5000);
            writer.PutFrom(store, start, size);
            start += size;
        }
        writer.Finish();
        ASSERT_EQ(out, EncodeText(text, Encoding::Utf8).Bytes);
    }
}

TEST_F(TextWriterTest, BlocksThatCutACharacterInTwoAreNoTrap) {
    const std::u16string text = Times(TextStore::BlockUnits - 1) + u"\U0001F600";
    Writer(Encoding::Utf8).PutFrom(TextStore::FromString(text), 1, 2147483647);
    EXPECT_EQ(out.Spans().Gathered().substr(TextStore::BlockUnits - 2), "x\xF0\x9F\x98\x80");
}

}  // namespace
}  // namespace quorvale
