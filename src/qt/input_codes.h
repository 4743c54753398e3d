#pragma once

#include <QKeyEvent>
#include <QtGlobal>
#include <cstdint>

namespace quorvale {

/// The control's number of a key; 0 for a key that it has no number for.
std::int16_t keyCodeOf(const QKeyEvent& event);

/// The sum of the held Shift, Ctrl and Alt.
std::int16_t shiftMaskOf(Qt::KeyboardModifiers modifiers);

/// The control's number of a mouse button; 0 for a button that it does not know.
std::int16_t buttonOf(Qt::MouseButton button);

/// The sum of the held buttons.
std::int16_t buttonMaskOf(Qt::MouseButtons buttons);

}  // namespace quorvale
