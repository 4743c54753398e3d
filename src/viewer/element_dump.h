#pragma once

#include <QByteArray>
#include <QObject>
#include <QTimer>

namespace quorvale {

class ViewerWindow;

/// What a window shows, as JSON: the caret, the selection, and every row on screen with its line,
/// text, glyph and places in pixels of the control, the status bar and the tool tip. For tools and
/// tests that look at a running viewer from outside.
QByteArray dumpElements(ViewerWindow& window);

/// Keeps a file up to date with what a window's control shows, written whole each time.
class ElementDump final : public QObject {
    Q_OBJECT

public:
    ElementDump(ViewerWindow& window, QString fileName);

private:
    void write();

    ViewerWindow& window_;
    QString fileName_;
    QByteArray written_;
    QTimer timer_;
};

}  // namespace quorvale
