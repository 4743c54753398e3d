#include "platform/variant.h"

#include <charconv>
#include <type_traits>

#include "base/errors.h"
#include "base/integers.h"
#include "base/numbers_in_text.h"
#include "base/text.h"

namespace quorvale {

namespace {

[[noreturn]] void RaiseTypeMismatch(const char* wanted) {
    throw ControlError(ErrorKind::TypeMismatch,
                       std::string("The value cannot be read as ") + wanted);
}

template <class T>
constexpr bool isNumber = std::is_arithmetic_v<T> && !std::is_same_v<T, bool>;

/// Any value with a numeric reading as a double; True is -1.
double ToNumber(const Variant& value, const char* wanted) {
    return std::visit(
        [&](const auto& held) -> double {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, bool>) {
                return held ? -1 : 0;
            } else if constexpr (isNumber<Held>) {
                return static_cast<double>(held);
            } else if constexpr (std::is_same_v<Held, std::u16string>) {
                return ToDouble(held);
            } else if constexpr (std::is_same_v<Held, std::monostate>) {
                return 0;
            } else {
                RaiseTypeMismatch(wanted);
            }
        },
        value);
}

/// The shortest text that reads back as the same number, whatever the user's locale.
std::u16string NumberText(double number, int digits) {
    char buffer[64];
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::general, digits);
    return FromUtf8(std::string_view(buffer, static_cast<std::size_t>(end.ptr - buffer)));
}

bool IsWord(std::u16string_view text, std::u16string_view lower) {
    if (text.size() != lower.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const bool capital = unit >= u'A' && unit <= u'Z';
        if ((capital ? unit + (u'a' - u'A') : unit) != lower[i]) return false;
    }
    return true;
}

}  // namespace

bool IsZero(const Variant& value) {
    return std::visit(
        [](const auto& held) {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>) return true;
            if constexpr (std::is_arithmetic_v<Held>) return held == Held{};
            return false;
        },
        value);
}

std::int16_t ToShort(const Variant& value) {
    if (const auto* text = std::get_if<std::u16string>(&value))
        return ToShort(std::u16string_view(*text));
    return ToInt16(ToNumber(value, "an Integer"));
}

std::int32_t ToLong(const Variant& value) {
    if (const auto* text = std::get_if<std::u16string>(&value))
        return ToLong(std::u16string_view(*text));
    return ToInt32(ToNumber(value, "a Long"));
}

float ToSingle(const Variant& value) {
    const double number = ToNumber(value, "a Single");
    const auto single = static_cast<float>(number);
    if (number - number == 0 && single - single != 0) RaiseOverflow("Single");
    return single;
}

bool ToBoolean(const Variant& value) {
    if (const auto* text = std::get_if<std::u16string>(&value)) {
        if (IsWord(*text, u"true")) return true;
        if (IsWord(*text, u"false")) return false;
    }
    return ToNumber(value, "a Boolean") != 0;
}

std::u16string ToString(const Variant& value) {
    if (const auto* text = std::get_if<std::u16string>(&value)) return *text;
    if (const auto* truth = std::get_if<bool>(&value)) return *truth ? u"True" : u"False";
    if (std::holds_alternative<std::monostate>(value)) return {};
    const bool single = std::holds_alternative<float>(value);
    return NumberText(ToNumber(value, "a String"), single ? 7 : 15);
}

Colour ToColour(const Variant& value) { return static_cast<Colour>(ToLong(value)); }

}  // namespace quorvale
