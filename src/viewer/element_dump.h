#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QTimer>

namespace quorvale {

class ViewerWindow;

/// What a window shows, as JSON: the caret, the selection, and every row on screen with its line,
/// text, glyph and places in pixels of the control, the status bar, the tool tip, the results, and
/// what is open beside it. For tools and tests that look at a running viewer from outside.
QByteArray dumpElements(ViewerWindow& window);

/// Keeps a file up to date with what the window shows that the user works in, written whole each
/// time. It lives as long as the application.
class ElementDump final : public QObject {
    Q_OBJECT

public:
    ElementDump(ViewerWindow& window, QString fileName);

private:
    void followTheUser();
    void write();

    QPointer<ViewerWindow> window_;
    QString fileName_;
    QByteArray written_;
    QTimer timer_;
};

}  // namespace quorvale
