#include <QDir>
#include <QMetaEnum>
#include <QMetaProperty>
#include <QSignalSpy>
#include <QTest>
#include <cmath>
#include <functional>
#include <limits>

#include "shown_box.h"

using namespace quorvale;
using quorvale::test::ShownBox;

/// What Qt expects of every property of a widget, read from its description.
class NoticesTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void everyPropertyIsReadWrittenResetAndTold();
    void aChangeIsToldOnceAndAnEqualValueNever_data();
    void aChangeIsToldOnceAndAnEqualValueNever();
    void nothingIsToldOfOtherProperties();
    void aFreshWidgetIsAtAllItsDefaults();
    void whatTheUserChangesIsToldToo();
    void aNewPaletteIsToldWhereTheColourFollowsIt();
    void aWidgetThatIsDisabledTellsItsOtherColours();
    void aHostsButtonNamedGridTellsOfNoChange();
    void aSlotMaySetThePropertyAgain();
    void searchTextIsToldWhoeverSetsIt();
    void aColourThatIsNotValidIsAReset();
    void aBorderIsNeverNegativeNorEndless();
    void noNameHidesOneOfAWidget();
    void writeOnlyMembersAreSlots();
    void enumsAreUnscopedAndDescribed();
    void theIconListIsAValue();
    void noPrivateHeadersOfQtAreUsed();
};

namespace {

using Widget = QuorvaleBoxWidget;

const QMetaObject& described() { return Widget::staticMetaObject; }

QList<QMetaProperty> ownProperties() {
    QList<QMetaProperty> properties;
    for (int i = QWidget::staticMetaObject.propertyCount(); i < described().propertyCount(); ++i) {
        properties << described().property(i);
    }
    return properties;
}

QMetaProperty propertyNamed(const char* name) {
    return described().property(described().indexOfProperty(name));
}

}  // namespace

void NoticesTest::initTestCase() { qRegisterMetaType<Widget::BorderStyle>(); }

void NoticesTest::everyPropertyIsReadWrittenResetAndTold() {
    QStringList designable;
    for (const QMetaProperty& one : ownProperties()) {
        QVERIFY2(one.isReadable(), one.name());
        QCOMPARE(one.isStored(), one.isDesignable());
        if (!one.isDesignable()) continue;
        designable << one.name();
        QVERIFY2(one.isWritable() && one.isResettable() && one.hasNotifySignal(), one.name());
        QCOMPARE(one.notifySignal().name(), QByteArray(one.name()) + "Changed");
    }
    designable.sort();
    QCOMPARE(designable, (QStringList{"backColor", "borderColor", "borderStyle", "enabledFlag",
                                      "foreColor", "leftBorderWidth", "showGrid"}));
}

void NoticesTest::aChangeIsToldOnceAndAnEqualValueNever_data() {
    QTest::addColumn<QVariant>("other");
    QTest::newRow("backColor") << QVariant(QColor(1, 2, 3));
    QTest::newRow("foreColor") << QVariant(QColor(4, 5, 6));
    QTest::newRow("borderColor") << QVariant(QColor(7, 8, 9));
    QTest::newRow("leftBorderWidth") << QVariant(600.0);
    QTest::newRow("borderStyle") << QVariant::fromValue(Widget::NoBorder);
    QTest::newRow("showGrid") << QVariant(true);
    QTest::newRow("enabledFlag") << QVariant(true);
    QTest::newRow("searchText") << QVariant("other");
}

void NoticesTest::aChangeIsToldOnceAndAnEqualValueNever() {
    QFETCH(QVariant, other);
    Widget widget;
    const QMetaProperty one = propertyNamed(QTest::currentDataTag());
    const QSignalSpy told(&widget, one.notifySignal());
    const QVariant atFirst = one.read(&widget);
    QVERIFY(one.write(&widget, atFirst));
    QCOMPARE(told.count(), 0);
    QVERIFY(one.write(&widget, other));
    QCOMPARE(told.count(), 1);
    QCOMPARE(one.read(&widget), other);
    QVERIFY(one.write(&widget, other));
    QCOMPARE(told.count(), 1);
    if (!one.isResettable()) return;
    QVERIFY(one.reset(&widget));
    QCOMPARE(told.count(), 2);
    QCOMPARE(one.read(&widget), atFirst);
    QVERIFY(one.reset(&widget));
    QCOMPARE(told.count(), 2);
}

