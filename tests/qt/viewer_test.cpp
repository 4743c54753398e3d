#include <QAction>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QProcess>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <sys/stat.h>
#include <unistd.h>

#include "adapters/document_lock.h"
#include "dropping.h"
#include "qt/conversions.h"
#include "support/without_privileges.h"
#include "viewer/open_check.h"
#include "viewer/viewer_window.h"

using namespace quorvale;

/// The viewer: opening files in every way there is, refusing what is none, and its pictures.
class ViewerTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void theTitleAndTheStatusNameTheFile();
    void aFileWithoutALineIsShown();
    void encodingsAreToldInWords();
    void aDroppedFileIsShown();
    void aDroppedTextIsNotTaken();
    void whatCannotBeOpenedIsRefusedAndTheShownFileStays_data();
    void whatCannotBeOpenedIsRefusedAndTheShownFileStays();
    void aFileWithoutPermissionIsRefused();
    void refusingIsToldInAMessage();
    void whatIsPendingBelongsToTheFileThatIsShown();
    void aSecondViewerDoesNotCorrect();
    void whatASecondViewerShowsIsNotWritten();
    void theLockIsHeldUntilTheJournalIsWritten();
    void utf16IsOnlyShown();
    void aNameBehindALinkMeansOneFile();
    void aMessageThatComesWhileClosingIsReadFirst();
    void anUnreadableJournalForbidsCorrecting();
    void theSnapshotShowsTheLineAskedFor();
    void theProgramRefusesWithAMessageAndOne();
    void theProgramTellsItsVersion();

private:
    QString put(const QString& name, const QByteArray& bytes);
    /// Runs the program; its exit code, and what it wrote.
    int run(const QStringList& arguments, QString* written = nullptr);

    QTemporaryDir folder_;
};

namespace {

QString row(ViewerWindow& window, int slot) {
    return toQString(window.control().box().Elements().lblLine[slot].Caption());
}

/// An entry of the menus, by the beginning of its caption.
QAction* entry(const ViewerWindow& window, const QString& caption) {
    for (QAction* action : window.findChildren<QAction*>()) {
        if (action->text().remove('&').startsWith(caption)) return action;
    }
    return nullptr;
}

}  // namespace

void ViewerTest::initTestCase() {
    QVERIFY(folder_.isValid());
    put("first.txt", "one\ntwo\nthree");
}

QString ViewerTest::put(const QString& name, const QByteArray& bytes) {
    const QString path = folder_.filePath(name);
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) file.write(bytes);
    return path;
}

int ViewerTest::run(const QStringList& arguments, QString* written) {
    QProcess viewer;
    viewer.setProcessChannelMode(QProcess::MergedChannels);
    viewer.start(QUORVALE_VIEWER_PROGRAM, arguments);
    if (!viewer.waitForFinished(60'000)) return -1;
    if (written != nullptr) *written = QString::fromUtf8(viewer.readAll());
    return viewer.exitCode();
}

void ViewerTest::theTitleAndTheStatusNameTheFile() {
    ViewerWindow window;
    QCOMPARE(window.windowTitle(), QString("QuorvaleBox"));
    QCOMPARE(window.openFile(folder_.filePath("first.txt")), QString());
    QCOMPARE(window.windowTitle(), QString::fromUtf8("first.txt \xE2\x80\x94 QuorvaleBox"));
    QVERIFY2(window.statusText().startsWith("3 lines, 13 bytes"), qPrintable(window.statusText()));
    QCOMPARE(row(window, 0), QString("one"));
    QCOMPARE(row(window, 2), QString("three"));
}

void ViewerTest::aFileWithoutALineIsShown() {
    ViewerWindow window;
    window.openFile(folder_.filePath("first.txt"));
    QCOMPARE(window.openFile(put("empty.txt", "")), QString());
    QCOMPARE(row(window, 0), QString());
    QVERIFY(window.statusText().startsWith("1 line, 0 bytes"));
}

void ViewerTest::encodingsAreToldInWords() {
    ViewerWindow window;
    window.openFile(put("utf8.txt", "caf\xC3\xA9\n"));
    QVERIFY(window.statusText().endsWith("UTF-8"));
    QCOMPARE(row(window, 0), QString::fromUtf8("caf\xC3\xA9"));
    window.openFile(put("bytes.txt", "caf\xE9\n"));
    QVERIFY(window.statusText().endsWith("one byte per character"));
    QCOMPARE(row(window, 0), QString::fromUtf8("caf\xC3\xA9"));
}

void ViewerTest::aDroppedFileIsShown() {
    ViewerWindow window;
    window.show();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(folder_.filePath("first.txt"))});
    drop(window, data);
    QCOMPARE(row(window, 1), QString("two"));
}

