#include <QApplication>
#include <QBuffer>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QPixmap>
#include <QPointer>
#include <QScopeGuard>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <initializer_list>
#include <string>
#include <string_view>

#include "viewer/appearance.h"
#include "viewer/designer_check.h"
#include "viewer/element_dump.h"
#include "viewer/ending_signals.h"
#include "viewer/file_names.h"
#include "viewer/viewer_settings.h"
#include "viewer/viewer_window.h"

namespace {

using quorvale::ViewerWindow;

/// What the command line asks for.
struct Request {
    QString File;
    QString Snapshot;
    QString Dump;
    int Line = 0;
    bool ChecksDesigner = false;
};

void complain(const QString& message) {
    std::fprintf(stderr, "quorvale-viewer: %s\n", qUtf8Printable(message));
}

/// Drops what says nothing to a user: the offscreen platform's complaints about windows that nobody
/// sees, and a desktop variable that nothing here needs.
void sayWhatMatters(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (message.startsWith("This plugin does not support")) return;
    if (message.startsWith("QStandardPaths: XDG_RUNTIME_DIR not set")) return;
    std::fprintf(stderr, "%s\n", qUtf8Printable(qFormatLogMessage(type, context, message)));
}

/// Whether the command line names one of these options.
bool names(int argc, char** argv, std::initializer_list<std::string_view> options) {
    const auto named = [&](std::string_view argument) {
        return std::any_of(options.begin(), options.end(), [&](std::string_view option) {
            return argument == option || argument.starts_with(std::string(option) + "=");
        });
    };
    return std::any_of(argv + 1, argv + argc, named);
}

/// Whether a window can be opened, as far as the environment tells.
bool hasDisplay() {
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

/// Pictures, help and version need no display, and must not fail for one that does not answer.
/// Says whether a window can be opened.
bool choosePlatform(int argc, char** argv) {
    if (names(argc, argv, {"-platform", "--platform"})) return true;
    const bool windowless =
        names(argc, argv,
              {"--snapshot", "-snapshot", "--help", "-h", "--version", "-v", "--designer-check"});
    const bool displayed = hasDisplay();
    if (!displayed || (windowless && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    return displayed;
}

/// The command line without what Qt has taken for itself. Qt's own list would have lost a name that
/// is no UTF-8.
QStringList argumentsOf(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) arguments << quorvale::nameOf(argv[i]);
    return arguments;
}

/// False, with a message on standard error, for a line that makes no sense.
bool readCommandLine(const QStringList& arguments, Request& request) {
    QCommandLineParser parser;
    parser.setApplicationDescription("Shows one text file of any size as rows.");
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption snapshot("snapshot", "Render the window to a picture and exit.",
                                      "PNG");
    const QCommandLineOption line("line", "Put the caret on a line, counted from 1.", "N");
    const QCommandLineOption designer(
        "designer-check",
        "Load the plugin for Qt Designer, or the one named instead of a file, "
        "and say why it would not load.");
    // For tools that look at the viewer from outside: of no use to anybody else.
    QCommandLineOption dump("dump-elements", "Keep a file up to date with what is shown.", "JSON");
    dump.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOptions({snapshot, line, designer, dump});
    parser.addPositionalArgument("file", "The file to show.", "[FILE]");
    parser.process(arguments);
    if (parser.positionalArguments().size() > 1) {
        complain("one file at a time can be shown");
        return false;
    }
    request.File = parser.positionalArguments().value(0);
    request.Snapshot = parser.value(snapshot);
    request.Dump = parser.value(dump);
    request.ChecksDesigner = parser.isSet(designer);
    if (!parser.isSet(line)) return true;
    bool isNumber = false;
    request.Line = parser.value(line).toInt(&isNumber);
    if (isNumber && request.Line >= 1) return true;
    complain(QString("%1 is not a line number").arg(parser.value(line)));
    return false;
}

/// Says what came of loading the plugin for Qt Designer; the exit code.
int checkDesigner(const QString& fileName) {
    const quorvale::DesignerCheck check =
        quorvale::checkDesignerPlugin(fileName, QApplication::applicationVersion());
    if (!check.Loads)
        complain(check.Report);
    else
        std::puts(qUtf8Printable(check.Report));
    return check.Loads ? 0 : 1;
}

/// The end of the name says what kind of picture it is. False when that or the place is no good.
bool writePicture(const QPixmap& picture, const QString& fileName) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    const QByteArray kind = QFileInfo(fileName).suffix().toLatin1();
    if (!buffer.open(QIODevice::WriteOnly) || !picture.save(&buffer, kind)) return false;
    std::ofstream file(quorvale::pathOf(fileName), std::ios::binary);
    file.write(bytes.constData(), bytes.size());
    file.close();
    return !file.fail();
}

/// Renders the window as it is shown; the exit code.
int takeSnapshot(ViewerWindow& window, const QString& fileName) {
    QApplication::processEvents();
    if (writePicture(window.grab(), fileName)) return 0;
    complain(QString("%1 cannot be written as a picture").arg(fileName));
    return 1;
}

/// As if the user closed all windows, but there is nobody to ask.
void endQuietly() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* viewer = qobject_cast<ViewerWindow*>(window)) viewer->saveQuietly();
    }
    QApplication::exit();
}

}  // namespace

int main(int argc, char** argv) {
    const bool displayed = choosePlatform(argc, argv);
    qInstallMessageHandler(sayWhatMatters);
    QApplication application(argc, argv);
    QApplication::setApplicationName("quorvale-viewer");
    QApplication::setApplicationVersion(QUORVALE_VERSION);
    Request request;
    if (!readCommandLine(argumentsOf(argc, argv), request)) return 1;
    if (request.ChecksDesigner) return checkDesigner(request.File);
    if (!displayed && request.Snapshot.isEmpty()) {
        complain("there is no display; --snapshot PNG renders the window to a picture");
        return 1;
    }

    if (!request.Snapshot.isEmpty()) quorvale::ViewerSettings::keepNothing();
    quorvale::wearAsChosen();
    // One window of several later: it goes, with its lock, when the user closes it.
    const QPointer<ViewerWindow> window(new ViewerWindow);
    const auto end = qScopeGuard([&window] { delete window; });
    window->setAttribute(Qt::WA_DeleteOnClose);
    if (request.Snapshot.isEmpty()) window->restorePlace();
    // A snapshot is laid out like a window on the screen, without being seen there.
    window->setAttribute(Qt::WA_DontShowOnScreen, !request.Snapshot.isEmpty());
    window->show();
    if (!request.Dump.isEmpty()) new quorvale::ElementDump(*window, request.Dump);
    if (!request.File.isEmpty()) {
        const QString reason = window->openFile(request.File);
        if (!reason.isEmpty() && !request.Snapshot.isEmpty()) {
            complain(reason);
            return 1;
        }
        if (!reason.isEmpty()) {
            QTimer::singleShot(0, window, [&] { window->openOrTell(request.File); });
        } else if (request.Line > 0) {
            window->goToLine(request.Line);
        }
    }
    if (!request.Snapshot.isEmpty()) return takeSnapshot(*window, request.Snapshot);
    const quorvale::EndingSignals endings;
    QObject::connect(&endings, &quorvale::EndingSignals::arrived, &application, endQuietly);
    return QApplication::exec();
}
