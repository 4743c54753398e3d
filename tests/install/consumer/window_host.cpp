// A program with the widget in its window: shows a file, colours a line, and, when asked, renders
// the window to a picture and ends.
#include <QApplication>
#include <QMainWindow>
#include <QPixmap>
#include <cstdio>

#include "qt/quorvale_box_widget.h"
#include "qt/row_copying.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 2) {
        std::fputs("window_host FILE [PICTURE]\n", stderr);
        return 2;
    }

    QMainWindow window;
    auto* view = new quorvale::QuorvaleBoxWidget(&window);
    view->setOptions({.WideScrollBars = true, .TallView = true});
    new quorvale::RowCopying(*view);
    window.setCentralWidget(view);
    window.resize(640, 400);
    window.show();
    view->loadFile(arguments[1]);
    view->setLineBackColor(2, QColor(255, 230, 150));
    QObject::connect(view, &quorvale::QuorvaleBoxWidget::scrolled, &window,
                     [&] { window.setWindowTitle(QString::number(view->topLine())); });
    std::printf("window_host: %d lines\n", view->lineCount());
    if (arguments.size() < 3) return QApplication::exec();
    QApplication::processEvents();
    return window.grab().save(arguments[2]) ? 0 : 1;
}
