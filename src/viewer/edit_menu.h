#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <functional>

#include "control/host_corrections.h"
#include "qt/quorvale_box_widget.h"
#include "qt/row_copying.h"

class QAction;
class QMenu;

namespace quorvale {

/// The Edit menu: copying rows, and everything that the control offers for corrections, with keys.
/// It works on the control of the file that is shown.
class EditMenu final : public QObject {
    Q_OBJECT

public:
    explicit EditMenu(QMenu& menu);

    void applyTo(QuorvaleBoxWidget& control, RowCopying& copying);

    /// Offers what changes corrections exactly while the control's options allow it.
    void followOptions();

signals:
    /// For the status bar.
    void told(const QString& message);

private:
    void addCopying(QMenu& menu);
    void addCorrections(QMenu& menu);
    using Command = bool (HostCorrections::*)();
    /// True where there is no control to do it with, any more.
    bool run(Command command);
    QAction* addCommand(QMenu& menu, const QString& text, Command command);
    /// An entry that goes to another correction, or says that there is none.
    QAction* addWalk(QMenu& menu, const QString& text, Command step, const QString& ended);
    void openAtCaret();
    void undoAtCaret();
    /// False when nothing is being edited.
    bool undoTyping();
    /// Shows the row of the caret; its slot, or -1 with a word where nothing is corrected.
    int correctedSlot();

    /// What changes corrections, or the file.
    QList<QAction*> changing_;
    QPointer<QuorvaleBoxWidget> control_;
    QPointer<RowCopying> copying_;
};

}  // namespace quorvale
