#include "adapters/xml_decoding.h"

#include <algorithm>
#include <cstdint>
#include <span>

#include "base/utf8.h"
#include "base/western_code_page.h"
#include "platform/xml_text.h"

namespace quorvale {

namespace {

enum class XmlEncoding { Utf8, Utf16Little, Utf16Big, Ascii, Latin, Western, Unknown };

struct Recognised {
    XmlEncoding Encoding = XmlEncoding::Utf8;
    std::size_t MarkSize = 0;
};

std::string LowerCase(std::string_view name) {
    std::string lower(name);
    for (char& c : lower) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    }
    return lower;
}

XmlEncoding EncodingOf(std::string_view declared) {
    const std::string name = LowerCase(declared);
    if (name == "utf-8") return XmlEncoding::Utf8;
    if (name == "us-ascii") return XmlEncoding::Ascii;
    if (name == "iso-8859-1") return XmlEncoding::Latin;
    if (name == "windows-1252") return XmlEncoding::Western;
    // UTF-16 too: a declaration that could be read byte by byte cannot be UTF-16.
    return XmlEncoding::Unknown;
}

Recognised Recognise(std::string_view bytes) {
    using namespace std::string_view_literals;
    if (bytes.starts_with("\xEF\xBB\xBF")) return {XmlEncoding::Utf8, 3};
    if (bytes.starts_with("\xFF\xFE")) return {XmlEncoding::Utf16Little, 2};
    if (bytes.starts_with("\xFE\xFF")) return {XmlEncoding::Utf16Big, 2};
    // Without a mark, "<?" can still be seen to be UTF-16.
    if (bytes.starts_with("<\0?\0"sv)) return {XmlEncoding::Utf16Little, 0};
    if (bytes.starts_with("\0<\0?"sv)) return {XmlEncoding::Utf16Big, 0};
    const auto declaration = FindXmlDeclaration(bytes);
    if (!declaration) return {};
    const auto declared = FindDeclaredEncoding(*declaration);
    return {declared ? EncodingOf(declared->Name) : XmlEncoding::Utf8, 0};
}

std::optional<XmlParseError> Invalid(std::size_t position) {
    return XmlParseError{position, "A byte is not valid in the document's encoding", false};
}

std::optional<XmlParseError> TakeUtf8(std::string_view bytes, std::string& text) {
    const std::span<const std::uint8_t> all(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                            bytes.size());
    const std::size_t valid = ValidUtf8Prefix(all).Valid;
    if (valid < bytes.size()) return Invalid(valid);
    text = bytes;
    return std::nullopt;
}

std::optional<XmlParseError> FromUtf16(std::string_view bytes, bool little, std::string& text) {
    const auto unitAt = [&](std::size_t at) {
        const auto first = static_cast<std::uint8_t>(bytes[at]);
        const auto second = static_cast<std::uint8_t>(bytes[at + 1]);
        return static_cast<char16_t>(little ? first | second << 8 : first << 8 | second);
    };
    if (bytes.size() % 2 != 0) return Invalid(bytes.size() - 1);
    text.reserve(bytes.size() / 2);
    for (std::size_t at = 0; at < bytes.size(); at += 2) {
        const char16_t unit = unitAt(at);
        if (!IsHighSurrogate(unit) && !IsLowSurrogate(unit)) {
            AppendUtf8(text, unit);
            continue;
        }
        const bool pair = IsHighSurrogate(unit) && at + 2 < bytes.size();
        if (!pair || !IsLowSurrogate(unitAt(at + 2))) return Invalid(at);
        AppendUtf8(text, FromSurrogates(unit, unitAt(at + 2)));
        at += 2;
    }
    return std::nullopt;
}

std::optional<XmlParseError> FromBytes(std::string_view bytes, XmlEncoding encoding,
                                       std::string& text) {
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const auto byte = static_cast<std::uint8_t>(bytes[at]);
        if (byte >= 0x80 && encoding == XmlEncoding::Ascii) return Invalid(at);
        AppendUtf8(text, encoding == XmlEncoding::Western ? FromWindows1252(byte) : byte);
    }
    return std::nullopt;
}

std::optional<XmlParseError> Decode(std::string_view bytes, XmlEncoding encoding,
                                    std::string& text) {
    switch (encoding) {
        case XmlEncoding::Utf8:
            return TakeUtf8(bytes, text);
        case XmlEncoding::Utf16Little:
        case XmlEncoding::Utf16Big:
            return FromUtf16(bytes, encoding == XmlEncoding::Utf16Little, text);
        case XmlEncoding::Ascii:
        case XmlEncoding::Latin:
        case XmlEncoding::Western:
            return FromBytes(bytes, encoding, text);
        case XmlEncoding::Unknown:
            break;
    }
    return XmlParseError{0, "The document's encoding cannot be read", true};
}

}  // namespace

std::optional<XmlParseError> DecodeXml(std::string_view bytes, std::string& text) {
    if (bytes.size() > XmlService::MaxBytes) {
        return XmlParseError{0, "The document is too large", true};
    }
    const Recognised recognised = Recognise(bytes);
    text.clear();
    if (auto fault = Decode(bytes.substr(recognised.MarkSize), recognised.Encoding, text)) {
        fault->Position += recognised.MarkSize;
        return fault;
    }
    const std::size_t nul = text.find('\0');
    if (nul != text.npos) return XmlParseError{nul, "NUL is no character of XML", false};
    NormaliseXmlLines(text);
    return std::nullopt;
}

}  // namespace quorvale
