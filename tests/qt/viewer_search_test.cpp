#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

#include "document/largest_file.h"
#include "qt/conversions.h"
#include "support/without_privileges.h"
#include "viewer/file_search.h"
#include "viewer/file_walk.h"
#include "viewer/in_files_dialog.h"
#include "viewer/name_filter.h"
#include "viewer/viewer_window.h"

using namespace quorvale;

/// Searching in files: which files are meant, how they are found, and what becomes of the search.
class ViewerSearchTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void namesAreFiltered_data();
    void namesAreFiltered();
    void namesComeInTheOrderPeopleExpect();
    void aFoldersFilesComeBeforeItsSubfolders();
    void linksLeadToFilesAndInNoCircle();
    void onlyRegularFilesAreFound();
    void whatMayNotBeReadIsLeftOutAndCounted();
    void namesThatNoListCanHoldAreCounted();
    void whatIsTooLargeToOpenIsCounted();
    void aWalkGoesALittleAtATime();
    void aWalkIsStoppedWithEscapeAndTheDialogStays();
    void withoutATextThereIsNothingToFind();
    void theNextSearchIsInTheDocumentAgain();
    void theShownFileIsKnownByTheNameItWasOpenedWith();
    void fillingTheBoxLeavesTheCaretWhereItIs();
    void noTwoEntriesOfTheMenusShareTheirKeys();
    void everyCommandOfTheToolbarHasAKeyInTheMenus();

private:
    QString put(const QString& name, const QByteArray& bytes = "marker\n");
    FoundFiles walk(const QString& names = "*", bool subfolders = true, bool hidden = false);
    QStringList relative(const FoundFiles& found) const;

    std::unique_ptr<QTemporaryDir> folder_;
    QString root_;
};

namespace {

FoundFiles walked(const WantedFiles& wanted) {
    FileWalk walk(wanted);
    while (walk.goOn(1000)) {
    }
    return walk.found();
}

QStringList listed(ViewerWindow& window) {
    const ListView& list = window.control().box().Elements().lvFound;
    QStringList tags;
    for (std::size_t row = 1; row + 1 < list.RowCount(); ++row) {
        tags << toQString(list.RowTag(row)).section('\r', 0, 0);
    }
    return tags;
}

void findAll(ViewerWindow& window) {
    window.control().act([](Surface& surface) { surface.tbMore.UserMenuClick(u"Find", 1); });
}

}  // namespace

void ViewerSearchTest::init() {
    folder_ = std::make_unique<QTemporaryDir>();
    QVERIFY(folder_->isValid());
    root_ = QDir(folder_->path()).canonicalPath();
}

QString ViewerSearchTest::put(const QString& name, const QByteArray& bytes) {
    const QString path = root_ + "/" + name;
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) return {};
    return path;
}

FoundFiles ViewerSearchTest::walk(const QString& names, bool subfolders, bool hidden) {
    return walked({root_, NameFilter(names), subfolders, hidden});
}

QStringList ViewerSearchTest::relative(const FoundFiles& found) const {
    QStringList names;
    for (const QString& name : found.Names) names << QDir(root_).relativeFilePath(name);
    return names;
}

void ViewerSearchTest::namesAreFiltered_data() {
    QTest::addColumn<QString>("patterns");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("admitted");
    QTest::newRow("one of two") << "*.log;*.txt"
                                << "a.txt" << true;
    QTest::newRow("neither") << "*.log;*.txt"
                             << "a.dat" << false;
    QTest::newRow("commas and blanks") << " *.log , *.txt "
                                       << "a.txt" << true;
    QTest::newRow("case") << "*.txt"
                          << "A.TXT" << true;
    QTest::newRow("whole names") << "a?"
                                 << "abc" << false;
    QTest::newRow("one unit") << "a?c"
                              << "abc" << true;
    QTest::newRow("a list") << "[ab].txt"
                            << "b.txt" << true;
    QTest::newRow("a dot is a dot") << "a.b"
                                    << "axb" << false;
    QTest::newRow("nothing") << ""
                             << "anything" << true;
    QTest::newRow("only separators") << " ; ,"
                                     << "anything" << true;
}

