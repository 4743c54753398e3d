#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "base/utf8.h"
#include "document/encodings.h"
#include "document/text_loading.h"
#include "platform/memory_files.h"

namespace quorvale {
namespace {

/// The code of the character that takes exactly these bytes; nothing if there is none. Decided by
/// writing every candidate again, so that it shares no thought with the reading that it tests.
bool IsCharacter(const std::string& bytes, char32_t& code) {
    const auto first = static_cast<unsigned char>(bytes[0]);
    code = bytes.size() == 1 ? first : first & (0xFFU >> (bytes.size() + 1));
    for (std::size_t i = 1; i < bytes.size(); ++i) {
        code = code << 6 | (static_cast<unsigned char>(bytes[i]) & 0x3FU);
    }
    if (code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) return false;
    std::string written;
    AppendUtf8(written, code);
    return written == bytes;
}

struct Model {
    std::u16string Units;
    bool Valid = true;
};

Model DecodeUtf8(const std::string& bytes) {
    Model model;
    std::size_t at = 0;
    while (at < bytes.size()) {
        std::size_t length = 1;
        char32_t code = 0;
        while (length <= 4 && !IsCharacter(bytes.substr(at, length), code)) ++length;
        if (length > 4) {
            model.Valid = false;
            model.Units.push_back(
                static_cast<char16_t>(0xDC00 + static_cast<unsigned char>(bytes[at++])));
            continue;
        }
        if (code >= 0x10000) {
            model.Units.push_back(static_cast<char16_t>(0xD7C0 + (code >> 10)));
            model.Units.push_back(static_cast<char16_t>(0xDC00 + (code & 0x3FF)));
        } else {
            model.Units.push_back(static_cast<char16_t>(code));
        }
        at += length;
    }
    return model;
}

std::u16string DecodeUnitByUnit(const std::string& bytes, Encoding encoding) {
    std::u16string units;
    for (const char byte : bytes) {
        const auto value = static_cast<std::uint8_t>(byte);
        units.push_back(encoding == Encoding::Windows1252 ? FromWindows1252(value) : value);
    }
    return units;
}

std::u16string Decode(const std::string& bytes, Encoding encoding, Encoding& used) {
    used = encoding;
    if (encoding == Encoding::Utf8 || encoding == Encoding::Automatic) {
        Model model = DecodeUtf8(bytes);
        used = encoding == Encoding::Utf8 || model.Valid ? Encoding::Utf8 : Encoding::SingleByte;
        if (used == Encoding::Utf8) return model.Units;
    }
    return DecodeUnitByUnit(bytes, used);
}

std::vector<std::int32_t> StartsOf(const std::u16string& units) {
    std::vector<std::int32_t> starts = {1};
    for (std::size_t i = 0; i < units.size(); ++i) {
        if (units[i] == u'\n') starts.push_back(static_cast<std::int32_t>(i + 2));
    }
    return starts;
}

/// Loads the bytes, compares text and line starts with a plain reading, and writes them back.
void Check(const std::string& bytes, Encoding encoding, LineKernel kernel) {
    MemoryFiles files;
    files.Put(u"file", bytes);
    auto stream = files.OpenForReading(u"file");
    PlainMemory memory;
    const LoadedText loaded = ReadText(**stream, encoding, memory, kernel);
    Encoding used;
    const std::u16string units = Decode(bytes, encoding, used) + u"\r\n";
    ASSERT_EQ(loaded.Used, used);
    ASSERT_EQ(loaded.Text.Length(), static_cast<std::int32_t>(units.size()));
    ASSERT_TRUE(loaded.Text.Mid(1, loaded.Text.Length()) == units);
    const std::vector<std::int32_t> starts = StartsOf(units);
    ASSERT_EQ(loaded.Starts.Count(), static_cast<std::int32_t>(starts.size()));
    for (std::size_t i = 0; i < starts.size(); ++i) {
        ASSERT_EQ(loaded.Starts[static_cast<std::int32_t>(i + 1)], starts[i]) << "line " << i + 1;
    }
    const EncodedText encoded =
        EncodeText(std::u16string_view(units).substr(0, units.size() - 2), used);
    ASSERT_TRUE(encoded);
    ASSERT_TRUE(encoded.Bytes == bytes);
}

class RandomBytes {
public:
    explicit RandomBytes(unsigned seed) : random_(seed) {}

