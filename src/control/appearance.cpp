#include "control/appearance.h"

#include <cmath>
#include <utility>

#include "control/control_parts.h"
#include "state/slot_lines.h"

namespace quorvale {

void Appearance::Report(std::u16string_view property) {
    parts_.Services.Site->PropertyChanged(property);
}

void Appearance::SetBackColor(Colour colour) {
    Surface& surface = parts_.Elements;
    surface.UserControl.SetBackColor(colour);
    for (Label& label : surface.lblLine) label.SetBackColor(colour);
    surface.picFocus.SetBackColor(colour);
    Report(u"BackColor");
}

void Appearance::SetForeColor(Colour colour) {
    Surface& surface = parts_.Elements;
    surface.UserControl.SetForeColor(colour);
    for (Label& label : surface.lblLine) label.SetForeColor(colour);
    surface.picFocus.SetForeColor(colour);
    Report(u"ForeColor");
}

void Appearance::SetBorderColor(Colour colour) {
    parts_.Elements.picBorder.SetBackColor(colour);
    Report(u"BorderColor");
}

void Appearance::SetLeftBorderWidth(float& width) {
    constexpr Twips edge = 15;
    if (!(width >= 0) || std::isinf(width)) width = 0;
    Surface& surface = parts_.Elements;
    if (surface.picBorder.Width() == static_cast<Twips>(width)) return;
    surface.picBorder.SetWidth(static_cast<Twips>(width));
    for (Image& image : surface.imgLine) image.SetWidth(surface.picBorder.Width() - edge);
    parts_.Layout.LayoutView();
    parts_.Fill.FillRows();
    Report(u"LeftBorderWidth");
}

void Appearance::SetEnabled(bool enabled) {
    parts_.Looks.EnabledFlag = enabled;
    Report(u"Enabled");
}

void Appearance::TakeFont(const Font& font) {
    Surface& surface = parts_.Elements;
    PaintedElement* const elements[] = {&surface.UserControl, &surface.picFocus,  &surface.rtbEdit,
                                        &surface.lvFound,     &surface.txtSearch, &surface.txtLn};
    for (PaintedElement* element : elements) element->TakeFontFace(font);
    for (Label& label : surface.lblLine) label.TakeFontFace(font);
    parts_.Slots.TakeRowHeight(*parts_.Services.Metrics);
}

void Appearance::StartWithAmbientFont() { TakeFont(parts_.Services.Site->Font()); }

void Appearance::SetFont(const Font& font) {
    TakeFont(font);
    InitSurface();
    parts_.Layout.LayoutView();
    parts_.Fill.FillRows();
    Report(u"Font");
}

void Appearance::SetBorderStyle(std::int16_t style) {
    if (style != 0 && style != 1) return;
    parts_.Elements.UserControl.SetBorderStyle(style);
    Report(u"BorderStyle");
}

void Appearance::SetIcon(PicturePtr picture) {
    Surface& surface = parts_.Elements;
    surface.imgMarker.SetPicture(picture ? std::move(picture) : surface.imgDefaultCursor.Shown());
    Report(u"Icon");
}

void Appearance::InitSurface() {
    parts_.Slots.InitSurface();
    parts_.Navigation.TopLine = Line{1};
}

// The row must not answer for a line with the control's name.
void Appearance::ShowName() {
    if (parts_.Document.LineSlots > 0) return;
    SetSlot(parts_.Elements, 0, SharedText(parts_.Services.Site->DisplayName()), Line{-1});
}

}  // namespace quorvale
