#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <vector>

namespace quorvale {

/// The bytes b with `(b | Mask) == Value`: a letter in both cases is a set of this kind.
struct ByteSet {
    std::uint8_t Mask = 0;
    std::uint8_t Value = 0;
    /// Whether no other bytes than the meant ones are in it.
    bool Exact = true;

    static ByteSet Of(std::uint8_t byte) { return {0, byte, true}; }
    bool Has(std::uint8_t byte) const { return (byte | Mask) == Value; }
    /// The smallest set of this kind that has all the bytes; at least one is given.
    static ByteSet Around(std::span<const std::uint8_t> bytes);
};

/// For what a unit is compared by: which bytes stand for it, where a byte is a unit.
class ByteSets {
public:
    /// `keys` has what each byte's unit is compared by.
    explicit ByteSets(const std::array<char16_t, 256>& keys);

    /// None when no byte stands for the key.
    std::optional<ByteSet> Of(char16_t key) const;

private:
    std::map<char16_t, ByteSet> sets_;
};

/// A sequence of byte sets to look for. Two or three places in it serve as a sieve: hardly anything
/// but a match passes all of them. They are those of the two rarest bytes at first; where a text
/// shows that these are not rare in it, the sieve learns others.
class ByteNeedle {
public:
    static constexpr std::size_t MostSievePlaces = 3;

    /// At least one set.
    explicit ByteNeedle(std::span<const ByteSet> sets);

    std::size_t Size() const { return size_; }
    std::uint8_t Mask(std::size_t place) const { return masks_[place]; }
    std::uint8_t Value(std::size_t place) const { return values_[place]; }
    const std::uint8_t* Masks() const { return masks_.data(); }
    const std::uint8_t* Values() const { return values_.data(); }
    /// Whether what fits is exactly what was meant.
    bool IsExact() const { return exact_; }

    /// The places of the sieve; the first two may be the same.
    std::size_t SievePlace(std::size_t index) const { return sieve_[index]; }
    bool HasThreeSievePlaces() const { return hasThree_; }
    /// How much the sieve lets pass at first, compared with other needles.
    int Commonness() const { return commonness_; }

    /// The sieve looks at that place from now on: what passed it did not fit there.
    void Learn(std::size_t place) const;
    /// Whether more lessons may still help.
    bool CanLearn() const { return lessons_ < mostLessons; }

private:
    static constexpr int mostLessons = 16;

    std::size_t size_;
    std::vector<std::uint8_t> masks_;
    std::vector<std::uint8_t> values_;
    int commonness_ = 0;
    bool exact_ = true;
    mutable std::array<std::size_t, MostSievePlaces> sieve_{};
    mutable bool hasThree_ = false;
    mutable int lessons_ = 0;
};

/// How often a byte occurs in texts of all kinds, from 0 for hardly ever to 255.
std::uint8_t CommonnessOf(std::uint8_t byte);

}  // namespace quorvale
