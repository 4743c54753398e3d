#include <gtest/gtest.h>

#include <random>

#include "document/display_text.h"
#include "document/text_loading.h"
#include "file_scan_fixture.h"
#include "search/pattern.h"

namespace quorvale {
namespace {

/// The lines of a document with these bytes, each as it is displayed.
std::vector<std::u16string> LinesOf(const std::string& bytes, Encoding encoding) {
    MemoryFiles files;
    files.Put(u"/f", bytes);
    PlainMemory memory;
    auto stream = files.OpenForReading(u"/f");
    const LoadedText loaded = ReadText(**stream, encoding, memory);
    std::vector<std::u16string> lines;
    // The document ends with a line break of its own, the file may do so already.
    const bool endsLine = bytes.empty() || bytes.back() == '\n';
    const std::int32_t count = loaded.Starts.Count() - 1 - (endsLine ? 1 : 0);
    for (std::int32_t line = 1; line <= count; ++line) {
        const std::int32_t start = loaded.Starts[line];
        std::u16string text = loaded.Text.Mid(start, loaded.Starts[line + 1] - 1 - start);
        if (!text.empty() && text.back() == u'\r') text.pop_back();
        lines.push_back(ExpandTabs(text));
    }
    return lines;
}

/// What has to be found, line by line from the rules alone.
std::vector<FoundLine> Expected(const std::string& bytes, std::u16string_view typed,
                                LineQuery::Kind kind, Encoding encoding) {
    const CaseTablePtr cases = CaseTableOf(nullptr);
    const std::u16string wanted = KeysOf(typed, cases->Capitals);
    const Pattern pattern(u"*" + wanted + u"*");
    std::vector<FoundLine> found;
    std::int32_t number = 0;
    for (const std::u16string& line : LinesOf(bytes, encoding)) {
        ++number;
        std::int32_t column = 0;
        if (kind == LineQuery::Kind::Wildcard) {
            const std::span<const char16_t> units(line.data(), line.size());
            column = pattern.Matches(units, cases->Capitals) ? 1 : 0;
        } else if (!line.empty()) {
            const auto folded = KeysOf(line, cases->Folds).find(KeysOf(wanted, cases->Folds));
            column = folded == std::u16string::npos ? 0 : static_cast<std::int32_t>(folded) + 1;
        }
        if (column != 0) found.push_back({number, column, ToUtf8(line)});
    }
    return found;
}

class RandomFiles {
public:
    explicit RandomFiles(unsigned seed) : random_(seed) {}

    std::string Bytes() {
        static constexpr std::string_view pieces[] = {
            "a",
            "B",
            "k",
            "s",
            "S",
            "ab",
            " ",
            "\t",
            "\n",
            "\n",
            "\r\n",
            "\r",
            "\xC3\xA9",
            "\xC3\x89",
            "\xE9",
            "\xC9",
            "\xE2\x84\xAA",
            "\xFF",
            "\xE3\x81\x82",
            "\xF0\x9F\x98\x80",
            "\x8A",
            "\x9A",
            "1",
            "abk s",
        };
        // Most files have few kinds of pieces: only some of them are not valid UTF-8.
        const std::size_t kinds = 8 + random_() % (std::size(pieces) - 7);
        std::string bytes;
        for (auto count = random_() % 60; count > 0; --count) bytes += pieces[random_() % kinds];
        return bytes;
    }

    std::u16string Typed(bool wild) {
        static constexpr std::u16string_view pieces[] = {
            u"a",      u"B",      u"k",  u"s",  u"ab",           u" ",      u"\u00E9", u"\u3042",
            u"\u212A", u"\u0160", u"\r", u"\t", u"\xD83D\xDE00", u"\xDCFF", u"\u00FF", u"1",
        };
        static constexpr std::u16string_view wildcards[] = {u"*", u"*", u"?", u"#", u"[ab]"};
        std::u16string typed;
        const std::size_t kinds = random_() % 2 == 0 ? 6 : std::size(pieces);
        for (auto count = random_() % 4; count > 0; --count) {
            typed += pieces[random_() % kinds];
            if (wild && random_() % 2 == 0) typed += wildcards[random_() % std::size(wildcards)];
        }
        return typed;
    }

    std::size_t Capacity() { return random_() % 2 == 0 ? 1 + random_() % 40 : 1 << 12; }

    template <class Choice>
    Choice Any(std::initializer_list<Choice> choices) {
        return choices.begin()[random_() % choices.size()];
    }

private:
    std::mt19937 random_;
};

TEST(FileScan, FindsInRandomFilesWhatReadingThemLineByLineFinds) {
    RandomFiles files(11);
    int found = 0;
    for (int round = 0; round < 20'000; ++round) {
        const std::string bytes = files.Bytes();
        const auto kind = files.Any({LineQuery::Kind::Plain, LineQuery::Kind::Wildcard});
        const auto encoding = files.Any(
            {Encoding::SingleByte, Encoding::Windows1252, Encoding::Utf8, Encoding::Automatic});
        const std::u16string typed = files.Typed(kind == LineQuery::Kind::Wildcard);
        FileScanRig rig;
        rig.Capacity = files.Capacity();
        rig.Kernel = files.Any({SearchKernel::Portable, BestSearchKernel()});
        const auto expected = Expected(bytes, typed, kind, encoding);
        found += static_cast<int>(expected.size());
        ASSERT_EQ(rig.Find(bytes, typed, kind, encoding), expected)
            << round << ": '" << ToUtf8(typed) << "' in '" << bytes << "', encoding "
            << static_cast<int>(encoding) << ", wildcard " << (kind == LineQuery::Kind::Wildcard);
    }
    EXPECT_GT(found, 15'000);
}

}  // namespace
}  // namespace quorvale
