#include "qt/elided_label.h"

#include <QEvent>

namespace quorvale {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void ElidedLabel::setWholeText(const QString& text) {
    if (whole_ == text) return;
    whole_ = text;
    // A name may hold anything; it is shown in one line.
    for (QChar& character : whole_) {
        if (character.category() == QChar::Other_Control) character = u' ';
    }
    setAccessibleName(whole_);
    elide();
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    elide();
}

void ElidedLabel::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange) elide();
}

void ElidedLabel::elide() {
    setText(fontMetrics().elidedText(whole_, Qt::ElideMiddle, contentsRect().width()));
}

}  // namespace quorvale
