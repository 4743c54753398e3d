#pragma once

#include "base/ordinals.h"
#include "platform/surface.h"
#include "platform/variant.h"
#include "state/appearance_state.h"
#include "state/document_state.h"
#include "state/view_state.h"

namespace quorvale {

/// The colours and the picture of single lines. Setting one shows it at once where the line is on
/// screen and painting is not suspended; nothing else is repainted. Bad line numbers are ignored.
class LineAttributes {
public:
    LineAttributes(DocumentState& document, const ViewState& view, Surface& surface,
                   const AppearanceState& appearance)
        : document_(document), view_(view), surface_(surface), appearance_(appearance) {}

    Colour ForeColor(Line line) const;
    void SetForeColor(Line line, Colour colour);
    Colour BackColor(Line line) const;
    void SetBackColor(Line line, Colour colour);

    /// Key or number of the line's picture in the host's image list; 0 for none.
    Variant Image(Line line) const;
    void SetImage(Line line, Variant image);

private:
    std::optional<int> PaintableSlot(Line line) const;

    DocumentState& document_;
    const ViewState& view_;
    Surface& surface_;
    const AppearanceState& appearance_;
};

}  // namespace quorvale
