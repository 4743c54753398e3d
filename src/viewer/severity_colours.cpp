#include "viewer/severity_colours.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quorvale {

namespace {

constexpr std::size_t mostLookedAt = 4096;

constexpr std::array<std::u16string_view, 8> errorWords = {
    u"error", u"fatal", u"critical", u"severe", u"exception", u"fail", u"failed", u"failure"};
constexpr std::array<std::u16string_view, 2> warningWords = {u"warn", u"warning"};

constexpr char16_t lower(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}

constexpr bool isLetter(char16_t unit) {
    const char16_t small = lower(unit);
    return small >= u'a' && small <= u'z';
}

bool sameWord(std::u16string_view text, std::u16string_view word) {
    return std::equal(text.begin(), text.end(), word.begin(), word.end(),
                      [](char16_t unit, char16_t letter) { return lower(unit) == letter; });
}

template <std::size_t Count>
bool isOneOf(std::u16string_view text, const std::array<std::u16string_view, Count>& words) {
    return std::any_of(words.begin(), words.end(),
                       [text](std::u16string_view word) { return sameWord(text, word); });
}

}  // namespace

Severity severityOf(std::u16string_view line) {
    line = line.substr(0, mostLookedAt);
    Severity severity = Severity::Plain;
    for (std::size_t at = 0; at < line.size();) {
        std::size_t end = at;
        while (end < line.size() && isLetter(line[end])) ++end;
        const std::u16string_view word = line.substr(at, end - at);
        if (isOneOf(word, errorWords)) return Severity::Error;
        if (isOneOf(word, warningWords)) severity = Severity::Warning;
        at = end + 1;
    }
    return severity;
}

}  // namespace quorvale
