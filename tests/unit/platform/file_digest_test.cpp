#include "platform/file_digest.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>
#include <tuple>

namespace quorvale {
namespace {

std::string RandomBytes(std::size_t size) {
    std::mt19937 random(7);
    std::string bytes(size, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    return bytes;
}

TEST(FileDigest, IsTheSameHoweverTheBytesAreCut) {
    const std::string bytes = RandomBytes(1000);
    const FileDigest whole = DigestOf(bytes);
    EXPECT_EQ(whole.Size, 1000U);
    for (std::size_t piece = 1; piece < 200; ++piece) {
        DigestBuilder builder;
        for (std::size_t at = 0; at < bytes.size(); at += piece) {
            builder.Add(std::string_view(bytes).substr(at, piece));
            builder.Add({});
        }
        EXPECT_EQ(builder.Digest(), whole) << "pieces of " << piece;
    }
}

TEST(FileDigest, CanBeAskedForBeforeTheEnd) {
    DigestBuilder builder;
    builder.Add("one");
    EXPECT_EQ(builder.Digest(), DigestOf("one"));
    builder.Add(" two");
    EXPECT_EQ(builder.Digest(), DigestOf("one two"));
}

TEST(FileDigest, ChangesWithEveryBitOfEveryByte) {
    std::string bytes = RandomBytes(200);
    std::set<std::tuple<std::uint64_t, std::uint64_t>> seen;
    const auto note = [&] {
        const FileDigest digest = DigestOf(bytes);
        return seen.insert({digest.High, digest.Low}).second;
    };
    EXPECT_TRUE(note());
    for (char& byte : bytes) {
        for (int bit = 0; bit < 8; ++bit) {
            byte = static_cast<char>(byte ^ (1 << bit));
            EXPECT_TRUE(note());
            byte = static_cast<char>(byte ^ (1 << bit));
        }
    }
}

TEST(FileDigest, ZerosOfAnyNumberDiffer) {
    std::set<std::uint64_t> high;
    std::set<std::uint64_t> low;
    for (std::size_t size = 0; size < 300; ++size) {
        const FileDigest digest = DigestOf(std::string(size, '\0'));
        EXPECT_EQ(digest.Size, size);
        high.insert(digest.High);
        low.insert(digest.Low);
    }
    EXPECT_EQ(high.size(), 300U);
    EXPECT_EQ(low.size(), 300U);
}

TEST(FileDigest, PiecesInAnotherOrderDiffer) {
    const std::string bytes = RandomBytes(640);
    const FileDigest whole = DigestOf(bytes);
    for (std::size_t size : {8U, 16U, 64U, 128U}) {
        for (std::size_t at = 0; at + 2 * size <= bytes.size(); at += size) {
            const std::string swapped = bytes.substr(0, at) + bytes.substr(at + size, size) +
                                        bytes.substr(at, size) + bytes.substr(at + 2 * size);
            EXPECT_NE(DigestOf(swapped), whole);
        }
    }
}

// Records on disk hold digests: a digest that came out differently one day would make them void.
TEST(FileDigest, StaysWhatItIs) {
    const FileDigest digest = DigestOf("Corrections are never lost.");
    EXPECT_EQ(digest.High, 14184470829914585433U);
    EXPECT_EQ(digest.Low, 16169098530477576235U);
}

TEST(LateDigest, IsWorkedOutOnceAndNotBeforeItIsAskedFor) {
    int asked = 0;
    const LateDigest late([&asked] {
        ++asked;
        return DigestOf("x");
    });
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(late, DigestOf("x"));
    EXPECT_EQ(late, DigestOf("x"));
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(LateDigest(DigestOf("y")), DigestOf("y"));
    EXPECT_EQ(LateDigest(), FileDigest());
}

}  // namespace
}  // namespace quorvale