    std::size_t Below(std::size_t limit) { return random_() % limit; }

    void AppendCharacter(std::string& out, char32_t limit) {
        auto code = static_cast<char32_t>(random_() % limit);
        if (code >= 0xD800 && code < 0xE000) code = 0x3042;
        AppendUtf8(out, code);
    }

    /// Text that is mostly ASCII, with stretches that are not; invalid bytes only if wanted.
    std::string Text(std::size_t size, bool invalid) {
        std::string out;
        while (out.size() < size) {
            const std::size_t kind = Below(20);
            const std::size_t length = Below(kind < 3 ? 5 : 200);
            for (std::size_t i = 0; i < length; ++i) {
                if (kind == 0) {
                    AppendCharacter(out, 0x110000);
                } else if (kind == 1) {
                    AppendCharacter(out, 0x100);
                } else if (kind == 2 && invalid) {
                    out.push_back(static_cast<char>(random_() % 256));
                } else {
                    out.push_back(Below(30) == 0 ? '\n' : static_cast<char>(' ' + Below(90)));
                }
            }
            if (Below(50) == 0) out.append(Below(300'000), 'x');
        }
        return out;
    }

private:
    std::mt19937 random_;
};

class ReadTextAtRandom : public testing::TestWithParam<Encoding> {};

std::string NameOf(const testing::TestParamInfo<Encoding>& info) {
    const char* const names[] = {"SingleByte", "Windows1252", "Utf8", "Automatic"};
    return names[static_cast<int>(info.param)];
}

INSTANTIATE_TEST_SUITE_P(EachEncoding, ReadTextAtRandom,
                         testing::Values(Encoding::SingleByte, Encoding::Windows1252,
                                         Encoding::Utf8, Encoding::Automatic),
                         NameOf);

TEST_P(ReadTextAtRandom, ShortFilesAreReadAndWrittenBack) {
    RandomBytes random(21);
    for (int round = 0; round < 400; ++round) {
        Check(random.Text(random.Below(400), round % 2 == 0), GetParam(), BestLineKernel());
    }
}

TEST_P(ReadTextAtRandom, FilesOfAnyBytesAreReadAndWrittenBack) {
    RandomBytes random(22);
    for (int round = 0; round < 400; ++round) {
        std::string bytes;
        for (std::size_t i = random.Below(300); i > 0; --i)
            bytes.push_back(static_cast<char>(random.Below(256)));
        Check(bytes, GetParam(), BestLineKernel());
    }
}

TEST_P(ReadTextAtRandom, LongFilesAreReadAndWrittenBackByEveryKernel) {
    RandomBytes random(23);
    for (const LineKernel kernel : {BestLineKernel(), LineKernel::Portable, LineKernel::Naive}) {
        Check(random.Text(1'100'000 + random.Below(500'000), false), GetParam(), kernel);
        Check(random.Text(1'100'000 + random.Below(500'000), true), GetParam(), kernel);
    }
}

TEST_P(ReadTextAtRandom, FilesWithFewCharactersBeyondAsciiAreReadAndWrittenBack) {
    // Most blocks stay as they are, some move to the front, some become wide.
    RandomBytes random(24);
    for (int round = 0; round < 3; ++round) {
        std::string bytes;
        while (bytes.size() < 3'500'000) {
            bytes.append(random.Below(2'000'000), 'x');
            bytes += "\n";
            random.AppendCharacter(bytes, round % 2 == 0 ? 0x110000 : 0x100);
        }
        Check(bytes, GetParam(), BestLineKernel());
    }
}

}  // namespace
}  // namespace quorvale
