#include <algorithm>
#include <array>
#include <bit>

#include "search/byte_kernels.h"

namespace quorvale {

namespace {

typedef std::uint8_t Vector __attribute__((vector_size(16)));

constexpr std::size_t vectorBytes = sizeof(Vector);
constexpr std::size_t blockBytes = 4 * vectorBytes;

using Words = std::array<std::uint64_t, 2>;

Vector Load(const std::uint8_t* from) {
    Vector vector;
    std::memcpy(&vector, from, sizeof vector);
    return vector;
}

Vector Spread(std::uint8_t byte) { return Vector{} + byte; }

Words WordsOf(const Vector& vector) {
    Words words;
    std::memcpy(words.data(), &vector, sizeof words);
    return words;
}

/// What comparing two vectors came to, as bytes of all bits or none.
template <class Flags>
Vector FlagsOf(const Flags& flags) {
    Vector vector;
    static_assert(sizeof flags == sizeof vector);
    std::memcpy(&vector, &flags, sizeof flags);
    return vector;
}

bool IsAnySet(const Vector& vector) {
    const Words words = WordsOf(vector);
    return (words[0] | words[1]) != 0;
}

/// A place of the needle's sieve, looked at for 16 places of the text at a time.
class SievePlace {
public:
    SievePlace(const std::uint8_t* bytes, const ByteNeedle& needle, std::size_t place)
        : from_(bytes + place),
          mask_(Spread(needle.Mask(place))),
          value_(Spread(needle.Value(place))) {}

    /// All bits are set at the places that pass, none at the others.
    Vector Pass(std::size_t at) const { return FlagsOf((Load(from_ + at) | mask_) == value_); }

private:
    const std::uint8_t* from_;
    Vector mask_;
    Vector value_;
};

/// The whole sieve; a third place that it does not have stays out of the loop.
template <bool three>
class Sieve {
public:
    Sieve(const std::uint8_t* bytes, const ByteNeedle& needle)
        : first_(bytes, needle, needle.SievePlace(0)),
          second_(bytes, needle, needle.SievePlace(1)),
          third_(bytes, needle, needle.SievePlace(2)) {}

    Vector Pass(std::size_t at) const {
        const Vector passed = first_.Pass(at) & second_.Pass(at);
        if constexpr (!three) return passed;
        return passed & third_.Pass(at);
    }

private:
    SievePlace first_;
    SievePlace second_;
    SievePlace third_;
};

/// Checks the places that passed; true when the scan ends at one of them.
bool EndsAmong(const Vector& passed, std::size_t at, const std::uint8_t* bytes, NeedleCheck& check,
               KernelScan& scan) {
    for (const std::uint64_t word : WordsOf(passed)) {
        std::uint64_t flags = word;
        while (flags != 0) {
            // The byte at the lowest address first, whatever the order of bytes in a word.
            constexpr bool little = std::endian::native == std::endian::little;
            const auto clear = static_cast<std::size_t>(little ? std::countr_zero(flags)
                                                               : std::countl_zero(flags)) /
                               8;
            flags &= ~(std::uint64_t{0xFF} << 8 * (little ? clear : sizeof flags - 1 - clear));
            if (EndsAt(at + clear, bytes, check, scan)) return true;
        }
        at += sizeof flags;
    }
    return false;
}

template <bool three>
KernelScan Scan(const std::uint8_t* bytes, std::size_t from, std::size_t places,
                const ByteNeedle& needle, NeedleCheck& check) {
    const Sieve<three> sieve(bytes, needle);
    KernelScan scan;
    std::size_t at = from;
    if (at >= places) return {KernelScan::End::Nowhere, places};
    for (; places - at >= blockBytes; at += blockBytes) {
        const Vector passed[] = {sieve.Pass(at), sieve.Pass(at + vectorBytes),
                                 sieve.Pass(at + 2 * vectorBytes),
                                 sieve.Pass(at + 3 * vectorBytes)};
        if (!IsAnySet(passed[0] | passed[1] | passed[2] | passed[3])) continue;
        for (std::size_t i = 0; i < 4; ++i) {
            if (EndsAmong(passed[i], at + i * vectorBytes, bytes, check, scan)) return scan;
        }
    }
    for (; places - at >= vectorBytes; at += vectorBytes) {
        if (EndsAmong(sieve.Pass(at), at, bytes, check, scan)) return scan;
    }
    return ScanPlaces(bytes, at, places, check);
}

}  // namespace

KernelScan ScanForNeedlePortable(const std::uint8_t* bytes, std::size_t from, std::size_t places,
                                 const ByteNeedle& needle, NeedleCheck& check) {
    return needle.HasThreeSievePlaces() ? Scan<true>(bytes, from, places, needle, check)
                                        : Scan<false>(bytes, from, places, needle, check);
}

std::size_t CountLineFeedsPortable(std::span<const std::uint8_t> bytes) {
    // So many times a byte can be counted up by one.
    constexpr std::size_t mostRounds = 255;
    const Vector lineFeed = Spread('\n');
    std::size_t count = 0;
    const std::uint8_t* at = bytes.data();
    std::size_t vectors = bytes.size() / vectorBytes;
    while (vectors > 0) {
        std::size_t rounds = vectors < mostRounds ? vectors : mostRounds;
        vectors -= rounds;
        Vector counts{};
        for (; rounds > 0; --rounds, at += vectorBytes) {
            counts -= FlagsOf(Load(at) == lineFeed);
        }
        std::array<std::uint8_t, vectorBytes> parts;
        std::memcpy(parts.data(), &counts, sizeof counts);
        for (const std::uint8_t part : parts) count += part;
    }
    for (const std::uint8_t* end = bytes.data() + bytes.size(); at != end; ++at) {
        count += *at == '\n';
    }
    return count;
}

std::size_t BehindLastLineFeedPortable(std::span<const std::uint8_t> bytes) {
    const Vector lineFeed = Spread('\n');
    std::size_t end = bytes.size();
    while (end >= vectorBytes &&
           !IsAnySet(FlagsOf(Load(bytes.data() + end - vectorBytes) == lineFeed))) {
        end -= vectorBytes;
    }
    while (end > 0 && bytes[end - 1] != '\n') --end;
    return end;
}

bool IsAsciiPortable(std::span<const std::uint8_t> bytes) {
    const std::uint8_t* at = bytes.data();
    const std::uint8_t* const end = at + bytes.size();
    const Vector beyond = Spread(0x80);
    for (; static_cast<std::size_t>(end - at) >= blockBytes; at += blockBytes) {
        const Vector seen = Load(at) | Load(at + vectorBytes) | Load(at + 2 * vectorBytes) |
                            Load(at + 3 * vectorBytes);
        if (IsAnySet(seen & beyond)) return false;
    }
    return std::all_of(at, end, [](std::uint8_t byte) { return byte < 0x80; });
}

}  // namespace quorvale
