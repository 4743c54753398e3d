#include "journal_tool/printable.h"

#include "base/numbers_in_text.h"
#include "base/text.h"
#include "base/utf8.h"

namespace quorvale {

namespace {

/// Marks that are not seen and change how what is around them is seen.
bool IsUnseenMark(char16_t unit) {
    return unit == 0x061C || unit == 0xFEFF || unit >= 0xFFFE ||
           (unit >= 0x200B && unit <= 0x200F) || (unit >= 0x2028 && unit <= 0x202E) ||
           (unit >= 0x2060 && unit <= 0x206F);
}

bool IsControl(char16_t unit) { return unit < 0x20 || (unit >= 0x7F && unit < 0xA0); }

std::string Escape(char16_t unit) { return "\\u" + ToUtf8(HexText(unit)); }

}  // namespace

std::string Printable(std::u16string_view text) {
    std::string shown;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const bool pair =
            IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1]);
        if (pair) {
            AppendUtf8(shown, FromSurrogates(unit, text[++i]));
        } else if (unit != u'\t' && (IsControl(unit) || IsUnseenMark(unit) ||
                                     IsHighSurrogate(unit) || IsLowSurrogate(unit))) {
            shown += Escape(unit);
        } else {
            AppendUtf8(shown, unit);
        }
    }
    return shown;
}

std::string JsonString(std::u16string_view text) {
    std::string json = "\"";
    for (const char16_t unit : text) {
        if (unit == u'"' || unit == u'\\') {
            json += '\\';
            json += static_cast<char>(unit);
        } else if (unit < 0x20 || unit >= 0x7F) {
            json += Escape(unit);
        } else {
            json += static_cast<char>(unit);
        }
    }
    return json + '"';
}

}  // namespace quorvale
