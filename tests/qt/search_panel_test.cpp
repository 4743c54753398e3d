#include <QAccessible>
#include <QLocale>
#include <QTest>

#include "qt/conversions.h"
#include "qt/search_panel.h"

using namespace quorvale;

/// What the panel of a long search shows, in every language, width, palette and scale.
class SearchPanelTest : public QObject {
    Q_OBJECT

private slots:
    void itLiesAlongTheLowerEdgeWhateverTheSize();
    void aLongNameIsShortenedInItsMiddle();
    void aNameIsShownInOneLine();
    void theBarIsAsFarAsTheFilesAre_data();
    void theBarIsAsFarAsTheFilesAre();
    void itSpeaksTheLanguage_data();
    void itSpeaksTheLanguage();
    void itHasTheColoursOfADarkPalette();
    void screenReadersFindTheBar();
    void nothingIsCut();
};

namespace {

SearchPlace placeOf(std::u16string_view file) { return {file, 5, 20, 1, 2, 1234}; }

struct Shown {
    explicit Shown(Language language = Language::English, QSize size = QSize(600, 400)) {
        control.resize(size);
        control.show();
        (void)QTest::qWaitForWindowExposed(&control);
        panel = new SearchPanel(control);
        panel->speak(language);
    }

    QLabel* label(const char* name) { return panel->findChild<QLabel*>(name); }
    QProgressBar* bar() { return panel->findChild<QProgressBar*>("searchProgress"); }

    QWidget control;
    SearchPanel* panel;
};

}  // namespace

void SearchPanelTest::itLiesAlongTheLowerEdgeWhateverTheSize() {
    Shown shown;
    QVERIFY(!shown.panel->isVisible());
    shown.panel->showPlace(placeOf(u"/f"));
    QVERIFY(shown.panel->isVisible());
    for (const QSize size : {QSize(600, 400), QSize(300, 200), QSize(900, 500)}) {
        shown.control.resize(size);
        QCOMPARE(shown.panel->geometry().bottomRight(), shown.control.rect().bottomRight());
        QCOMPARE(shown.panel->width(), size.width());
        QVERIFY(shown.panel->height() < 120);
    }
}

void SearchPanelTest::aLongNameIsShortenedInItsMiddle() {
    Shown shown(Language::English, QSize(260, 300));
    const QString name = "/folder" + QString(300, 'x') + "/the_file.txt";
    shown.panel->showPlace(placeOf(toUtf16(name)));
    const QLabel& label = *shown.label("searchedFile");
    QVERIFY(label.text().startsWith("/fo"));
    QVERIFY(label.text().endsWith("e.txt"));
    QVERIFY(label.text().contains(u'\u2026'));
    QVERIFY(label.fontMetrics().horizontalAdvance(label.text()) <= label.width());
    QCOMPARE(shown.panel->fileName(), name);
    QCOMPARE(label.accessibleName(), name);
    shown.control.resize(5000, 300);
    QCOMPARE(label.text(), name);
}

void SearchPanelTest::aNameIsShownInOneLine() {
    Shown shown;
    shown.panel->showPlace(placeOf(u"/odd\nname\tof<b>a file"));
    QCOMPARE(shown.label("searchedFile")->text(), QString("/odd name of<b>a file"));
}

void SearchPanelTest::theBarIsAsFarAsTheFilesAre_data() {
    QTest::addColumn<int>("files");
    QTest::addColumn<int>("done");
    QTest::addColumn<int>("bytes");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("percent");
    QTest::newRow("at its beginning") << 4 << 0 << 0 << 0 << 0;
    QTest::newRow("some files") << 4 << 1 << 0 << 0 << 25;
    QTest::newRow("half a file more") << 4 << 1 << 50 << 100 << 37;
    QTest::newRow("one large file") << 1 << 0 << 30 << 100 << 30;
    QTest::newRow("a file that has grown") << 1 << 0 << 300 << 100 << 100;
    QTest::newRow("no file") << 0 << 0 << 0 << 0 << 0;
}

