#include <QAction>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPointer>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>

#include "control/host_extras.h"
#include "control/search_extras.h"
#include "qt/conversions.h"
#include "viewer/file_search.h"
#include "viewer/file_walk.h"
#include "viewer/in_files_dialog.h"
#include "viewer/result_windows.h"
#include "viewer/viewer_window.h"

using namespace quorvale;

/// Results of other files, and what becomes of the window they are picked in.
class ViewerResultsTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup();
    void foldsStayWhenOtherFilesAreSearchedAndPicked();
    void aListThatNobodyMadeIsNotShown();
    void aListThatWasReplacedIsGone();
    void theFolderOfTheShownFileIsSuggestedUntilTheUserChoosesOne();

private:
    QString put(const QString& name, const QByteArray& bytes);
    FoundFiles walk() const;

    QTemporaryDir folder_;
};

namespace {

ViewerWindow* windowBeside(const ViewerWindow* window) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* other = qobject_cast<ViewerWindow*>(widget);
        if (other != nullptr && other != window) return other;
    }
    return nullptr;
}

ViewerWindow* otherWindow(const ViewerWindow& window) { return windowBeside(&window); }

}  // namespace

void ViewerResultsTest::cleanup() {
    while (ViewerWindow* window = windowBeside(nullptr)) delete window;
}

QString ViewerResultsTest::put(const QString& name, const QByteArray& bytes) {
    const QString path = QDir(folder_.path()).canonicalPath() + "/" + name;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) return {};
    return path;
}

FoundFiles ViewerResultsTest::walk() const {
    FileWalk walk({QDir(folder_.path()).canonicalPath(), NameFilter("*.txt"), true, false});
    while (walk.goOn(1000)) {
    }
    return walk.found();
}

// The caret went to the picked line here too, and was put back: into a fold that stayed open.
void ViewerResultsTest::foldsStayWhenOtherFilesAreSearchedAndPicked() {
    const QString shown = put("a.txt", "one\n  two\n  marker\nfour\n");
    const QString other = put("b.txt", "one\ntwo\nmarker\nfour\n");
    ViewerWindow window;
    window.show();
    QCOMPARE(window.openFile(shown), QString());
    QuorvaleBox& box = window.control().box();
    box.CollapseLines(1, 3);
    box.CollapseAll();
    QVERIFY(box.RowTop(3) < 0);
    window.control().act([](Surface& surface) { surface.Focus.Request(FocusChild::SearchBox); });
    window.findChild<FileSearch*>()->list({"marker", false, walk()});
    QVERIFY(box.RowTop(3) < 0);
    QCOMPARE(window.control().row(), 1);
    box.Elements().lvFound.UserDoubleClick(2);
    QTRY_VERIFY(otherWindow(window) != nullptr && otherWindow(window)->isVisible());
    QCOMPARE(otherWindow(window)->fileName(), other);
    QCOMPARE(otherWindow(window)->control().row(), 3);
    QCOMPARE(window.control().row(), 1);
    QVERIFY(box.RowTop(3) < 0);
    // The same file under another name is this window's.
    QVERIFY(QFile::link(shown, folder_.path() + "/link"));
    window.control().setSearchFiles({QDir(folder_.path()).canonicalPath() + "/link"});
    window.control().act([](Surface& surface) { surface.tbMore.UserMenuClick(u"Find", 1); });
    box.Elements().lvFound.UserDoubleClick(1);
    QCOMPARE(window.control().row(), 3);
}

// An empty sheet lay over the text.
void ViewerResultsTest::aListThatNobodyMadeIsNotShown() {
    ViewerWindow window;
    window.show();
    QCOMPARE(window.openFile(put("a.txt", "marker")), QString());
    window.results().showLastList();
    QVERIFY(!window.control().box().Elements().lvFound.Visible());
    QCOMPARE(window.statusBar()->currentMessage(), QString("There is no list yet"));
}

// A window that a list had led to kept its own last one alive.
void ViewerResultsTest::aListThatWasReplacedIsGone() {
    put("a.txt", "marker\n");
    put("b.txt", "marker\n");
    ViewerWindow window;
    window.show();
    QCOMPARE(window.openFile(folder_.filePath("a.txt")), QString());
    window.findChild<FileSearch*>()->list({"marker", false, walk()});
    window.control().box().Elements().lvFound.UserDoubleClick(2);
    QTRY_VERIFY(otherWindow(window) != nullptr);
    ViewerWindow& led = *otherWindow(window);
    led.control().setSearchText("marker");
    const auto search = [&led] {
        led.control().act([](Surface& surface) { surface.tbMore.UserMenuClick(u"Find", 1); });
    };
    search();
    // Led there again, the window's own list is the one that it has now.
    window.control().act([](Surface& surface) { surface.tbMore.UserMenuClick(u"Find", 4); });
    window.control().box().Elements().lvFound.UserDoubleClick(2);
    QCoreApplication::processEvents();
    const std::weak_ptr<const ListRows> own = led.control().box().Elements().lvFound.Rows();
    QVERIFY(!own.expired());
    search();
    QCoreApplication::processEvents();
    QVERIFY(own.expired());
}

// It was the folder of whichever file had been shown first.
void ViewerResultsTest::theFolderOfTheShownFileIsSuggestedUntilTheUserChoosesOne() {
    const QString here = QDir(folder_.path()).canonicalPath();
    QVERIFY(QDir(here).mkdir("deeper"));
    put("a.txt", "marker\n");
    put("deeper/b.txt", "marker\n");
    ViewerWindow window;
    window.show();
    auto* search = window.findChild<FileSearch*>();
    const auto find = [&](const QString& folder) {
        search->ask();
        auto* dialog = window.findChild<InFilesDialog*>();
        const InFilesFields fields = dialog->fields();
        if (!folder.isEmpty()) dialog->findChild<QLineEdit*>("folder")->setText(folder);
        dialog->findChild<QLineEdit*>("text")->setText("marker");
        const QPointer<InFilesDialog> open(dialog);
        QTest::keyClick(dialog, Qt::Key_Return);
        while (open != nullptr) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        return fields.Folder;
    };
    QCOMPARE(window.openFile(here + "/a.txt"), QString());
    QCOMPARE(find({}), here);
    QCOMPARE(window.openFile(here + "/deeper/b.txt"), QString());
    QCOMPARE(find(here), here + "/deeper");
    QCOMPARE(window.openFile(here + "/deeper/b.txt"), QString());
    QCOMPARE(find({}), here);
}

QTEST_MAIN(ViewerResultsTest)
#include "viewer_results_test.moc"
