#include "qt/focus_bridge.h"

#include <QApplication>
#include <QMenuBar>

namespace quorvale {

FocusBridge::FocusBridge(ControlLinkPtr link, QWidget& control)
    : link_(std::move(link)), control_(control) {
    connect(qApp, &QApplication::focusChanged, this, &FocusBridge::takeMove);
}

void FocusBridge::add(FocusChild child, QWidget* widget) { seats_.push_back({child, widget}); }

bool FocusBridge::request(FocusChild child) {
    for (const Seat& seat : seats_) {
        if (seat.Child != child || seat.Widget == nullptr) continue;
        if (!seat.Widget->isEnabled() || !seat.Widget->isVisibleTo(&control_)) return false;
        seat.Widget->setFocus(Qt::OtherFocusReason);
        return true;
    }
    return false;
}

FocusChild FocusBridge::childOf(const QWidget* widget) const {
    for (const Seat& seat : seats_) {
        if (widget != nullptr && seat.Widget == widget) return seat.Child;
    }
    return FocusChild::None;
}

bool FocusBridge::isOutside(const QWidget* now) const {
    if (now == nullptr) {
        return control_.isActiveWindow() && QApplication::activePopupWidget() == nullptr;
    }
    // The keys may go to the menu bar for a while: that is a menu like any other.
    if (qobject_cast<const QMenuBar*>(now) != nullptr) return false;
    return now->window() == control_.window() && !control_.isAncestorOf(now);
}

void FocusBridge::takeMove(QWidget*, QWidget* now) {
    if (link_->box() == nullptr) return;
    const FocusChild child = childOf(now);
    if (child != FocusChild::None) {
        enter(child);
    } else if (entered_ && isOutside(now)) {
        leave();
    }
}

void FocusBridge::enter(FocusChild child) {
    const bool wasOutside = !entered_;
    entered_ = true;
    link_->follow([&](Surface& surface) {
        if (wasOutside && surface.OnEnter) surface.OnEnter();
        surface.Focus.UserMovesTo(child);
    });
}

void FocusBridge::leave() {
    entered_ = false;
    link_->follow([&](Surface& surface) {
        surface.Focus.UserMovesTo(FocusChild::None);
        if (surface.OnExit) surface.OnExit();
    });
}

}  // namespace quorvale
