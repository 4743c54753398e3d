#pragma once

#include <optional>

#include "base/ordinals.h"
#include "platform/surface.h"
#include "state/view_state.h"

namespace quorvale {

/// The line that a row slot shows, from its label's tag: -1 for none, `LineSlots` for a blank row
/// past the end. Index error for a slot that does not exist, TypeMismatch for a tag that is no
/// number.
Line SlotLine(const Surface& surface, int slot);

/// The first slot from 0 to `RowsPerView` that shows the line; none when it is not on screen.
std::optional<int> FindRowSlot(const Surface& surface, const ViewState& view, Line line);

/// Writes a row's caption and then its line, in this order: a reader that finds the line must find
/// its text with it.
void SetSlot(Surface& surface, int slot, SharedText caption, Line line);

}  // namespace quorvale
