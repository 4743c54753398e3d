#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace quorvale {

/// A character at the front of some bytes.
struct Utf8Character {
    char32_t Code = 0;
    /// How many bytes it takes: 1 to 4; 0 where no valid character stands.
    std::uint32_t Length = 0;
    /// The bytes end in the middle of what may be a valid character.
    bool Cut = false;
};

/// What the first byte says about the rest; the second byte's limits keep out overlong forms,
/// surrogates and codes past U+10FFFF. The others must be 0x80 to 0xBF. `Length` is 0 for a byte
/// that begins no character.
struct Utf8Lead {
    std::uint8_t Length;
    std::uint8_t Lowest;
    std::uint8_t Highest;
};

constexpr Utf8Lead LeadOf(std::uint8_t byte) {
    if (byte < 0x80) return {1, 0, 0};
    if (byte < 0xC2) return {0, 0, 0};
    if (byte < 0xE0) return {2, 0x80, 0xBF};
    if (byte == 0xE0) return {3, 0xA0, 0xBF};
    if (byte == 0xED) return {3, 0x80, 0x9F};
    if (byte < 0xF0) return {3, 0x80, 0xBF};
    if (byte == 0xF0) return {4, 0x90, 0xBF};
    if (byte < 0xF4) return {4, 0x80, 0xBF};
    if (byte == 0xF4) return {4, 0x80, 0x8F};
    return {0, 0, 0};
}

/// Reads the character at the front; `bytes` is not empty.
inline Utf8Character ReadUtf8(std::span<const std::uint8_t> bytes) {
    const std::uint8_t first = bytes[0];
    if (first < 0x80) return {first, 1, false};
    const Utf8Lead lead = LeadOf(first);
    if (lead.Length == 0) return {};
    char32_t code = first & (0x7FU >> lead.Length);
    for (std::uint32_t i = 1; i < lead.Length; ++i) {
        if (i == bytes.size()) return {0, 0, true};
        const std::uint8_t byte = bytes[i];
        if (byte < (i == 1 ? lead.Lowest : 0x80) || byte > (i == 1 ? lead.Highest : 0xBF))
            return {};
        code = (code << 6) | (byte & 0x3FU);
    }
    return {code, lead.Length, false};
}

/// How far some bytes are valid.
struct Utf8Prefix {
    std::size_t Valid = 0;
    /// What stands behind the valid bytes is the beginning of a character that is cut off.
    bool Cut = false;
};

Utf8Prefix ValidUtf8Prefix(std::span<const std::uint8_t> bytes);

/// The index of the first byte that is 0x80 or more; the number of bytes if there is none.
std::size_t FirstBeyondAscii(std::span<const std::uint8_t> bytes);

/// Puts the bytes of a character behind `out`. The code is at most U+10FFFF.
void AppendUtf8(std::string& out, char32_t code);

constexpr bool IsHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool IsLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

/// The character that a pair of surrogates stands for.
constexpr char32_t FromSurrogates(char16_t high, char16_t low) {
    return 0x10000U + ((char32_t{high} - 0xD800U) << 10) + (char32_t{low} - 0xDC00U);
}

/// The pair for a character beyond U+FFFF.
constexpr char16_t HighSurrogate(char32_t code) {
    return static_cast<char16_t>(0xD800U + ((code - 0x10000U) >> 10));
}
constexpr char16_t LowSurrogate(char32_t code) {
    return static_cast<char16_t>(0xDC00U + ((code - 0x10000U) & 0x3FFU));
}

}  // namespace quorvale
