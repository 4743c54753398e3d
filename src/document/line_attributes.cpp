#include "document/line_attributes.h"

#include <utility>

#include "document/line_pictures.h"
#include "state/slot_lines.h"

namespace quorvale {

std::optional<int> LineAttributes::PaintableSlot(Line line) const {
    if (view_.Suspended()) return std::nullopt;
    return FindRowSlot(surface_, view_, line);
}

Colour LineAttributes::ForeColor(Line line) const {
    if (!document_.IsLine(line)) return surface_.UserControl.ForeColor();
    return document_.Table.ForeColors.Get(line.Number());
}

void LineAttributes::SetForeColor(Line line, Colour colour) {
    if (!document_.IsLine(line)) return;
    document_.Table.ForeColors.Set(line.Number(), colour);
    if (const auto slot = PaintableSlot(line)) surface_.lblLine[*slot].SetForeColor(colour);
}

Colour LineAttributes::BackColor(Line line) const {
    if (!document_.IsLine(line)) return surface_.UserControl.BackColor();
    return document_.Table.BackColors.Get(line.Number());
}

void LineAttributes::SetBackColor(Line line, Colour colour) {
    if (!document_.IsLine(line)) return;
    document_.Table.BackColors.Set(line.Number(), colour);
    if (const auto slot = PaintableSlot(line)) surface_.lblLine[*slot].SetBackColor(colour);
}

Variant LineAttributes::Image(Line line) const {
    if (!document_.IsLine(line)) return std::int16_t{0};
    return document_.Table.Images.Get(line.Number());
}

void LineAttributes::SetImage(Line line, Variant image) {
    if (!document_.IsLine(line)) return;
    document_.Table.Images.Set(line.Number(), std::move(image));
    const auto slot = PaintableSlot(line);
    if (!slot) return;
    const Variant& stored = document_.Table.Images.Get(line.Number());
    surface_.imgLine[*slot].SetPicture(FindLinePicture(appearance_, stored));
}

}  // namespace quorvale
