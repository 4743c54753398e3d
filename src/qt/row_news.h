#pragma once

#include <vector>

#include "qt/spoken_row.h"

namespace quorvale {

/// What has become different for those who do not see the rows.
enum class NewsKind {
    /// Other lines are on screen.
    Scrolled,
    /// A row on screen, by its line, has another text, is described by other words, or is marked,
    /// folded or selected otherwise.
    Text,
    Description,
    Mark,
    Fold,
    Selection,
    /// The caret has come to this line while the rows have the keyboard, or the keyboard has come
    /// to the rows. Line 0: there is no document.
    Focus,
    /// The caret has moved along its line, or to another one while the keyboard is elsewhere.
    Caret
};

struct RowNews {
    NewsKind Kind;
    int Line = 0;

    bool operator==(const RowNews&) const = default;
};

/// What there was to be told at one moment.
struct ToldRows {
    /// Those on screen, from the top.
    std::vector<SpokenRow> Rows;
    int CaretLine = 0;
    int CaretUnit = 0;
    bool HasKeyboard = false;
};

/// What to tell in the step from one moment to another. The caret comes last: who follows it finds
/// everything else told.
std::vector<RowNews> newsBetween(const ToldRows& before, const ToldRows& now);

}  // namespace quorvale
