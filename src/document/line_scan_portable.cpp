#include <array>
#include <bit>
#include <cstring>

#include "document/line_kernels.h"

namespace quorvale {

namespace {

/// A few units that are looked at together, with the vectors that every processor of today has;
/// where it has none, the compiler makes plain words of them.
template <class Unit>
class Block {
public:
    static constexpr std::uint32_t Units = 32 / sizeof(Unit);

    using HalfWords = std::array<std::uint64_t, 2>;

    explicit Block(const Unit* units) {
        std::memcpy(&first_, units, sizeof first_);
        std::memcpy(&second_, units + Units / 2, sizeof second_);
    }

    bool HasLineFeed() const {
        const HalfWords words = WordsOf((first_ == lineFeed()) | (second_ == lineFeed()));
        return (words[0] | words[1]) != 0;
    }

    /// Calls `visit` with the index of each line feed, in order.
    template <class Visit>
    void ForEachLineFeed(Visit visit) const {
        std::uint32_t index = 0;
        for (const HalfWords& half :
             {WordsOf(first_ == lineFeed()), WordsOf(second_ == lineFeed())}) {
            for (std::uint64_t word : half) {
                for (word &= flags; word != 0; word &= ~FirstFlag(word)) {
                    visit(index + BitsBefore(word) / unitBits);
                }
                index += 64 / unitBits;
            }
        }
    }

    void CollectInto(HalfWords& seen) const {
        const HalfWords words = WordsOf(first_ | second_);
        seen[0] |= words[0];
        seen[1] |= words[1];
    }

    static bool IsAscii(const HalfWords& seen) {
        return ((seen[0] | seen[1]) & ~(ones * 0x7F)) == 0;
    }

private:
    typedef Unit Vector __attribute__((vector_size(16)));

    static constexpr std::uint32_t unitBits = sizeof(Unit) * 8;
    static constexpr std::uint64_t ones = ~std::uint64_t{0} / ((std::uint64_t{1} << unitBits) - 1);
    static constexpr std::uint64_t flags = ones << (unitBits - 1);

    static Vector lineFeed() { return Vector{} + Unit{'\n'}; }

    template <class Half>
    static HalfWords WordsOf(const Half& half) {
        HalfWords words;
        static_assert(sizeof half == sizeof words);
        std::memcpy(words.data(), &half, sizeof words);
        return words;
    }

    // The unit at the lowest address comes first, whatever the order of bytes in a word.
    static std::uint32_t BitsBefore(std::uint64_t word) {
        return static_cast<std::uint32_t>(std::endian::native == std::endian::little
                                              ? std::countr_zero(word)
                                              : std::countl_zero(word));
    }
    static std::uint64_t FirstFlag(std::uint64_t word) {
        return std::endian::native == std::endian::little
                   ? word & (~word + 1)
                   : std::uint64_t{1} << (63 - std::countl_zero(word));
    }

    Vector first_;
    Vector second_;
};

template <class Unit>
LineScan Scan(std::span<const Unit> text, std::int32_t behindFirst,
              std::span<std::int32_t> starts) {
    constexpr std::uint32_t blockUnits = Block<Unit>::Units;
    LineScan scan;
    typename Block<Unit>::HalfWords seen{};
    // Unsigned, because behind the last unit of the longest text it passes the largest number.
    auto place = static_cast<std::uint32_t>(behindFirst);
    while (text.size() - scan.Scanned >= blockUnits && starts.size() - scan.Found >= blockUnits) {
        const Block<Unit> block(text.data() + scan.Scanned);
        block.CollectInto(seen);
        if (block.HasLineFeed()) {
            block.ForEachLineFeed([&](std::uint32_t index) {
                starts[scan.Found++] = static_cast<std::int32_t>(place + index);
            });
        }
        scan.Scanned += blockUnits;
        place += blockUnits;
    }
    scan.Ascii = Block<Unit>::IsAscii(seen);
    return scan;
}

}  // namespace

LineScan ScanBlocksPortable(std::span<const std::uint8_t> text, std::int32_t behindFirst,
                            std::span<std::int32_t> starts) {
    return Scan(text, behindFirst, starts);
}

LineScan ScanBlocksPortable(std::span<const char16_t> text, std::int32_t behindFirst,
                            std::span<std::int32_t> starts) {
    return Scan(text, behindFirst, starts);
}

}  // namespace quorvale
