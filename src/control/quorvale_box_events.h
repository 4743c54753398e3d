#pragma once

#include <cstdint>
#include <string>

namespace quorvale {

/// What the control tells its host. Every handler runs on the user-interface thread, in the middle
/// of the action that caused it; it may call any member of the control, or destroy it. Places are
/// in twips on the control's surface.
class QuorvaleBoxEvents {
public:
    virtual ~QuorvaleBoxEvents() = default;

    /// A mouse button goes down on a row. `button`: 1 left, 2 right, 4 middle; `shift`: the sum of
    /// 1 Shift, 2 Ctrl, 4 Alt.
    virtual void MouseDown(std::int16_t button, std::int16_t shift, float x, float y);
    /// A mouse button comes up on a row.
    virtual void MouseUp(std::int16_t button, std::int16_t shift, float x, float y);
    /// The caret or the row selection changed; also whenever `SelectedRowsCount` is set.
    virtual void SelChanged();
    /// A row is double-clicked.
    virtual void DblClick();
    /// The picture place of a row is clicked; `row` is the row's line.
    virtual void ImageClick(std::int32_t row);
    /// A key that the control does not use itself goes down in the text.
    virtual void KeyDown(std::int16_t keyCode, std::int16_t shift);
    /// A key comes up in the text.
    virtual void KeyUp(std::int16_t keyCode, std::int16_t shift);
    /// `TopLine` was set, by the host or by scrolling.
    virtual void Scrolled();
    /// A button that the host added is clicked, or "Grid" is clicked or set.
    virtual void ButtonClick(const std::u16string& buttonName);
    /// The user picked a result in another file. Set `changed` when the host shows that file
    /// itself; otherwise the control loads it.
    virtual void BeforeFileChange(const std::u16string& fileName, bool& changed);
};

// A host overrides what it wants to hear.
inline void QuorvaleBoxEvents::MouseDown(std::int16_t, std::int16_t, float, float) {}
inline void QuorvaleBoxEvents::MouseUp(std::int16_t, std::int16_t, float, float) {}
inline void QuorvaleBoxEvents::SelChanged() {}
inline void QuorvaleBoxEvents::DblClick() {}
inline void QuorvaleBoxEvents::ImageClick(std::int32_t) {}
inline void QuorvaleBoxEvents::KeyDown(std::int16_t, std::int16_t) {}
inline void QuorvaleBoxEvents::KeyUp(std::int16_t, std::int16_t) {}
inline void QuorvaleBoxEvents::Scrolled() {}
inline void QuorvaleBoxEvents::ButtonClick(const std::u16string&) {}
inline void QuorvaleBoxEvents::BeforeFileChange(const std::u16string&, bool&) {}

}  // namespace quorvale
