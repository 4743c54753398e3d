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

    /// Null for none.
    const PicturePtr& Shown() const { return picture_; }
    /// Null: no picture. An image that does not stretch takes the picture's size.
    void SetPicture(PicturePtr picture) {
        const bool changed = Assign(picture_, std::move(picture), "Picture");
        if (!changed || stretch_ || picture_ == nullptr) return;
        SetWidth(picture_->Width());
        SetHeight(picture_->Height());
    }

    /// Whether the picture is drawn as large as the image; false at first.
    bool Stretch() const { return stretch_; }
    /// Fits pictures into the image from now on, or the image to those that come.
    void SetStretch(bool stretch) { stretch_ = stretch; }

private:
    PicturePtr picture_;
    bool stretch_ = false;
};

/// A straight line between two points.
class QUORVALE_CORE_EXPORT LineShape : public Element {
public:
    using Element::Element;

    /// Where it begins, from the left.
    Twips X1() const { return x1_; }
    /// Where it begins, from the top.
    Twips Y1() const { return y1_; }
    /// Where it ends, from the left.
    Twips X2() const { return x2_; }
    /// Where it ends, from the top.
    Twips Y2() const { return y2_; }
    /// Moves its beginning sideways, to so many twips.
    void SetX1(Twips x) { Assign(x1_, x, "X1"); }
    /// Moves its beginning up or down, to so many twips.
    void SetY1(Twips y) { Assign(y1_, y, "Y1"); }
    /// Moves its end sideways, to so many twips.
    void SetX2(Twips x) { Assign(x2_, x, "X2"); }
    /// Moves its end up or down, to so many twips.
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

    /// 0: no frame, which is so at first; 1: a single line.
    int BorderStyle() const { return borderStyle_; }
    /// Any other number than 0 means a single line too.
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

    /// The button was clicked.
    std::function<void()> OnClick;

    /// Null for none.
    const PicturePtr& Shown() const { return picture_; }
    /// Null: no picture. The button keeps its size.
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
    /// A timer that stands, with an interval of a second.
    explicit Timer(std::string name) : Element(std::move(name)) { SetEnabled(false); }

    /// An interval has passed.
    std::function<void()> OnTick;

    /// In milliseconds; 1000 at first.
    int Interval() const { return interval_; }
    /// In milliseconds; a timer that runs goes on with it.
    void SetInterval(int milliseconds) { Assign(interval_, milliseconds, "Interval"); }

    /// The interval has passed. Nothing happens while the timer is disabled.
    void Tick() {
        if (Enabled() && OnTick) OnTick();
    }

private:
    int interval_ = 1000;
};

}  // namespace quorvale
