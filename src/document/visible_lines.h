#pragma once

#include "base/ordinals.h"
#include "state/document_state.h"

namespace quorvale {

/// The nearest line above `line` that no fold hides; never below 1: line 1 is the answer even when
/// it is hidden.
Line PreviousVisibleLine(const DocumentState& document, Line line);

/// The nearest line below `line` that no fold hides, or the sentinel behind the last line. A
/// negative number counts as 1.
Line NextVisibleLine(const DocumentState& document, Line line);

/// The line itself when it is shown, else the nearest shown line above it.
inline Line VisibleAtOrAbove(const DocumentState& document, Line line) {
    return PreviousVisibleLine(document, line + 1);
}

}  // namespace quorvale
