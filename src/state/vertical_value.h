#pragma once

#include "platform/surface.h"
#include "state/document_state.h"
#include "state/view_state.h"

namespace quorvale {

/// The vertical bar's value for a top line: the nearest step within the bar's range. Where a step
/// is several lines, only the first line stands at the bar's start and only the last top line at
/// its end, so that one more step always leads there. Overflow beyond 16 bits unless the bar is
/// wide.
std::int32_t VerticalValue(const Surface& surface, const DocumentState& document,
                           const ViewState& view, Line topLine);

}  // namespace quorvale
