#include "qt/spoken_row.h"

#include <algorithm>
#include <string>

#include "base/numbers_in_text.h"
#include "qt/code_points.h"
#include "qt/conversions.h"
#include "resources/message_format.h"
#include "resources/spoken_words.h"

namespace quorvale {

namespace {

constexpr QLatin1String separator(", ");

std::u16string_view told(std::u16string_view text) {
    if (text.size() <= mostSpoken) return text;
    const bool cutsPair = characterStart(text, mostSpoken) != mostSpoken;
    return text.substr(0, cutsPair ? mostSpoken - 1 : mostSpoken);
}

}  // namespace

QString spokenText(std::u16string_view text) {
    std::u16string spoken(told(text));
    std::size_t at = 0;
    while (at < spoken.size()) {
        const CodePoint character = codePointAt(spoken, at);
        if (character.Value == 0 || character.Value == replacementCharacter) {
            spoken[at] = static_cast<char16_t>(replacementCharacter);
        }
        at += character.Units;
    }
    return toQString(spoken);
}

QString spokenName(const SpokenRow& row, Language language) {
    QString name = spokenText(row.Text.View());
    const bool isBlank =
        std::all_of(name.cbegin(), name.cend(), [](QChar unit) { return unit.isSpace(); });
    return isBlank ? toQString(LoadSpoken(SpokenWord::Blank, language)) : name;
}

QString spokenDescription(const SpokenRow& row, Language language) {
    const auto word = [&](SpokenWord wanted) { return toQString(LoadSpoken(wanted, language)); };
    QString description =
        toQString(FormatMessage(LoadSpoken(SpokenWord::Line, language), DecimalText(row.Line)));
    if (row.Folded) description += separator + word(SpokenWord::Folded);
    if (row.Corrected) description += separator + word(SpokenWord::Corrected);
    return description;
}

}  // namespace quorvale
