#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QRandomGenerator>
#include <QSettings>
#include <QStyle>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <cmath>

#include "viewer/appearance.h"
#include "viewer/language.h"
#include "viewer/look_menu.h"
#include "viewer/recent_files.h"
#include "viewer/viewer_settings.h"
#include "viewer/viewer_window.h"

using namespace quorvale;

/// What the viewer keeps between its runs, and what it makes of rubbish there.
class ViewerSettingsTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void whatIsKeptIsThereInTheNextRun();
    void rubbishReadsAsTheDefault_data();
    void rubbishReadsAsTheDefault();
    void aFolderInTheFilesPlaceDoesNoHarm();
    void twoViewersKeepEachOthersValues();
    void theLastFilesAreKeptOnceAndTenOfThem();
    void namesThatAreNoneAreNotInTheList();
    void theMenuOfRecentFilesNumbersThem();
    void aWindowOpensWithTheChosenFontAndParts();
    void theOwnColoursCanBeRead_data();
    void theOwnColoursCanBeRead();
    void theDesktopsColoursComeBack();
    void aLanguageTakesMenusAndControlAlong();
    void fieldsAndBoxesHaveAnOutline_data();
    void fieldsAndBoxesHaveAnOutline();
    void aPlaceThatCannotBeUsedIsNotRestored();

private:
    QString place() const;
    void write(const QByteArray& bytes) const;
    QByteArray written() const;
};

