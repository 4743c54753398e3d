#pragma once

#include <cstdint>
#include <string>

#include "base/export.h"

namespace quorvale {

/// What the control tells its host. Every handler runs on the user-interface thread, in the middle
/// of the action that caused it; it may call any member of the control, or destroy it. Places are
/// in twips on the control's surface.
class QUORVALE_CORE_EXPORT QuorvaleBoxEvents {
public:
    virtual ~QuorvaleBoxEvents() = default;

    /// A mouse button goes down on a row. `button`: 1 left, 2 right, 4 middle; `shift`: the sum of
    /// 1 Shift, 2 Ctrl, 4 Alt. Where the press moves the caret, it has done so already.
    virtual void MouseDown(std::int16_t button, std::int16_t shift, float x, float y);
    /// A mouse button comes up that went down on a row, wherever the mouse is by then; the
    /// arguments are those of `MouseDown`.
    virtual void MouseUp(std::int16_t button, std::int16_t shift, float x, float y);
    /// The caret or the row selection changed; also whenever `SelectedRowsCount` is set.
    virtual void SelChanged();
    /// A row is double-clicked; the first of the two clicks has moved the caret to it.
    virtual void DblClick();
    /// The picture place of a row is clicked, a picture in it or not; `row` is the row's line.
    virtual void ImageClick(std::int32_t row);
    /// A key that the control does not use itself goes down in the text. `keyCode` is a virtual key
    /// number (letters have that of their capital), `shift` as in `MouseDown`.
    virtual void KeyDown(std::int16_t keyCode, std::int16_t shift);
    /// A key comes up that went down in the text, also one that the control has used.
    virtual void KeyUp(std::int16_t keyCode, std::int16_t shift);
    /// The first line on screen was set, by the host or by scrolling; the rows are filled already.
    virtual void Scrolled();
    /// A button that the host added is clicked, by the name that it was added with; or "Grid" is
    /// clicked, or `ShowGrid` set.
    virtual void ButtonClick(const std::u16string& buttonName);
    /// The user picked a result in another file, which has this full name. Set `changed` when the
    /// host shows that file itself; otherwise the control loads it. SearchExtras::Picked tells line
    /// and column.
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
