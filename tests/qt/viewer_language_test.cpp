#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>

#include "control/host_extras.h"
#include "qt/conversions.h"
#include "qt/live_surface.h"
#include "viewer/file_search.h"
#include "viewer/in_files_dialog.h"
#include "viewer/language.h"
#include "viewer/search_menu.h"
#include "viewer/viewer_settings.h"
#include "viewer/viewer_window.h"

using namespace quorvale;

/// The language of the viewer: from its start, and changed while it is in use.
class ViewerLanguageTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void theKeptLanguageIsSpokenFromTheStart();
    void whatIsSearchedForAndFoundStays();
    void aFileThatHasChangedIsNotReadAgain();
    void aChangeInTheMiddleOfASearchDoesNoHarm();
    void anOpenDialogGoesOnInTheOtherLanguage();
    void theKeysGoWithTheirMenu();
    void theLookOfTheWindowStays();

private:
    QString put(const QByteArray& bytes);

    QTemporaryDir folder_;
};

namespace {

QString tipOfFind(ViewerWindow& window) {
    return toQString(window.control().box().Elements().tbMore.Button(u"Find").ToolTip);
}

QString header(ViewerWindow& window) {
    return toQString(window.control().box().Elements().lvFound.Headers()[1]);
}

void change(ViewerWindow& window, const char* language, const char* tip) {
    speak(language);
    QTRY_COMPARE(tipOfFind(window), QString::fromUtf8(tip));
}

QAction* entry(ViewerWindow& window, const QKeySequence& keys) {
    for (QAction* action : window.findChildren<QAction*>()) {
        if (action->shortcut() == keys) return action;
    }
    return nullptr;
}

}  // namespace

void ViewerLanguageTest::initTestCase() {
    // Before the first window of this program asks for it.
    ViewerSettings().setText(setting::language, "ko");
}

void ViewerLanguageTest::cleanup() { speak("en"); }

QString ViewerLanguageTest::put(const QByteArray& bytes) {
    const QString name = folder_.filePath("shown.txt");
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) return {};
    return name;
}

// The menus spoke the kept language and the control the desktop's.
void ViewerLanguageTest::theKeptLanguageIsSpokenFromTheStart() {
    ViewerWindow window;
    QCOMPARE(window.menuBar()->actions().first()->text(), QString::fromUtf8("파일(&F)"));
    QCOMPARE(window.control().box().Extras().Language(), Language::Korean);
    QCOMPARE(window.control().searchText(), QString::fromUtf8("검색"));
    QCOMPARE(header(window), QString::fromUtf8("행 번호"));
    QCOMPARE(tipOfFind(window), QString::fromUtf8("찾기"));
}

// They went with the control, and the caret came back to the beginning of its line.
void ViewerLanguageTest::whatIsSearchedForAndFoundStays() {
    ViewerWindow window;
    window.show();
    QCOMPARE(window.openFile(put("one\ntwo ab\nthree ab")), QString());
    const QPointer<QuorvaleBoxWidget> control(&window.control());
    control->setSearchText("ab");
    entry(window, QKeySequence("Ctrl+Shift+F"))->trigger();
    control->moveTo(3, 4);
    change(window, "ja", "検索");
    QCOMPARE(&window.control(), control.data());
    QCOMPARE(control->searchText(), QString("ab"));
    QCOMPARE(control->box().Elements().lvFound.RowCount(), std::size_t{4});
    QCOMPARE(header(window), QString::fromUtf8("行番号"));
    QCOMPARE(control->row(), 3);
    QCOMPARE(control->col(), 4);
    QTRY_VERIFY(window.statusText().startsWith(QString::fromUtf8("3 行")));
    QCOMPARE(control->liveSurface().moreButton().accessibleName(),
             QString::fromUtf8("ツールバーの非表示"));
    QTRY_COMPARE(control->liveSurface().tools().searchBox()->accessibleName(),
                 QString::fromUtf8("検索"));
}