namespace {

double luminance(const QColor& colour) {
    const auto linear = [](double share) {
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const double first = luminance(one);
    const double second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QStringList titles(const ViewerWindow& window) {
    QStringList texts;
    for (const QAction* action : window.menuBar()->actions()) texts << action->text();
    return texts;
}

}  // namespace

QString ViewerSettingsTest::place() const {
    return qEnvironmentVariable("XDG_CONFIG_HOME") + "/quorvale/viewer.ini";
}

void ViewerSettingsTest::write(const QByteArray& bytes) const {
    QFile file(place());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray ViewerSettingsTest::written() const {
    QFile file(place());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void ViewerSettingsTest::init() {
    // Only ever below the place that the test was given.
    QVERIFY(!qEnvironmentVariableIsEmpty("XDG_CONFIG_HOME"));
    const QString folder = QFileInfo(place()).path();
    QDir(folder).removeRecursively();
    QVERIFY(QDir().mkpath(folder));
}

void ViewerSettingsTest::whatIsKeptIsThereInTheNextRun() {
    ViewerSettings().setOn(setting::grid, true);
    ViewerSettings().setNumber(setting::zoom, -2);
    ViewerSettings().setText(setting::language, "ko");
    const QByteArray bytes("\x00\x01\xFF geometry", 12);
    ViewerSettings().setBytes(setting::windowPlace, bytes);
    QVERIFY(written().contains("zoom=-2"));
    QCOMPARE(ViewerSettings().isOn(setting::grid, false), true);
    QCOMPARE(ViewerSettings().number(setting::zoom, 0, -10, 10), -2);
    QCOMPARE(ViewerSettings().choice(setting::language, viewerLanguages()), QString("ko"));
    QCOMPARE(ViewerSettings().bytes(setting::windowPlace), bytes);
}

void ViewerSettingsTest::rubbishReadsAsTheDefault_data() {
    QTest::addColumn<QByteArray>("bytes");
    QByteArray noise;
    QRandomGenerator random(7);
    for (int i = 0; i < 5000; ++i) noise += static_cast<char>(random.bounded(256));
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("noise") << noise;
    QTest::newRow("wrong words") << QByteArray(
        "[General]\nlanguage=klingon\nappearance=7\n[text]\nsize=huge\nzoom=99999999999\n"
        "family=No Such Family\n[view]\ngrid=perhaps\ntoolbar=1\nfolds=@Variant(\\0\\0\\0)\n"
        "[window]\nplace=!!!\n[recent]\nfiles=@Invalid()\n");
    QTest::newRow("wrong types") << QByteArray(
        "[General]\nlanguage=en, ja\n[text]\nsize=@Size(3 4)\nzoom=@Rect(1 2 3 4)\n"
        "[view]\ngrid=@ByteArray(true)x\n[window]\nplace=@Point(1 2)\n[recent]\nfiles=7\n");
}

void ViewerSettingsTest::rubbishReadsAsTheDefault() {
    QFETCH(QByteArray, bytes);
    write(bytes);
    const ViewerSettings settings;
    QCOMPARE(settings.choice(setting::language, viewerLanguages()), QString("system"));
    QCOMPARE(settings.choice(setting::appearance, viewerAppearances()), QString("system"));
    QCOMPARE(settings.number(setting::fontSize, 9, 4, 72), 9);
    QCOMPARE(settings.number(setting::zoom, 0, -68, 68), 0);
    QCOMPARE(settings.isOn(setting::grid, false), false);
    QCOMPARE(settings.isOn(setting::toolbar, true), true);
    QCOMPARE(settings.recentFiles(), QStringList());
    ViewerWindow window;
    window.restorePlace();
    window.show();
    QVERIFY(window.width() >= 100 && window.height() >= 100);
    QVERIFY(window.control().box().Elements().tbMore.Visible());
    QVERIFY(!window.control().showGrid());
}

void ViewerSettingsTest::aFolderInTheFilesPlaceDoesNoHarm() {
    QVERIFY(QDir().mkpath(place() + "/inside"));
    ViewerSettings().setOn(setting::grid, true);
    ViewerSettings().addRecentFile("/a");
    QVERIFY(QFileInfo(place()).isDir());
    ViewerWindow window;
    window.show();
    window.close();
}

// Each used to be able to write back all it had read when it started.
void ViewerSettingsTest::twoViewersKeepEachOthersValues() {
    ViewerSettings().setOn(setting::grid, true);
    // Another program, with its own idea of the file.
    write("[view]\ngrid=true\n[text]\nzoom=3\n[recent]\nfiles=/theirs\n");
    ViewerSettings().addRecentFile("/ours");
    ViewerSettings().setText(setting::language, "ja");
    QCOMPARE(ViewerSettings().number(setting::zoom, 0, 0, 9), 3);
    QCOMPARE(ViewerSettings().recentFiles(), QStringList({"/ours", "/theirs"}));
    QVERIFY(written().contains("zoom=3") && written().contains("language=ja"));
}

void ViewerSettingsTest::theLastFilesAreKeptOnceAndTenOfThem() {
    for (int i = 1; i <= 12; ++i) ViewerSettings().addRecentFile(QString("/file %1, x").arg(i));
    ViewerSettings().addRecentFile("/file 5, x");
    const QStringList names = ViewerSettings().recentFiles();
    QCOMPARE(names.size(), ViewerSettings::mostRecentFiles);
    QCOMPARE(names.mid(0, 3), QStringList({"/file 5, x", "/file 12, x", "/file 11, x"}));
    QCOMPARE(names.count("/file 5, x"), 1);
    QCOMPARE(names.last(), QString("/file 3, x"));
    ViewerSettings().forgetRecentFile("/file 12, x");
    QVERIFY(!ViewerSettings().recentFiles().contains("/file 12, x"));
    ViewerSettings().forgetRecentFiles();
    QCOMPARE(ViewerSettings().recentFiles(), QStringList());
}

void ViewerSettingsTest::namesThatAreNoneAreNotInTheList() {
    ViewerSettings().addRecentFile("");
    ViewerSettings().addRecentFile("relative");
    ViewerSettings().addRecentFile("/" + QString(5000, 'x'));
    QCOMPARE(ViewerSettings().recentFiles(), QStringList());
    write("[recent]\nfiles=/one, relative, /one, , /two\n");
    QCOMPARE(ViewerSettings().recentFiles(), QStringList({"/one", "/two"}));
}

void ViewerSettingsTest::theMenuOfRecentFilesNumbersThem() {
    QTemporaryDir folder;
    const QString there = folder.filePath("R&D\tnotes.txt");
    QFile file(there);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    ViewerSettings().addRecentFile("/nowhere/gone.txt");
    ViewerSettings().addRecentFile(there);
    QMenu menu;
    RecentFiles recent(menu);
    QStringList picked;
    QStringList missing;
    connect(&recent, &RecentFiles::picked, this, [&](const QString& name) { picked << name; });
    connect(&recent, &RecentFiles::missing, this, [&](const QString& name) { missing << name; });
    emit menu.aboutToShow();
    QCOMPARE(menu.actions().size(), 4);
    QVERIFY(menu.actions()[0]->text().startsWith("&1  "));
    QVERIFY(menu.actions()[0]->text().endsWith("R&&D notes.txt"));
    QCOMPARE(menu.actions()[1]->statusTip(), QString("/nowhere/gone.txt"));
    menu.actions()[0]->trigger();
    menu.actions()[1]->trigger();
    QCOMPARE(picked, QStringList({there}));
    QCOMPARE(missing, QStringList({"/nowhere/gone.txt"}));
    QCOMPARE(ViewerSettings().recentFiles(), QStringList({there}));
    emit menu.aboutToShow();
    menu.actions().last()->trigger();
    QCOMPARE(ViewerSettings().recentFiles(), QStringList());
    emit menu.aboutToShow();
    QVERIFY(!menu.actions().first()->isEnabled() && !menu.actions().last()->isEnabled());
}

void ViewerSettingsTest::aWindowOpensWithTheChosenFontAndParts() {
    write("[text]\nfamily=DejaVu Serif\nsize=14\nzoom=3\n[view]\ngrid=true\ntoolbar=false\n");
    ViewerWindow window;
    window.show();
    QCOMPARE(window.control().font().family(), QString("DejaVu Serif"));
    QCOMPARE(window.control().font().pointSize(), 17);
    QVERIFY(window.control().showGrid());
    QVERIFY(!window.control().box().Elements().tbMore.Visible());
}

void ViewerSettingsTest::theOwnColoursCanBeRead_data() {
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("light") << lightColours();
    QTest::newRow("dark") << darkColours();
}

void ViewerSettingsTest::theOwnColoursCanBeRead() {
    QFETCH(QPalette, palette);
    using Role = QPalette::ColorRole;
    for (const auto& [text, ground] :
         {std::pair<Role, Role>{QPalette::WindowText, QPalette::Window},
          {QPalette::Text, QPalette::Base},
          {QPalette::Text, QPalette::AlternateBase},
          {QPalette::ButtonText, QPalette::Button},
          {QPalette::HighlightedText, QPalette::Highlight},
          {QPalette::ToolTipText, QPalette::ToolTipBase},
          {QPalette::PlaceholderText, QPalette::Base},
          {QPalette::Link, QPalette::Base},
          {QPalette::LinkVisited, QPalette::Base}}) {
        const double found = contrast(palette.color(text), palette.color(ground));
        QVERIFY2(found >= 4.5,
                 qPrintable(QString("%1 on %2: %3").arg(text).arg(ground).arg(found)));
    }
}

void ViewerSettingsTest::theDesktopsColoursComeBack() {
    wear("system");
    const QPalette before = QApplication::palette();
    const QString style = QApplication::style()->name();
    wear("dark");
    QVERIFY(QApplication::palette().color(QPalette::Base).lightness() < 128);
    wear("system");
    QCOMPARE(QApplication::palette().color(QPalette::Base), before.color(QPalette::Base));
    QCOMPARE(QApplication::style()->name(), style);
}

void ViewerSettingsTest::aLanguageTakesMenusAndControlAlong() {
    QTemporaryDir folder;
    const QString name = folder.filePath("three.txt");
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("one\ntwo\nthree");
    file.close();
    ViewerWindow window;
    window.show();
    QCOMPARE(window.openFile(name), QString());
    window.goToLine(2);
    QVERIFY(titles(window).contains("&File"));
    speak("ja");
    QTRY_VERIFY(titles(window).contains(QString::fromUtf8("ファイル(&F)")));
    QTRY_VERIFY(window.statusText().startsWith(QString::fromUtf8("3 行")));
    QVERIFY(window.control().box().Elements().lvFound.Headers()[1] == u"行番号");
    QCOMPARE(window.control().row(), 2);
    speak("ko");
    QTRY_VERIFY(titles(window).contains(QString::fromUtf8("파일(&F)")));
    speak("en");
    QTRY_VERIFY(titles(window).contains("&File"));
    QTRY_VERIFY(window.statusText().startsWith("3 lines"));
}

void ViewerSettingsTest::fieldsAndBoxesHaveAnOutline_data() {
    QTest::addColumn<QString>("look");
    QTest::newRow("light") << "light";
    QTest::newRow("dark") << "dark";
}

// In the dark neither an empty field nor an unchecked box could be seen.
void ViewerSettingsTest::fieldsAndBoxesHaveAnOutline() {
    QFETCH(QString, look);
    wear(look);
    QWidget form;
    QLineEdit line(&form);
    QCheckBox box(&form);
    line.setGeometry(10, 10, 200, 30);
    box.setGeometry(10, 50, 30, 30);
    form.resize(300, 100);
    form.show();
    for (const QWidget* part : {static_cast<QWidget*>(&line), static_cast<QWidget*>(&box)}) {
        const QImage picture = form.grab(part->geometry()).toImage();
        double most = 0;
        const QColor ground = form.palette().color(QPalette::Base);
        for (int x = 0; x < 8; ++x) {
            most = std::max(most, contrast(picture.pixelColor(x, picture.height() / 2), ground));
        }
        QVERIFY2(most >= 3,
                 qPrintable(QString("%1 %2").arg(part->metaObject()->className()).arg(most)));
    }
    wear("system");
}

// A window of one column stood on the screen.
void ViewerSettingsTest::aPlaceThatCannotBeUsedIsNotRestored() {
    QWidget tiny;
    tiny.setGeometry(0, 0, 1, 1);
    ViewerSettings().setBytes(setting::windowPlace, tiny.saveGeometry());
    ViewerWindow window;
    window.restorePlace();
    QCOMPARE(window.size(), QSize(1000, 700));
    QWidget usual;
    usual.setGeometry(0, 0, 600, 400);
    ViewerSettings().setBytes(setting::windowPlace, usual.saveGeometry());
    window.restorePlace();
    QCOMPARE(window.size(), QSize(600, 400));
}

QTEST_MAIN(ViewerSettingsTest)
#include "viewer_settings_test.moc"
