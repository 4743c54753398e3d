#include <QMetaProperty>
#include <QSignalSpy>
#include <QTest>
#include <limits>

#include "shown_box.h"

using namespace quorvale;
using quorvale::test::ShownBox;

/// The widget's properties as a form editor and other Qt code use them.
class PropertiesTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void storedPropertiesAreSetToldAndReset_data();
    void storedPropertiesAreSetToldAndReset();
    void whatIsOfTheMomentIsNotStored();
    void setColoursReachTheControlAndItsRows();
    void coloursFollowThePaletteUntilTheyAreSet();
    void theFontIsTheWidgetsOwn();
    void aFontSetThroughTheControlIsTheWidgetsToo();
    void aNewWidgetHasTheFontOfItsParent();
    void membersWorkAsPropertiesAndSlots();
    void aSlotThrowsNothing();
    void anOffsetOutsideTheTextMovesNothing();
    void everyNewDocumentIsTold();
    void iconsOfLinesAreFoundByNameAndNumber();
};

namespace {

int indexOf(const QObject& widget, const char* name) {
    return widget.metaObject()->indexOfProperty(name);
}

QIcon plainIcon() {
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::red);
    return QIcon(pixmap);
}

}  // namespace

void PropertiesTest::initTestCase() { qRegisterMetaType<QuorvaleBoxWidget::BorderStyle>(); }

void PropertiesTest::storedPropertiesAreSetToldAndReset_data() {
    QTest::addColumn<QVariant>("other");
    QTest::newRow("backColor") << QVariant(QColor(1, 2, 3));
    QTest::newRow("foreColor") << QVariant(QColor(4, 5, 6));
    QTest::newRow("borderColor") << QVariant(QColor(7, 8, 9));
    QTest::newRow("leftBorderWidth") << QVariant(600.0);
    QTest::newRow("borderStyle") << QVariant(0);
    QTest::newRow("showGrid") << QVariant(true);
    QTest::newRow("enabledFlag") << QVariant(true);
}

void PropertiesTest::storedPropertiesAreSetToldAndReset() {
    QFETCH(QVariant, other);
    QuorvaleBoxWidget widget;
    const QMetaProperty property =
        widget.metaObject()->property(indexOf(widget, QTest::currentDataTag()));
    QVERIFY(property.isValid() && property.isDesignable() && property.isStored());
    QVERIFY(property.isResettable() && property.hasNotifySignal());
    const QVariant atFirst = property.read(&widget);
    QSignalSpy told(&widget, property.notifySignal());
    QVERIFY(property.write(&widget, other));
    QVERIFY(property.read(&widget) != atFirst);
    if (!property.isEnumType()) QCOMPARE(property.read(&widget), other);
    QCOMPARE(told.count(), 1);
    QVERIFY(property.reset(&widget));
    QCOMPARE(property.read(&widget), atFirst);
    QCOMPARE(told.count(), 2);
}

void PropertiesTest::whatIsOfTheMomentIsNotStored() {
    QuorvaleBoxWidget widget;
    for (const char* name : {"text", "lineCount", "topLine", "row", "col", "offset",
                             "selectedRowsCount", "searchText"}) {
        const QMetaProperty property = widget.metaObject()->property(indexOf(widget, name));
        QVERIFY2(property.isValid(), name);
        QVERIFY2(!property.isStored() && !property.isDesignable(), name);
    }
}

void PropertiesTest::setColoursReachTheControlAndItsRows() {
    QuorvaleBoxWidget widget;
    widget.setBackColor(QColor(1, 2, 3));
    QCOMPARE(widget.box().BackColor(), 0x00030201U);
    QCOMPARE(widget.box().Elements().lblLine[5].BackColor(), 0x00030201U);
    widget.setText("one\ntwo");
    widget.setLineForeColor(2, Qt::green);
    QCOMPARE(widget.lineForeColor(2), QColor(Qt::green));
    widget.setLineBackColor(2, Qt::blue);
    QCOMPARE(widget.lineBackColor(2), QColor(Qt::blue));
    QCOMPARE(widget.lineForeColor(77), widget.foreColor());
}

void PropertiesTest::coloursFollowThePaletteUntilTheyAreSet() {
    QuorvaleBoxWidget widget;
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Button, QColor(10, 20, 30));
    widget.setPalette(palette);
    QCOMPARE(widget.backColor(), QColor(10, 20, 30));
    widget.setBackColor(Qt::red);
    QCOMPARE(widget.backColor(), QColor(Qt::red));
    widget.resetBackColor();
    QCOMPARE(widget.backColor(), QColor(10, 20, 30));
}

void PropertiesTest::theFontIsTheWidgetsOwn() {
    ShownBox shown;
    QFont font("DejaVu Sans", 20);
    shown.widget().setFont(font);
    QCOMPARE(shown.box().Font().Name, std::u16string(u"DejaVu Sans"));
    QCOMPARE(shown.box().Font().Size, 20.0);
    const Twips before = shown.elements().RowHeight();
    font.setPointSize(30);
    shown.widget().setFont(font);
    QVERIFY(shown.elements().RowHeight() > before);
}

