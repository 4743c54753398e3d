#include "viewer/edit_menu.h"

#include <QMenu>
#include <QPlainTextEdit>

#include "viewer/row_menu.h"

namespace quorvale {

EditMenu::EditMenu(QMenu& menu) : QObject(&menu) {
    addCorrections(menu);
    menu.addSeparator();
    addCopying(menu);
}

void EditMenu::applyTo(QuorvaleBoxWidget& control, RowCopying& copying) {
    control_ = &control;
    copying_ = &copying;
    followOptions();
}

void EditMenu::followOptions() {
    if (control_ == nullptr) return;
    const bool mayChange = !control_->options().ReadOnly;
    for (QAction* action : changing_) action->setEnabled(mayChange);
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
    changing_ << addCommand(menu, tr("&Edit lines") + "\tF2", &HostCorrections::Edit);
    menu.addAction(tr("C&orrection at the caret..."), QKeySequence(Qt::ALT | Qt::Key_Return), this,
                   &EditMenu::openAtCaret);
    menu.addSeparator();
    changing_ << menu.addAction(tr("&Undo correction"), QKeySequence::Undo, this,
                                &EditMenu::undoAtCaret);
    changing_ << addCommand(menu, tr("Undo &all corrections..."), &HostCorrections::UndoAll);
    changing_.back()->setShortcut(QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_Z));
    addWalk(menu, tr("&Previous correction"), &HostCorrections::Previous,
            tr("There is no earlier correction"))
        ->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Up));
    addWalk(menu, tr("Ne&xt correction"), &HostCorrections::Next,
            tr("There is no further correction"))
        ->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Down));
    menu.addSeparator();
    changing_ << addCommand(menu, tr("Co&mmit into the file"), &HostCorrections::Commit);
    changing_.back()->setShortcut(QKeySequence::Save);
}

// As what a user does: nothing happens from within a long search.
bool EditMenu::run(Command command) {
    bool done = false;
    const QPointer<QuorvaleBoxWidget> control = control_;
    if (control == nullptr) return true;
    control->act([&](Surface&) { done = (control->box().Corrections().*command)(); });
    return done || control == nullptr;
}

QAction* EditMenu::addCommand(QMenu& menu, const QString& text, Command command) {
    return menu.addAction(text, this, [this, command] { run(command); });
}

QAction* EditMenu::addWalk(QMenu& menu, const QString& text, Command step, const QString& ended) {
    return menu.addAction(text, this, [this, step, ended] {
        const QPointer<EditMenu> alive(this);
        if (!run(step) && alive != nullptr) emit told(ended);
    });
}

int EditMenu::correctedSlot() {
    if (control_ == nullptr) return -1;
    const int row = control_->row();
    if (!control_->box().Corrections().Of(row)) {
        emit told(tr("There is no correction in this line"));
        return -1;
    }
    control_->ensureVisible(row);
    return slotOfCaret(control_->box());
}

// What a click on the mark of the caret's row does.
void EditMenu::openAtCaret() {
    const int slot = correctedSlot();
    if (slot < 0) return;
    control_->act([slot](Surface& surface) { surface.OnEditMarkClick(slot); });
}

// While lines are edited, it is what was typed that is taken back.
bool EditMenu::undoTyping() {
    auto* editor = control_ == nullptr ? nullptr : control_->findChild<QPlainTextEdit*>("rtbEdit");
    if (editor == nullptr || editor->isHidden()) return false;
    editor->undo();
    return true;
}

void EditMenu::undoAtCaret() {
    if (undoTyping() || correctedSlot() < 0) return;
    control_->act([this](Surface&) { control_->box().Corrections().Undo(control_->row()); });
}

}  // namespace quorvale
