#pragma once

#include <QPlainTextEdit>
#include <cstdint>
#include <optional>
#include <string>

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

    /// What an input method is composing; empty when it is not.
    QString composed() const;
    /// Makes it text.
    void finishComposition();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    bool event(QEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void showText(const TextBox& box, bool anew);
    void showLook(const TextBox& box);
    void place(const Surface& surface, QPoint controlOrigin);
    void takeChange(int from, int removed, int added);
    void takeText();
    void typePlainly();

    ControlLinkPtr link_;
    bool showing_ = false;
    /// What is in the document, kept up with every change: to work it out of all lines for each key
    /// would be felt.
    std::u16string text_;
    /// The element's revision when it had this text.
    std::optional<std::uint32_t> shown_;
};

}  // namespace quorvale
