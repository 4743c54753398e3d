#include "viewer/result_windows.h"

#include <QApplication>
#include <memory>

#include "control/host_extras.h"
#include "control/search_extras.h"
#include "platform/keys.h"
#include "qt/conversions.h"
#include "viewer/file_names.h"
#include "viewer/open_check.h"
#include "viewer/viewer_window.h"

namespace quorvale {

namespace {

bool isSameFile(const QString& a, const QString& b) {
    if (a.isEmpty() || b.isEmpty()) return false;
    if (a == b) return true;
    const QString place = canonicalName(a);
    return !place.isEmpty() && place == canonicalName(b);
}

ViewerWindow* windowOf(const QString& fileName) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* window = qobject_cast<ViewerWindow*>(widget);
        if (window != nullptr && window->isVisible() && isSameFile(window->fileName(), fileName)) {
            return window;
        }
    }
    return nullptr;
}

void bringToFront(ViewerWindow& window) {
    if (window.isMinimized()) window.showNormal();
    window.raise();
    window.activateWindow();
}

const std::shared_ptr<const ListRows>& rowsOf(ViewerWindow& window) {
    return window.control().box().Elements().lvFound.Rows();
}

}  // namespace

void hideResults(QuorvaleBoxWidget& control) {
    control.act([](Surface& surface) {
        if (surface.lvFound.Visible()) surface.lvFound.UserKey(key_code::Escape, 0);
    });
}

ResultWindows::ResultWindows(ViewerWindow& window) : QObject(&window), window_(window) {}

void ResultWindows::setControl(QuorvaleBoxWidget& control) {
    // The control loads nothing, and stays where it is.
    connect(&control, &ControlWidget::beforeFileChange, this,
            [](const QString&, bool* changed) { *changed = true; });
    SearchExtras& search = control.box().Extras().Search();
    search.StayWhenTakenOver(true);
    search.OnPickedElsewhere = [alive = QPointer<ResultWindows>(this)](const PickedPlace& place) {
        if (alive != nullptr) alive->follow(place);
    };
}

// The control is in the middle of the pick: it is let go before another file is opened.
void ResultWindows::follow(const PickedPlace& place) {
    if (isSameFile(window_.fileName(), toQString(place.File))) {
        // This file under another name.
        window_.control().moveTo(place.Line, place.Column);
        return;
    }
    ++followed_;
    QMetaObject::invokeMethod(
        this, [this, place] { open(place); }, Qt::QueuedConnection);
}

void ResultWindows::open(const PickedPlace& place) {
    const QString fileName = toQString(place.File);
    if (ViewerWindow* shown = windowOf(fileName)) return arrive(*shown, place);
    if (!window_.fileName().isEmpty()) {
        if (ViewerWindow* window = newWindow(fileName)) arrive(*window, place);
        return;
    }
    const QString reason = window_.openFile(fileName);
    if (!reason.isEmpty()) return window_.tell(reason);
    arrive(window_, place);
}

ViewerWindow* ResultWindows::newWindow(const QString& fileName) {
    QString reason = whyNotOpenable(fileName);
    if (reason.isEmpty()) {
        auto window = std::make_unique<ViewerWindow>();
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->resize(window_.size());
        reason = window->openFile(fileName);
        if (reason.isEmpty()) {
            // The next match in there is one key away.
            window->control().setSearchText(window_.control().searchText());
            window->show();
            return window.release();
        }
    }
    window_.tell(reason);
    return nullptr;
}

void ResultWindows::arrive(ViewerWindow& target, const PickedPlace& place) {
    hideResults(target.control());
    target.control().moveTo(place.Line, place.Column);
    target.control().setFocus();
    bringToFront(target);
    ResultWindows& there = target.results();
    if (&there == this) return;
    there.leader_ = this;
    there.ownRows_ = rowsOf(target);
}

ResultWindows& ResultWindows::leader() {
    const auto& rows = rowsOf(window_);
    const bool unchanged = !ownRows_.owner_before(rows) && !rows.owner_before(ownRows_);
    const bool isLed = leader_ != nullptr && unchanged;
    return isLed ? *leader_ : *this;
}

void ResultWindows::pickNeighbour(bool next) {
    ResultWindows& leading = leader();
    // Its list is still being filled, or about to be replaced.
    if (leading.window_.control().isSearching()) {
        return window_.tellBriefly(tr("A search is running"));
    }
    const QPointer<ResultWindows> alive(this);
    if (leading.step(next) || alive == nullptr) return;
    window_.tellBriefly(next ? tr("There is no further result") : tr("There is no earlier result"));
}

bool ResultWindows::step(bool next) {
    const int before = followed_;
    SearchExtras& search = window_.control().box().Extras().Search();
    const bool picked = next ? search.PickNextResult() : search.PickPreviousResult();
    if (picked && followed_ == before) bringToFront(window_);
    return picked;
}

void ResultWindows::showLastList() {
    ViewerWindow& window = leader().window_;
    QuorvaleBoxWidget& control = window.control();
    if (control.isSearching()) return window_.tellBriefly(tr("A search is running"));
    if (rowsOf(window) == nullptr) return window_.tellBriefly(tr("There is no list yet"));
    control.act([&](Surface&) { control.box().Extras().Search().ShowLastList(); });
    bringToFront(window);
}

}  // namespace quorvale