void ViewerSearchTest::namesAreFiltered() {
    QFETCH(QString, patterns);
    QFETCH(QString, name);
    const NameFilter filter(patterns);
    QVERIFY(filter.isValid());
    QTEST(filter.admits(name), "admitted");
    QVERIFY(!NameFilter("*.txt;[a").isValid());
}

void ViewerSearchTest::namesComeInTheOrderPeopleExpect() {
    const QStringList order{
        "a.txt", "B.txt",  "log1",  "log2",

        "log10", "log10a", "log11", "Z",    "zebra", QString::fromUtf8("\xC3\xA9")};
    for (qsizetype a = 0; a < order.size(); ++a) {
        for (qsizetype b = 0; b < order.size(); ++b) {
            QCOMPARE(orderOf(order[a]) < orderOf(order[b]), a < b);
        }
    }
    QCOMPARE(orderOf("Log02"), orderOf("log2"));
}

void ViewerSearchTest::aFoldersFilesComeBeforeItsSubfolders() {
    for (const char* name : {"b/2.txt", "b/c/1.txt", "z.txt", "a10.txt", "a9.txt", "d/1.txt"}) {
        QVERIFY(!put(name).isEmpty());
    }
    put(".hidden/1.txt");
    put(".hidden.txt");
    QCOMPARE(relative(walk()),
             (QStringList{"a9.txt", "a10.txt", "z.txt", "b/2.txt", "b/c/1.txt", "d/1.txt"}));
    QCOMPARE(relative(walk("*", false)), (QStringList{"a9.txt", "a10.txt", "z.txt"}));
    QCOMPARE(relative(walk(".*;1.*", true, true)),
             (QStringList{".hidden.txt", ".hidden/1.txt", "b/c/1.txt", "d/1.txt"}));
}

void ViewerSearchTest::linksLeadToFilesAndInNoCircle() {
    put("real/file.txt");
    QVERIFY(QFile::link(root_ + "/real/file.txt", root_ + "/link.txt"));
    QVERIFY(QFile::link(root_, root_ + "/real/circle"));
    QVERIFY(QFile::link(root_ + "/nowhere", root_ + "/dangling.txt"));
    const FoundFiles found = walk();
    QCOMPARE(relative(found), QStringList{"real/file.txt"});
    QCOMPARE(found.LeftOut(), 0);
    // The folder itself may be named by a link, and by a path with dots.
    QVERIFY(QFile::link(root_ + "/real", root_ + "/other"));
    const FoundFiles again = walked({root_ + "/real/../other", NameFilter("*.txt"), true, false});
    QCOMPARE(relative(again), QStringList{"real/file.txt"});
}

void ViewerSearchTest::onlyRegularFilesAreFound() {
    put("file.txt");
    QCOMPARE(::mkfifo(QFile::encodeName(root_ + "/pipe.txt").constData(), 0600), 0);
    QVERIFY(QFile::link("/dev/zero", root_ + "/device.txt"));
    QCOMPARE(relative(walk()), QStringList{"file.txt"});
}

void ViewerSearchTest::whatMayNotBeReadIsLeftOutAndCounted() {
    put("open.txt");
    QVERIFY(QFile::setPermissions(put("secret.txt"), QFileDevice::Permissions()));
    put("closed/inside.txt");
    QVERIFY(QFile::setPermissions(root_ + "/closed", QFileDevice::Permissions()));
    const bool told = WithoutPrivileges([&] {
        const FoundFiles found = walk();
        return relative(found) == QStringList{"open.txt"} && found.LeftOut() == 2 &&
               found.Unreadable == QStringList{root_ + "/secret.txt", root_ + "/closed"} &&
               whyNotWalkable(root_ + "/closed").contains("permission") &&
               whyNotWalkable(root_).isEmpty();
    });
    QVERIFY(QFile::setPermissions(root_ + "/closed", QFileDevice::ReadOwner |
                                                         QFileDevice::WriteOwner |
                                                         QFileDevice::ExeOwner));
    QVERIFY(told);
    QVERIFY(whyNotWalkable(root_ + "/missing").contains("no such folder"));
    QVERIFY(whyNotWalkable(root_ + "/open.txt").contains("not a folder"));
    QVERIFY(!whyNotWalkable("").isEmpty());
}

