#include "base/text.h"

#include <cstdint>
#include <span>

#include "base/utf8.h"

namespace quorvale {

namespace {

constexpr char32_t replacement = 0xFFFD;

}  // namespace

std::string ToUtf8(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            AppendUtf8(out, FromSurrogates(unit, text[++i]));
        } else {
            const bool lone = IsHighSurrogate(unit) || IsLowSurrogate(unit);
            AppendUtf8(out, lone ? replacement : char32_t{unit});
        }
    }
    return out;
}

std::u16string FromUtf8(std::string_view text) {
    std::u16string out;
    out.reserve(text.size());
    std::span<const std::uint8_t> rest(reinterpret_cast<const std::uint8_t*>(text.data()),
                                       text.size());
    while (!rest.empty()) {
        const Utf8Character character = ReadUtf8(rest);
        const char32_t code = character.Length == 0 ? replacement : character.Code;
        if (code >= 0x10000) {
            out.push_back(HighSurrogate(code));
            out.push_back(LowSurrogate(code));
        } else {
            out.push_back(static_cast<char16_t>(code));
        }
        rest = rest.subspan(character.Length == 0 ? 1 : character.Length);
    }
    return out;
}

std::u16string ReplaceAll(std::u16string_view text, std::u16string_view what,
                          std::u16string_view by) {
    std::u16string out;
    std::size_t from = 0;
    for (std::size_t hit = text.find(what); hit != text.npos; hit = text.find(what, from)) {
        out.append(text.substr(from, hit - from)).append(by);
        from = hit + what.size();
    }
    return out.append(text.substr(from));
}

}  // namespace quorvale
