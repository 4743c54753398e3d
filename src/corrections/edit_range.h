#pragma once

#include <cstdint>
#include <vector>

#include "base/ordinals.h"
#include "corrections/update.h"

namespace quorvale {

/// The selected lines, or the caret's line when nothing is selected, as far as they exist. A count
/// may reach past either end of the document.
UpdateRange SelectedLines(Line caret, std::int32_t selectedRows, Line lastLine);

/// Whether recording an edit of `edited` removes a correction: those that hold its first line, and
/// those that begin in it or right behind it.
bool IsRemovedBy(const UpdateRange& edited, const UpdateRange& correction);

/// The lines widened to every correction that recording would remove, so that what is removed can
/// be seen in the editor; never past the document. Insertions right behind the lines are left for
/// `InsertionsBehind`.
UpdateRange WidenedToCorrections(UpdateRange lines, const std::vector<Update>& updates,
                                 Line lastLine);

/// The corrections that begin right behind lines so widened, in document order: their lines belong
/// behind the corrected lines in the editor.
std::vector<Update> InsertionsBehind(const UpdateRange& lines, const std::vector<Update>& updates);

}  // namespace quorvale