void ViewerSearchTest::namesThatNoListCanHoldAreCounted() {
    put("good\nname.txt");
    put("bad\rname.txt");
    QVERIFY(QDir(root_).mkdir("bad\rfolder"));
    put("bad\rfolder/file.txt");
    const FoundFiles found = walk("*.txt");
    QCOMPARE(relative(found), QStringList{"good\nname.txt"});
    QCOMPARE(found.Unnameable, 2);
    QCOMPARE(walk("*.log").LeftOut(), 0);
}

void ViewerSearchTest::whatIsTooLargeToOpenIsCounted() {
    put("small.txt");
    // Without a block on the disk.
    QFile image(put("disk.img", ""));
    QVERIFY(image.resize(qint64{mostFileBytes} + 1));
    QFile largest(put("largest.txt", ""));
    QVERIFY(largest.resize(qint64{mostFileBytes}));
    const FoundFiles found = walk();
    QCOMPARE(relative(found), (QStringList{"largest.txt", "small.txt"}));
    QCOMPARE(found.TooLarge, 1);
    QCOMPARE(found.LeftOut(), 1);
}

void ViewerSearchTest::aWalkGoesALittleAtATime() {
    constexpr int count = 1000;
    for (int i = 0; i < count; ++i) put(QString::number(i), "");
    FileWalk walk({root_, NameFilter("*"), true, false});
    int turns = 0;
    while (walk.goOn(0)) ++turns;
    QCOMPARE(walk.found().Names.size(), qsizetype{count});
    QVERIFY2(turns >= count / 100, qPrintable(QString::number(turns)));
    QCOMPARE(walk.found().Names.at(999), root_ + "/999");
}

void ViewerSearchTest::aWalkIsStoppedWithEscapeAndTheDialogStays() {
    put("file.txt");
    InFilesFields fields;
    fields.Text = "marker";
    fields.Folder = root_;
    InFilesDialog dialog(nullptr, fields);
    QSignalSpy wanted(&dialog, &InFilesDialog::wanted);
    dialog.show();
    auto* line = dialog.findChild<QLineEdit*>("folder");
    QTest::keyClick(&dialog, Qt::Key_Return);
    QVERIFY(!line->isEnabled());
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(dialog.isVisible() && line->isEnabled());
    QCOMPARE(dialog.findChild<QLabel*>("message")->text(), QString("Stopped."));
    QTest::keyClick(&dialog, Qt::Key_Return);
    QVERIFY(wanted.wait());
    QVERIFY(!dialog.isVisible());
    dialog.show();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(wanted.size(), 1);
}

void ViewerSearchTest::withoutATextThereIsNothingToFind() {
    InFilesDialog dialog(nullptr, {});
    dialog.show();
    auto* text = dialog.findChild<QLineEdit*>("text");
    const auto buttons = dialog.findChildren<QPushButton*>();
    const auto find = std::find_if(buttons.begin(), buttons.end(),
                                   [](const auto* button) { return button->isDefault(); });
    QVERIFY(find != buttons.end() && !(*find)->isEnabled());
    text->setText("x");
    QVERIFY((*find)->isEnabled());
}

void ViewerSearchTest::theNextSearchIsInTheDocumentAgain() {
    ViewerWindow window;
    window.show();
    QCOMPARE(window.openFile(put("shown.txt")), QString());
    put("other.txt");
    auto* search = window.findChild<FileSearch*>();
    search->list({"MARK*", true, walk()});
    QCOMPARE(listed(window), (QStringList{root_ + "/other.txt", root_ + "/shown.txt"}));
    QCOMPARE(window.statusBar()->currentMessage(), QString("2 files searched"));
    window.control().setSearchText("mark");
    findAll(window);
    QCOMPARE(listed(window), QStringList{root_ + "/shown.txt"});
}

void ViewerSearchTest::theShownFileIsKnownByTheNameItWasOpenedWith() {
    put("shown.txt", "marker\nmarker\n");
    put("before.txt");
    QVERIFY(QFile::link(root_ + "/shown.txt", root_ + "/link"));
    ViewerWindow window;
    window.show();
    QCOMPARE(window.openFile(root_ + "/link"), QString());
    window.goToLine(2);
    window.findChild<FileSearch*>()->list({"marker", false, walk("*.txt")});
    QCOMPARE(listed(window),
             (QStringList{root_ + "/before.txt", root_ + "/link", root_ + "/link"}));
    // So the first match at the caret is what is selected.
    QCOMPARE(*window.control().box().Elements().lvFound.Selected(), std::size_t{3});
}

