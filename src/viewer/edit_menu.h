#pragma once

#include <QObject>
#include <QPointer>
#include <functional>

#include "qt/quorvale_box_widget.h"
#include "qt/row_copying.h"

class QMenu;

namespace quorvale {

/// The Edit menu: copying rows, and everything that the control offers for corrections, with keys.
/// It works on the control of the file that is shown.
class EditMenu final : public QObject {
    Q_OBJECT

public:
    explicit EditMenu(QMenu& menu);

    void applyTo(QuorvaleBoxWidget& control, RowCopying& copying);

private:
    void addCopying(QMenu& menu);
    void addCorrections(QMenu& menu);
    /// An entry that picks one of the control's own menu.
    QAction* addPick(QMenu& menu, const QString& text, const char16_t* key);
    void openAtCaret();

    QPointer<QuorvaleBoxWidget> control_;
    QPointer<RowCopying> copying_;
};

}  // namespace quorvale
