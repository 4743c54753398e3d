#include <QStandardPaths>
#include <QTest>
#include <QUrl>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "control/host_extras.h"
#include "dropping.h"
#include "qt/conversions.h"
#include "viewer/file_names.h"
#include "viewer/file_search.h"
#include "viewer/file_walk.h"
#include "viewer/open_check.h"
#include "viewer/viewer_settings.h"
#include "viewer/viewer_window.h"

using namespace quorvale;
namespace fs = std::filesystem;

/// Files whose names are no UTF-8, as old disks and archives hold them, are files like others.
class ViewerFileNamesTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void theBytesOfANameComeBack();
    void whatTheSystemSaysOfThem();
    void aRelativeNameBeginsInTheCurrentFolder();
    void aFileIsOpenedCorrectedAndCommitted();
    void aDroppedFileIsShown();
    void aFileThatWasFoundIsOpened();
    void theListOfTheLastFilesDoesWithoutThem();

private:
    fs::path put(const std::string& name, const std::string& bytes) const;

    /// Not Qt's own kind of folder, which cannot take such files away.
    const fs::path folder_ = fs::temp_directory_path() / "quorvale file names";
};

namespace {

std::string bytesOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

QString row(ViewerWindow& window, int slot) {
    return toQString(window.control().box().Elements().lblLine[slot].Caption());
}

ViewerWindow* windowThatShows(const QString& fileName) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* window = qobject_cast<ViewerWindow*>(widget);
        if (window != nullptr && window->fileName() == fileName) return window;
    }
    return nullptr;
}

}  // namespace

void ViewerFileNamesTest::initTestCase() { QStandardPaths::setTestModeEnabled(true); }

void ViewerFileNamesTest::init() {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
}

void ViewerFileNamesTest::cleanup() { fs::remove_all(folder_); }

