#pragma once

#include <functional>
#include <utility>

#include "base/export.h"
#include "platform/label.h"
#include "platform/picture.h"

namespace quorvale {

/// A picture, or the invisible place of one. Without a picture it still takes the mouse.
class QUORVALE_CORE_EXPORT Image : public Element {
public:
    using Element::Element;

    const PicturePtr& Shown() const { return picture_; }
    /// Null: no picture. An image that does not stretch takes the picture's size.
    void SetPicture(PicturePtr picture) {
        const bool changed = Assign(picture_, std::move(picture), "Picture");
        if (!changed || stretch_ || picture_ == nullptr) return;
        SetWidth(picture_->Width());
        SetHeight(picture_->Height());
    }

    bool Stretch() const { return stretch_; }
    void SetStretch(bool stretch) { stretch_ = stretch; }

private:
    PicturePtr picture_;
    bool stretch_ = false;
};

/// A straight line between two points.
class QUORVALE_CORE_EXPORT LineShape : public Element {
public:
    using Element::Element;

    Twips X1() const { return x1_; }
    Twips Y1() const { return y1_; }
    Twips X2() const { return x2_; }
    Twips Y2() const { return y2_; }
    void SetX1(Twips x) { Assign(x1_, x, "X1"); }
    void SetY1(Twips y) { Assign(y1_, y, "Y1"); }
    void SetX2(Twips x) { Assign(x2_, x, "X2"); }
    void SetY2(Twips y) { Assign(y2_, y, "Y2"); }

private:
    Twips x1_ = 0;
    Twips y1_ = 0;
    Twips x2_ = 0;
    Twips y2_ = 0;
};

/// A box that holds other elements or the keyboard focus, or just fills a corner.
class QUORVALE_CORE_EXPORT Box : public PaintedElement {
public:
    using PaintedElement::PaintedElement;

    int BorderStyle() const { return borderStyle_; }
    void SetBorderStyle(int style) { Assign(borderStyle_, style, "BorderStyle"); }

    /// Asks for the box, and `contents` in it, to be drawn again.
    void Refresh() { Touch("Refresh"); }

private:
    int borderStyle_ = 0;
};

/// A push button with a picture.
class QUORVALE_CORE_EXPORT CommandButton : public Element {
public:
    using Element::Element;

    std::function<void()> OnClick;

    const PicturePtr& Shown() const { return picture_; }
    void SetPicture(PicturePtr picture) { Assign(picture_, std::move(picture), "Picture"); }

    /// The user presses and releases it.
    void UserClick() {
        if (Visible() && Enabled() && OnClick) OnClick();
    }

private:
    PicturePtr picture_;
};

/// Calls back every `Interval` milliseconds while it is enabled. The surface delivers the ticks.
class QUORVALE_CORE_EXPORT Timer : public Element {
public:
    explicit Timer(std::string name) : Element(std::move(name)) { SetEnabled(false); }

    std::function<void()> OnTick;

    int Interval() const { return interval_; }
    void SetInterval(int milliseconds) { Assign(interval_, milliseconds, "Interval"); }

    /// The interval has passed. Nothing happens while the timer is disabled.
    void Tick() {
        if (Enabled() && OnTick) OnTick();
    }

private:
    int interval_ = 1000;
};

}  // namespace quorvale
