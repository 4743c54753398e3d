#include "corrections/escaped_text.h"

#include <cstddef>
#include <optional>

#include "base/numbers_in_text.h"
#include "base/utf8.h"

namespace quorvale {

namespace {

/// How many units of the character at `at` XML can carry: 2 for a pair of surrogates, else 1, and 0
/// for a unit that has to be escaped.
std::size_t CarriedUnits(std::u16string_view text, std::size_t at) {
    const char16_t unit = text[at];
    if (unit < 0x20) return unit == u'\t' || unit == u'\n' ? 1 : 0;
    if (IsHighSurrogate(unit)) {
        return at + 1 < text.size() && IsLowSurrogate(text[at + 1]) ? 2 : 0;
    }
    return IsLowSurrogate(unit) || unit >= 0xFFFE ? 0 : 1;
}

std::optional<unsigned> HexDigit(char16_t unit) {
    if (unit >= u'0' && unit <= u'9') return static_cast<unsigned>(unit - u'0');
    if (unit >= u'A' && unit <= u'F') return static_cast<unsigned>(unit - u'A') + 10U;
    if (unit >= u'a' && unit <= u'f') return static_cast<unsigned>(unit - u'a') + 10U;
    return std::nullopt;
}

/// The unit that the six units at the front, `\u` and four hexadecimal digits, stand for.
std::optional<char16_t> EscapedUnit(std::u16string_view text) {
    if (text.size() < 6 || text[1] != u'u') return std::nullopt;
    unsigned number = 0;
    for (const char16_t unit : text.substr(2, 4)) {
        const auto digit = HexDigit(unit);
        if (!digit) return std::nullopt;
        number = number * 16 + *digit;
    }
    return static_cast<char16_t>(number);
}

}  // namespace

bool NeedsEscaping(std::u16string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t carried = CarriedUnits(text, at);
        if (carried == 0) return true;
        at += carried;
    }
    return false;
}

std::u16string Escaped(std::u16string_view text) {
    std::u16string out;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t carried = CarriedUnits(text, at);
        if (carried == 0) {
            out.append(u"\\u").append(HexText(text[at++]));
            continue;
        }
        if (text[at] == u'\\') out += u'\\';
        out.append(text.substr(at, carried));
        at += carried;
    }
    return out;
}

std::u16string Unescaped(std::u16string_view escaped) {
    std::u16string out;
    out.reserve(escaped.size());
    for (std::size_t at = 0; at < escaped.size();) {
        const std::u16string_view rest = escaped.substr(at);
        if (rest.substr(0, 2) == u"\\\\") {
            out += u'\\';
            at += 2;
        } else if (const auto unit = rest.front() == u'\\' ? EscapedUnit(rest) : std::nullopt) {
            out += *unit;
            at += 6;
        } else {
            out += rest.front();
            ++at;
        }
    }
    return out;
}

}  // namespace quorvale
