#include "control/wiring.h"

#include <utility>

#include "control/control_parts.h"
#include "control/frame.h"

namespace quorvale {

namespace {

/// A handler that traps the failures of `action` where a user set it off.
template <class Action>
auto Handler(ControlParts& parts, Action action) {
    return [&parts, action](const auto&... arguments) {
        RunUserAction(parts, [&] { action(parts, arguments...); });
    };
}

}  // namespace

void WireHandlers(ControlParts& parts) {
    Surface& surface = parts.Elements;
    surface.OnResize = Handler(parts, [](ControlParts& p) { p.Redraw.Resized(); });
    surface.scrVert.OnChange =
        Handler(parts, [](ControlParts& p) { p.Scrolling.VerticalChanged(); });
    surface.scrVert.OnScroll = Handler(parts, [](ControlParts& p) { p.ScrollTip.ThumbMoved(); });
    surface.scrHorz.OnChange =
        Handler(parts, [](ControlParts& p) { p.RowShift.HorizontalChanged(); });
    surface.tbMore.OnClick = Handler(
        parts, [](ControlParts& p, const std::u16string& key) { p.Shell.ToolbarClicked(key); });
    surface.cmdMore.OnClick = Handler(parts, [](ControlParts& p) { p.Shell.ToggleToolbar(); });
}

}  // namespace quorvale