void NoticesTest::nothingIsToldOfOtherProperties() {
    Widget widget;
    std::vector<std::unique_ptr<QSignalSpy>> spies;
    for (const QMetaProperty& one : ownProperties()) {
        if (!one.isDesignable() || one.name() == QByteArray("backColor")) continue;
        spies.push_back(std::make_unique<QSignalSpy>(&widget, one.notifySignal()));
    }
    widget.setBackColor(Qt::red);
    for (const auto& spy : spies) QCOMPARE(spy->count(), 0);
}

void NoticesTest::aFreshWidgetIsAtAllItsDefaults() {
    Widget widget;
    for (const QMetaProperty& one : ownProperties()) {
        if (!one.isResettable()) continue;
        const QVariant fresh = one.read(&widget);
        QVERIFY(one.reset(&widget));
        QVERIFY2(one.read(&widget) == fresh, one.name());
    }
    QCOMPARE(widget.backColor(), widget.palette().color(QPalette::Button));
    QCOMPARE(widget.foreColor(), widget.palette().color(QPalette::ButtonText));
    QCOMPARE(widget.borderColor(), widget.palette().color(QPalette::Button));
    QCOMPARE(widget.leftBorderWidth(), 240.0);
    QCOMPARE(widget.borderStyle(), Widget::FixedSingle);
    QVERIFY(!widget.showGrid());
    QVERIFY(!widget.enabledFlag());
    QVERIFY(widget.isEnabled());
}

void NoticesTest::whatTheUserChangesIsToldToo() {
    ShownBox shown;
    const QSignalSpy grid(&shown.widget(), &Widget::showGridChanged);
    QTest::mouseClick(shown.live().tools().findChild<QToolButton*>("Grid"), Qt::LeftButton);
    QCOMPARE(grid.count(), 1);
    const QSignalSpy text(&shown.widget(), &Widget::searchTextChanged);
    QLineEdit& box = *shown.live().tools().searchBox();
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Y);
    shown.settle();
    QCOMPARE(text.count(), 1);
    QCOMPARE(shown.widget().searchText(), QString("y"));
}

void NoticesTest::aNewPaletteIsToldWhereTheColourFollowsIt() {
    Widget widget;
    widget.setForeColor(Qt::red);
    const QSignalSpy ground(&widget, &Widget::backColorChanged);
    const QSignalSpy text(&widget, &Widget::foreColorChanged);
    const QSignalSpy border(&widget, &Widget::borderColorChanged);
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Button, QColor(10, 20, 30));
    palette.setColor(QPalette::ButtonText, QColor(40, 50, 60));
    widget.setPalette(palette);
    QCOMPARE(ground.count(), 1);
    QCOMPARE(border.count(), 1);
    QCOMPARE(text.count(), 0);
    QCOMPARE(widget.foreColor(), QColor(Qt::red));
}

void NoticesTest::aWidgetThatIsDisabledTellsItsOtherColours() {
    Widget widget;
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(1, 99, 1));
    widget.setPalette(palette);
    const QSignalSpy told(&widget, &Widget::foreColorChanged);
    widget.setEnabled(false);
    QCOMPARE(told.count(), 1);
    QCOMPARE(widget.foreColor(), QColor(1, 99, 1));
}

void NoticesTest::aHostsButtonNamedGridTellsOfNoChange() {
    ShownBox shown;
    QPixmap pixels(16, 16);
    pixels.fill(Qt::red);
    QVERIFY(shown.widget().addButton("Grid", QIcon(pixels)));
    shown.settle();
    const QSignalSpy grid(&shown.widget(), &Widget::showGridChanged);
    const QSignalSpy clicked(&shown.widget(), &Widget::buttonClicked);
    QTest::mouseClick(shown.live().tools().findChild<QToolButton*>(".Grid"), Qt::LeftButton);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(grid.count(), 0);
}

void NoticesTest::aSlotMaySetThePropertyAgain() {
    Widget widget;
    int times = 0;
    connect(&widget, &Widget::leftBorderWidthChanged, &widget, [&] {
        ++times;
        widget.setLeftBorderWidth(300);
    });
    widget.setLeftBorderWidth(600);
    QCOMPARE(times, 2);
    QCOMPARE(widget.leftBorderWidth(), 300.0);
}

void NoticesTest::searchTextIsToldWhoeverSetsIt() {
    ShownBox shown;
    const QSignalSpy told(&shown.widget(), &Widget::searchTextChanged);
    shown.box().SearchText(u"by its member");
    shown.settle();
    QCOMPARE(told.count(), 1);
    shown.widget().setSearchText("by its slot");
    QCOMPARE(told.count(), 2);
    shown.settle();
    QCOMPARE(told.count(), 2);
}

