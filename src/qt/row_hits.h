#pragma once

#include "platform/surface.h"

namespace quorvale {

/// What takes the mouse at a place.
enum class HitPart { Nothing, Row, Marker, LineImage, Glyph, EditMark };

struct Hit {
    HitPart Part = HitPart::Nothing;
    /// The row's slot; -1 where there is none.
    int Slot = -1;

    bool operator==(const Hit&) const = default;
};

/// The frontmost part at a place on the control, in twips, that takes the mouse.
Hit hitAt(const Surface& surface, Twips x, Twips y);

/// The row at a height of the control; -1 where there is none.
int slotAt(const Surface& surface, Twips y);

}  // namespace quorvale