void ViewerTest::aDroppedTextIsNotTaken() {
    ViewerWindow window;
    window.openFile(folder_.filePath("first.txt"));
    QMimeData data;
    data.setText("words");
    drop(window, data);
    QMimeData several;
    several.setUrls({QUrl::fromLocalFile("/a"), QUrl::fromLocalFile("/b")});
    drop(window, several);
    QCOMPARE(row(window, 1), QString("two"));
}

void ViewerTest::whatCannotBeOpenedIsRefusedAndTheShownFileStays_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    const QString fifo = folder_.filePath("fifo");
    QCOMPARE(::mkfifo(fifo.toLocal8Bit().constData(), 0600), 0);
    const QString link = folder_.filePath("dangling");
    QVERIFY(QFile::link(folder_.filePath("nowhere"), link));
    const QString huge = put("huge", "");
    QVERIFY(QFile::resize(huge, (qint64{1} << 31) + 1));
    QTest::newRow("missing") << folder_.filePath("missing") << "There is no such file.";
    QTest::newRow("empty name") << QString() << "There is no such file.";
    QTest::newRow("dangling link") << link << "There is no such file.";
    QTest::newRow("directory") << folder_.path() << "It is a directory.";
    QTest::newRow("pipe") << fifo << "It is a device or a pipe, not a file.";
    QTest::newRow("device") << "/dev/zero"
                            << "It is a device or a pipe, not a file.";
    QTest::newRow("too large") << huge << "It is larger than 2 GiB.";
}

void ViewerTest::whatCannotBeOpenedIsRefusedAndTheShownFileStays() {
    QFETCH(QString, name);
    QFETCH(QString, reason);
    ViewerWindow window;
    window.openFile(folder_.filePath("first.txt"));
    const QString told = window.openFile(name);
    QVERIFY2(told.endsWith(reason), qPrintable(told));
    QVERIFY(told.contains(name));
    QCOMPARE(row(window, 1), QString("two"));
    QVERIFY(window.windowTitle().startsWith("first.txt"));
}

void ViewerTest::aFileWithoutPermissionIsRefused() {
    const QString name = put("secret.txt", "secret");
    QVERIFY(QFile::setPermissions(name, QFileDevice::Permissions()));
    QCOMPARE(WithoutPrivileges([&] {
                 return whyNotOpenable(name).endsWith("You do not have permission to read it.");
             }),
             true);
    QVERIFY(QFile::setPermissions(name, QFileDevice::ReadOwner | QFileDevice::WriteOwner));
    QCOMPARE(WithoutPrivileges([&] { return whyNotOpenable(name).isEmpty(); }), true);
}

void ViewerTest::refusingIsToldInAMessage() {
    ViewerWindow window;
    window.show();
    window.openOrTell(folder_.filePath("missing"));
    auto* box = window.findChild<QMessageBox*>();
    QVERIFY(box != nullptr && box->isVisible());
    QVERIFY(box->text().endsWith("There is no such file."));
    box->close();
}

