#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <vector>

#include "qt/control_link.h"

namespace quorvale {

/// Keeps the control's idea of the keyboard focus and Qt's the same. A popup, a message box or
/// another window in front does not take the focus from the control; another widget of the same
/// window does.
class FocusBridge final : public QObject {
    Q_OBJECT

public:
    FocusBridge(ControlLinkPtr link, QWidget& control);

    /// `widget` is what the user sees as this element.
    void add(FocusChild child, QWidget* widget);

    /// Moves Qt's focus; false when the element cannot be reached.
    bool request(FocusChild child);

private:
    struct Seat {
        FocusChild Child;
        QPointer<QWidget> Widget;
    };

    void takeMove(QWidget* old, QWidget* now);
    FocusChild childOf(const QWidget* widget) const;
    bool isOutside(const QWidget* now) const;
    void enter(FocusChild child);
    void leave();

    ControlLinkPtr link_;
    QWidget& control_;
    std::vector<Seat> seats_;
    bool entered_ = false;
};

}  // namespace quorvale