void NoticesTest::aColourThatIsNotValidIsAReset() {
    Widget widget;
    widget.setBackColor(Qt::red);
    widget.setBackColor(QColor());
    QCOMPARE(widget.box().BackColor(), 0x8000000FU);
    widget.setForeColor(QColor());
    QCOMPARE(widget.box().ForeColor(), 0x80000012U);
    widget.setText("one");
    widget.setLineForeColor(1, Qt::green);
    widget.setLineForeColor(1, QColor());
    QCOMPARE(widget.lineForeColor(1), widget.foreColor());
}

void NoticesTest::aBorderIsNeverNegativeNorEndless() {
    ShownBox shown;
    shown.loadLines(10);
    Widget& widget = shown.widget();
    const double endless = std::numeric_limits<double>::infinity();
    for (const double width : {-5.0, -endless, std::nan("")}) {
        widget.setLeftBorderWidth(300);
        widget.setLeftBorderWidth(width);
        QCOMPARE(widget.leftBorderWidth(), 0.0);
    }
    for (const double width : {1e7, 1e300, endless}) {
        widget.setLeftBorderWidth(width);
        QCOMPARE(widget.leftBorderWidth(), 1e6);
        QVERIFY(!shown.picture().isNull());
    }
}

void NoticesTest::noNameHidesOneOfAWidget() {
    const QMetaObject& plain = QWidget::staticMetaObject;
    for (const QMetaProperty& one : ownProperties()) {
        QVERIFY2(plain.indexOfProperty(one.name()) < 0, one.name());
    }
    for (int i = plain.methodCount(); i < described().methodCount(); ++i) {
        const QByteArray signature = described().method(i).methodSignature();
        QVERIFY2(plain.indexOfMethod(signature) < 0, signature);
    }
    QCOMPARE(QByteArray(described().property(described().indexOfProperty("font")).typeName()),
             QByteArray("QFont"));
}

void NoticesTest::writeOnlyMembersAreSlots() {
    for (const char* slot :
         {"setIcon(QIcon)", "setAutoRedraw(bool)", "setSearchFiles(QStringList)"}) {
        const int index = described().indexOfSlot(slot);
        QVERIFY2(index >= 0, slot);
        QCOMPARE(described().method(index).access(), QMetaMethod::Public);
    }
    for (const char* name : {"icon", "autoRedraw", "searchFiles"}) {
        QVERIFY2(described().indexOfProperty(name) < 0, name);
    }
}

void NoticesTest::enumsAreUnscopedAndDescribed() {
    for (const QMetaProperty& one : ownProperties()) {
        if (!one.isEnumType()) continue;
        const QMetaEnum all = one.enumerator();
        QVERIFY2(all.isValid() && !all.isScoped(), one.name());
        QVERIFY(all.keyCount() > 0);
    }
    const QMetaEnum styles = propertyNamed("borderStyle").enumerator();
    QCOMPARE(styles.keyToValue("NoBorder"), 0);
    QCOMPARE(styles.keyToValue("FixedSingle"), 1);
}

void NoticesTest::theIconListIsAValue() {
    Widget widget;
    QPixmap pixels(12, 12);
    pixels.fill(Qt::blue);
    QCOMPARE(widget.imageList().count(), 0);
    IconList icons;
    QVERIFY(icons.add("flag", QIcon(pixels)));
    QVERIFY(widget.setProperty("imageList", QVariant::fromValue(icons)));
    QCOMPARE(widget.imageList().count(), 1);
    QCOMPARE(widget.property("imageList").value<IconList>().object(), icons.object());
    widget.box().ImageList(std::make_shared<Object>());
    QCOMPARE(widget.imageList().count(), 0);
}

void NoticesTest::noPrivateHeadersOfQtAreUsed() {
    QDir sources(QUORVALE_SOURCES "/qt");
    const QFileInfoList files = sources.entryInfoList({"*.h", "*.cpp"});
    QVERIFY(files.size() > 50);
    for (const QFileInfo& info : files) {
        QFile file(info.filePath());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray text = file.readAll();
        QVERIFY2(!text.contains("private/q") && !text.contains("_p.h"),
                 qPrintable(info.fileName()));
        QVERIFY2(!text.contains("qpa/"), qPrintable(info.fileName()));
    }
}

QTEST_MAIN(NoticesTest)
#include "notices_test.moc"
