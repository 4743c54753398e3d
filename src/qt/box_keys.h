#pragma once

#include <QKeyEvent>

#include "qt/control_link.h"

namespace quorvale {

/// A key goes down in a box in which the user types: the control hears of it first. False when it
/// is not to be typed, or when the box is being given up.
bool mayType(const ControlLinkPtr& link, TextBox Surface::*box, const QKeyEvent& event);

/// A key comes up there. False when the box is being given up.
bool mayRelease(const ControlLinkPtr& link, const QKeyEvent& event);

}  // namespace quorvale
