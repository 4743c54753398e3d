#pragma once

#include <QWidget>

#include "qt/control_link.h"

namespace quorvale {

/// Opens a context menu of the control beside what asked for it and returns at once. What the user
/// picks, or that nothing was picked, reaches the element later.
class MenuPopup {
public:
    using ElementOf = Menu Surface::*;

    /// `place`: the menu's corner on the screen.
    static void open(ElementOf element, const ControlLinkPtr& link, QWidget& control, QPoint place);
};

}  // namespace quorvale
