#include "qt/text_box_mirror.h"

#include <QFontMetricsF>
#include <QKeyEvent>

#include "qt/box_keys.h"
#include "qt/conversions.h"
#include "qt/font_faces.h"

namespace quorvale {

namespace {

/// The element's font, made smaller where the box is too low for it.
QFont fittingFont(const TextBox& box, int height) {
    QFont font = toQFont(box.Font());
    while (font.pointSizeF() > 1 && QFontMetricsF(font).height() > height) {
        font.setPointSizeF(font.pointSizeF() - 0.5);
    }
    return font;
}

}  // namespace

TextBoxMirror::TextBoxMirror(ElementOf element, ControlLinkPtr link, QWidget* parent)
    : QLineEdit(parent), element_(element), link_(std::move(link)) {
    connect(this, &QLineEdit::textEdited, this, &TextBoxMirror::takeText);
    connect(this, &QLineEdit::selectionChanged, this, &TextBoxMirror::takeSelection);
    connect(this, &QLineEdit::cursorPositionChanged, this, &TextBoxMirror::takeSelection);
}

void TextBoxMirror::mirror(const Surface& surface) {
    const TextBox& box = surface.*element_;
    showing_ = true;
    setEnabled(box.Enabled());
    showFont(box);
    if (toUtf16(text()) != box.Text()) setText(toQString(box.Text()));
    const int start = hasSelectedText() ? selectionStart() : cursorPosition();
    const int wantedStart = static_cast<int>(box.SelStart());
    const int wantedLength = static_cast<int>(box.SelLength());
    const int length = hasSelectedText() ? selectionLength() : 0;
    if (start != wantedStart || length != wantedLength) {
        // The insertion point stands at the end of what is selected.
        if (wantedLength > 0) {
            setSelection(wantedStart, wantedLength);
        } else {
            setCursorPosition(wantedStart);
        }
    }
    showing_ = false;
}

void TextBoxMirror::showFont(const TextBox& box) {
    constexpr int frame = 6;
    const int room = height() - frame;
    if (room <= 0 || (box.Font() == fontShown_ && room == roomShown_)) return;
    fontShown_ = box.Font();
    roomShown_ = room;
    setFont(fittingFont(box, room));
}

void TextBoxMirror::takeText(const QString& text) {
    link_->run([&](Surface& surface) { (surface.*element_).SetText(toUtf16(text)); });
    takeSelection();
}

void TextBoxMirror::takeSelection() {
    // Between a change of the text and its report the places belong to a text not yet known.
    if (showing_ || link_->box() == nullptr) return;
    TextBox& box = link_->box()->Elements().*element_;
    if (toUtf16(text()) != box.Text()) return;
    const int start = hasSelectedText() ? selectionStart() : cursorPosition();
    const int length = hasSelectedText() ? selectionLength() : 0;
    const auto startUnit = static_cast<std::size_t>(start);
    const auto lengthUnits = static_cast<std::size_t>(length);
    if (box.SelStart() == startUnit && box.SelLength() == lengthUnits) return;
    box.Select(startUnit, lengthUnits);
}

void TextBoxMirror::keyPressEvent(QKeyEvent* event) {
    if (mayType(link_, element_, *event)) {
        QLineEdit::keyPressEvent(event);
    } else {
        event->accept();
    }
}

void TextBoxMirror::keyReleaseEvent(QKeyEvent* event) {
    if (mayRelease(link_, *event)) QLineEdit::keyReleaseEvent(event);
}

}  // namespace quorvale