void PropertiesTest::aFontSetThroughTheControlIsTheWidgetsToo() {
    ShownBox shown;
    shown.box().Font(Font{u"DejaVu Sans", 17});
    QCOMPARE(shown.widget().font().pointSizeF(), 17.0);
    QCOMPARE(shown.widget().font().family(), QString("DejaVu Sans"));
    QCOMPARE(shown.box().Font().Size, 17.0);
}

void PropertiesTest::aNewWidgetHasTheFontOfItsParent() {
    QWidget parent;
    parent.setFont(QFont("DejaVu Sans Mono", 15));
    const QuorvaleBoxWidget widget(&parent);
    QCOMPARE(widget.box().Font().Size, 15.0);
    QCOMPARE(widget.box().Font().Name, std::u16string(u"DejaVu Sans Mono"));
}

void PropertiesTest::membersWorkAsPropertiesAndSlots() {
    ShownBox shown;
    QuorvaleBoxWidget& widget = shown.widget();
    widget.setText("one\r\ntwo\r\nthree");
    QCOMPARE(widget.lineCount(), 3);
    QCOMPARE(widget.text(), QString("one\r\ntwo\r\nthree\r\n"));
    widget.moveTo(2, 3);
    QCOMPARE(widget.row(), 2);
    QCOMPARE(widget.col(), 3);
    QCOMPARE(widget.placeOfOffset(widget.offset()), QPoint(3, 2));
    widget.setSelectedRowsCount(2);
    QCOMPARE(widget.selectedRowsCount(), 2);
    QCOMPARE(widget.lineText(3), QString("three"));
    widget.collapseLines(1, 3);
    widget.collapseAll();
    QCOMPARE(shown.row(1), QString());
    widget.ensureVisible(2);
    QCOMPARE(shown.row(1), QString("two"));
    QVERIFY(widget.rowTop(1) > 0);
    QVERIFY(widget.rowTop(50) < 0);
    QVERIFY(widget.addButton("Go", plainIcon(), "Goes"));
    QVERIFY(!widget.addButton("go", plainIcon()));
    QVERIFY(!widget.addButton("Other", QIcon()));
    widget.setIcon(plainIcon());
    QCOMPARE(shown.elements().imgMarker.Shown()->Name(), std::string("Icon"));
    widget.setIcon({});
    QVERIFY(shown.elements().imgMarker.Shown()->Name() != "Icon");
}

void PropertiesTest::aSlotThrowsNothing() {
    ShownBox shown;
    shown.widget().setText("one\ntwo\nthree");
    shown.widget().collapseLines(1, 5000);
    shown.widget().collapseAll();
    shown.widget().setSelectedRowsCount(std::numeric_limits<int>::max());
    shown.widget().setSelectedRowsCount(std::numeric_limits<int>::min());
    QCOMPARE(shown.widget().lineCount(), 3);
}

void PropertiesTest::anOffsetOutsideTheTextMovesNothing() {
    ShownBox shown;
    shown.widget().setText("one\ntwo");
    shown.widget().moveTo(1, 2);
    QSignalSpy moved(&shown.widget(), &QuorvaleBoxWidget::selectionChanged);
    QCOMPARE(shown.widget().placeOfOffset(5000), QPoint());
    QCOMPARE(shown.widget().placeOfOffset(-1), QPoint());
    QCOMPARE(shown.widget().placeOfOffset(5), QPoint(1, 2));
    QCOMPARE(moved.count(), 0);
    QCOMPARE(shown.widget().col(), 2);
}

void PropertiesTest::everyNewDocumentIsTold() {
    ShownBox shown;
    QSignalSpy told(&shown.widget(), &QuorvaleBoxWidget::textChanged);
    shown.box().text(u"set by its member");
    QCOMPARE(told.count(), 1);
    shown.box().LoadFile(u"/nowhere");
    shown.settle();
    QCOMPARE(told.count(), 2);
    shown.box().TopLine(2);
    shown.settle();
    QCOMPARE(told.count(), 2);
}

void PropertiesTest::iconsOfLinesAreFoundByNameAndNumber() {
    ShownBox shown;
    IconList icons;
    QVERIFY(icons.add("flag", plainIcon()));
    QVERIFY(icons.add("", plainIcon()));
    QVERIFY(!icons.add("FLAG", plainIcon()));
    QVERIFY(!icons.add("none", QIcon()));
    QCOMPARE(icons.count(), 2);
    shown.widget().setText("one\ntwo\nthree");
    shown.widget().setImageList(icons);
    shown.widget().setLineImage(1, "Flag");
    shown.widget().setLineImage(2, 2);
    shown.widget().setLineImage(3, "missing");
    QVERIFY(shown.elements().imgLine[0].Shown() != nullptr);
    QVERIFY(shown.elements().imgLine[1].Shown() != nullptr);
    QVERIFY(shown.elements().imgLine[2].Shown() == nullptr);
    QCOMPARE(shown.widget().lineImage(1), QVariant("Flag"));
    QCOMPARE(shown.widget().lineImage(2), QVariant(2));
}

QTEST_MAIN(PropertiesTest)
#include "properties_test.moc"
