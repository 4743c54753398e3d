#pragma once

#include <string_view>

#include "resources/string_table.h"

namespace quorvale {

/// Words beside the string table. Most are heard and never seen: what a screen reader says about
/// the rows, and the names of parts that carry a picture or nothing at all. The last ones stand on
/// the panel of a long search.
enum class SpokenWord {
    Rows,
    Blank,
    Folded,
    Corrected,
    Line,
    ShowToolbar,
    HideToolbar,
    Results,
    SearchProgress,
    EscapeEndsSearch,
    MatchesSoFar,
    ShownText
};

/// The word in the language; valid for the whole run of the program. "%1" is the place of a value.
std::u16string_view LoadSpoken(SpokenWord word, Language language);

}  // namespace quorvale
