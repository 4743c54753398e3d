#include "platform/file_digest.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace quorvale {

namespace {

// Odd numbers with bits in no order; nothing else is asked of them.
constexpr std::uint64_t spread = 0xA24BAED4963EE407U;
constexpr std::uint64_t stir = 0x9FB21C651E98DF25U;
constexpr std::uint64_t step = 0xD6E8FEB86659FD93U;

std::uint64_t WordAt(const char* from) {
    std::uint64_t word = 0;
    std::memcpy(&word, from, sizeof word);
    if constexpr (std::endian::native == std::endian::big) word = __builtin_bswap64(word);
    return word;
}

/// Lets every bit of a word reach every other.
constexpr std::uint64_t Scattered(std::uint64_t word) {
    word = (word ^ (word >> 32)) * stir;
    word = (word ^ (word >> 29)) * spread;
    return word ^ (word >> 32);
}

}  // namespace

DigestBuilder::DigestBuilder() : lanes_() {
    std::uint64_t start = step;
    for (std::uint64_t& lane : lanes_) {
        lane = Scattered(start);
        start += step;
    }
}

// A word goes into its own lane, where no two of them have the same effect, and as it is into its
// neighbour: for two contents to end alike, two lanes of 64 bits have to.
inline void DigestBuilder::Mix(Lanes& lanes, const char* block) {
    std::array<std::uint64_t, laneCount> words{};
#pragma GCC unroll 8
    for (std::size_t i = 0; i < laneCount; ++i) words[i] = WordAt(block + i * sizeof words[0]);
#pragma GCC unroll 8
    for (std::size_t i = 0; i < laneCount; ++i) {
        lanes[i] = std::rotl(lanes[i] + words[i] * spread, 29) * stir + words[i ^ 1U];
    }
}

void DigestBuilder::Add(std::string_view piece) {
    size_ += piece.size();
    if (restSize_ > 0) {
        const std::size_t fill = std::min(piece.size(), blockSize - restSize_);
        std::copy_n(piece.data(), fill, rest_.data() + restSize_);
        restSize_ += fill;
        piece.remove_prefix(fill);
        if (restSize_ < blockSize) return;
        Mix(lanes_, rest_.data());
    }
    Lanes lanes = lanes_;
    for (; piece.size() >= blockSize; piece.remove_prefix(blockSize)) Mix(lanes, piece.data());
    lanes_ = lanes;
    restSize_ = piece.size();
    std::copy_n(piece.data(), restSize_, rest_.data());
}

FileDigest DigestBuilder::Digest() const {
    Lanes lanes = lanes_;
    std::array<char, blockSize> last{};
    std::copy_n(rest_.data(), restSize_, last.data());
    // The blanks behind the rest are told from zeros of the file by the size.
    Mix(lanes, last.data());
    std::uint64_t high = Scattered(size_ + step);
    std::uint64_t low = Scattered(size_ ^ stir);
    for (std::size_t i = 0; i < laneCount; ++i) {
        high = Scattered(high + lanes[i]) * step;
        low = Scattered(std::rotl(low, 23) ^ (lanes[laneCount - 1 - i] * spread)) + lanes[i];
    }
    return {size_, Scattered(high), Scattered(low)};
}

LateDigest::operator const FileDigest&() const {
    if (work_) {
        known_ = work_();
        work_ = nullptr;
    }
    return known_;
}

FileDigest DigestOf(std::string_view bytes) {
    DigestBuilder builder;
    builder.Add(bytes);
    return builder.Digest();
}

}  // namespace quorvale
