#pragma once

#include <QObject>
#include <QString>

#include "qt/export.h"

namespace quorvale {

class HostExtras;
class QuorvaleBoxWidget;

/// Lets the user copy rows of a control: Ctrl+C takes the selected rows, or the caret's, as they
/// stand in the file, their line breaks included; Ctrl+Shift+C lists them, each line's number and a
/// tab before it and a line feed behind it. The control itself
/// leaves these keys to its host: they are answered after `keyDown` has told every other listener
/// that was connected before. Make one to switch it on; it belongs to the widget.
class QUORVALE_WIDGET_EXPORT RowCopying final : public QObject {
    Q_OBJECT

public:
    /// More characters than this are not put on the clipboard.
    static constexpr qint64 MostCharacters = qint64{1} << 27;

    /// It belongs to the widget and goes with it.
    explicit RowCopying(QuorvaleBoxWidget& widget);

public slots:
    /// What Ctrl+C does: the rows as they stand in the file.
    void copyRows();
    /// What Ctrl+Shift+C does: each line behind its number and a tab.
    void copyNumberedRows();

signals:
    /// So many rows were put on the clipboard.
    void copied(int rows);
    /// The rows are more text than a clipboard can sensibly hold; it was left as it is.
    void tooMuch();

private:
    void answerKey(int keyCode, int shift);
    void put(bool numbered);

    QuorvaleBoxWidget& widget_;
};

/// The lines as they stand in the file, each after its number and a tab, parted by line feeds.
QUORVALE_WIDGET_EXPORT QString numberedLines(const HostExtras& document, int first, int last);

}  // namespace quorvale
