#pragma once

#include <compare>
#include <cstdint>

#include "base/integers.h"

namespace quorvale {

/// A number that names a place and must not be mixed with places of another kind. Steps are
/// checked: leaving 32 bits is an Overflow, never a wrap.
template <class Tag>
class Ordinal {
public:
    constexpr Ordinal() = default;
    constexpr explicit Ordinal(std::int32_t number) : number_(number) {}

    constexpr std::int32_t Number() const { return number_; }

    constexpr auto operator<=>(const Ordinal&) const = default;

    Ordinal operator+(std::int32_t steps) const { return Ordinal(CheckedAdd(number_, steps)); }
    Ordinal operator-(std::int32_t steps) const { return Ordinal(CheckedSubtract(number_, steps)); }
    std::int32_t operator-(Ordinal other) const { return CheckedSubtract(number_, other.number_); }
    Ordinal& operator++() { return *this = *this + 1; }
    Ordinal& operator--() { return *this = *this - 1; }

private:
    std::int32_t number_ = 0;
};

/// A line of the document: 1 is the first, `LineSlots` the sentinel just past the last.
using Line = Ordinal<struct LineTag>;

}  // namespace quorvale