// It was, without a word: what was corrected in one line was committed into another.
void ViewerLanguageTest::aFileThatHasChangedIsNotReadAgain() {
    ViewerWindow window;
    window.show();
    QCOMPARE(window.openFile(put("one\ntwo\nthree")), QString());
    put("new\none\ntwo\nthree");
    change(window, "ja", "検索");
    QCOMPARE(window.control().box().LineCount(), 3);
    QVERIFY(window.control().box().Extras().RawLineText(1) == u"one");
}

// The menu that had set the search off was used after it was gone.
void ViewerLanguageTest::aChangeInTheMiddleOfASearchDoesNoHarm() {
    ViewerWindow window;
    window.show();
    QCOMPARE(window.openFile(put("ab\ntwo\nab")), QString());
    window.control().setSearchText("ab");
    const QPointer<SearchMenu> menu(window.findChild<SearchMenu*>());
    window.control().moveTo(3, 3);
    connect(&window.control(), &ControlWidget::selectionChanged, &window, [&] {
        speak("ja");
        QTRY_VERIFY(menu == nullptr);
    });
    entry(window, QKeySequence(Qt::Key_F3))->trigger();
    QVERIFY(menu == nullptr);
    QCOMPARE(window.control().row(), 1);
    QCOMPARE(window.statusBar()->currentMessage(),
             QString::fromUtf8("反対側の端から検索を続けました"));
}

void ViewerLanguageTest::anOpenDialogGoesOnInTheOtherLanguage() {
    ViewerWindow window;
    window.show();
    window.findChild<FileSearch*>()->ask();
    const QPointer<InFilesDialog> dialog(window.findChild<InFilesDialog*>());
    QVERIFY(dialog != nullptr);
    dialog->findChild<QLineEdit*>("text")->setText("half typed");
    dialog->findChild<QLineEdit*>("names")->setText("*.half");
    dialog->findChild<QLineEdit*>("names")->setFocus();
    change(window, "ja", "検索");
    QVERIFY(dialog != nullptr && dialog->isVisible());
    QCOMPARE(window.findChildren<InFilesDialog*>().size(), 1);
    QCOMPARE(dialog->windowTitle(), QString::fromUtf8("複数のファイルから検索"));
    QCOMPARE(dialog->findChild<QCheckBox*>("subfolders")->text(),
             QString::fromUtf8("サブフォルダーも(&S)"));
    QCOMPARE(dialog->fields().Text, QString("half typed"));
    QCOMPARE(dialog->fields().Names, QString("*.half"));
    QCOMPARE(dialog->focusWidget()->objectName(), QString("names"));
}

// Symptom: within one list of keys "Shift+Up" and its translation stood side by side.
void ViewerLanguageTest::theKeysGoWithTheirMenu() {
    ViewerWindow window;
    window.show();
    entry(window, QKeySequence(Qt::Key_F1))->trigger();
    const QPointer<QTextBrowser> keys(window.findChild<QTextBrowser*>());
    QVERIFY(keys != nullptr);
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Home}) {
        const QString name = QKeySequence(key).toString(QKeySequence::NativeText);
        QVERIFY2(keys->toPlainText().contains("+" + name), qPrintable(name));
    }
    change(window, "ja", "検索");
    QVERIFY(keys == nullptr);
}

// It came back as it was kept, which another window may have changed meanwhile.
void ViewerLanguageTest::theLookOfTheWindowStays() {
    ViewerWindow window;
    window.show();
    window.control().setShowGrid(true);
    ViewerSettings settings;
    settings.setOn(setting::grid, false);
    settings.setOn(setting::toolbar, false);
    settings.setNumber(setting::zoom, 9);
    const QFont before = window.control().font();
    change(window, "ja", "検索");
    QVERIFY(window.control().showGrid());
    QVERIFY(window.control().box().Elements().tbMore.Visible());
    QCOMPARE(window.control().font(), before);
    QVERIFY(!settings.isOn(setting::grid, true));
}

QTEST_MAIN(ViewerLanguageTest)
#include "viewer_language_test.moc"
