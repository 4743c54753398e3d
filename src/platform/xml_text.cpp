#include "platform/xml_text.h"

#include <algorithm>

namespace quorvale {

namespace {

std::size_t SkipSpace(std::string_view text, std::size_t at) {
    while (at < text.size() && IsXmlSpace(XmlUnit(text[at]))) ++at;
    return at;
}

std::size_t SkipName(std::string_view text, std::size_t at) {
    while (at < text.size() && IsInXmlName(XmlUnit(text[at]))) ++at;
    return at;
}

/// The value of a digit; 16 for what is none.
constexpr unsigned DigitOf(char c) {
    if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
    const char small = static_cast<char>(c | ' ');
    return small >= 'a' && small <= 'f' ? static_cast<unsigned>(small - 'a') + 10 : 16;
}

}  // namespace

bool IsXmlDeclarationName(std::string_view name) {
    return name.size() == 3 && (name[0] | ' ') == 'x' && (name[1] | ' ') == 'm' &&
           (name[2] | ' ') == 'l';
}

std::optional<std::string_view> FindXmlDeclaration(std::string_view text) {
    constexpr std::string_view opening = "<?xml";
    if (!text.starts_with(opening)) return std::nullopt;
    const std::size_t end = text.find("?>", opening.size());
    if (end == text.npos) return std::nullopt;
    std::string_view declaration = text.substr(opening.size(), end - opening.size());
    if (!declaration.empty() && !IsXmlSpace(XmlUnit(declaration[0]))) return std::nullopt;
    return declaration.substr(SkipSpace(declaration, 0));
}

std::optional<DeclaredEncoding> FindDeclaredEncoding(std::string_view declaration) {
    std::size_t at = SkipSpace(declaration, 0);
    while (at < declaration.size()) {
        const std::size_t from = at;
        at = SkipName(declaration, at);
        const std::string_view name = declaration.substr(from, at - from);
        at = SkipSpace(declaration, at);
        if (at == declaration.size() || declaration[at] != '=') return std::nullopt;
        at = SkipSpace(declaration, at + 1);
        if (at == declaration.size()) return std::nullopt;
        const char quote = declaration[at];
        const std::size_t end = declaration.find(quote, at + 1);
        if ((quote != '"' && quote != '\'') || end == declaration.npos) return std::nullopt;
        if (name == "encoding") {
            return DeclaredEncoding{declaration.substr(at + 1, end - at - 1), from, end + 1 - from};
        }
        at = SkipSpace(declaration, end + 1);
    }
    return std::nullopt;
}

XmlReference ReadXmlReference(std::string_view text) {
    const bool hexadecimal = text.size() > 2 && text[2] == 'x';
    const unsigned base = hexadecimal ? 16 : 10;
    const std::size_t first = hexadecimal ? 3 : 2;
    constexpr char32_t last = 0x10FFFF;
    char32_t code = 0;
    std::size_t at = first;
    for (; at < text.size() && DigitOf(text[at]) < base; ++at) {
        code = std::min(code * base + DigitOf(text[at]), last + 1);
    }
    if (at == first || at == text.size() || text[at] != ';') return {};
    const bool surrogate = code >= 0xD800 && code < 0xE000;
    return {at + 1, code > last || surrogate ? 0 : code};
}

void NormaliseXmlLines(std::string& text) {
    std::size_t to = std::min(text.find('\r'), text.size());
    for (std::size_t from = to; from < text.size(); ++from) {
        const bool carriageReturn = text[from] == '\r';
        if (carriageReturn && from + 1 < text.size() && text[from + 1] == '\n') continue;
        text[to++] = carriageReturn ? '\n' : text[from];
    }
    text.resize(to);
}

}  // namespace quorvale
