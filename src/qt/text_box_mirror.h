#pragma once

#include <QLineEdit>

#include "qt/control_link.h"

namespace quorvale {

/// A real line edit that shows a text box element. What is typed goes to the element at once; what
/// the control sets is shown without being reported back.
class TextBoxMirror final : public QLineEdit {
    Q_OBJECT

public:
    using ElementOf = TextBox Surface::*;

    TextBoxMirror(ElementOf element, ControlLinkPtr link, QWidget* parent);

    /// Shows the element's text and selection where they differ.
    void mirror(const Surface& surface);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    void showFont(const TextBox& box);
    void takeText(const QString& text);
    void takeSelection();

    ElementOf element_;
    ControlLinkPtr link_;
    bool showing_ = false;
    Font fontShown_;
    int roomShown_ = 0;
};

}  // namespace quorvale
