// Folds from a parser: lines that are indented belong to the line above.
// Usage: folds FILE [--close]
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
    int inside = 0;  // the first line that belongs to another one
    for (int line = 2; line <= control.lineCount() + 1; ++line) {
        if (line <= control.lineCount() && control.lineText(line).startsWith(' ')) {
            if (inside == 0) inside = line;
            continue;
        }
        if (line - 1 > head) control.collapseLines(head, line - 1);  // The head stays visible.
        head = line;
    }
    control.collapseAll();
    control.setAutoRedraw(true);

    // So that a test can run this as well: a line that is folded away has no row.
    if (app.arguments().contains("--close")) {
        const bool folded = inside > 0 && control.rowTop(inside) < 0;
        control.expandAll();
        const bool works = folded && control.rowTop(inside) > 0;
        std::printf("%s\n", works ? "folded and unfolded" : "there was nothing to fold");
        QTimer::singleShot(0, &app, [works] { QApplication::exit(works ? 0 : 1); });
    }
    return QApplication::exec();
}
