#pragma once

#include <QColor>
#include <QPalette>

#include "base/units.h"

namespace quorvale {

/// A colour as it is drawn: a system colour index is looked up in the palette, so that it follows
/// the user's theme. An index that no system has is drawn as text.
QColor resolvedColour(Colour colour, const QPalette& palette);

/// The control's number of a colour; its transparency does not count.
Colour toColour(const QColor& colour);

/// The colour of a hairline between two grounds: `share` of the text's colour over the ground.
QColor mixed(const QColor& ground, const QColor& text, double share);

}  // namespace quorvale
