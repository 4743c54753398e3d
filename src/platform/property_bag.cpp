#include "platform/property_bag.h"

#include <optional>
#include <type_traits>

#include "base/errors.h"
#include "base/integers.h"
#include "base/numbers_in_text.h"

namespace quorvale {

namespace {

constexpr std::u16string_view fontPrefix = u"Font:";

/// "Font:9;0;1;0;Name": size in points, character set, bold, italic, and the name as it is.
std::u16string TextOfFont(const Font& font) {
    const auto part = [](const Variant& value) { return ToString(value) + u";"; };
    const auto flag = [&](bool set) { return part(std::int16_t{set}); };
    return std::u16string(fontPrefix) + part(font.Size) + part(font.Charset) + flag(font.Bold) +
           flag(font.Italic) + font.Name;
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
    if (const auto* font = std::get_if<Font>(&value)) return TextOfFont(*font);
    try {
        return ToString(value);
    } catch (const ControlError&) {
        return {};
    }
}

Variant ValueOfText(std::u16string_view text) {
    if (text == u"True") return true;
    if (text == u"False") return false;
    try {
        if (text.starts_with(fontPrefix)) return FontOfText(text);
        return NumberOfText(text);
    } catch (const ControlError&) {
        return std::u16string(text);
    }
}

}  // namespace quorvale
