#include "viewer/edit_menu.h"

#include <QMenu>

#include "qt/conversions.h"

namespace quorvale {

EditMenu::EditMenu(QMenu& menu) : QObject(&menu) {
    addCorrections(menu);
    menu.addSeparator();
    addCopying(menu);
}

void EditMenu::applyTo(QuorvaleBoxWidget& control, RowCopying& copying) {
    control_ = &control;
    copying_ = &copying;
}

// The keys are the control's to hand on, and the boxes have their own use for them: the menu only
// names them.
void EditMenu::addCopying(QMenu& menu) {
    menu.addAction(tr("&Copy rows") + "\tCtrl+C", this, [this] {
        if (copying_ != nullptr) copying_->copyRows();
    });
    menu.addAction(tr("Copy rows with line &numbers") + "\tCtrl+Shift+C", this, [this] {
        if (copying_ != nullptr) copying_->copyNumberedRows();
    });
}

void EditMenu::addCorrections(QMenu& menu) {
    addPick(menu, tr("&Edit lines") + "\tF2", u"mnuPopupEdit");
    menu.addAction(tr("C&orrection at the caret..."), QKeySequence(Qt::ALT | Qt::Key_Return), this,
                   &EditMenu::openAtCaret);
    menu.addSeparator();
    addPick(menu, tr("&Undo correction"), u"mnuPopupUndo");
    addPick(menu, tr("Undo &all corrections..."), u"mnuUndoAll");
    addPick(menu, tr("&Previous correction"), u"mnuPopupPrev")
        ->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Up));
    addPick(menu, tr("Ne&xt correction"), u"mnuPopupNext")
        ->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Down));
    menu.addSeparator();
    addPick(menu, tr("Co&mmit into the file"), u"mnuPopupCommit")->setShortcut(QKeySequence::Save);
}

QAction* EditMenu::addPick(QMenu& menu, const QString& text, const char16_t* key) {
    return menu.addAction(text, this, [this, key] {
        if (control_ == nullptr) return;
        // The control's own menu works on an open editor as on a closed one.
        control_->act([key](Surface& surface) { surface.mnuPopup.UserPick(key); });
    });
}

// What a click on the mark of the caret's row does.
void EditMenu::openAtCaret() {
    if (control_ == nullptr) return;
    const auto row = toUtf16(QString::number(control_->row()));
    control_->act([&row](Surface& surface) {
        for (int slot = 0; surface.lblLine.Has(slot); ++slot) {
            if (surface.lblLine[slot].Tag() != row || !surface.imgEdit[slot].Visible()) continue;
            surface.OnEditMarkClick(slot);
            return;
        }
    });
}

}  // namespace quorvale
