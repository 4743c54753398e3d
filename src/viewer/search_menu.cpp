#include "viewer/search_menu.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>

#include "control/host_extras.h"
#include "qt/live_surface.h"
#include "viewer/result_windows.h"

namespace quorvale {

SearchMenu::SearchMenu(QMenu& menu) : QObject(&menu) {
    const auto add = [&](const QString& text, const QKeySequence& keys, auto act) {
        menu.addAction(text, keys, this, [this, act] {
            if (control_ != nullptr) act();
        });
    };
    add(tr("&Find..."), QKeySequence::Find,
        [this] { goTo(control_->liveSurface().tools().searchBox()); });
    add(tr("Find &next"), QKeySequence(Qt::Key_F3), [this] { findAgain(FindDirection::Forward); });
    add(tr("Find &previous"), QKeySequence(Qt::SHIFT | Qt::Key_F3),
        [this] { findAgain(FindDirection::Backward); });
    menu.addSeparator();
    add(tr("List &all matches"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F),
        [this] { list(&SearchExtras::FindAll); });
    add(tr("List all matches of a pa&ttern"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P),
        [this] { list(&SearchExtras::FindAllOfPattern); });
    add(tr("&In files..."), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_I),
        [this] { emit filesWanted(); });
    menu.addSeparator();
    add(tr("Last &list"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_L),
        [this] { emit lastListWanted(); });
    add(tr("Next &result"), QKeySequence(Qt::Key_F4), [this] { emit neighbourWanted(true); });
    add(tr("Pr&evious result"), QKeySequence(Qt::SHIFT | Qt::Key_F4),
        [this] { emit neighbourWanted(false); });
    menu.addSeparator();
    add(tr("&Go to line..."), QKeySequence(Qt::CTRL | Qt::Key_G), [this] {
        hideResults(*control_);
        goTo(control_->liveSurface().tools().lineBox());
    });
}

void SearchMenu::setControl(QuorvaleBoxWidget& control) {
    control_ = &control;
    control.liveSurface().tools().lineBox()->installEventFilter(this);
    control.box().Extras().Search().OnSearched =
        [this, alive = QPointer<SearchMenu>(this)](FindOutcome outcome) {
            if (alive != nullptr) tell(outcome);
        };
}

bool SearchMenu::eventFilter(QObject* watched, QEvent* event) {
    const bool isEscape = event->type() == QEvent::KeyPress &&
                          static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (!isEscape || control_ == nullptr) return QObject::eventFilter(watched, event);
    control_->setFocus(Qt::OtherFocusReason);
    return true;
}

void SearchMenu::goTo(QWidget* box) {
    // The toolbar may be hidden: its boxes come with it.
    control_->act([](Surface& surface) {
        if (!surface.tbMore.Visible()) surface.cmdMore.UserClick();
    });
    control_->liveSurface().showChanges();
    box->setFocus(Qt::ShortcutFocusReason);
    if (auto* line = qobject_cast<QLineEdit*>(box)) line->selectAll();
}

// As what a user does: nothing happens from within another search.
void SearchMenu::list(std::size_t (SearchExtras::*search)()) {
    control_->act([&](Surface&) { (control_->box().Extras().Search().*search)(); });
}

void SearchMenu::findAgain(FindDirection direction) {
    hideResults(*control_);
    // The control tells how it ended; a menu may be gone by then.
    control_->box().Extras().Search().FindAgain(direction);
}

void SearchMenu::tell(FindOutcome outcome) {
    if (outcome == FindOutcome::NotFound) emit told(tr("The text was not found"));
    if (outcome == FindOutcome::Wrapped) emit told(tr("The search went on at the other end"));
    if (outcome == FindOutcome::Stopped) emit told(tr("The search was stopped"));
    if (outcome == FindOutcome::Found) emit told(QString());
}

}  // namespace quorvale
