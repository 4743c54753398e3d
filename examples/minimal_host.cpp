// The smallest host: a window that shows one file. Usage: minimal_host FILE [--close]
#include <QApplication>
#include <QTimer>
#include <cstdio>

#include "qt/quorvale_box_widget.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    quorvale::QuorvaleBoxWidget control;
    control.resize(800, 500);
    control.show();
    control.loadFile(app.arguments().value(1));
    // So that a test can run this as well. A file that cannot be read shows one empty line.
    if (app.arguments().contains("--close")) {
        std::printf("%d lines\n", control.lineCount());
        QTimer::singleShot(0, &app, [&] { QApplication::exit(control.lineCount() > 1 ? 0 : 1); });
    }
    return QApplication::exec();
}
