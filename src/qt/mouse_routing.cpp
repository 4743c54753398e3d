#include "qt/mouse_routing.h"

#include "qt/input_codes.h"

namespace quorvale {

namespace {

/// The corner that an element's own coordinates count from, on the control.
void toElement(const Surface& surface, const Hit& hit, Twips& x, Twips& y) {
    const auto shift = [&](const Element& element) {
        x -= element.Left();
        y -= element.Top();
    };
    switch (hit.Part) {
        case HitPart::Row:
            if (surface.lblLine.Has(hit.Slot)) shift(surface.lblLine[hit.Slot]);
            break;
        case HitPart::Marker:
            shift(surface.imgMarker);
            break;
        case HitPart::LineImage:
            shift(surface.picBorder);
            if (surface.imgLine.Has(hit.Slot)) shift(surface.imgLine[hit.Slot]);
            break;
        case HitPart::Glyph:
            shift(surface.picExpand);
            if (surface.imgExpand.Has(hit.Slot)) shift(surface.imgExpand[hit.Slot]);
            break;
        case HitPart::EditMark:
        case HitPart::Nothing:
            break;
    }
}

template <class Handler, class... Arguments>
void call(const Handler& handler, const Arguments&... arguments) {
    if (handler) handler(arguments...);
}

}  // namespace

MouseEvent MouseRouting::relative(const Surface& surface, const Hit& hit, std::int16_t button,
                                  const QMouseEvent& event, Twips x, Twips y) const {
    toElement(surface, hit, x, y);
    return {button, shiftMaskOf(event.modifiers()), x, y};
}

// The marker hands what it gets to the row below it, and from then on that row has the mouse.
void MouseRouting::capture(const Hit& hit) {
    capture_.Held = true;
    capture_.Part = hit;
    if (hit.Part == HitPart::Marker) {
        capture_.Part = hit.Slot < 0 ? Hit{} : Hit{HitPart::Row, hit.Slot};
    }
}

void MouseRouting::press(const QMouseEvent& event, Twips x, Twips y) {
    const std::int16_t button = buttonOf(event.button());
    if (button == 0) return;
    // The first button of all: a release before it may have gone to a menu.
    if (buttonMaskOf(event.buttons()) == button) capture_.Held = false;
    link_->run([&](Surface& surface) {
        const Hit hit = capture_.Held ? capture_.Part : hitAt(surface, x, y);
        if (!capture_.Held) capture(hit);
        const MouseEvent mouse = relative(surface, hit, button, event, x, y);
        if (hit.Part == HitPart::Row) call(surface.OnRowMouseDown, hit.Slot, mouse);
        if (hit.Part == HitPart::Marker) call(surface.OnMarkerMouseDown, mouse);
        if (hit.Part == HitPart::Glyph) call(surface.OnGlyphMouseDown, hit.Slot, mouse);
    });
}

void MouseRouting::doubleClick(const QMouseEvent& event, Twips x, Twips y) {
    const std::int16_t button = buttonOf(event.button());
    if (button == 0) return;
    if (buttonMaskOf(event.buttons()) == button) capture_.Held = false;
    // Of the other buttons the second press is a press like the first.
    const bool opensRow =
        button == mouse_button::Left && link_->box() != nullptr && !capture_.Held && [&] {
            const HitPart part = hitAt(link_->box()->Elements(), x, y).Part;
            return part == HitPart::Row || part == HitPart::Marker;
        }();
    if (!opensRow) {
        press(event, x, y);
        return;
    }
    link_->run([&](Surface& surface) {
        capture(hitAt(surface, x, y));
        if (capture_.Part.Part == HitPart::Row) call(surface.OnRowDblClick, capture_.Part.Slot);
    });
}

void MouseRouting::move(const QMouseEvent& event, Twips x, Twips y) {
    const std::int16_t held = buttonMaskOf(event.buttons());
    if (held == 0) capture_.Held = false;
    link_->run([&](Surface& surface) {
        const Hit hit = capture_.Held ? capture_.Part : hitAt(surface, x, y);
        const MouseEvent mouse = relative(surface, hit, held, event, x, y);
        if (hit.Part == HitPart::Row) call(surface.OnRowMouseMove, hit.Slot, mouse);
        if (hit.Part == HitPart::Marker) call(surface.OnMarkerMouseMove, mouse);
    });
}

void MouseRouting::release(const QMouseEvent& event, Twips x, Twips y) {
    const std::int16_t button = buttonOf(event.button());
    if (button == 0 || !capture_.Held) return;
    const Hit hit = capture_.Part;
    capture_.Held = buttonMaskOf(event.buttons()) != 0;
    link_->run([&](Surface& surface) {
        const MouseEvent mouse = relative(surface, hit, button, event, x, y);
        const bool clicked = button == mouse_button::Left && hitAt(surface, x, y) == hit;
        if (hit.Part == HitPart::Row) call(surface.OnRowMouseUp, hit.Slot, mouse);
        if (hit.Part == HitPart::LineImage && clicked) call(surface.OnLineImageClick, hit.Slot);
        if (hit.Part == HitPart::Glyph && clicked) call(surface.OnGlyphClick, hit.Slot);
        if (hit.Part == HitPart::EditMark && clicked) call(surface.OnEditMarkClick, hit.Slot);
    });
}

}  // namespace quorvale
