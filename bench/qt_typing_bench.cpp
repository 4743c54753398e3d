// Measures a key typed into the editor over ten lines and over ten thousand, until it is painted,
// beside a plain text edit with the same text, and how long the editor takes to open.
// Usage: qt_typing_bench

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <cstdint>
#include <exception>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "qt/conversions.h"
#include "qt/editor_mirror.h"
#include "qt/editor_text.h"
#include "qt/quorvale_box_widget.h"
#include "timing.h"

namespace {

using namespace quorvale;
using namespace quorvale::bench;

constexpr int fewLines = 10;
constexpr int manyLines = 10'000;
constexpr int keys = 50;

QByteArray fileOf(int lines) {
    QByteArray bytes;
    for (int line = 1; line <= lines; ++line) {
        bytes +=
            "line " + QByteArray::number(line) + " of a log with some sixty characters in it\n";
    }
    return bytes;
}

void type(QWidget& widget) {
    for (int i = 0; i < keys; ++i) {
        QKeyEvent down(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, "x");
        QApplication::sendEvent(&widget, &down);
        QKeyEvent up(QEvent::KeyRelease, Qt::Key_X, Qt::NoModifier, "x");
        QApplication::sendEvent(&widget, &up);
        QApplication::processEvents();
    }
}

/// The control with its editor over all lines of a file.
class Editing {
public:
    explicit Editing(int lines) {
        const QString name = folder_.filePath("lines.txt");
        QFile file(name);
        if (!file.open(QIODevice::WriteOnly) || file.write(fileOf(lines)) < 0) {
            throw std::runtime_error("the file cannot be written");
        }
        file.close();
        HostOptions options;
        options.OfferEditing = true;
        widget_.setOptions(options);
        widget_.resize(1280, 800);
        widget_.show();
        widget_.loadFile(name);
        QApplication::processEvents();
    }

    void open(int lines) {
        widget_.box().row(1);
        widget_.box().SelectedRowsCount(lines);
        widget_.box().Elements().mnuPopup.UserPick(u"mnuPopupEdit");
        QApplication::processEvents();
        if (!editor().isVisible()) throw std::runtime_error("the editor is not there");
    }
    void close() {
        widget_.box().Elements().rtbEdit.UserKey(key_code::Escape, 0);
        QApplication::processEvents();
    }

    EditorMirror& editor() { return *widget_.findChild<EditorMirror*>(); }

private:
    QTemporaryDir folder_;
    QuorvaleBoxWidget widget_;
};

void measure() {
    QPlainTextEdit plain;
    plain.resize(1280, 800);
    plain.setPlainText(fileOf(manyLines));
    plain.show();
    Editing few(fewLines);
    Editing many(manyLines);
    few.open(fewLines);
    many.open(manyLines);
    Editing opened(manyLines);
    std::size_t units = 0;
    std::vector<Timing> timings = {
        {"50 keys, a plain text edit of 10,000 lines", [&] { type(plain); }},
        {"50 keys, the editor over 10 lines", [&] { type(few.editor()); }},
        {"50 keys, the editor over 10,000 lines", [&] { type(many.editor()); }},
        {"its whole text once, taken from the document",
         [&] { units = textOf(*many.editor().document()).size(); }},
        {"opening the editor over 10,000 lines", [&] { opened.open(manyLines); },
         [&] {
             // Another text, or there would be nothing to do.
             opened.close();
             opened.open(fewLines);
             opened.close();
         }},
        {"as much text into a plain text edit", [&] {
             plain.setPlainText(fileOf(manyLines));
             QApplication::processEvents();
         }}};
    Measure(timings);
    for (const Timing& timing : timings) Print(timing);
    std::printf("  %zu units\n", units);
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    try {
        measure();
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "qt_typing_bench: %s\n", failure.what());
        return 1;
    }
}
