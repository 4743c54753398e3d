#pragma once

#include <QAccessibleWidget>
#include <unordered_map>

#include "qt/rows_area.h"

namespace quorvale {

class AccessibleRow;
class SeenRows;

/// The rows as assistive technology reads them: a list of the rows on screen, from the top. An item
/// is made when somebody asks for its line; those that have long scrolled away are given up.
class AccessibleRows final : public QAccessibleWidget {
public:
    explicit AccessibleRows(RowsArea& area);
    ~AccessibleRows() override;

    /// The item of a line, on screen or not; null where the document has no such line. It stays
    /// while its line is on screen or the caret's.
    AccessibleRow* row(int line) const;

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    /// The caret's row while the rows have the keyboard.
    QAccessibleInterface* focusChild() const override;
    QAccessible::State state() const override;

private:
    RowsArea& area() const { return *static_cast<RowsArea*>(widget()); }
    void forgetRowsFarFrom(int line, const SeenRows& rows) const;

    /// By line, in the cache of Qt, which owns them.
    mutable std::unordered_map<int, QAccessible::Id> rows_;
};

/// Lets Qt find what assistive technology is to be told about the control's own widgets.
void offerAccessibility();

}  // namespace quorvale
