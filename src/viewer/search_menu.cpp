#include "viewer/search_menu.h"

#include <QLineEdit>
#include <QMenu>

#include "control/host_extras.h"
#include "qt/live_surface.h"

namespace quorvale {

namespace {

/// The entries of the control's own menu of its Find button.
constexpr std::size_t findAll = 1;
constexpr std::size_t findAllWild = 2;
constexpr std::size_t recent = 4;

}  // namespace

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
        [this] { pickOfFind(findAll); });
    add(tr("List all matches of a &pattern"), {}, [this] { pickOfFind(findAllWild); });
    add(tr("Last &list"), {}, [this] { pickOfFind(recent); });
    add(tr("Next &result"), QKeySequence(Qt::Key_F4),
        [this] { control_->box().Extras().Search().PickNextResult(); });
    add(tr("Pr&evious result"), QKeySequence(Qt::SHIFT | Qt::Key_F4),
        [this] { control_->box().Extras().Search().PickPreviousResult(); });
    menu.addSeparator();
    add(tr("&Go to line..."), QKeySequence(Qt::CTRL | Qt::Key_G),
        [this] { goTo(control_->liveSurface().tools().lineBox()); });
}

void SearchMenu::setControl(QuorvaleBoxWidget& control) {
    control_ = &control;
    control.box().Extras().Search().OnSearched =
        [this, alive = QPointer<SearchMenu>(this)](FindOutcome outcome) {
            if (alive != nullptr) tell(outcome);
        };
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

void SearchMenu::findAgain(FindDirection direction) {
    const FindOutcome outcome = control_->box().Extras().Search().FindAgain(direction);
    tell(outcome);
}

void SearchMenu::tell(FindOutcome outcome) {
    if (outcome == FindOutcome::NotFound) emit told(tr("The text was not found"));
    if (outcome == FindOutcome::Wrapped) emit told(tr("The search went on at the other end"));
    if (outcome == FindOutcome::Found) emit told(QString());
}

void SearchMenu::pickOfFind(std::size_t item) {
    control_->act([item](Surface& surface) { surface.tbMore.UserMenuClick(u"Find", item); });
}

}  // namespace quorvale
