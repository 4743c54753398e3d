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

    /// Of the text; the system's ButtonText at first.
    Colour ForeColor() const { return foreColor_; }
    /// Of the ground; the system's ButtonFace at first.
    Colour BackColor() const { return backColor_; }
    /// Colours the text.
    void SetForeColor(Colour colour) { Assign(foreColor_, colour, "ForeColor"); }
    /// Colours the ground.
    void SetBackColor(Colour colour) { Assign(backColor_, colour, "BackColor"); }

    /// The default font at first.
    const quorvale::Font& Font() const { return font_; }
    /// Takes all of a font.
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

    /// The text, valid until another one is set.
    std::u16string_view Caption() const { return caption_.View(); }
    /// The same without a copy, to be kept.
    const SharedText& SharedCaption() const { return caption_; }
    /// Shows a text; the width follows where `SetAutoSize` was called.
    void SetCaption(SharedText caption);
    /// The same with a text of its own.
    void SetCaption(std::u16string caption) { SetCaption(SharedText(std::move(caption))); }

    /// Whether the text is drawn bold.
    bool Bold() const { return Font().Bold; }
    /// Draws the text bold or not; all else of the font stays.
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
