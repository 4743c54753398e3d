#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "base/export.h"
#include "base/units.h"

namespace quorvale {

class Element;

/// Hears of every property that is about to be set. It may throw: the element then refuses.
/// A surface uses it to know that something is to be drawn again, a test to let a call fail.
class QUORVALE_CORE_EXPORT ElementWatcher {
public:
    virtual ~ElementWatcher() = default;
    /// `property` is the name of the setter without its "Set", or that of what is asked for. It
    /// also comes for a value that is the old one.
    virtual void Setting(const Element& element, std::string_view property) = 0;
};

/// One piece of the control's surface, as data: the core sets it, a surface shows it. Setting a
/// position or size never runs a handler.
class QUORVALE_CORE_EXPORT Element {
public:
    /// An element at 0, 0 without a size, visible and enabled.
    explicit Element(std::string name, int index = -1) : name_(std::move(name)), index_(index) {}

    /// The element's name, without an index.
    const std::string& Name() const { return name_; }
    /// Its place in an array of elements, or -1.
    int Index() const { return index_; }

    /// Of the left edge, from that of the control or of the box it lies in.
    Twips Left() const { return left_; }
    /// Of the upper edge, from that of the control or of the box it lies in.
    Twips Top() const { return top_; }
    /// Never negative.
    Twips Width() const { return width_; }
    /// Never negative.
    Twips Height() const { return height_; }
    /// Where the left edge is to be, in twips; it may lie outside.
    void SetLeft(Twips left) { Assign(left_, left, "Left"); }
    /// Where the upper edge is to be, in twips; it may lie outside.
    void SetTop(Twips top) { Assign(top_, top, "Top"); }
    /// A negative width or height is stored as 0.
    void SetWidth(Twips width) { Assign(width_, width < 0 ? 0 : width, "Width"); }
    /// As with the width.
    void SetHeight(Twips height) { Assign(height_, height < 0 ? 0 : height, "Height"); }
    /// Sets left, top, width and height one after the other, in that order.
    void Move(Twips left, Twips top, Twips width, Twips height);

    /// Whether it is shown, as far as the box that it lies in is.
    bool Visible() const { return visible_; }
    /// Shows or hides it.
    void SetVisible(bool visible) { Assign(visible_, visible, "Visible"); }

    /// Whether it answers its user.
    bool Enabled() const { return enabled_; }
    /// Lets it answer its user or not.
    void SetEnabled(bool enabled) { Assign(enabled_, enabled, "Enabled"); }

    /// Free text that the core keeps with the element.
    const std::u16string& Tag() const { return tag_; }
    /// Keeps a text; nothing is shown of it.
    void SetTag(std::u16string tag) { Assign(tag_, std::move(tag), "Tag"); }

    /// Rises with every change that took place.
    std::uint32_t Revision() const { return revision_; }

    /// Lets one watcher, which must outlive the element or be taken away, hear of it; null for
    /// none.
    void Watch(ElementWatcher* watcher) { watcher_ = watcher; }

    /// Makes this element a copy of `model` in everything but its index; it starts hidden.
    /// Used when an array of elements grows.
    void BecomeCopyAt(int index) {
        index_ = index;
        visible_ = false;
    }

protected:
    /// Asks the watcher, then stores the value if it differs. Says whether it did.
    template <class T>
    bool Assign(T& field, T value, std::string_view property) {
        if (watcher_ != nullptr) watcher_->Setting(*this, property);
        if (field == value) return false;
        field = std::move(value);
        ++revision_;
        return true;
    }

    /// Asks the watcher, and counts as a change.
    void Touch(std::string_view property) {
        if (watcher_ != nullptr) watcher_->Setting(*this, property);
        ++revision_;
    }

private:
    std::string name_;
    int index_;
    Twips left_ = 0;
    Twips top_ = 0;
    Twips width_ = 0;
    Twips height_ = 0;
    bool visible_ = true;
    bool enabled_ = true;
    std::u16string tag_;
    std::uint32_t revision_ = 0;
    ElementWatcher* watcher_ = nullptr;
};

inline void Element::Move(Twips left, Twips top, Twips width, Twips height) {
    SetLeft(left);
    SetTop(top);
    SetWidth(width);
    SetHeight(height);
}

}  // namespace quorvale
