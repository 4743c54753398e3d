#include "control/quorvale_box.h"

#include <utility>

#include "control/frame.h"
#include "document/positions.h"
#include "state/slot_lines.h"

namespace quorvale {

QuorvaleBox::QuorvaleBox(HostServices services, HostOptions options)
    : HostedControl(std::move(services), std::move(options)) {}

void QuorvaleBox::LoadFile(const std::u16string& FileName) {
    const Frame frame(parts_);
    frame->Loading.LoadFile(FileName);
}

std::u16string QuorvaleBox::text() const {
    const TextStore& text = parts_->Document.Text;
    return text.Mid(1, text.Length());
}

void QuorvaleBox::text(std::u16string_view newText) {
    const Frame frame(parts_);
    frame->Loading.SetText(newText);
}

std::int32_t QuorvaleBox::LineCount() const { return parts_->Document.LineSlots - 1; }

std::u16string QuorvaleBox::LineText(std::int32_t i) const {
    return parts_->Lines.LineText(Line{i});
}

Colour QuorvaleBox::LineForeColor(std::int32_t i) const {
    return parts_->Attributes.ForeColor(Line{i});
}

void QuorvaleBox::LineForeColor(std::int32_t i, Colour colour) {
    parts_->Attributes.SetForeColor(Line{i}, colour);
}

Colour QuorvaleBox::LineBackColor(std::int32_t i) const {
    return parts_->Attributes.BackColor(Line{i});
}

void QuorvaleBox::LineBackColor(std::int32_t i, Colour colour) {
    parts_->Attributes.SetBackColor(Line{i}, colour);
}

Variant QuorvaleBox::LineImage(std::int32_t i) const { return parts_->Attributes.Image(Line{i}); }

void QuorvaleBox::LineImage(std::int32_t i, Variant image) {
    parts_->Attributes.SetImage(Line{i}, std::move(image));
}

std::shared_ptr<Object> QuorvaleBox::ImageList() const { return parts_->Looks.ImageList; }

void QuorvaleBox::ImageList(std::shared_ptr<Object> list) {
    parts_->Looks.ImageList = std::move(list);
}

std::int32_t QuorvaleBox::TopLine() const { return parts_->Navigation.TopLine.Number(); }

void QuorvaleBox::TopLine(std::int32_t line) {
    const Frame frame(parts_);
    frame->Scrolling.SetTopLine(Line{line});
}

float QuorvaleBox::RowTop(std::int32_t r) const {
    const Surface& surface = parts_->Elements;
    const auto slot = parts_->Document.IsLine(Line{r}) ? FindRowSlot(surface, parts_->View, Line{r})
                                                       : std::nullopt;
    return static_cast<float>(slot ? surface.lblLine[*slot].Top() : -2 * surface.RowHeight());
}

void QuorvaleBox::EnsureVisible(std::int32_t l) {
    const Frame frame(parts_);
    Line line{l};
    frame->Reveal.RevealLine(line, frame->Navigation.CaretCol);
}

void QuorvaleBox::AutoRedraw(bool redraw) {
    const Frame frame(parts_);
    frame->Redraw.SetAutoRedraw(redraw);
}

std::int32_t QuorvaleBox::row() const { return parts_->Navigation.CaretRow.Number(); }

void QuorvaleBox::row(std::int32_t r) {
    const Frame frame(parts_);
    frame->Caret.SetRow(Line{r});
}

std::int32_t QuorvaleBox::col() const { return parts_->Navigation.CaretCol; }

void QuorvaleBox::col(std::int32_t c) {
    const Frame frame(parts_);
    frame->Caret.SetCol(c);
}

void QuorvaleBox::MoveTo(std::int32_t r, std::int32_t c) {
    const Frame frame(parts_);
    frame->Caret.MoveTo(Line{r}, c);
}

std::int32_t QuorvaleBox::SelectedRowsCount() const { return parts_->Navigation.SelectedRowsCount; }

void QuorvaleBox::SelectedRowsCount(std::int32_t count) {
    const Frame frame(parts_);
    frame->Caret.SetSelectedRowsCount(count);
}

std::int32_t QuorvaleBox::Offset() const {
    return OffsetOfCaret(parts_->Document,
                         {parts_->Navigation.CaretRow, parts_->Navigation.CaretCol});
}

void QuorvaleBox::Offset(std::int32_t offset) {
    const Frame frame(parts_);
    frame->Caret.SetOffset(offset);
}

void QuorvaleBox::OffsetToRowCol(std::int32_t& o, std::int32_t& r, std::int32_t* c) {
    const Frame frame(parts_);
    if (o < 1) o = 1;
    if (o >= frame->Document.Text.Length()) {
        frame->Caret.MoveTo(frame->Document.Sentinel() + 1, 1);
        return;
    }
    const RowCol place = PlaceBehind(frame->Document, o);
    r = place.Row.Number();
    if (c != nullptr) *c = place.Col;
}

bool QuorvaleBox::CollapseLines(std::int32_t FromRow, std::int32_t ToRow) {
    const Frame frame(parts_);
    frame->Ranges.CollapseLines(FromRow, ToRow);
    return false;
}

void QuorvaleBox::CollapseAll() {
    const Frame frame(parts_);
    frame->Folding.CollapseAll();
}

void QuorvaleBox::ExpandAll() {
    const Frame frame(parts_);
    frame->Folding.ExpandAll();
}

std::u16string QuorvaleBox::SearchText() const { return parts_->Elements.txtSearch.Text(); }

void QuorvaleBox::SearchText(const std::u16string& text) {
    const Frame frame(parts_);
    frame->Elements.txtSearch.SetText(text);
}

void QuorvaleBox::SearchFiles(const std::u16string& files) { parts_->Search.SearchFiles = files; }

bool QuorvaleBox::AddButton(const std::u16string& ButtonName, PicturePtr picture,
                            const std::u16string& ToolTipText) {
    const Frame frame(parts_);
    return frame->ToolbarCommands.AddButton(ButtonName, std::move(picture), ToolTipText);
}

bool QuorvaleBox::ShowGrid() const { return parts_->Elements.tbMore.Button(u"Grid").Pressed; }

void QuorvaleBox::ShowGrid(bool show) {
    const Frame frame(parts_);
    frame->ToolbarCommands.SetShowGrid(show);
}

Colour QuorvaleBox::BackColor() const { return parts_->Elements.UserControl.BackColor(); }

void QuorvaleBox::BackColor(Colour colour) {
    const Frame frame(parts_);
    frame->Appearance.SetBackColor(colour);
}

Colour QuorvaleBox::ForeColor() const { return parts_->Elements.UserControl.ForeColor(); }

void QuorvaleBox::ForeColor(Colour colour) {
    const Frame frame(parts_);
    frame->Appearance.SetForeColor(colour);
}

Colour QuorvaleBox::BorderColor() const { return parts_->Elements.picBorder.BackColor(); }

void QuorvaleBox::BorderColor(Colour colour) {
    const Frame frame(parts_);
    frame->Appearance.SetBorderColor(colour);
}

float QuorvaleBox::LeftBorderWidth() const {
    return static_cast<float>(parts_->Elements.picBorder.Width());
}

void QuorvaleBox::LeftBorderWidth(float& width) {
    const Frame frame(parts_);
    frame->Appearance.SetLeftBorderWidth(width);
}

bool QuorvaleBox::Enabled() const { return parts_->Looks.EnabledFlag; }

void QuorvaleBox::Enabled(bool enabled) {
    const Frame frame(parts_);
    frame->Appearance.SetEnabled(enabled);
}

quorvale::Font QuorvaleBox::Font() const { return parts_->Elements.UserControl.Font(); }

void QuorvaleBox::Font(const quorvale::Font& font) {
    const Frame frame(parts_);
    frame->Appearance.SetFont(font);
}

std::int16_t QuorvaleBox::BorderStyle() const {
    return static_cast<std::int16_t>(parts_->Elements.UserControl.BorderStyle());
}

void QuorvaleBox::BorderStyle(std::int16_t style) {
    const Frame frame(parts_);
    frame->Appearance.SetBorderStyle(style);
}

void QuorvaleBox::Icon(PicturePtr picture) {
    const Frame frame(parts_);
    frame->Appearance.SetIcon(std::move(picture));
}

}  // namespace quorvale