// The count of the file before used to stay.
void ViewerTest::whatIsPendingBelongsToTheFileThatIsShown() {
    put("pending.txt", "one\ntwo\n");
    put("pending.txt!.xml",
        "<corrections><update start=\"1\" loc=\"1\">1\n</update></corrections>");
    ViewerWindow window;
    QCOMPARE(window.openFile(folder_.filePath("pending.txt")), QString());
    QVERIFY(window.statusText().startsWith("1 correction not committed"));
    QCOMPARE(window.openFile(folder_.filePath("first.txt")), QString());
    QVERIFY(!window.statusText().contains("correction"));
    QCOMPARE(window.openFile(folder_.filePath("pending.txt")), QString());
    QVERIFY(window.statusText().startsWith("1 correction not committed"));
    QFile::remove(folder_.filePath("pending.txt!.xml"));
}

void ViewerTest::aSecondViewerDoesNotCorrect() {
    const QString file = put("shared.txt", "one\ntwo\n");
    QVERIFY(QFile::link(file, folder_.filePath("other name")));
    auto first = std::make_unique<ViewerWindow>();
    ViewerWindow second;
    QCOMPARE(first->openFile(file), QString());
    QCOMPARE(second.openFile(folder_.filePath("other name")), QString());
    QVERIFY(first->control().options().OfferEditing);
    QVERIFY(!second.control().options().OfferEditing);
    QCOMPARE(row(second, 1), QString("two"));
    first.reset();
    QCOMPARE(second.openFile(file), QString());
    QVERIFY(second.control().options().OfferEditing);
}

// Symptom: it brought the journal back when it closed, and the lines came in a second time.
void ViewerTest::whatASecondViewerShowsIsNotWritten() {
    const QString file = put("inserted.txt", "one\ntwo\n");
    const QString journal =
        put("inserted.txt!.xml",
            "<corrections><update start=\"2\" loc=\"0\">new\n</update></corrections>");
    const auto pick = [](ViewerWindow& window, const char16_t* key) {
        window.control().act([key](Surface& surface) { surface.mnuPopup.UserPick(key); });
    };
    auto first = std::make_unique<ViewerWindow>();
    auto second = std::make_unique<ViewerWindow>();
    QCOMPARE(first->openFile(file), QString());
    QCOMPARE(second->openFile(file), QString());
    QCOMPARE(entry(*first, "Commit")->isEnabled(), true);
    QCOMPARE(entry(*second, "Commit")->isEnabled(), false);
    pick(*second, u"mnuPopupCommit");
    QVERIFY(QFile::exists(journal));
    pick(*first, u"mnuPopupCommit");
    QVERIFY(!QFile::exists(journal));
    second.reset();
    first.reset();
    QVERIFY(!QFile::exists(journal));
    QFile committed(file);
    QVERIFY(committed.open(QIODevice::ReadOnly));
    QCOMPARE(committed.readAll(), QByteArray("one\nnew\ntwo\n"));
}

void ViewerTest::theLockIsHeldUntilTheJournalIsWritten() {
    const QString file = put("locked.txt", "one\n");
    for (const bool opensAnother : {true, false}) {
        auto window = std::make_unique<ViewerWindow>();
        QCOMPARE(window->openFile(file), QString());
        bool held = false;
        connect(&window->control(), &QObject::destroyed, this,
                [&] { held = DocumentLock(toUtf16(file)).IsTaken(); });
        if (opensAnother) {
            QCOMPARE(window->openFile(folder_.filePath("first.txt")), QString());
        } else {
            window.reset();
        }
        QVERIFY(held);
    }
}

// Symptom: a corrected line came back as single bytes between the others.
void ViewerTest::utf16IsOnlyShown() {
    for (const char* mark : {"\xFF\xFE", "\xFE\xFF"}) {
        const QString file = put("wide.txt", QByteArray(mark) + QByteArray("a\0\n\0", 4));
        ViewerWindow window;
        QCOMPARE(window.openFile(file), QString());
        QVERIFY(window.control().options().ReadOnly);
        QVERIFY(window.statusBar()->currentMessage().contains("UTF-16"));
        QCOMPARE(window.openFile(folder_.filePath("first.txt")), QString());
        QVERIFY(!window.control().options().ReadOnly);
    }
}