// The text used to be searched for in the document as if it had been typed there.
void ViewerSearchTest::fillingTheBoxLeavesTheCaretWhereItIs() {
    ViewerWindow window;
    window.show();
    QCOMPARE(window.openFile(put("shown.txt", "one\ntwo\nmarker\n")), QString());
    window.goToLine(2);
    window.control().act([](Surface& surface) { surface.Focus.Request(FocusChild::SearchBox); });
    window.findChild<FileSearch*>()->list({"marker", false, walk()});
    QCOMPARE(window.control().searchText(), QString("marker"));
    QCOMPARE(window.control().row(), 2);
    QCOMPARE(listed(window).size(), qsizetype{1});
}

void ViewerSearchTest::noTwoEntriesOfTheMenusShareTheirKeys() {
    ViewerWindow window;
    QStringList keys;
    for (const QAction* action : window.findChildren<QAction*>()) {
        const QString shortcut = action->shortcut().toString();
        if (shortcut.isEmpty()) continue;
        QVERIFY2(!keys.contains(shortcut), qPrintable(shortcut));
        keys << shortcut;
    }
    for (const char* wanted :
         {"Ctrl+F", "F3", "Shift+F3", "Ctrl+Shift+F", "F4", "Shift+F4", "Ctrl+G"}) {
        QVERIFY2(keys.contains(wanted), wanted);
    }
}

// Two of them had none.
void ViewerSearchTest::everyCommandOfTheToolbarHasAKeyInTheMenus() {
    ViewerWindow window;
    QHash<QString, QString> keys;
    for (const QAction* bar : window.menuBar()->actions()) {
        for (const QAction* entry : bar->menu()->actions()) {
            // Keys that the control takes itself stand in the caption.
            const QString named = entry->text().section('\t', 1);
            keys[entry->text().section('\t', 0, 0).remove('&').remove("...")] =
                named.isEmpty() ? entry->shortcut().toString() : named;
        }
    }
    for (const char* menu : {"&Edit", "&Search"}) {
        for (const QAction* bar : window.menuBar()->actions()) {
            if (bar->text() != menu) continue;
            for (const QAction* entry : bar->menu()->actions()) {
                const QString text = entry->text().section('\t', 0, 0).remove('&').remove("...");
                QVERIFY2(entry->isSeparator() || !keys[text].isEmpty(), qPrintable(text));
            }
        }
    }
    // The entry for each of the control's own commands; "Print" does nothing.
    const QHash<QString, QString> entries{{"Find", "Find next"},
                                          {"Next", "Find next"},
                                          {"All", "List all matches"},
                                          {"WildAll", "List all matches of a pattern"},
                                          {"Recent", "Last list"},
                                          {"Ln", "Go to line"},
                                          {"Collapsed", "Fold all"},
                                          {"Edit", "Edit lines"},
                                          {"Grid", "Show boundaries"},
                                          {"mnuPopupEdit", "Edit lines"},
                                          {"mnuPopupUndo", "Undo correction"},
                                          {"mnuUndoAll", "Undo all corrections"},
                                          {"mnuPopupPrev", "Previous correction"},
                                          {"mnuPopupNext", "Next correction"},
                                          {"mnuPopupCommit", "Commit into the file"},
                                          {"mnuCollapseCollapseAll", "Fold all"},
                                          {"mnuCollapseExpandAll", "Unfold all"}};
    const Surface& surface = window.control().box().Elements();
    std::vector<MenuItem> commands = surface.mnuPopup.Items;
    const auto& folds = surface.mnuCollapse.Items;
    commands.insert(commands.end(), folds.begin(), folds.end());
    for (const ToolbarButton& button : surface.tbMore.Buttons()) {
        if (button.Key != u"Print") commands.push_back({button.Key, {}});
        commands.insert(commands.end(), button.Menu.begin(), button.Menu.end());
    }
    for (const MenuItem& command : commands) {
        const QString key = toQString(command.Key);
        if (!key.isEmpty()) QVERIFY2(!keys.value(entries.value(key)).isEmpty(), qPrintable(key));
    }
}

QTEST_MAIN(ViewerSearchTest)
#include "viewer_search_test.moc"
