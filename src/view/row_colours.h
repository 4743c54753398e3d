#pragma once

#include "document/line_attributes.h"
#include "platform/surface.h"
#include "state/document_state.h"
#include "state/navigation_state.h"
#include "state/view_state.h"

namespace quorvale {

/// Whether the selected rows include a line: the caret's row and those below it for a positive
/// count, those above it for a negative one. Overflow when the range leaves 32 bits.
bool IsLineSelected(const NavigationState& navigation, Line line);

/// Colours the rows: selected ones as the system highlights, blank ones as the control, the others
/// with their line's colours.
class RowColours {
public:
    RowColours(const ViewState& view, Surface& surface, const DocumentState& document,
               const NavigationState& navigation, const LineAttributes& attributes)
        : view_(view),
          surface_(surface),
          document_(document),
          navigation_(navigation),
          attributes_(attributes) {}

    /// Does nothing while painting is suspended. Fails as `IsLineSelected`.
    void PaintRowColours();

private:
    const ViewState& view_;
    Surface& surface_;
    const DocumentState& document_;
    const NavigationState& navigation_;
    const LineAttributes& attributes_;
};

}  // namespace quorvale
