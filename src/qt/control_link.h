#pragma once

#include <QPointer>
#include <QWidget>
#include <memory>
#include <utility>
#include <vector>

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

    /// As long as this stands, nothing that the user does reaches the control.
    class Closed {
    public:
        /// Null for none.
        explicit Closed(ControlLink* link) : link_(link) {
            if (link_ != nullptr) ++link_->closed_;
        }
        ~Closed() {
            if (link_ != nullptr) --link_->closed_;
        }
        Closed(const Closed&) = delete;
        Closed& operator=(const Closed&) = delete;

    private:
        ControlLink* link_;
    };
    bool isClosed() const { return closed_ > 0; }

    /// Deletes a widget that has lost its control once no handler runs that it may have called.
    void deleteLater(QWidget& widget) { orphans_.emplace_back(&widget); }

    /// Runs `act`, what the user did, with the control's elements, if it is still there. A failure
    /// of the control ends here. Returns whether the control is still there afterwards: if not,
    /// the caller itself is being given up.
    template <class Act>
    bool run(Act act) {
        return isClosed() ? box_ != nullptr : follow(act);
    }

    /// The same for what the window system, a clock or the host does: always.
    template <class Act>
    bool follow(Act act) {
        const auto self = shared_from_this();
        const std::shared_ptr<QuorvaleBox> box = box_;
        if (!box) return false;
        struct Count {
            explicit Count(ControlLink& counted) : link(counted) { ++link.handling_; }
            ~Count() {
                if (--link.handling_ == 0) link.deleteOrphans();
            }
            ControlLink& link;
        } count(*this);
        try {
            act(box->Elements());
        } catch (const ControlError&) {
        }
        return box_ != nullptr;
    }

private:
    // From the event loop that the handler was called by, not from one that ran inside it.
    void deleteOrphans() {
        for (const auto& widget : std::exchange(orphans_, {})) {
            if (widget != nullptr) widget->deleteLater();
        }
    }

    std::shared_ptr<QuorvaleBox> box_;
    std::vector<QPointer<QWidget>> orphans_;
    int handling_ = 0;
    int closed_ = 0;
};

using ControlLinkPtr = std::shared_ptr<ControlLink>;

}  // namespace quorvale
