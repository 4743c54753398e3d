#include "document/encodings.h"

#include <array>

#include "base/utf8.h"

namespace quorvale {

namespace {

/// The characters of the bytes 0x80 to 0x9F in the Western code page.
constexpr std::array<char16_t, 32> westernSpecials = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

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

char16_t FromWindows1252(std::uint8_t byte) {
    return byte >= 0x80 && byte < 0xA0 ? westernSpecials[byte - 0x80U] : byte;
}

}  // namespace quorvale
