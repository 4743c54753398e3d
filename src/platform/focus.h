#pragma once

#include <functional>

#include "base/export.h"

namespace quorvale {

/// The elements that can hold the keyboard focus.
enum class FocusChild { None, TextArea, SearchBox, LineBox, Editor, FoundList };

/// Which element of one control has the keyboard focus. At most one does.
class QUORVALE_CORE_EXPORT Focus {
public:
    /// Asked before the focus moves; false refuses. A surface answers whether the element can be
    /// reached and moves its own focus. Without it every move is granted.
    std::function<bool(FocusChild)> OnRequest;
    /// An element has lost the focus; it is no longer the active one.
    std::function<void(FocusChild)> OnLost;
    /// An element has got the focus, unless a handler moved it on.
    std::function<void(FocusChild)> OnGot;

    /// Who has the focus; None at first and while it is outside of the control.
    FocusChild Active() const { return active_; }

    /// The core wants the focus there. False when it cannot be had; callers may ignore that.
    bool Request(FocusChild child) {
        if (blocked_ || child == active_) return !blocked_;
        if (OnRequest && !OnRequest(child)) return false;
        UserMovesTo(child);
        return true;
    }

    /// The focus has moved, by the user or by the surface: the old element loses it first.
    void UserMovesTo(FocusChild child) {
        if (child == active_) return;
        const FocusChild old = active_;
        active_ = child;
        if (old != FocusChild::None && OnLost) OnLost(old);
        if (active_ == child && child != FocusChild::None && OnGot) OnGot(child);
    }

    /// While blocked every request is refused: a control that is being left must not pull the
    /// focus back.
    void SetBlocked(bool blocked) { blocked_ = blocked; }

private:
    FocusChild active_ = FocusChild::None;
    bool blocked_ = false;
};

}  // namespace quorvale