// Symptom: one file was locked, and another one shown.
void ViewerTest::aNameBehindALinkMeansOneFile() {
    QVERIFY(QDir(folder_.path()).mkpath("deep/down"));
    put("deep/meant.txt", "meant\n");
    put("meant.txt", "another\n");
    QVERIFY(QFile::link(folder_.filePath("deep/down"), folder_.filePath("link")));
    const QString name = folder_.filePath("link") + "/../meant.txt";
    ViewerWindow window;
    QCOMPARE(window.openFile(name), QString());
    QCOMPARE(row(window, 0), QString("meant"));
    QVERIFY(DocumentLock(toUtf16(folder_.filePath("deep/meant.txt"))).IsTaken());
}

// Symptom: the box stood without its window, and the program never ended.
void ViewerTest::aMessageThatComesWhileClosingIsReadFirst() {
    ViewerWindow window;
    window.show();
    QMetaObject::invokeMethod(
        &window, [&] { window.tell("kept"); }, Qt::QueuedConnection);
    QVERIFY(!window.close());
    auto* box = window.findChild<QMessageBox*>();
    QVERIFY(box != nullptr && box->isVisible());
    box->accept();
    QTRY_VERIFY(!window.isVisible());
    QTRY_VERIFY(window.findChild<QMessageBox*>() == nullptr);
    QTest::ignoreMessage(QtWarningMsg, "late");
    window.tell("late");
    QVERIFY(window.findChild<QMessageBox*>() == nullptr);
}

void ViewerTest::anUnreadableJournalForbidsCorrecting() {
    const QString file = put("unreadable.txt", "one\n");
    put("unreadable.txt!.xml", "<?xml version=\"1.0\" encoding=\"ebcdic-cp-us\"?><corrections/>");
    ViewerWindow window;
    window.show();
    QCOMPARE(window.openFile(file), QString());
    QVERIFY(!window.control().options().OfferEditing);
    QTRY_VERIFY(window.findChild<QMessageBox*>() != nullptr);
    QVERIFY(window.findChild<QMessageBox*>()->text().contains("cannot be read"));
    window.findChild<QMessageBox*>()->close();
}

void ViewerTest::theSnapshotShowsTheLineAskedFor() {
    QByteArray lines;
    for (int i = 1; i <= 50'000; ++i) lines += i % 2 == 0 ? "x\n" : "\n";
    const QString file = put("many.txt", lines);
    const QString picture = folder_.filePath("shown.png");
    QString written;
    QCOMPARE(run({"--snapshot", picture, "--line", "30000", file}, &written), 0);
    QCOMPARE(written, QString());
    const QImage shown(picture);
    QVERIFY(shown.width() >= 1000 && shown.height() >= 700);
    const QString start = folder_.filePath("start.png");
    QCOMPARE(run({"--snapshot", start, file}), 0);
    QVERIFY(QImage(start) != shown);
}

void ViewerTest::theProgramRefusesWithAMessageAndOne() {
    QString written;
    const QString picture = folder_.filePath("none.png");
    QCOMPARE(run({"--snapshot", picture, folder_.filePath("missing")}, &written), 1);
    QVERIFY(written.contains("There is no such file."));
    QVERIFY(!QFile::exists(picture));
    const QString first = folder_.filePath("first.txt");
    QCOMPARE(run({"--snapshot", "/nowhere/at/all.png", first}, &written), 1);
    QVERIFY(written.contains("cannot be written"));
    QCOMPARE(run({"--line", "many", "--snapshot", picture, first}, &written), 1);
    QVERIFY(written.contains("not a line number"));
    QCOMPARE(run({"--snapshot", picture, first, first}, &written), 1);
}

void ViewerTest::theProgramTellsItsVersion() {
    QString written;
    QCOMPARE(run({"--version"}, &written), 0);
    QVERIFY(written.startsWith("quorvale-viewer 0."));
    QCOMPARE(run({"--help"}, &written), 0);
    QVERIFY(written.contains("--snapshot"));
}

QTEST_MAIN(ViewerTest)
#include "viewer_test.moc"
