#include "base/numbers_in_text.h"

#include <charconv>
#include <limits>
#include <string>
#include <system_error>

#include "base/errors.h"
#include "base/integers.h"

namespace quorvale {

namespace {

[[noreturn]] void RaiseNoNumber() {
    throw ControlError(ErrorKind::TypeMismatch, "The text is not a number");
}

bool IsBlank(char16_t unit) { return unit == u' ' || (unit >= 0x09 && unit <= 0x0D); }
bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

std::u16string_view WithoutBlanks(std::u16string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

/// A decimal number, read from the front to the back.
class DecimalReader {
public:
    explicit DecimalReader(std::u16string_view text) : rest_(text) {}

    double Read() {
        const bool inParentheses = Take(u'(');
        bool negative = inParentheses;
        const bool signInFront = !inParentheses && TakeSign(negative);
        ReadDigits();
        ReadExponent();
        if (inParentheses) {
            if (!Take(u')')) RaiseNoNumber();
        } else if (!signInFront) {
            TakeSign(negative);
        }
        if (!rest_.empty()) RaiseNoNumber();
        const double size = Convert();
        return negative ? -size : size;
    }

private:
    bool At(char16_t unit) const { return !rest_.empty() && rest_.front() == unit; }
    bool AtDigit() const { return !rest_.empty() && IsDigit(rest_.front()); }

    bool Take(char16_t unit) {
        const bool there = At(unit);
        if (there) rest_.remove_prefix(1);
        return there;
    }

    bool TakeSign(bool& negative) {
        if (Take(u'+')) return true;
        if (!Take(u'-')) return false;
        negative = true;
        return true;
    }

    void TakeDigitInto(std::string& digits) {
        digits.push_back(static_cast<char>(rest_.front()));
        rest_.remove_prefix(1);
    }

    /// A comma is passed over where it stands between two digits of the whole part.
    void ReadDigits() {
        while (AtDigit()) {
            TakeDigitInto(whole_);
            const bool digitFollows = rest_.size() > 1 && IsDigit(rest_[1]);
            if (At(u',') && digitFollows) rest_.remove_prefix(1);
        }
        if (Take(u'.')) {
            while (AtDigit()) TakeDigitInto(fraction_);
        }
        if (whole_.empty() && fraction_.empty()) RaiseNoNumber();
    }

    void ReadExponent() {
        if (!Take(u'e') && !Take(u'E') && !Take(u'd') && !Take(u'D')) return;
        bool negative = false;
        TakeSign(negative);
        std::string digits;
        while (AtDigit()) TakeDigitInto(digits);
        if (digits.empty()) RaiseNoNumber();
        // An exponent of many digits is as good as the largest that is kept here.
        constexpr std::int64_t enormous = std::int64_t{1} << 60;
        exponent_ = enormous;
        std::int64_t value = 0;
        const auto [end, error] =
            std::from_chars(digits.data(), digits.data() + digits.size(), value);
        if (error == std::errc() && value < enormous) exponent_ = value;
        if (negative) exponent_ = -exponent_;
    }

    double Convert() const {
        const std::string text = whole_ + "." + fraction_ + "e" + std::to_string(exponent_);
        double value = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        if (error == std::errc()) return value;
        const std::string digits = whole_ + fraction_;
        const std::size_t leading = digits.find_first_not_of('0');
        if (leading == std::string::npos) return 0;
        const auto point = static_cast<std::int64_t>(whole_.size());
        const bool large = exponent_ + point - static_cast<std::int64_t>(leading) > 0;
        if (large) RaiseOverflow("number");
        return 0;
    }

    std::u16string_view rest_;
    std::string whole_;
    std::string fraction_;
    std::int64_t exponent_ = 0;
};

int DigitValue(char16_t unit) {
    if (IsDigit(unit)) return unit - u'0';
    if (unit >= u'a' && unit <= u'f') return unit - u'a' + 10;
    if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
    return std::numeric_limits<int>::max();
}

/// The bits that "&H..." or "&O..." stands for; `text` begins behind the "&".
template <class Unsigned>
Unsigned ReadPattern(std::u16string_view text) {
    const char16_t mark = text.empty() ? u'\0' : text.front();
    const bool hex = mark == u'H' || mark == u'h';
    if (hex || mark == u'O' || mark == u'o') text.remove_prefix(1);
    if (text.empty()) RaiseNoNumber();
    const int base = hex ? 16 : 8;
    for (const char16_t unit : text) {
        if (DigitValue(unit) >= base) RaiseNoNumber();
    }
    if (hex && text.size() > sizeof(Unsigned) * 2) RaiseOverflow("number");
    std::uint64_t bits = 0;
    for (const char16_t unit : text) {
        bits =
            bits * static_cast<std::uint64_t>(base) + static_cast<std::uint64_t>(DigitValue(unit));
        if (bits > std::numeric_limits<Unsigned>::max()) RaiseOverflow("number");
    }
    return static_cast<Unsigned>(bits);
}

bool IsPattern(std::u16string_view text) { return !text.empty() && text.front() == u'&'; }

template <class Signed, class Unsigned>
Signed ReadWhole(std::u16string_view text, Signed (*round)(double)) {
    text = WithoutBlanks(text);
    if (IsPattern(text)) return static_cast<Signed>(ReadPattern<Unsigned>(text.substr(1)));
    return round(DecimalReader(text).Read());
}

}  // namespace

std::int32_t ToLong(std::u16string_view text) {
    return ReadWhole<std::int32_t, std::uint32_t>(text, ToInt32);
}

std::int16_t ToShort(std::u16string_view text) {
    return ReadWhole<std::int16_t, std::uint16_t>(text, ToInt16);
}

double ToDouble(std::u16string_view text) {
    text = WithoutBlanks(text);
    if (IsPattern(text)) return ToLong(text);
    return DecimalReader(text).Read();
}

std::u16string DecimalText(std::int64_t number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

std::u16string HexText(char16_t number) {
    constexpr std::u16string_view digits = u"0123456789ABCDEF";
    std::u16string text;
    for (int shift = 12; shift >= 0; shift -= 4) text += digits[(unsigned{number} >> shift) & 0xFU];
    return text;
}

}  // namespace quorvale
