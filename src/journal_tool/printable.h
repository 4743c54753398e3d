#pragma once

#include <string>
#include <string_view>

namespace quorvale {

/// A text as UTF-8 that cannot drive a terminal nor stand on its head there: whatever is no plain
/// character (control characters but the tab, marks that turn the direction of writing, lone
/// surrogates) is written as `\u` and four hexadecimal digits.
std::string Printable(std::u16string_view text);

/// A JSON string with its quotation marks, in ASCII: whatever is beyond is written as `\u` and four
/// hexadecimal digits, lone surrogates too, so that every text comes back.
std::string JsonString(std::u16string_view text);

}  // namespace quorvale
