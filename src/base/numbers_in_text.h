#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvale {

/// Reads a 32-bit number the way users and journals write one: blanks around it are skipped; one
/// sign in front or behind, or parentheses for a negative; commas between the digits; a fraction
/// and an exponent (e or d), rounded to nearest with ties to even; "&H1F" and "&O17" as bit
/// patterns. Separators do not depend on the user's locale.
/// TypeMismatch for any other text, the empty one included; Overflow beyond 32 bits.
std::int32_t ToLong(std::u16string_view text);

/// The same rules for a 16-bit number.
std::int16_t ToShort(std::u16string_view text);

/// The same rules, not rounded: for Single and Double arguments.
double ToDouble(std::u16string_view text);

/// Plain decimal digits with "-" for a negative; no blank, no grouping, no locale.
std::u16string DecimalText(std::int64_t number);

/// The number as exactly four hexadecimal digits, capitals.
std::u16string HexText(char16_t number);

}  // namespace quorvale
