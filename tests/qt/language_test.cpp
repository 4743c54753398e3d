#include <QTest>

#include "control/host_extras.h"
#include "qt/widget_services.h"
#include "shown_box.h"

using namespace quorvale;
using quorvale::test::ShownBox;

/// The language of the control's own texts. The program runs on a desktop that speaks Korean.
class LanguageTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { QuorvaleBoxWidget::setInterfaceLanguage(QLocale::AnyLanguage); }
    void theFirstLanguageOfTheUserDecides_data();
    void theFirstLanguageOfTheUserDecides();
    void atFirstItIsTheDesktops();
    void aHostMayChooseAnotherOneForNewWidgets();
    void aWidgetKeepsTheLanguageItWasCreatedWith();
    void anyOtherLanguageShowsEnglish();
};

namespace {

QString findTip(QuorvaleBoxWidget& widget) {
    return toQString(widget.box().Elements().tbMore.Button(u"Find").ToolTip);
}

}  // namespace

void LanguageTest::theFirstLanguageOfTheUserDecides_data() {
    QTest::addColumn<QStringList>("languages");
    QTest::addColumn<int>("id");
    QTest::newRow("none") << QStringList() << 1033;
    QTest::newRow("the plain one") << QStringList{"C"} << 1033;
    QTest::newRow("English") << QStringList{"en-GB", "ja"} << 1033;
    QTest::newRow("Japanese") << QStringList{"ja"} << 1041;
    QTest::newRow("Japanese of Japan") << QStringList{"ja-JP", "en"} << 1041;
    QTest::newRow("Japanese with its script") << QStringList{"ja-Jpan-JP"} << 1041;
    QTest::newRow("Korean") << QStringList{"ko"} << 1042;
    QTest::newRow("Korean of Korea") << QStringList{"ko-KR"} << 1042;
    QTest::newRow("German") << QStringList{"de-DE", "ko"} << 1033;
    // Symptom: Konkani, whose code begins like that of Korean, was shown in Korean.
    QTest::newRow("Konkani") << QStringList{"kok-IN"} << 1033;
    QTest::newRow("Javanese") << QStringList{"jav"} << 1033;
    QTest::newRow("rubbish") << QStringList{"???"} << 1033;
}

void LanguageTest::theFirstLanguageOfTheUserDecides() {
    QFETCH(QStringList, languages);
    QFETCH(int, id);
    QCOMPARE(languageIdOf(languages), id);
}

void LanguageTest::atFirstItIsTheDesktops() {
    QCOMPARE(QuorvaleBoxWidget::interfaceLanguage(), QLocale::AnyLanguage);
    QuorvaleBoxWidget widget;
    QCOMPARE(widget.box().Extras().Language(), Language::Korean);
    QCOMPARE(findTip(widget), QString("찾기"));
    QCOMPARE(widget.searchText(), QString("검색"));
}

void LanguageTest::aHostMayChooseAnotherOneForNewWidgets() {
    QuorvaleBoxWidget::setInterfaceLanguage(QLocale::Japanese);
    QCOMPARE(QuorvaleBoxWidget::interfaceLanguage(), QLocale::Japanese);
    QuorvaleBoxWidget japanese;
    QCOMPARE(findTip(japanese), QString("検索"));
    QuorvaleBoxWidget::setInterfaceLanguage(QLocale::English);
    QuorvaleBoxWidget english;
    QCOMPARE(findTip(english), QString("Find"));
}

void LanguageTest::aWidgetKeepsTheLanguageItWasCreatedWith() {
    ShownBox shown;
    QuorvaleBoxWidget::setInterfaceLanguage(QLocale::Japanese);
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&shown.widget(), &change);
    shown.settle();
    QCOMPARE(findTip(shown.widget()), QString("찾기"));
    auto* button = shown.live().tools().findChild<QToolButton*>("Find");
    QCOMPARE(button->toolTip(), QString("찾기"));
}

void LanguageTest::anyOtherLanguageShowsEnglish() {
    QuorvaleBoxWidget::setInterfaceLanguage(QLocale::French);
    QuorvaleBoxWidget widget;
    QCOMPARE(widget.box().Extras().Language(), Language::English);
}

int main(int argc, char** argv) {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) qputenv(name, "ko_KR.UTF-8");
    qputenv("LANGUAGE", "ko_KR:en");
    QApplication application(argc, argv);
    LanguageTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "language_test.moc"
