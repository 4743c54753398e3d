#pragma once

#include <QPlainTextEdit>

#include "qt/control_link.h"

namespace quorvale {

/// The real editor over the rows that are being corrected. What is typed goes to the element at
/// once, with every character as it is; the element's keys come first, so that Esc and Ctrl+Enter
/// are never typed. A key that an input method uses while it composes is the input method's.
class EditorMirror final : public QPlainTextEdit {
    Q_OBJECT

public:
    EditorMirror(ControlLinkPtr link, QWidget* parent);

    /// Shows the element; `controlOrigin` is the control's corner in the parent. It may be a little
    /// higher than the element while more lines are typed than it stands for.
    void mirror(const Surface& surface, QPoint controlOrigin);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void showText(const TextBox& box);
    void showLook(const TextBox& box);
    void place(const Surface& surface, QPoint controlOrigin);
    void takeText();
    void typePlainly();

    ControlLinkPtr link_;
    bool showing_ = false;
    bool composing_ = false;
};

}  // namespace quorvale
