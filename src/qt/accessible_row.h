#pragma once

#include <QAccessible>
#include <QPointer>

#include "qt/rows_area.h"

namespace quorvale {

/// One line of the document as assistive technology reads it: an item of the list of rows, with the
/// line's text, the caret in it, and what a user does to a row. It is known by its line, not by its
/// place on screen, so that a caret that moves on is always somewhere else, however the rows
/// scroll. What is asked of it after its control or its line is gone is answered with nothing.
class AccessibleRow final : public QAccessibleInterface,
                            public QAccessibleTextInterface,
                            public QAccessibleActionInterface {
public:
    AccessibleRow(RowsArea& area, int line) : area_(&area), line_(line) {}

    int line() const { return line_; }

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text wanted) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    // The text, in UTF-16 units. Rows are selected as wholes: no part of one ever is.
    void selection(int selectionIndex, int* startOffset, int* endOffset) const override;
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    /// -1 in every line but the caret's.
    int cursorPosition() const override;
    void setCursorPosition(int position) override;
    QString text(int startOffset, int endOffset) const override;
    int characterCount() const override;
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int startIndex, int endIndex) override;
    QString attributes(int offset, int* startOffset, int* endOffset) const override;

    // To come here with the caret, and to fold or unfold what the row heads.
    QStringList actionNames() const override;
    void doAction(const QString& actionName) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    void takeFocus();
    void toggleFold();

    QPointer<RowsArea> area_;
    const int line_;
};

}  // namespace quorvale
