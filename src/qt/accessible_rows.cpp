#include "qt/accessible_rows.h"

#include <QApplication>

#include "qt/accessible_row.h"
#include "qt/control_widget.h"
#include "qt/seen_rows.h"
#include "qt/tool_strip.h"

namespace quorvale {

namespace {

/// So many items are kept for each row on screen before the others are given up.
constexpr std::size_t keptPerRow = 4;
constexpr std::size_t alwaysKept = 64;

/// The control as a whole. Its rows have the keyboard in its stead, which must not look like two
/// parts that have it.
class AccessibleControl final : public QAccessibleWidget {
public:
    explicit AccessibleControl(ControlWidget& control) : QAccessibleWidget(&control) {}

    QAccessibleInterface* focusChild() const override {
        QWidget* holder = QApplication::focusWidget();
        if (holder == nullptr || !widget()->isAncestorOf(holder)) return nullptr;
        QAccessibleInterface* found = QAccessible::queryAccessibleInterface(holder);
        QAccessibleInterface* within = found == nullptr ? nullptr : found->focusChild();
        return within == nullptr ? found : within;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.focusable = false;
        state.focused = false;
        return state;
    }
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    if (auto* control = qobject_cast<ControlWidget*>(object)) {
        return new AccessibleControl(*control);
    }
    if (auto* rows = qobject_cast<RowsArea*>(object)) return new AccessibleRows(*rows);
    if (auto* tools = qobject_cast<ToolStrip*>(object)) {
        return new QAccessibleWidget(tools, QAccessible::ToolBar);
    }
    return nullptr;
}

}  // namespace

void offerAccessibility() { QAccessible::installFactory(makeInterface); }

AccessibleRows::AccessibleRows(RowsArea& area) : QAccessibleWidget(&area, QAccessible::List) {}

AccessibleRows::~AccessibleRows() {
    for (const auto& [line, id] : rows_) QAccessible::deleteAccessibleInterface(id);
}

AccessibleRow* AccessibleRows::row(int line) const {
    const SeenRows rows(area());
    if (!rows.has(line)) return nullptr;
    if (const auto known = rows_.find(line); known != rows_.end()) {
        return static_cast<AccessibleRow*>(QAccessible::accessibleInterface(known->second));
    }
    auto* made = new AccessibleRow(area(), line);
    rows_.emplace(line, QAccessible::registerAccessibleInterface(made));
    forgetRowsFarFrom(line, rows);
    return made;
}

void AccessibleRows::forgetRowsFarFrom(int line, const SeenRows& rows) const {
    if (rows_.size() <= alwaysKept + keptPerRow * static_cast<std::size_t>(rows.count())) return;
    std::erase_if(rows_, [&](const auto& known) {
        const auto& [other, id] = known;
        if (other == line || other == rows.caretLine() || rows.placeOf(other) >= 0) return false;
        QAccessible::deleteAccessibleInterface(id);
        return true;
    });
}

int AccessibleRows::childCount() const { return SeenRows(area()).count(); }

QAccessibleInterface* AccessibleRows::child(int index) const {
    return row(SeenRows(area()).lineAt(index));
}

int AccessibleRows::indexOfChild(const QAccessibleInterface* child) const {
    const auto* row = dynamic_cast<const AccessibleRow*>(child);
    return row == nullptr ? -1 : SeenRows(area()).placeOf(row->line());
}

QAccessibleInterface* AccessibleRows::childAt(int x, int y) const {
    return child(SeenRows(area()).placeUnder(QPoint(x, y)));
}

QAccessibleInterface* AccessibleRows::focusChild() const {
    return area().hasFocus() ? row(SeenRows(area()).caretLine()) : nullptr;
}

QAccessible::State AccessibleRows::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.multiSelectable = true;
    // The row with the caret has the keyboard, where there is one.
    state.focused = state.focused && SeenRows(area()).caretLine() == 0;
    return state;
}

}  // namespace quorvale
