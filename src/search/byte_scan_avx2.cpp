#include "search/byte_kernels.h"

#if defined(__x86_64__)

#include <immintrin.h>

#include <bit>

namespace quorvale {

namespace {

constexpr std::size_t vectorBytes = 32;
constexpr std::size_t blockBytes = 4 * vectorBytes;

#define QUORVALE_AVX2 __attribute__((target("avx2,bmi,popcnt")))

QUORVALE_AVX2 inline __m256i Load(const std::uint8_t* from) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
}

QUORVALE_AVX2 inline __m256i Spread(std::uint8_t byte) {
    return _mm256_set1_epi8(static_cast<char>(byte));
}

QUORVALE_AVX2 inline std::uint64_t BitsOf(__m256i low, __m256i high) {
    const auto lowBits = static_cast<std::uint32_t>(_mm256_movemask_epi8(low));
    const auto highBits = static_cast<std::uint32_t>(_mm256_movemask_epi8(high));
    return (std::uint64_t{highBits} << 32) | lowBits;
}

/// A place of the needle's sieve, looked at for 32 places of the text at a time.
class SievePlace {
public:
    QUORVALE_AVX2 SievePlace(const std::uint8_t* bytes, const ByteNeedle& needle, std::size_t place)
        : from_(bytes + place),
          mask_(Spread(needle.Mask(place))),
          value_(Spread(needle.Value(place))) {}

    /// All bits are set at the places that pass, none at the others.
    QUORVALE_AVX2 __m256i Pass(std::size_t at) const {
        return _mm256_cmpeq_epi8(_mm256_or_si256(Load(from_ + at), mask_), value_);
    }

    std::size_t ToAligned(std::size_t at) const {
        return vectorBytes - reinterpret_cast<std::uintptr_t>(from_ + at) % vectorBytes;
    }

private:
    const std::uint8_t* from_;
    __m256i mask_;
    __m256i value_;
};

/// The whole sieve; a third place that it does not have stays out of the loop.
template <bool three>
class Sieve {
public:
    QUORVALE_AVX2 Sieve(const std::uint8_t* bytes, const ByteNeedle& needle)
        : first_(bytes, needle, needle.SievePlace(0)),
          second_(bytes, needle, needle.SievePlace(1)),
          third_(bytes, needle, needle.SievePlace(2)) {}

    QUORVALE_AVX2 __m256i Pass(std::size_t at) const {
        const __m256i passed = _mm256_and_si256(first_.Pass(at), second_.Pass(at));
        if constexpr (!three) return passed;
        return _mm256_and_si256(passed, third_.Pass(at));
    }

    /// How many places further on the first loads are aligned; at most a vector's.
    std::size_t ToAligned(std::size_t at) const { return first_.ToAligned(at); }

private:
    SievePlace first_;
    SievePlace second_;
    SievePlace third_;
};

/// Checks the places whose bits are set; true when the scan ends at one of them.
QUORVALE_AVX2 inline bool EndsAmong(std::uint64_t bits, std::size_t at, const std::uint8_t* bytes,
                                    NeedleCheck& check, KernelScan& scan) {
    for (; bits != 0; bits &= bits - 1) {
        const std::size_t place = at + static_cast<std::size_t>(std::countr_zero(bits));
        if (EndsAt(place, bytes, check, scan)) return true;
    }
    return false;
}

template <bool three>
QUORVALE_AVX2 KernelScan Scan(const std::uint8_t* bytes, std::size_t from, std::size_t places,
                              const ByteNeedle& needle, NeedleCheck& check) {
    const Sieve<three> sieve(bytes, needle);
    KernelScan scan;
    std::size_t at = from;
    if (at >= places) return {KernelScan::End::Nowhere, places};
    if (places - at >= 2 * blockBytes) {
        // From here on the loads of one place never lie across two lines of the cache.
        const auto bits = static_cast<std::uint32_t>(_mm256_movemask_epi8(sieve.Pass(at)));
        if (EndsAmong(bits, at, bytes, check, scan)) return scan;
        at += sieve.ToAligned(at);
    }
    for (; places - at >= blockBytes; at += blockBytes) {
        const __m256i a = sieve.Pass(at);
        const __m256i b = sieve.Pass(at + vectorBytes);
        const __m256i c = sieve.Pass(at + 2 * vectorBytes);
        const __m256i d = sieve.Pass(at + 3 * vectorBytes);
        const __m256i any = _mm256_or_si256(_mm256_or_si256(a, b), _mm256_or_si256(c, d));
        if (_mm256_testz_si256(any, any) != 0) continue;
        if (EndsAmong(BitsOf(a, b), at, bytes, check, scan)) return scan;
        if (EndsAmong(BitsOf(c, d), at + 2 * vectorBytes, bytes, check, scan)) return scan;
    }
    for (; places - at >= vectorBytes; at += vectorBytes) {
        const auto bits = static_cast<std::uint32_t>(_mm256_movemask_epi8(sieve.Pass(at)));
        if (EndsAmong(bits, at, bytes, check, scan)) return scan;
    }
    if (places < vectorBytes) return ScanPlaces(bytes, at, places, check);
    // The last places once more, without those in front of them that have been looked at.
    const std::size_t last = places - vectorBytes;
    auto bits = static_cast<std::uint64_t>(
        static_cast<std::uint32_t>(_mm256_movemask_epi8(sieve.Pass(last))));
    bits &= ~std::uint64_t{0} << (at - last);
    if (EndsAmong(bits, last, bytes, check, scan)) return scan;
    return {KernelScan::End::Nowhere, places};
}

}  // namespace

