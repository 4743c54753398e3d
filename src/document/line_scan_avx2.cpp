#include "document/line_kernels.h"

#if defined(__x86_64__)

#include <immintrin.h>

#include <bit>

namespace quorvale {

namespace {

constexpr std::uint32_t blockUnits = 64;

}  // namespace

bool HasAvx2() { return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi"); }

__attribute__((target("avx2,bmi,popcnt"))) LineScan ScanBlocksAvx2(
    std::span<const std::uint8_t> text, std::int32_t behindFirst, std::span<std::int32_t> starts) {
    const __m256i lineFeed = _mm256_set1_epi8('\n');
    __m256i seen = _mm256_setzero_si256();
    const std::uint8_t* at = text.data();
    std::int32_t* out = starts.data();
    // Unsigned, because behind the last unit of the longest text it passes the largest number.
    auto place = static_cast<std::uint32_t>(behindFirst);
    const auto placeOf = [&](std::uint64_t hits) {
        return static_cast<std::int32_t>(place +
                                         static_cast<std::uint32_t>(std::countr_zero(hits)));
    };
    std::size_t blocks = text.size() / blockUnits;
    for (; blocks > 0 && starts.data() + starts.size() - out >= 64; --blocks) {
        const auto* block = reinterpret_cast<const __m256i*>(at);
        const __m256i low = _mm256_loadu_si256(block);
        const __m256i high = _mm256_loadu_si256(block + 1);
        seen = _mm256_or_si256(seen, _mm256_or_si256(low, high));
        const auto lowBits =
            static_cast<std::uint32_t>(_mm256_movemask_epi8(_mm256_cmpeq_epi8(low, lineFeed)));
        const auto highBits =
            static_cast<std::uint32_t>(_mm256_movemask_epi8(_mm256_cmpeq_epi8(high, lineFeed)));
        std::uint64_t hits = (std::uint64_t{highBits} << 32) | lowBits;
        // Two places are written whether there are so many or not: most blocks hold none or one,
        // and a branch on that would be guessed wrong half the time.
        std::int32_t* const next = out + std::popcount(hits);
        out[0] = placeOf(hits);
        hits &= hits - 1;
        out[1] = placeOf(hits);
        hits &= hits - 1;
        for (out += 2; hits != 0; hits &= hits - 1) *out++ = placeOf(hits);
        out = next;
        at += blockUnits;
        place += blockUnits;
    }
    LineScan scan;
    scan.Scanned = static_cast<std::size_t>(at - text.data());
    scan.Found = static_cast<std::size_t>(out - starts.data());
    scan.Ascii = _mm256_movemask_epi8(seen) == 0;
    return scan;
}

}  // namespace quorvale

#else

namespace quorvale {

bool HasAvx2() { return false; }

LineScan ScanBlocksAvx2(std::span<const std::uint8_t> text, std::int32_t behindFirst,
                        std::span<std::int32_t> starts) {
    return ScanBlocksPortable(text, behindFirst, starts);
}

}  // namespace quorvale

#endif
