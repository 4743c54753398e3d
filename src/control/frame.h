#pragma once

#include <memory>
#include <new>
#include <stdexcept>
#include <utility>

#include "base/errors.h"
#include "control/control_parts.h"

namespace quorvale {

/// One member or handler at work: holds the control's parts alive until it returns, whatever the
/// host does meanwhile.
class Frame {
public:
    explicit Frame(std::shared_ptr<ControlParts> parts) : parts_(std::move(parts)) {
        ++parts_->Depth;
    }
    ~Frame() { --parts_->Depth; }
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;

    ControlParts* operator->() const { return parts_.get(); }
    bool Outermost() const { return parts_->Depth == 1; }

private:
    std::shared_ptr<ControlParts> parts_;
};

/// Runs what may fail with the control's own errors or for want of memory; false when it did. What
/// a host throws is the host's.
template <class Action>
bool Trapped(Action action) {
    try {
        action();
        return true;
    } catch (const ControlError&) {
    } catch (const std::bad_alloc&) {
    } catch (const std::length_error&) {
    }
    return false;
}

/// After an action was given up in its middle: the screen shows the data as they are now.
inline void ShowWhatIs(const Frame& frame) {
    Trapped([&] {
        frame->Fill.FillRows();
        frame->Layout.LayoutView();
        frame->Caret.PlaceMarker();
    });
}

/// Runs what a user has set off. Where the user's action is the outermost frame its failure ends
/// here, without a word; inside a member the member's caller gets it.
template <class Action>
void RunUserAction(ControlParts& parts, Action action) {
    const Frame frame(parts.shared_from_this());
    if (!frame.Outermost()) return action();
    if (!Trapped(action)) ShowWhatIs(frame);
}

}  // namespace quorvale