KernelScan ScanForNeedleAvx2(const std::uint8_t* bytes, std::size_t from, std::size_t places,
                             const ByteNeedle& needle, NeedleCheck& check) {
    return needle.HasThreeSievePlaces() ? Scan<true>(bytes, from, places, needle, check)
                                        : Scan<false>(bytes, from, places, needle, check);
}

QUORVALE_AVX2 std::size_t CountLineFeedsAvx2(std::span<const std::uint8_t> bytes) {
    // So many times a byte can be counted up by one.
    constexpr std::size_t mostRounds = 255;
    const __m256i lineFeed = Spread('\n');
    std::size_t count = 0;
    const std::uint8_t* at = bytes.data();
    std::size_t vectors = bytes.size() / vectorBytes;
    while (vectors > 0) {
        std::size_t rounds = vectors < mostRounds ? vectors : mostRounds;
        vectors -= rounds;
        __m256i counts = _mm256_setzero_si256();
        for (; rounds > 0; --rounds, at += vectorBytes) {
            counts = _mm256_sub_epi8(counts, _mm256_cmpeq_epi8(Load(at), lineFeed));
        }
        const __m256i sums = _mm256_sad_epu8(counts, _mm256_setzero_si256());
        alignas(32) std::uint64_t parts[4];
        _mm256_store_si256(reinterpret_cast<__m256i*>(parts), sums);
        count += parts[0] + parts[1] + parts[2] + parts[3];
    }
    const std::uint8_t* const end = bytes.data() + bytes.size();
    const auto rest = static_cast<unsigned>(end - at);
    if (rest > 0 && bytes.size() >= vectorBytes) {
        // The last bytes once more, without those in front of them that are counted.
        const __m256i hits = _mm256_cmpeq_epi8(Load(end - vectorBytes), lineFeed);
        const auto bits =
            static_cast<std::uint64_t>(static_cast<std::uint32_t>(_mm256_movemask_epi8(hits)));
        return count + static_cast<std::size_t>(std::popcount(bits >> (vectorBytes - rest)));
    }
    for (; at != end; ++at) count += *at == '\n';
    return count;
}

QUORVALE_AVX2 std::size_t BehindLastLineFeedAvx2(std::span<const std::uint8_t> bytes) {
    const __m256i lineFeed = Spread('\n');
    std::size_t end = bytes.size();
    for (; end >= vectorBytes; end -= vectorBytes) {
        const __m256i hits = _mm256_cmpeq_epi8(Load(bytes.data() + end - vectorBytes), lineFeed);
        const auto bits = static_cast<std::uint32_t>(_mm256_movemask_epi8(hits));
        if (bits != 0) return end - static_cast<std::size_t>(std::countl_zero(bits));
    }
    while (end > 0 && bytes[end - 1] != '\n') --end;
    return end;
}

QUORVALE_AVX2 bool IsAsciiAvx2(std::span<const std::uint8_t> bytes) {
    const std::uint8_t* at = bytes.data();
    std::size_t blocks = bytes.size() / blockBytes;
    for (; blocks > 0; --blocks, at += blockBytes) {
        const __m256i low = _mm256_or_si256(Load(at), Load(at + vectorBytes));
        const __m256i high =
            _mm256_or_si256(Load(at + 2 * vectorBytes), Load(at + 3 * vectorBytes));
        if (_mm256_movemask_epi8(_mm256_or_si256(low, high)) != 0) return false;
    }
    return IsAsciiPortable({at, bytes.size() % blockBytes});
}

#undef QUORVALE_AVX2

}  // namespace quorvale

#else

namespace quorvale {

KernelScan ScanForNeedleAvx2(const std::uint8_t* bytes, std::size_t from, std::size_t places,
                             const ByteNeedle& needle, NeedleCheck& check) {
    return ScanForNeedlePortable(bytes, from, places, needle, check);
}

std::size_t CountLineFeedsAvx2(std::span<const std::uint8_t> bytes) {
    return CountLineFeedsPortable(bytes);
}

std::size_t BehindLastLineFeedAvx2(std::span<const std::uint8_t> bytes) {
    return BehindLastLineFeedPortable(bytes);
}

bool IsAsciiAvx2(std::span<const std::uint8_t> bytes) { return IsAsciiPortable(bytes); }

}  // namespace quorvale

#endif
