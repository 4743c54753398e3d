#pragma once

#include "platform/scroll_bar.h"
#include "state/view_state.h"

namespace quorvale {

/// How far the rows are shifted to the left, in twips. The bar's last step ends exactly at the end
/// of the range, whatever a step stands for.
inline Twips HorizontalPlace(const ScrollBar& bar, const ViewState& view) {
    if (view.HorizontalStep == 1) return bar.Value();
    if (bar.Value() == bar.Max()) return static_cast<Twips>(view.HorizontalEnd);
    return static_cast<Twips>(bar.Value() * view.HorizontalStep);
}

}  // namespace quorvale
