#include "qt/box_keys.h"

#include "qt/input_codes.h"

namespace quorvale {

bool mayType(const ControlLinkPtr& link, TextBox Surface::*box, const QKeyEvent& event) {
    std::int16_t code = keyCodeOf(event);
    if (code == 0) return true;
    const std::int16_t shift = shiftMaskOf(event.modifiers());
    const bool there = link->run([&](Surface& surface) {
        if (surface.OnKeyDown) surface.OnKeyDown(code, shift);
        code = (surface.*box).UserKey(code, shift);
    });
    return there && code != 0;
}

bool mayRelease(const ControlLinkPtr& link, const QKeyEvent& event) {
    const std::int16_t code = keyCodeOf(event);
    // A key that repeats goes down again and again and comes up once.
    if (code == 0 || event.isAutoRepeat()) return true;
    const std::int16_t shift = shiftMaskOf(event.modifiers());
    return link->run([&](Surface& surface) {
        if (surface.OnKeyUp) surface.OnKeyUp(code, shift);
    });
}

}  // namespace quorvale
