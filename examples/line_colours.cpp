// Colours and pictures for lines: errors are red and have a sign. Usage: line_colours FILE
// [--close]
#include <QApplication>
#include <QStyle>
#include <QTimer>
#include <cstdio>

#include "qt/icon_list.h"
#include "qt/quorvale_box_widget.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    quorvale::QuorvaleBoxWidget control;
    control.resize(800, 500);
    control.show();

    quorvale::IconList signs;
    signs.add("error", QApplication::style()->standardIcon(QStyle::SP_MessageBoxCritical));
    control.setImageList(signs);

    control.loadFile(app.arguments().value(1));
    // One layout at the end instead of one for each line.
    control.setAutoRedraw(false);
    int coloured = 0;
    for (int line = 1; line <= control.lineCount(); ++line) {
        if (!control.lineText(line).contains("ERROR")) continue;
        control.setLineForeColor(line, Qt::red);
        control.setLineImage(line, "error");
        coloured += control.lineForeColor(line) == Qt::red && control.lineImage(line) == "error";
    }
    control.setAutoRedraw(true);

    // So that a test can run this as well.
    if (app.arguments().contains("--close")) {
        std::printf("%d lines are coloured\n", coloured);
        QTimer::singleShot(0, &app, [&] { QApplication::exit(coloured > 0 ? 0 : 1); });
    }
    return QApplication::exec();
}
