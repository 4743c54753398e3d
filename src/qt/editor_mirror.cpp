#include "qt/editor_mirror.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>
#include <QtMath>
#include <algorithm>

#include "qt/box_keys.h"
#include "qt/conversions.h"
#include "qt/editor_text.h"
#include "qt/font_faces.h"
#include "qt/system_colours.h"

namespace quorvale {

namespace {

constexpr int frame = 1;
constexpr int blanksPerTab = 8;

}  // namespace

EditorMirror::EditorMirror(ControlLinkPtr link, QWidget* parent)
    : QPlainTextEdit(parent), link_(std::move(link)) {
    setObjectName("rtbEdit");
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(frame);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    // One row has no room for a bar below it: the insertion point takes the text along.
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    document()->setDocumentMargin(0);
    hide();
    connect(document(), &QTextDocument::contentsChange, this, &EditorMirror::takeChange);
    connect(this, &QPlainTextEdit::textChanged, this, &EditorMirror::takeText);
}

void EditorMirror::mirror(const Surface& surface, QPoint controlOrigin) {
    const TextBox& box = surface.rtbEdit;
    if (!box.Visible()) {
        hide();
        return;
    }
    showing_ = true;
    showLook(box);
    showText(box, isHidden());
    showing_ = false;
    place(surface, controlOrigin);
    if (isHidden()) {
        raise();
        show();
    }
}

// An editor that was hidden is opened anew: what was typed into other lines is no step to go back
// to, even where these have the same text.
void EditorMirror::showText(const TextBox& box, bool anew) {
    if (!anew && shown_ == box.Revision()) return;
    shown_ = box.Revision();
    if (!anew && text_ == box.Text()) return;
    if (!composed().isEmpty()) QGuiApplication::inputMethod()->reset();
    // What was there before is no step to go back to.
    document()->setUndoRedoEnabled(false);
    QTextCursor cursor(document());
    cursor.select(QTextCursor::Document);
    insertText(cursor, box.Text());
    document()->setUndoRedoEnabled(true);
    document()->setModified(false);
    cursor.setPosition(0);
    setTextCursor(cursor);
    text_ = box.Text();
}

void EditorMirror::showLook(const TextBox& box) {
    // A frame in the colour of what has the keys.
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, colours.color(QPalette::Highlight));
    if (colours != palette()) setPalette(colours);
    const QFont wanted = toQFont(box.Font());
    if (font() != wanted) setFont(wanted);
    setTabStopDistance(QFontMetricsF(wanted).horizontalAdvance(QLatin1Char(' ')) * blanksPerTab);
}

void EditorMirror::place(const Surface& surface, QPoint controlOrigin) {
    QRect area = pixelRect(surface.rtbEdit).toRect().translated(controlOrigin);
    const int rows = qCeil(toPixels(surface.RowHeight()) * blockCount()) + 2 * frame;
    const int lowest = surface.scrHorz.Visible()
                           ? qRound(toPixels(surface.scrHorz.Top())) + controlOrigin.y()
                           : parentWidget()->height();
    area.setHeight(std::max(area.height(), std::min(rows, lowest - area.top())));
    // A character that is higher than the row is no reason for a bar beside a few lines.
    setVerticalScrollBarPolicy(area.height() < rows ? Qt::ScrollBarAsNeeded
                                                    : Qt::ScrollBarAlwaysOff);
    if (geometry() != area) setGeometry(area);
}

void EditorMirror::takeChange(int from, int, int added) {
    if (!showing_) followChange(text_, *document(), from, added);
}

void EditorMirror::takeText() {
    if (showing_) return;
    link_->run([&](Surface& surface) {
        surface.rtbEdit.SetText(text_);
        shown_ = surface.rtbEdit.Revision();
    });
}

QString EditorMirror::composed() const {
    const QTextLayout* const layout = textCursor().block().layout();
    return layout == nullptr ? QString() : layout->preeditAreaText();
}

// Not every input method knows what to commit is; of those some commit when they are reset. What
// is left then is ours to type.
void EditorMirror::finishComposition() {
    if (composed().isEmpty()) return;
    QGuiApplication::inputMethod()->commit();
    if (composed().isEmpty()) return;
    QGuiApplication::inputMethod()->reset();
    const QString left = composed();
    if (left.isEmpty()) return;
    QInputMethodEvent event;
    event.setCommitString(left);
    QCoreApplication::sendEvent(this, &event);
}

// Text that is typed beside a sign would remember what the sign stands for.
void EditorMirror::typePlainly() {
    if (!textCursor().hasSelection()) setCurrentCharFormat({});
}

void EditorMirror::keyPressEvent(QKeyEvent* event) {
    if (composed().isEmpty() && !mayType(link_, &Surface::rtbEdit, *event)) {
        event->accept();
        return;
    }
    typePlainly();
    // Shift and Enter would begin a new row of the same line, which no file has.
    if (event->matches(QKeySequence::InsertLineSeparator)) {
        textCursor().insertBlock();
        ensureCursorVisible();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void EditorMirror::keyReleaseEvent(QKeyEvent* event) {
    if (!composed().isEmpty() || mayRelease(link_, *event)) QPlainTextEdit::keyReleaseEvent(event);
}

void EditorMirror::inputMethodEvent(QInputMethodEvent* event) {
    typePlainly();
    QPlainTextEdit::inputMethodEvent(event);
}

// Esc and Ctrl+Enter belong to the editor before any shortcut of its window.
bool EditorMirror::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool isReturn = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        if (key->key() == Qt::Key_Escape ||
            (isReturn && key->modifiers().testFlag(Qt::ControlModifier))) {
            event->accept();
            return true;
        }
    }
    return QPlainTextEdit::event(event);
}

QMimeData* EditorMirror::createMimeDataFromSelection() const {
    auto* copied = new QMimeData;
    QString text = toQString(selectedTextOf(textCursor()));
    copied->setText(text.replace("\r\n", "\n"));
    return copied;
}

void EditorMirror::insertFromMimeData(const QMimeData* source) {
    if (!source->hasText()) return;
    QString text = source->text();
    text.replace("\r\n", "\n").replace("\n", "\r\n");
    QTextCursor cursor = textCursor();
    insertText(cursor, toUtf16(text));
    setTextCursor(cursor);
    ensureCursorVisible();
}

}  // namespace quorvale
