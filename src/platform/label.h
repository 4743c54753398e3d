#pragma once

#include <utility>

#include "base/export.h"
#include "platform/element.h"
#include "platform/font.h"
#include "platform/shared_text.h"
#include "platform/text_metrics.h"

namespace quorvale {

/// What every element that shows text or a ground has: two colours and a font of its own.
class QUORVALE_CORE_EXPORT PaintedElement : public Element {
public:
    using Element::Element;

    Colour ForeColor() const { return foreColor_; }
    Colour BackColor() const { return backColor_; }
    void SetForeColor(Colour colour) { Assign(foreColor_, colour, "ForeColor"); }
    void SetBackColor(Colour colour) { Assign(backColor_, colour, "BackColor"); }

    const quorvale::Font& Font() const { return font_; }
    void SetFont(const quorvale::Font& font) { Assign(font_, font, "Font"); }

    /// Takes over name, character set and size, in that order; bold and italic stay.
    void TakeFontFace(const quorvale::Font& font) {
        quorvale::Font mixed = font_;
        mixed.Name = font.Name;
        mixed.Charset = font.Charset;
        mixed.Size = font.Size;
        SetFont(mixed);
    }

private:
    Colour foreColor_ = system_colour::ButtonText;
    Colour backColor_ = system_colour::ButtonFace;
    quorvale::Font font_;
};

/// One line of plain text on an opaque ground, left aligned and cut at its right edge. Nothing in
/// the caption is interpreted: no access keys, no markup, no tabs, no breaks.
class QUORVALE_CORE_EXPORT Label : public PaintedElement {
public:
    using PaintedElement::PaintedElement;

    std::u16string_view Caption() const { return caption_.View(); }
    const SharedText& SharedCaption() const { return caption_; }
    void SetCaption(SharedText caption);
    void SetCaption(std::u16string caption) { SetCaption(SharedText(std::move(caption))); }

    bool Bold() const { return Font().Bold; }
    void SetBold(bool bold) {
        quorvale::Font font = Font();
        font.Bold = bold;
        SetFont(font);
    }

    /// From now on the label is as wide as its caption. The metrics must outlive the label.
    void SetAutoSize(const TextMetrics* metrics) { autoSize_ = metrics; }

private:
    SharedText caption_;
    const TextMetrics* autoSize_ = nullptr;
};

inline void Label::SetCaption(SharedText caption) {
    if (!Assign(caption_, std::move(caption), "Caption")) return;
    if (autoSize_ != nullptr) SetWidth(Single(autoSize_->Width(Caption(), Font())));
}

}  // namespace quorvale
