#include "search/line_text.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "document/display_text.h"
#include "document/encodings.h"
#include "document/utf8_decoding.h"
#include "search/byte_scan.h"

namespace quorvale {

namespace {

std::u16string Decoded(std::span<const std::uint8_t> bytes, LineForm form) {
    std::u16string text;
    switch (form) {
        case LineForm::SingleByte:
            text.assign(bytes.begin(), bytes.end());
            break;
        case LineForm::Windows1252:
            text.resize(bytes.size());
            std::transform(bytes.begin(), bytes.end(), text.begin(), FromWindows1252);
            break;
        case LineForm::Utf8:
            text.resize(bytes.size());
            text.resize(Utf8Decoder(bytes).DecodeWide(text.data(), text.size()));
            break;
        case LineForm::Units:
            text.resize(bytes.size() / sizeof(char16_t));
            std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
            break;
    }
    return text;
}

}  // namespace

LineForm FormOf(Encoding encoding) {
    switch (encoding) {
        case Encoding::Windows1252:
            return LineForm::Windows1252;
        case Encoding::Utf8:
            return LineForm::Utf8;
        case Encoding::SingleByte:
        case Encoding::Automatic:
            break;
    }
    return LineForm::SingleByte;
}

std::u16string TextOfLine(std::span<const std::uint8_t> bytes, LineForm form) {
    std::u16string text = Decoded(bytes, form);
    if (text.find(u'\t') == text.npos) return text;
    return ExpandTabs(text);
}

std::u16string StartOfLine(std::span<const std::uint8_t> bytes, LineForm form, std::size_t most) {
    // A character takes four bytes at most; what is cut off in its middle lies behind the rest.
    constexpr std::size_t mostBytes = 4;
    const std::size_t asked = std::min(most, bytes.size());
    std::u16string text =
        TextOfLine(bytes.first(std::min(bytes.size(), (asked + 1) * mostBytes)), form);
    text.resize(std::min(text.size(), most));
    return text;
}

bool IsPlainLine(std::span<const std::uint8_t> bytes, LineForm form) {
    if (form == LineForm::Units || FindByte(bytes, '\t') != bytes.size()) return false;
    return form == LineForm::SingleByte || IsAscii(bytes);
}

}  // namespace quorvale
