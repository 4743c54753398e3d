// Folds from a parser: lines that are indented belong to the line above. Usage: folds FILE
// [--close]
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

    control.setAutoRedraw(false);
    int head = 1;
    int inside = 0;
    for (int line = 2; line <= control.lineCount() + 1; ++line) {
        const bool indented = line <= control.lineCount() && control.lineText(line).startsWith(' ');
        if (indented) {
            if (inside == 0) inside = line;
            continue;
        }
        // The first line of a range stays visible.
        if (line - 1 > head) control.collapseLines(head, line - 1);
        head = line;
    }
    control.collapseAll();
    control.setAutoRedraw(true);

    // So that a test can run this as well: a line that is folded away has no row.
    if (app.arguments().contains("--close")) {
        bool works = inside > 0 && control.rowTop(inside) < 0;
        control.expandAll();
        works = works && control.rowTop(inside) > 0;
        std::printf("%s\n", works ? "folded and unfolded" : "there was nothing to fold");
        QTimer::singleShot(0, &app, [works] { QApplication::exit(works ? 0 : 1); });
    }
    return QApplication::exec();
}