fs::path ViewerFileNamesTest::put(const std::string& name, const std::string& bytes) const {
    const fs::path path = fs::canonical(folder_) / name;
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

void ViewerFileNamesTest::theBytesOfANameComeBack() {
    for (const char* path : {"/caf\xE9/\xFF\x80.txt", "/caf\xC3\xA9", "/\xF0\x9F\x98\x80", ""}) {
        QCOMPARE(pathOf(nameOf(fs::path(path))).native(), std::string(path));
    }
    QCOMPARE(nameOf(fs::path("caf\xE9")), QString("caf") + QChar(0xDCE9));
}

void ViewerFileNamesTest::whatTheSystemSaysOfThem() {
    const fs::path path = put("f\xFCr/caf\xE9.txt", "1234567");
    const QString name = nameOf(path);
    QVERIFY(isThere(name) && mayRead(name));
    QCOMPARE(sizeOf(name), 7);
    QCOMPARE(canonicalName(nameOf(path.parent_path() / "." / path.filename())), name);
    QCOMPARE(whyNotOpenable(name), QString());
    QVERIFY(whyNotOpenable(nameOf(path.parent_path())).endsWith("It is a directory."));
    QVERIFY(mayLookInto(nameOf(path.parent_path())));
    const QString other = nameOf(path.parent_path() / "caf\xE8.txt");
    QVERIFY(!isThere(other) && !mayRead(other));
    QCOMPARE(sizeOf(other), 0);
    QCOMPARE(canonicalName(other), QString());
    QVERIFY(whyNotOpenable(other).endsWith("There is no such file."));
    // What stands before the NUL is another file.
    const QString cut = name + QChar(u'\0') + "x";
    QVERIFY(!isThere(cut) && !mayRead(cut) && !mayLookInto(cut));
    QVERIFY(whyNotOpenable(cut).endsWith("There is no such file."));
}

void ViewerFileNamesTest::aRelativeNameBeginsInTheCurrentFolder() {
    const fs::path folder = put("f\xFCr/caf\xE9.txt", "").parent_path();
    const fs::path before = fs::current_path();
    fs::current_path(folder);
    QCOMPARE(pathOf(absoluteName(nameOf(fs::path("./caf\xE9.txt")))), folder / "caf\xE9.txt");
    // Where `a` is a link, this is not "b".
    QCOMPARE(pathOf(absoluteName("a/../b")), folder / "a/../b");
    QCOMPARE(pathOf(folderOf(absoluteName("../d/./e..txt"))), folder / "../d/.");
    // For Qt this were a resource.
    QCOMPARE(pathOf(absoluteName(":notes")), folder / ":notes");
    fs::remove_all(folder);
    QCOMPARE(absoluteName("../b"), QString("../b"));
    fs::current_path(before);
}

void ViewerFileNamesTest::aFileIsOpenedCorrectedAndCommitted() {
    const fs::path path = put("f\xFCr/caf\xE9.txt", "one\ntwo\n");
    const fs::path journal = path.native() + "!.xml";
    put("f\xFCr/caf\xE9.txt!.xml",
        "<corrections><update start=\"2\" loc=\"1\">2\n</update></corrections>");
    ViewerWindow window;
    QCOMPARE(window.openFile(nameOf(path)), QString());
    QCOMPARE(row(window, 1), QString("two"));
    QVERIFY(window.statusText().startsWith("1 correction not committed, 3 lines, 8 bytes"));
    window.control().act([](Surface& surface) { surface.mnuPopup.UserPick(u"mnuPopupCommit"); });
    QCOMPARE(bytesOf(path), std::string("one\n2\n"));
    QVERIFY(!fs::exists(journal));
    QCOMPARE(row(window, 1), QString("2"));
}

void ViewerFileNamesTest::aDroppedFileIsShown() {
    ViewerWindow window;
    for (const std::string name : {"caf\xE9 50% #1?.txt", "caf\xC3\xA9 \xF0\x9F\x98\x80.txt"}) {
        const fs::path path = put(name, name + "\n");
        const QByteArray bytes = QByteArray::fromStdString(path.native());
        QMimeData data;
        data.setUrls({QUrl::fromEncoded("file://" + bytes.toPercentEncoding("/"))});
        drop(window, data);
        QCOMPARE(window.fileName(), nameOf(path));
    }
    QCOMPARE(nameOf(QUrl("https://example.org/a")), QString());
    QCOMPARE(nameOf(QUrl("file://another.machine/a")), QString());
    QCOMPARE(nameOf(QUrl("file://localhost/a")), QString("/a"));
    QCOMPARE(nameOf(QUrl("file:///a%00b")), QString("/a") + QChar(u'\0') + "b");
}

void ViewerFileNamesTest::aFileThatWasFoundIsOpened() {
    const fs::path shown = put("a.txt", "nothing\n");
    const fs::path other = put("sub f\xFCr/caf\xE9.txt", "one\nmarker\n");
    ViewerWindow window;
    window.show();
    QCOMPARE(window.openFile(nameOf(shown)), QString());
    FileWalk walk({nameOf(shown.parent_path()), NameFilter("*.txt"), true, false});
    while (walk.goOn(1000)) {
    }
    QCOMPARE(walk.found().Names, QStringList({nameOf(shown), nameOf(other)}));
    window.findChild<FileSearch*>()->list({"marker", false, walk.found()});
    window.control().box().Elements().lvFound.UserDoubleClick(1);
    QTRY_VERIFY(windowThatShows(nameOf(other)) != nullptr);
    QCOMPARE(windowThatShows(nameOf(other))->control().row(), 2);
    delete windowThatShows(nameOf(other));
}

void ViewerFileNamesTest::theListOfTheLastFilesDoesWithoutThem() {
    ViewerSettings settings;
    settings.forgetRecentFiles();
    settings.addRecentFile("/caf\u00E9");
    settings.addRecentFile(nameOf(fs::path("/caf\xE9")));
    QCOMPARE(settings.recentFiles(), QStringList{"/caf\u00E9"});
    settings.addRecentFile(":notes");
    settings.setText(setting::filesFolder, "/good");
    settings.setText(setting::filesFolder, nameOf(fs::path("/caf\xE9")));
    QCOMPARE(settings.text(setting::filesFolder), QString("/good"));
}

QTEST_MAIN(ViewerFileNamesTest)
#include "viewer_file_names_test.moc"
