#pragma once

#include <cstddef>
#include <string_view>

namespace quorvale {

inline constexpr char32_t replacementCharacter = 0xFFFD;

constexpr bool isHighSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xD800; }
constexpr bool isLowSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }

/// One character of a text and how many units it takes.
struct CodePoint {
    char32_t Value;
    std::size_t Units;
};

/// The character that starts at a place. A surrogate without its other half, which is how a byte
/// that is not valid is kept, reads as the replacement character.
constexpr CodePoint codePointAt(std::u16string_view text, std::size_t at) {
    const char16_t unit = text[at];
    if ((unit & 0xF800) != 0xD800) return {unit, 1};
    if (!isHighSurrogate(unit) || at + 1 == text.size() || !isLowSurrogate(text[at + 1])) {
        return {replacementCharacter, 1};
    }
    const char32_t high = unit & 0x3FFu;
    const char32_t low = text[at + 1] & 0x3FFu;
    return {0x10000 + (high << 10) + low, 2};
}

/// The place itself, or the one behind it where it would cut a character in two.
constexpr std::size_t characterStart(std::u16string_view text, std::size_t at) {
    if (at == 0 || at >= text.size()) return at;
    return isLowSurrogate(text[at]) && isHighSurrogate(text[at - 1]) ? at + 1 : at;
}

}  // namespace quorvale
