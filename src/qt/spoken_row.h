#pragma once

#include <QString>
#include <string_view>

#include "platform/shared_text.h"
#include "resources/string_table.h"

namespace quorvale {

/// What is told about one row to those who do not see it.
struct SpokenRow {
    /// Counted from 1.
    int Line = 0;
    SharedText Text;
    bool Selected = false;
    /// The row has a glyph: lines are folded below it, or can be.
    bool CanFold = false;
    bool Folded = false;
    bool Corrected = false;

    bool operator==(const SpokenRow&) const = default;
};

/// More characters of a row than this are not told: nobody listens to a line of a megabyte, and
/// every question about it would carry all of it from program to program.
inline constexpr std::size_t mostSpoken = 32'768;

/// The text of a row as far as it is told, unit for unit. What no bus carries, half a surrogate
/// pair or a NUL, becomes the replacement character.
QString spokenText(std::u16string_view text);

/// The name of a row: its text, or the word for a blank line where nothing would be heard.
QString spokenName(const SpokenRow& row, Language language);

/// "line 7, folded, corrected" in the language.
QString spokenDescription(const SpokenRow& row, Language language);

}  // namespace quorvale
