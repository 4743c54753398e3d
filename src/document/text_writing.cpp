#include "document/text_writing.h"

#include <algorithm>

#include "base/errors.h"
#include "base/numbers_in_text.h"
#include "base/text.h"
#include "base/utf8.h"
#include "document/encodings.h"
#include "document/largest_file.h"

namespace quorvale {

namespace {

[[noreturn]] void RaiseNoBytesFor(char16_t unit) {
    throw ControlError(ErrorKind::InvalidValue, "The character U+" + ToUtf8(HexText(unit)) +
                                                    " does not exist in the file's encoding");
}

constexpr bool IsAscii(char16_t unit) { return unit < 0x80; }

}  // namespace

void TextWriter::Put(std::span<const std::uint8_t> units) {
    if (half_ != 0 && !units.empty()) RaiseNoBytesFor(half_);
    while (!units.empty()) {
        const std::size_t same =
            encoding_ == Encoding::SingleByte ? units.size() : FirstBeyondAscii(units);
        RequireRoom(same);
        PutSame({reinterpret_cast<const char*>(units.data()), same});
        units = units.subspan(same);
        if (units.empty()) return;
        const auto ascii = std::find_if(units.begin(), units.end(), IsAscii);
        const auto beyond = static_cast<std::size_t>(ascii - units.begin());
        PutBeyondAscii(units.first(beyond));
        units = units.subspan(beyond);
    }
}

/// A line costs less to copy than to remember where it is; a stretch of lines stays where it is.
void TextWriter::PutSame(std::string_view bytes) {
    constexpr std::size_t leastReferred = 2048;
    if (bytes.size() < leastReferred) {
        out_.Append(bytes);
    } else {
        out_.Refer(bytes);
    }
}

void TextWriter::PutBeyondAscii(std::span<const std::uint8_t> units) {
    if (encoding_ != Encoding::Utf8) return PutEncoded(std::u16string(units.begin(), units.end()));
    RequireRoom(units.size() * 2);
    char* to = out_.Extend(units.size() * 2);
    for (const std::uint8_t unit : units) {
        *to++ = static_cast<char>(0xC0 | (unit >> 6));
        *to++ = static_cast<char>(0x80 | (unit & 0x3F));
    }
}

void TextWriter::Put(std::u16string_view units) {
    if (units.empty()) return;
    if (half_ != 0) {
        const char16_t pair[] = {half_, units.front()};
        if (!IsLowSurrogate(pair[1])) RaiseNoBytesFor(half_);
        half_ = 0;
        PutEncoded(std::u16string_view(pair, 2));
        units.remove_prefix(1);
    }
    units = WithoutHalf(units);
    while (!units.empty()) {
        const auto beyond = std::find_if_not(units.begin(), units.end(), IsAscii);
        const auto same = static_cast<std::size_t>(beyond - units.begin());
        PutAscii(units.substr(0, same));
        const auto ascii = std::find_if(beyond, units.end(), IsAscii);
        const auto size = static_cast<std::size_t>(ascii - beyond);
        PutEncoded(units.substr(same, size));
        units.remove_prefix(same + size);
    }
}

void TextWriter::PutAscii(std::u16string_view units) {
    RequireRoom(units.size());
    std::transform(units.begin(), units.end(), out_.Extend(units.size()),
                   [](char16_t unit) { return static_cast<char>(unit); });
}

/// Keeps a first half at the end back: the other one may come with the next piece.
std::u16string_view TextWriter::WithoutHalf(std::u16string_view units) {
    if (encoding_ != Encoding::Utf8 || units.empty() || !IsHighSurrogate(units.back()))
        return units;
    half_ = units.back();
    units.remove_suffix(1);
    return units;
}

void TextWriter::PutFrom(const TextStore& text, std::int32_t start, std::int32_t count) {
    text.VisitSpans(start, count, [this](auto units) { Put(units); });
}

void TextWriter::Finish() {
    if (half_ != 0) RaiseNoBytesFor(half_);
}

void TextWriter::PutEncoded(std::u16string_view units) {
    const EncodedText encoded = EncodeText(units, encoding_);
    if (!encoded) RaiseNoBytesFor(units[encoded.BadPosition - 1]);
    RequireRoom(encoded.Bytes.size());
    out_.Append(encoded.Bytes);
}

void TextWriter::RequireRoom(std::size_t bytes) const {
    if (bytes > mostFileBytes - out_.Size()) {
        throw ControlError(ErrorKind::Overflow, "The corrected file would be larger than 2 GiB");
    }
}

}  // namespace quorvale
