#include "qt/input_block.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWindow>
#include <utility>

namespace quorvale {

namespace {

bool isInput(QEvent::Type type) {
    switch (type) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::ShortcutOverride:
        case QEvent::Shortcut:
        case QEvent::InputMethod:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::ToolTip:
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::DragLeave:
        case QEvent::Drop:
        case QEvent::TabletPress:
        case QEvent::TabletMove:
        case QEvent::TabletRelease:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TouchCancel:
        case QEvent::NativeGesture:
        case QEvent::Gesture:
        case QEvent::GestureOverride:
            return true;
        default:
            return false;
    }
}

bool isOfKey(QEvent::Type type) {
    return type == QEvent::KeyPress || type == QEvent::KeyRelease ||
           type == QEvent::ShortcutOverride;
}

bool isOfMouse(QEvent::Type type) {
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick ||
           type == QEvent::MouseButtonRelease || type == QEvent::MouseMove;
}

/// The widget that a receiver is, lies in or belongs to.
const QWidget* widgetOf(QObject* receiver) {
    for (QObject* object = receiver; object != nullptr; object = object->parent()) {
        if (object->isWidgetType()) return static_cast<QWidget*>(object);
        const bool isTop = object->isWindowType() && object->parent() == nullptr;
        if (!isTop) continue;
        auto* window = static_cast<QWindow*>(object);
        return window->handle() == nullptr ? nullptr : QWidget::find(window->winId());
    }
    return nullptr;
}

}  // namespace

InputBlock::InputBlock(QWidget& control) : control_(&control) {}

void InputBlock::begin() {
    if (control_ != nullptr) window_ = control_->window();
    escape_ = leaving_ = false;
    blocking_ = true;
    // Once more, so that of two blocks of a window the later one hears first.
    qApp->installEventFilter(this);
}

void InputBlock::end() {
    blocking_ = false;
    carryOutWishes();
    if (keys_.isEmpty() && !buttons_) qApp->removeEventFilter(this);
}

bool InputBlock::takeWishToEnd() { return std::exchange(escape_, false) || leaving_; }

void InputBlock::carryOutWishes() {
    if (std::exchange(closes_, false) && window_ != nullptr) {
        QMetaObject::invokeMethod(window_.data(), &QWidget::close, Qt::QueuedConnection);
    }
    if (std::exchange(quits_, false)) {
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    }
}

bool InputBlock::eventFilter(QObject* receiver, QEvent* event) {
    const QEvent::Type type = event->type();
    if (blocking_ && (type == QEvent::Close || type == QEvent::Quit)) {
        return takesLeave(receiver, *event);
    }
    if (!isInput(type) || !isOfWindow(receiver)) return false;
    return blocking_ ? takesInput(*event) : takesRest(*event);
}

// A pop-up lies in the window that it belongs to; any other window is one of its own.
bool InputBlock::isOfWindow(QObject* receiver) const {
    const QWidget* widget = widgetOf(receiver);
    while (widget != nullptr) {
        const QWidget* window = widget->window();
        if (window == window_) return true;
        widget = window->windowType() == Qt::Popup ? window->parentWidget() : nullptr;
    }
    return false;
}

bool InputBlock::takesLeave(QObject* receiver, QEvent& event) {
    if (window_ == nullptr) return false;
    const bool closes =
        event.type() == QEvent::Close &&
        (receiver == window_ || (receiver->isWindowType() && receiver == window_->windowHandle()));
    const bool quits = event.type() == QEvent::Quit && receiver == qApp;
    if (!closes && !quits) return false;
    closes_ = closes_ || closes;
    quits_ = quits_ || quits;
    leaving_ = true;
    event.ignore();
    return true;
}

bool InputBlock::takesInput(QEvent& event) {
    if (isOfKey(event.type())) {
        const auto& key = static_cast<QKeyEvent&>(event);
        if (event.type() == QEvent::KeyRelease) {
            if (!key.isAutoRepeat()) keys_.remove(key.key());
        } else {
            if (!key.isAutoRepeat()) keys_.insert(key.key());
            if (key.key() == Qt::Key_Escape) escape_ = true;
        }
    } else if (isOfMouse(event.type())) {
        const auto& mouse = static_cast<QMouseEvent&>(event);
        if (event.type() == QEvent::MouseButtonRelease) {
            buttons_ &= ~Qt::MouseButtons(mouse.button());
        } else if (event.type() != QEvent::MouseMove) {
            buttons_ |= mouse.button();
        }
    }
    // An accepted override is no shortcut; nothing that is dragged here may be dropped.
    event.setAccepted(event.type() == QEvent::ShortcutOverride);
    return true;
}

bool InputBlock::takesRest(QEvent& event) {
    bool takes = false;
    if (isOfKey(event.type())) {
        const auto& key = static_cast<QKeyEvent&>(event);
        const bool isRest = event.type() == QEvent::KeyRelease || key.isAutoRepeat();
        takes = isRest && keys_.contains(key.key());
        if (!key.isAutoRepeat()) keys_.remove(key.key());
    } else if (isOfMouse(event.type())) {
        const auto& mouse = static_cast<QMouseEvent&>(event);
        const bool comesUp = event.type() == QEvent::MouseButtonRelease;
        const bool moves = event.type() == QEvent::MouseMove;
        takes = (comesUp && buttons_.testFlag(mouse.button())) ||
                (moves && (mouse.buttons() & buttons_));
        if (!moves) buttons_ &= ~Qt::MouseButtons(mouse.button());
        // Came up where it was not seen.
        if (moves) buttons_ &= mouse.buttons();
    }
    if (takes) event.setAccepted(true);
    if (keys_.isEmpty() && !buttons_) qApp->removeEventFilter(this);
    return takes;
}

}  // namespace quorvale
