#include "resources/string_table.h"

#include <algorithm>
#include <span>
#include <string>

#include "base/errors.h"
#include "resources/text_tables.h"

namespace quorvale {

namespace {

std::span<const TextEntry> TextsOf(Language language) {
    switch (language) {
        case Language::Japanese:
            return JapaneseTexts();
        case Language::Korean:
            return KoreanTexts();
        case Language::English:
            break;
    }
    return EnglishTexts();
}

}  // namespace

Language LanguageFromId(int languageId) {
    if (languageId == static_cast<int>(Language::Japanese)) return Language::Japanese;
    if (languageId == static_cast<int>(Language::Korean)) return Language::Korean;
    return Language::English;
}

std::u16string_view LoadText(int id, Language language) {
    const auto texts = TextsOf(language);
    const auto found =
        std::lower_bound(texts.begin(), texts.end(), id,
                         [](const TextEntry& entry, int wanted) { return entry.Id < wanted; });
    if (found == texts.end() || found->Id != id) {
        throw ControlError(ErrorKind::Index, "There is no text number " + std::to_string(id));
    }
    return found->Text;
}

}  // namespace quorvale
