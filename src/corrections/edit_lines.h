#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "corrections/update.h"

namespace quorvale {

/// What the lines in an editor come to: these lines of the file become that text, each of its lines
/// followed by LF. Where neither is left, the editor shows what the file holds.
struct EditedLines {
    UpdateRange Range;
    std::u16string Text;

    bool IsNothing() const { return Range.Count == 0 && Text.empty(); }
};

/// Whether a line of the file is the same as a line in the editor.
using SameLine = std::function<bool(std::int32_t line, std::u16string_view edited)>;

/// Leaves out the lines at the front and at the back that are unchanged. At least one line of
/// `shown` stays, if none of the front is left out: a changed line is never taken for an unchanged
/// one that has moved down. CR LF and LF end a line of `text`; the empty text is one empty line.
EditedLines WithoutUnchanged(std::u16string_view text, UpdateRange shown, const SameLine& same);

}  // namespace quorvale
