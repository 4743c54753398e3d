#pragma once

#include <QObject>
#include <QPointer>

#include "qt/quorvale_box_widget.h"

class QContextMenuEvent;
class QKeyEvent;
class QMenu;

namespace quorvale {

/// The menu that opens over the rows with the right button or the menu key: the Edit menu, where
/// the hand is.
class RowMenu final : public QObject {
    Q_OBJECT

public:
    explicit RowMenu(QMenu& edit);

    void setControl(QuorvaleBoxWidget& control);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool openFor(const QContextMenuEvent& event);
    bool openFor(const QKeyEvent& event);

    QMenu& menu_;
    QPointer<QuorvaleBoxWidget> control_;
};

/// The place on the screen of the line that the caret is in, at the left of its text.
QPoint placeBelowCaret(QuorvaleBoxWidget& control);

/// The slot that shows the caret's line; -1 when it is not on the screen.
int slotOfCaret(QuorvaleBox& box);

}  // namespace quorvale
