#include "document/encodings.h"

#include "base/utf8.h"

namespace quorvale {

namespace {

constexpr int noByte = -1;

int SingleByteOf(char16_t unit) { return unit <= 0xFF ? unit : noByte; }

int WesternByteOf(char16_t unit) {
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) return unit;
    for (std::size_t i = 0; i < westernSpecials.size(); ++i) {
        if (westernSpecials[i] == unit) return static_cast<int>(0x80 + i);
    }
    return noByte;
}

template <class ByteOf>
EncodedText EncodeByUnit(std::u16string_view units, ByteOf byteOf) {
    EncodedText out;
    out.Bytes.reserve(units.size());
    for (std::size_t i = 0; i < units.size(); ++i) {
        const int byte = byteOf(units[i]);
        if (byte == noByte) {
            out.BadPosition = i + 1;
            return out;
        }
        out.Bytes.push_back(static_cast<char>(byte));
    }
    return out;
}

EncodedText EncodeUtf8(std::u16string_view units) {
    EncodedText out;
    out.Bytes.reserve(units.size());
    for (std::size_t i = 0; i < units.size(); ++i) {
        const char16_t unit = units[i];
        if (IsHighSurrogate(unit) && i + 1 < units.size() && IsLowSurrogate(units[i + 1])) {
            AppendUtf8(out.Bytes, FromSurrogates(unit, units[++i]));
        } else if (unit >= 0xDC80 && unit <= 0xDCFF) {
            out.Bytes.push_back(static_cast<char>(unit - 0xDC00));
        } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
            out.BadPosition = i + 1;
            return out;
        } else {
            AppendUtf8(out.Bytes, unit);
        }
    }
    return out;
}

}  // namespace

EncodedText EncodeText(std::u16string_view units, Encoding encoding) {
    switch (encoding) {
        case Encoding::SingleByte:
            return EncodeByUnit(units, SingleByteOf);
        case Encoding::Windows1252:
            return EncodeByUnit(units, WesternByteOf);
        case Encoding::Utf8:
        case Encoding::Automatic:
            break;
    }
    return EncodeUtf8(units);
}

}  // namespace quorvale
