#include "search/byte_scan.h"

#include <gtest/gtest.h>

#include <random>
#include <string_view>
#include <vector>

namespace quorvale {
namespace {

std::vector<std::uint8_t> Bytes(std::string_view text) { return {text.begin(), text.end()}; }

std::vector<SearchKernel> Kernels() {
    std::vector<SearchKernel> kernels = {SearchKernel::Portable, SearchKernel::Naive};
    if (BestSearchKernel() == SearchKernel::Avx2) kernels.push_back(SearchKernel::Avx2);
    return kernels;
}

ByteNeedle NeedleOf(std::string_view text) {
    std::vector<ByteSet> sets;
    for (const char byte : text) sets.push_back(ByteSet::Of(static_cast<std::uint8_t>(byte)));
    return ByteNeedle(sets);
}

TEST(ByteSets, ALetterIsExactlyItsTwoForms) {
    const std::uint8_t letters[] = {'q', 'Q'};
    const ByteSet set = ByteSet::Around(letters);
    EXPECT_TRUE(set.Exact);
    for (int byte = 0; byte < 256; ++byte) {
        EXPECT_EQ(set.Has(static_cast<std::uint8_t>(byte)), byte == 'q' || byte == 'Q') << byte;
    }
}

TEST(ByteSets, BytesThatDifferInMoreThanABitBringOthersWithThem) {
    const std::uint8_t bytes[] = {0x9F, 0xFF};
    const ByteSet set = ByteSet::Around(bytes);
    EXPECT_FALSE(set.Exact);
    EXPECT_TRUE(set.Has(0x9F));
    EXPECT_TRUE(set.Has(0xFF));
    EXPECT_TRUE(set.Has(0xBF));
}

TEST(ByteNeedles, TheirSieveLooksForTheRarestBytes) {
    const ByteNeedle needle = NeedleOf("one quiz");
    EXPECT_EQ(needle.Value(needle.SievePlace(0)), 'z');
    EXPECT_EQ(needle.Value(needle.SievePlace(1)), 'q');
    EXPECT_LT(needle.Commonness(), NeedleOf("tone").Commonness());
    EXPECT_LT(needle.Commonness(), NeedleOf("z").Commonness()) << "two places sieve better";
}

TEST(ByteNeedles, ASingleByteIsItsOwnSieve) {
    const ByteNeedle needle = NeedleOf("z");
    EXPECT_EQ(needle.SievePlace(0), 0U);
    EXPECT_EQ(needle.SievePlace(1), 0U);
}

TEST(ByteScan, TheSieveLearnsWhatATextIsFullOf) {
    // "qz" is rare elsewhere; only its last byte tells the needle from this text.
    std::string text;
    for (int i = 0; i < 20'000; ++i) text += "qz-a1 ";
    const auto bytes = Bytes(text);
    for (const SearchKernel kernel : Kernels()) {
        const ByteNeedle needle = NeedleOf("qz-e");
        EXPECT_EQ(ScanForNeedle(bytes.data(), bytes.size() - 3, needle, kernel).Place,
                  bytes.size() - 3);
        if (kernel == SearchKernel::Naive) continue;
        EXPECT_TRUE(needle.HasThreeSievePlaces());
        EXPECT_EQ(needle.SievePlace(2), 3U);
    }
}

TEST(ByteScan, GivesUpWhereNearlyEverythingFits) {
    const std::vector<std::uint8_t> bytes(1'000'000, 'a');
    std::string text(1000, 'a');
    text[500] = 'A';
    for (const SearchKernel kernel : Kernels()) {
        if (kernel == SearchKernel::Naive) continue;
        // The one place that differs is not in the sieve: it is no rarer than the others.
        const ByteNeedle needle = NeedleOf(text);
        const PlaceScan scan = ScanForNeedle(bytes.data(), bytes.size() - 999, needle, kernel);
        EXPECT_TRUE(scan.GaveUp || scan.Place == bytes.size() - 999);
    }
}

TEST(ByteScan, EveryKernelFindsTheSamePlaces) {
    std::mt19937 random(3);
    const std::string_view alphabet = "abc\n";
    for (int round = 0; round < 20'000; ++round) {
        std::string text(random() % 400, ' ');
        for (char& byte : text) byte = alphabet[random() % alphabet.size()];
        std::string wanted(1 + random() % 6, ' ');
        for (char& byte : wanted) byte = alphabet[random() % alphabet.size()];
        if (text.size() < wanted.size()) continue;
        const auto bytes = Bytes(text);
        const std::size_t places = bytes.size() - wanted.size() + 1;
        const std::size_t expected = std::min(text.find(wanted), places);
        for (const SearchKernel kernel : Kernels()) {
            const PlaceScan scan = ScanForNeedle(bytes.data(), places, NeedleOf(wanted), kernel);
            ASSERT_FALSE(scan.GaveUp);
            ASSERT_EQ(scan.Place, expected) << round;
        }
    }
}

TEST(ByteScan, LineFeedsAreCountedByEveryKernel) {
    std::mt19937 random(4);
    for (int round = 0; round < 2'000; ++round) {
        std::vector<std::uint8_t> bytes(random() % (round % 10 == 0 ? 30'000 : 300));
        std::size_t expected = 0;
        for (std::uint8_t& byte : bytes) {
            byte = static_cast<std::uint8_t>(9 + random() % 3);
            expected += byte == '\n';
        }
        for (const SearchKernel kernel : Kernels()) {
            ASSERT_EQ(CountLineFeeds(bytes, kernel), expected) << round;
        }
    }
}

TEST(ByteScan, TheLastLineFeedIsFound) {
    for (std::size_t size = 0; size < 200; ++size) {
        std::vector<std::uint8_t> bytes(size, 'x');
        EXPECT_EQ(BehindLastLineFeed(bytes), 0U);
        for (std::size_t at = 0; at < size; ++at) {
            bytes[at] = '\n';
            ASSERT_EQ(BehindLastLineFeed(bytes), at + 1) << size;
        }
    }
}

TEST(ByteScan, OneByteBeyondAsciiIsSeenAnywhere) {
    for (std::size_t size = 0; size < 300; ++size) {
        std::vector<std::uint8_t> bytes(size, 0x7F);
        EXPECT_TRUE(IsAscii(bytes));
        for (std::size_t at = 0; at < size; ++at) {
            bytes[at] = 0x80;
            ASSERT_FALSE(IsAscii(bytes)) << size << ' ' << at;
            bytes[at] = 0x7F;
        }
    }
}

TEST(ByteScan, AByteIsFoundFromAPlaceOn) {
    const auto bytes = Bytes("a\tb\tc");
    EXPECT_EQ(FindByte(bytes, '\t'), 1U);
    EXPECT_EQ(FindByte(bytes, '\t', 2), 3U);
    EXPECT_EQ(FindByte(bytes, '\t', 4), 5U);
    EXPECT_EQ(FindByte(bytes, '\t', 9), 5U);
    EXPECT_EQ(FindByte({}, '\t'), 0U);
}

}  // namespace
}  // namespace quorvale