void SearchPanelTest::theBarIsAsFarAsTheFilesAre() {
    QFETCH(int, files);
    QFETCH(int, done);
    QFETCH(int, bytes);
    QFETCH(int, size);
    QFETCH(int, percent);
    Shown shown;
    SearchPlace place = placeOf(u"/f");
    place.Files = static_cast<std::size_t>(files);
    place.FilesDone = static_cast<std::size_t>(done);
    place.Done = static_cast<std::uint64_t>(bytes);
    place.Size = static_cast<std::uint64_t>(size);
    shown.panel->showPlace(place);
    QCOMPARE(shown.panel->percent(), percent);
}

void SearchPanelTest::itSpeaksTheLanguage_data() {
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("hint");
    QTest::addColumn<QString>("text");
    const QString count = QLocale().toString(1234);
    QTest::newRow("en") << 1033 << count + " found - Esc ends the search"
                        << "The text shown";
    QTest::newRow("ja") << 1041 << count + " 件見つかりました - Esc キーで検索を終了"
                        << "表示中のテキスト";
    QTest::newRow("ko") << 1042 << count + "개 찾음 - Esc 키로 검색 끝내기"
                        << "표시 중인 텍스트";
}

void SearchPanelTest::itSpeaksTheLanguage() {
    QFETCH(int, language);
    QFETCH(QString, hint);
    QFETCH(QString, text);
    Shown shown(LanguageFromId(language));
    shown.panel->showPlace(placeOf(u"*"));
    QCOMPARE(shown.label("searchHint")->text(), hint);
    QCOMPARE(shown.panel->fileName(), text);
}

void SearchPanelTest::itHasTheColoursOfADarkPalette() {
    Shown shown;
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(30, 30, 30));
    dark.setColor(QPalette::WindowText, QColor(230, 230, 230));
    shown.control.setPalette(dark);
    shown.panel->showPlace(placeOf(u"/file"));
    const QLabel& label = *shown.label("searchedFile");
    const QImage seen = shown.panel->grab().toImage();
    const qreal scale = seen.devicePixelRatio();
    int bright = 0;
    int ground = 0;
    const QRect area = label.geometry();
    for (int x = qRound(area.left() * scale); x < qRound(area.right() * scale); ++x) {
        for (int y = qRound(area.top() * scale); y < qRound(area.bottom() * scale); ++y) {
            const int light = seen.pixelColor(x, y).lightness();
            bright += light > 150;
            ground += light < 40;
        }
    }
    QVERIFY(bright > 20);
    QVERIFY(ground > 10 * bright);
}

void SearchPanelTest::screenReadersFindTheBar() {
    Shown shown;
    shown.panel->showPlace(placeOf(u"/file"));
    QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(shown.bar());
    QVERIFY(bar != nullptr);
    QCOMPARE(bar->role(), QAccessible::ProgressBar);
    QCOMPARE(bar->text(QAccessible::Name), QString("Search progress"));
    QVERIFY(bar->valueInterface() != nullptr);
    QCOMPARE(bar->valueInterface()->currentValue().toInt(), shown.bar()->value());
    QVERIFY(!bar->state().invisible);
}

void SearchPanelTest::nothingIsCut() {
    for (const Language language : {Language::English, Language::Japanese, Language::Korean}) {
        Shown shown(language, QSize(400, 300));
        shown.panel->showPlace(placeOf(u"/gjpqy"));
        for (const char* name : {"searchedFile", "searchHint"}) {
            const QLabel& label = *shown.label(name);
            QVERIFY(label.height() >= label.fontMetrics().height());
            QVERIFY(!label.text().contains(u'\u2026'));
            QVERIFY(shown.panel->rect().contains(label.geometry()));
        }
        QVERIFY(shown.bar()->height() >= shown.bar()->fontMetrics().height());
    }
}

QTEST_MAIN(SearchPanelTest)
#include "search_panel_test.moc"
