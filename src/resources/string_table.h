#pragma once

#include <string_view>

#include "base/export.h"

namespace quorvale {

/// A language that has a string table, by its conventional language number.
enum class Language { English = 1033, Japanese = 1041, Korean = 1042 };

/// The table that serves a user-interface language: English for every language without its own.
QUORVALE_CORE_EXPORT Language LanguageFromId(int languageId);

/// The text with that number (see text_ids.h) in the language; valid for the whole run of the
/// program. "&" in it marks the access key of a menu caption, "%1" the place of a value.
/// Index error when there is no such number.
QUORVALE_CORE_EXPORT std::u16string_view LoadText(int id, Language language);

}  // namespace quorvale
