#pragma once

#include <memory>

#include "base/errors.h"
#include "control/quorvale_box.h"

namespace quorvale {

/// How the pieces of one widget reach its control. A host may destroy the widget in any event, in
/// the middle of what the user does: the control then lives on until the handler that is running
/// has ended, and the pieces that are left find nobody here.
class ControlLink : public std::enable_shared_from_this<ControlLink> {
public:
    void attach(std::shared_ptr<QuorvaleBox> box) { box_ = std::move(box); }
    void detach() { box_.reset(); }

    /// Null once the widget is being destroyed.
    const std::shared_ptr<QuorvaleBox>& box() const { return box_; }

    /// True while a handler of the control runs for one of the pieces.
    bool isHandling() const { return handling_ > 0; }

    /// Runs `act`, what the user did, with the control's elements, if it is still there. A failure
    /// of the control ends here. Returns whether the control is still there afterwards: if not,
    /// the caller itself is being given up.
    template <class Act>
    bool run(Act act) {
        const auto self = shared_from_this();
        const std::shared_ptr<QuorvaleBox> box = box_;
        if (!box) return false;
        struct Count {
            explicit Count(int& counted) : number(counted) { ++number; }
            ~Count() { --number; }
            int& number;
        } count(handling_);
        try {
            act(box->Elements());
        } catch (const ControlError&) {
        }
        return box_ != nullptr;
    }

private:
    std::shared_ptr<QuorvaleBox> box_;
    int handling_ = 0;
};

using ControlLinkPtr = std::shared_ptr<ControlLink>;

}  // namespace quorvale
