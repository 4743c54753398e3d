#include "control/wiring.h"

#include <utility>

#include "control/control_parts.h"
#include "control/frame.h"
#include "platform/keys.h"

namespace quorvale {

namespace {

/// A handler that traps the failures of `action` where a user set it off.
template <class Action>
auto Handler(ControlParts& parts, Action action) {
    return [&parts, action](const auto&... arguments) {
        RunUserAction(parts, [&] { action(parts, arguments...); });
    };
}

void WireBarsAndTools(ControlParts& parts) {
    using P = ControlParts;
    Surface& surface = parts.Elements;
    const auto keepFocus = [](P& p) { p.Elements.Focus.Request(FocusChild::TextArea); };
    surface.OnResize = Handler(parts, [](P& p) { p.Redraw.Resized(); });
    surface.scrVert.OnChange = Handler(parts, [](P& p) { p.Scrolling.VerticalChanged(); });
    surface.scrVert.OnScroll = Handler(parts, [](P& p) { p.ScrollTip.ThumbMoved(); });
    surface.scrVert.OnGotFocus = Handler(parts, keepFocus);
    surface.scrHorz.OnChange = Handler(parts, [](P& p) { p.RowShift.HorizontalChanged(); });
    surface.scrHorz.OnGotFocus = Handler(parts, keepFocus);
    surface.tbMore.OnClick = Handler(
        parts, [](P& p, const std::u16string& key) { p.ToolbarCommands.ToolbarClicked(key); });
    surface.cmdMore.OnClick = Handler(parts, [](P& p) { p.ToolbarCommands.ToggleToolbar(); });
    surface.mnuCollapse.OnPick =
        Handler(parts, [](P& p, const std::u16string& key) { p.Glyphs.MenuPicked(key); });
}

/// The same for a key of one element, which the action may swallow.
template <class Action>
auto KeyHandler(ControlParts& parts, Action action) {
    return [&parts, action](std::int16_t& key, std::int16_t) {
        RunUserAction(parts, [&] { action(parts, key); });
    };
}

void SearchBoxChanged(ControlParts& parts) {
    // A host that sets the text hears of a failure as little as a user who types does.
    if (!Trapped([&] { parts.Find.TextChanged(); })) ShowWhatIs(Frame(parts.shared_from_this()));
}

void FocusGot(ControlParts& parts, FocusChild child) {
    parts.MarkerBlink.ChildGotFocus(child);
    if (child == FocusChild::SearchBox) parts.Find.BoxGotFocus();
    if (child == FocusChild::LineBox) parts.GoToLine.BoxGotFocus();
}

void FocusLost(ControlParts& parts, FocusChild child) {
    parts.MarkerBlink.ChildLostFocus(child);
    if (child == FocusChild::SearchBox) parts.Find.BoxLostFocus();
    if (child == FocusChild::LineBox) parts.GoToLine.BoxLostFocus();
}

void WireSearch(ControlParts& parts) {
    using P = ControlParts;
    Surface& surface = parts.Elements;
    surface.tbMore.OnMenuClick =
        Handler(parts, [](P& p, const std::u16string& button, const std::u16string& item) {
            p.ToolbarCommands.ToolbarMenuClicked(button, item);
        });
    surface.txtSearch.OnChange = Handler(parts, SearchBoxChanged);
    surface.txtSearch.OnKeyDown = KeyHandler(parts, [](P& p, auto& key) { p.Find.KeyDown(key); });
    surface.txtLn.OnKeyDown = KeyHandler(parts, [](P& p, auto& key) {
        if (key != key_code::Return) return;
        key = 0;
        p.ToolbarCommands.ToolbarClicked(u"Ln");
    });
    surface.lvFound.OnActivate = Handler(parts, [](P& p) { p.Picking.PickSelected(); });
    surface.lvFound.OnKeyDown = KeyHandler(parts, [](P& p, auto& key) { p.Picking.KeyDown(key); });
}

void WireMouse(ControlParts& parts) {
    using P = ControlParts;
    using Mouse = const MouseEvent&;
    Surface& surface = parts.Elements;
    surface.OnRowMouseDown =
        Handler(parts, [](P& p, int slot, Mouse event) { p.RowMouse.RowPressed(slot, event); });
    surface.OnRowMouseMove =
        Handler(parts, [](P& p, int slot, Mouse event) { p.RowMouse.RowMoved(slot, event); });
    surface.OnRowMouseUp =
        Handler(parts, [](P& p, int slot, Mouse event) { p.RowMouse.RowReleased(slot, event); });
    surface.OnRowDblClick =
        Handler(parts, [](P& p, int slot) { p.RowMouse.RowDoubleClicked(slot); });
    surface.OnLineImageClick =
        Handler(parts, [](P& p, int slot) { p.RowMouse.LineImageClicked(slot); });
    surface.OnMarkerMouseDown =
        Handler(parts, [](P& p, Mouse event) { p.RowMouse.MarkerPressed(event); });
    surface.OnMarkerMouseMove =
        Handler(parts, [](P& p, Mouse event) { p.RowMouse.MarkerMoved(event); });
    surface.OnMarkerMouseUp =
        Handler(parts, [](P& p, Mouse event) { p.RowMouse.MarkerReleased(event); });
    surface.OnGlyphClick = Handler(parts, [](P& p, int slot) { p.Glyphs.Clicked(slot); });
    surface.OnGlyphMouseDown =
        Handler(parts, [](P& p, int slot, Mouse event) { p.Glyphs.Pressed(slot, event); });
}

void WireKeysAndFocus(ControlParts& parts) {
    using P = ControlParts;
    Surface& surface = parts.Elements;
    surface.OnKeyDown = Handler(
        parts, [](P& p, std::int16_t key, std::int16_t shift) { p.Keyboard.KeyDown(key, shift); });
    surface.OnKeyUp = Handler(
        parts, [](P& p, std::int16_t key, std::int16_t shift) { p.Keyboard.KeyUp(key, shift); });
    surface.OnEnter = Handler(parts, [](P& p) { p.MarkerBlink.Entered(); });
    surface.OnExit = Handler(parts, [](P& p) { p.MarkerBlink.Exited(); });
    surface.Focus.OnGot = Handler(parts, FocusGot);
    surface.Focus.OnLost = Handler(parts, FocusLost);
    surface.tmrImage.OnTick = Handler(parts, [](P& p) { p.MarkerBlink.Ticked(); });
}

void WireCorrections(ControlParts& parts) {
    using P = ControlParts;
    Surface& surface = parts.Elements;
    surface.OnEditMarkClick = Handler(parts, [](P& p, int slot) { p.Marks.Clicked(slot); });
    surface.mnuPopup.OnPick =
        Handler(parts, [](P& p, const std::u16string& key) { p.Commands.MenuPicked(key); });
    surface.rtbEdit.OnChange = Handler(parts, [](P& p) { p.Editor.TextChanged(); });
    surface.rtbEdit.OnKeyDown = [&parts](std::int16_t& key, std::int16_t shift) {
        RunUserAction(parts, [&] { parts.Editor.KeyDown(key, shift); });
    };
}

}  // namespace

void WireHandlers(ControlParts& parts) {
    WireBarsAndTools(parts);
    WireSearch(parts);
    WireMouse(parts);
    WireKeysAndFocus(parts);
    WireCorrections(parts);
}

}  // namespace quorvale
