#include "qt/row_announcer.h"

#include <QEvent>
#include <QPointer>
#include <utility>

#include "qt/accessible_row.h"
#include "qt/accessible_rows.h"
#include "qt/seen_rows.h"

namespace quorvale {

namespace {

template <class Event, class... Arguments>
void send(Arguments&&... arguments) {
    Event event(std::forward<Arguments>(arguments)...);
    QAccessible::updateAccessibility(&event);
}

/// The states that a fold is told by.
QAccessible::State foldStates() {
    QAccessible::State states;
    states.expandable = true;
    states.expanded = true;
    states.collapsed = true;
    return states;
}

QAccessible::State markStates() {
    QAccessible::State states;
    states.checked = true;
    return states;
}

}  // namespace

RowAnnouncer::RowAnnouncer(RowsArea& area) : area_(area) { area_.installEventFilter(this); }

void RowAnnouncer::tell() {
    if (!QAccessible::isActive()) {
        told_ = {};
        return;
    }
    const ToldRows before = std::exchange(told_, look());
    const QPointer<RowAnnouncer> alive(this);
    for (const RowNews& news : newsBetween(before, told_)) {
        announce(news);
        if (alive == nullptr) return;
    }
}

ToldRows RowAnnouncer::look() {
    ++looks_;
    const SeenRows seen(area_);
    ToldRows rows;
    rows.Rows.reserve(static_cast<std::size_t>(seen.count()));
    for (int place = 0; place < seen.count(); ++place) rows.Rows.push_back(seen.rowAt(place));
    rows.CaretLine = seen.caretLine();
    rows.CaretUnit = seen.caretUnit();
    rows.HasKeyboard = area_.hasFocus();
    return rows;
}

void RowAnnouncer::announce(const RowNews& news) {
    if (news.Kind == NewsKind::Scrolled) {
        send<QAccessibleEvent>(&area_, QAccessible::VisibleDataChanged);
        return;
    }
    auto* rows = dynamic_cast<AccessibleRows*>(QAccessible::queryAccessibleInterface(&area_));
    AccessibleRow* row = rows == nullptr ? nullptr : rows->row(news.Line);
    if (row != nullptr) {
        announce(news.Kind, *row);
    } else if (news.Kind == NewsKind::Focus) {
        send<QAccessibleEvent>(&area_, QAccessible::Focus);
    }
}

void RowAnnouncer::announce(NewsKind kind, AccessibleRow& row) {
    QAccessibleInterface* const told = &row;
    switch (kind) {
        case NewsKind::Text:
            return send<QAccessibleEvent>(told, QAccessible::NameChanged);
        case NewsKind::Description:
            return send<QAccessibleEvent>(told, QAccessible::DescriptionChanged);
        case NewsKind::Mark:
            return send<QAccessibleStateChangeEvent>(told, markStates());
        case NewsKind::Fold:
            return send<QAccessibleStateChangeEvent>(told, foldStates());
        case NewsKind::Selection:
            return send<QAccessibleEvent>(told, row.state().selected
                                                    ? QAccessible::SelectionAdd
                                                    : QAccessible::SelectionRemove);
        case NewsKind::Focus:
            return send<QAccessibleEvent>(told, QAccessible::Focus);
        case NewsKind::Caret:
            return send<QAccessibleTextCursorEvent>(told, row.cursorPosition());
        case NewsKind::Scrolled:
            break;
    }
}

// Qt tells of the rows as a whole when they get the focus; the row that has it comes after that,
// also where a menu gives the focus back.
bool RowAnnouncer::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &area_ && event->type() == QEvent::FocusIn && QAccessible::isActive()) {
        told_.HasKeyboard = false;
        QMetaObject::invokeMethod(this, &RowAnnouncer::tell, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace quorvale
