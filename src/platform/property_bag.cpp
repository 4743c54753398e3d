#include "platform/property_bag.h"

#include <charconv>
#include <cstddef>
#include <string>
#include <type_traits>

#include "base/errors.h"
#include "base/numbers_in_text.h"
#include "platform/keyed_pictures.h"

namespace quorvale {

namespace {

constexpr std::u16string_view fontPrefix = u"Font:";

/// The shortest text that reads as the same number again, whatever the user's locale.
template <class Number>
std::u16string TextOfNumber(Number number) {
    char digits[64];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    return {digits, end};
}

/// "Font:9;0;1;0;Name": size in points, character set, bold, italic, and the name as it is.
std::u16string TextOfFont(const Font& font) {
    const auto part = [](auto number) { return TextOfNumber(number) + u";"; };
    return std::u16string(fontPrefix) + part(font.Size) + part(font.Charset) +
           part(int{font.Bold}) + part(int{font.Italic}) + font.Name;
}

/// What stands before the next semicolon; it is taken off. TypeMismatch where there is none.
std::u16string_view NextPart(std::u16string_view& text) {
    const std::size_t end = text.find(u';');
    if (end == std::u16string_view::npos) {
        throw ControlError(ErrorKind::TypeMismatch, "The text describes no font");
    }
    const std::u16string_view part = text.substr(0, end);
    text.remove_prefix(end + 1);
    return part;
}

Font FontOfText(std::u16string_view text) {
    Font font;
    text.remove_prefix(fontPrefix.size());
    font.Size = ToDouble(NextPart(text));
    font.Charset = ToShort(NextPart(text));
    font.Bold = ToShort(NextPart(text)) != 0;
    font.Italic = ToShort(NextPart(text)) != 0;
    font.Name = text;
    return font;
}

/// A number as short as it can be kept.
Variant NumberOfText(std::u16string_view text) {
    const double number = ToDouble(text);
    const auto whole =
        static_cast<std::int32_t>(number >= -2147483648.0 && number < 2147483648.0 ? number : 0);
    if (static_cast<double>(whole) == number) return whole;
    return number;
}

/// A type that stands by name in front of a value where the value alone would read as another one.
struct NamedType {
    std::u16string_view Prefix;
    std::size_t Alternative;
    Variant (*Read)(std::u16string_view text);
};

/// The place of a type among those that a Variant holds.
template <class T>
std::size_t AlternativeOf() {
    return Variant(T{}).index();
}

const NamedType namedTypes[] = {
    {u"Integer:", AlternativeOf<std::int16_t>(),
     [](std::u16string_view text) -> Variant { return ToShort(text); }},
    {u"Long:", AlternativeOf<std::int32_t>(),
     [](std::u16string_view text) -> Variant { return ToLong(text); }},
    {u"Single:", AlternativeOf<float>(),
     [](std::u16string_view text) -> Variant { return ToSingle(ToDouble(text)); }},
    {u"Double:", AlternativeOf<double>(),
     [](std::u16string_view text) -> Variant { return ToDouble(text); }},
    {u"String:", AlternativeOf<std::u16string>(),
     [](std::u16string_view text) -> Variant { return std::u16string(text); }},
};

/// The plain text of a value, with the name of its type where it needs one.
std::u16string Named(const Variant& value, const std::u16string& plain) {
    if (ValueOfText(plain) == value) return plain;
    for (const NamedType& type : namedTypes) {
        if (type.Alternative == value.index()) return std::u16string(type.Prefix) + plain;
    }
    return plain;
}

}  // namespace

Variant MemoryBag::Read(std::u16string_view key) {
    const auto found = Values.find(key);
    return found == Values.end() ? Variant() : found->second;
}

void MemoryBag::Write(std::u16string_view key, const Variant& value, const Variant& defaultValue) {
    if (value == defaultValue) {
        Values.erase(std::u16string(key));
    } else {
        Values[std::u16string(key)] = value;
    }
}

std::u16string TextOfValue(const Variant& value) {
    return std::visit(
        [&](const auto& held) -> std::u16string {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, bool>) {
                return held ? u"True" : u"False";
            } else if constexpr (std::is_arithmetic_v<Held>) {
                return Named(value, TextOfNumber(held));
            } else if constexpr (std::is_same_v<Held, std::u16string>) {
                return Named(value, held);
            } else if constexpr (std::is_same_v<Held, Font>) {
                return TextOfFont(held);
            } else {
                return {};
            }
        },
        value);
}

Variant ValueOfText(std::u16string_view text) {
    if (SameKey(text, u"True")) return true;
    if (SameKey(text, u"False")) return false;
    try {
        if (text.starts_with(fontPrefix)) return FontOfText(text);
        for (const NamedType& type : namedTypes) {
            if (text.starts_with(type.Prefix)) return type.Read(text.substr(type.Prefix.size()));
        }
        return NumberOfText(text);
    } catch (const ControlError&) {
        return std::u16string(text);
    }
}

}  // namespace quorvale
