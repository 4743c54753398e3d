#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvale {

// What readers and writers of XML have in common, on UTF-8 text.

constexpr bool IsXmlSpace(char16_t c) {
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r';
}

/// Any character beyond ASCII may stand in a name.
constexpr bool BeginsXmlName(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_' || c == u':' ||
           c >= 0x80;
}
constexpr bool IsInXmlName(char16_t c) {
    return BeginsXmlName(c) || (c >= u'0' && c <= u'9') || c == u'-' || c == u'.';
}

/// A byte of UTF-8 text as the functions above take it.
constexpr char16_t XmlUnit(char byte) { return static_cast<std::uint8_t>(byte); }

/// Is the name, in any case, the one kept for declarations?
bool IsXmlDeclarationName(std::string_view name);

/// What the declaration at the very start says, from its first word on; none when there is no
/// declaration.
std::optional<std::string_view> FindXmlDeclaration(std::string_view text);

/// The encoding that a declaration names.
struct DeclaredEncoding {
    std::string_view Name;
    /// Where it stands in the declaration, with its name and quotation marks.
    std::size_t From = 0;
    std::size_t Size = 0;
};

std::optional<DeclaredEncoding> FindDeclaredEncoding(std::string_view declaration);

/// A numeric reference at the front of a text.
struct XmlReference {
    /// How many characters it takes; 0 when none stands there.
    std::size_t Length = 0;
    /// NUL when it names no character: NUL itself, a surrogate, or one beyond U+10FFFF.
    char32_t Code = 0;
};

/// The text begins with "&#".
XmlReference ReadXmlReference(std::string_view text);

/// CR LF and CR become LF, in place.
void NormaliseXmlLines(std::string& text);

}  // namespace quorvale
