#include "qt/row_copying.h"

#include <QClipboard>
#include <QGuiApplication>

#include "control/host_extras.h"
#include "platform/keys.h"
#include "qt/conversions.h"
#include "qt/quorvale_box_widget.h"

namespace quorvale {

namespace {

constexpr int keyC = 67;

/// How much text will be copied at most.
qint64 charactersOf(const HostExtras& document, const HostExtras::LineRange& lines, bool numbered) {
    constexpr qint64 mostOfANumber = 11;
    const qint64 numbers = numbered ? (lines.Last - lines.First + 1) * mostOfANumber : 0;
    return document.RawTextLength(lines.First, lines.Last) + numbers;
}

}  // namespace

QString numberedLines(const HostExtras& document, int first, int last) {
    QString text;
    for (int line = first; line <= last; ++line) {
        if (line > first) text += u'\n';
        text += QString::number(line) + u'\t' + toQString(document.RawLineText(line));
    }
    return text;
}

RowCopying::RowCopying(QuorvaleBoxWidget& widget) : QObject(&widget), widget_(widget) {
    connect(&widget, &QuorvaleBoxWidget::keyDown, this, &RowCopying::answerKey);
}

void RowCopying::answerKey(int keyCode, int shift) {
    if (keyCode != keyC) return;
    if (shift == shift_mask::Ctrl) copyRows();
    if (shift == (shift_mask::Ctrl | shift_mask::Shift)) copyNumberedRows();
}

void RowCopying::copyRows() { put(false); }

void RowCopying::copyNumberedRows() { put(true); }

void RowCopying::put(bool numbered) {
    QuorvaleBox& box = widget_.box();
    const HostExtras::LineRange lines = box.Extras().SelectedLines();
    if (lines.First == 0) return;
    if (charactersOf(box.Extras(), lines, numbered) > MostCharacters) {
        emit tooMuch();
        return;
    }
    QGuiApplication::clipboard()->setText(
        numbered ? numberedLines(box.Extras(), lines.First, lines.Last)
                 : toQString(box.Extras().RawText(lines.First, lines.Last)));
    emit copied(lines.Last - lines.First + 1);
}

}  // namespace quorvale
