#include <QMenu>
#include <QTest>

#include "control/host_corrections.h"
#include "shown_box.h"

using namespace quorvale;
using namespace quorvale::test;

/// A desktop that is read from right to left: the control's places stay as they are measured, from
/// the left, and everything can be used.
class RightToLeftTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QApplication::setLayoutDirection(Qt::RightToLeft); }
    void cleanup() { QApplication::setLayoutDirection(Qt::LeftToRight); }
    void everyPartStandsWhereItDoesElsewhere();
    void theRowsLookTheSame();
    void aWindowThatChangesItsDirectionChangesNothing();
    void theScrollBarsRunFromTheLeft();
    void theMouseFindsTheRowsAndTheGlyphs();
    void theEditorCanBeTypedIn();
    void aMenuCanBePickedFrom();
};

namespace {

QMap<QString, QRect> places(ShownBox& shown) {
    shown.settle();
    QMap<QString, QRect> found;
    for (const QWidget* part : shown.widget().findChildren<QWidget*>()) {
        if (part->objectName().isEmpty() || !part->isVisible()) continue;
        const QPoint corner = part->mapTo(&shown.widget(), QPoint());
        found[part->objectName()] = QRect(corner, part->size());
    }
    return found;
}

QByteArray longLines() {
    QByteArray bytes;
    for (int i = 1; i <= 100; ++i) bytes += QByteArray(300, 'x') + QByteArray::number(i) + "\n";
    return bytes;
}

}  // namespace

void RightToLeftTest::everyPartStandsWhereItDoesElsewhere() {
    ShownBox shown;
    shown.load(longLines());
    const auto here = places(shown);
    QApplication::setLayoutDirection(Qt::LeftToRight);
    ShownBox elsewhere;
    elsewhere.load(longLines());
    QCOMPARE(here, places(elsewhere));
    QVERIFY(here.contains("scrVert") && here.contains("scrHorz") && here.contains("txtSearch"));
    QVERIFY(here["scrVert"].left() > here["rows"].right());
    QVERIFY(here["Find"].left() < here["Print"].left());
}

void RightToLeftTest::theRowsLookTheSame() {
    ShownBox shown;
    shown.load(longLines());
    shown.elements().imgMarker.SetVisible(false);
    const QImage here = shown.picture();
    QApplication::setLayoutDirection(Qt::LeftToRight);
    ShownBox elsewhere;
    elsewhere.load(longLines());
    elsewhere.elements().imgMarker.SetVisible(false);
    QCOMPARE(here, elsewhere.picture());
}

void RightToLeftTest::aWindowThatChangesItsDirectionChangesNothing() {
    QApplication::setLayoutDirection(Qt::LeftToRight);
    QWidget window;
    window.resize(800, 600);
    QuorvaleBoxWidget control(&window);
    control.resize(800, 600);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();
    const QRect rows = control.liveSurface().rows().geometry();
    const QRect find = control.findChild<QToolButton*>("Find")->geometry();
    window.setLayoutDirection(Qt::RightToLeft);
    QCoreApplication::processEvents();
    QCOMPARE(control.liveSurface().rows().geometry(), rows);
    QCOMPARE(control.findChild<QToolButton*>("Find")->geometry(), find);
    for (const QWidget* part : control.findChildren<QWidget*>()) {
        if (!part->isWindow()) QVERIFY2(!part->isRightToLeft(), qPrintable(part->objectName()));
    }
}

void RightToLeftTest::theScrollBarsRunFromTheLeft() {
    ShownBox shown;
    shown.load(longLines());
    QScrollBar* bar = shown.widget().findChild<QScrollBar*>("scrHorz");
    QVERIFY(bar != nullptr && bar->isVisible());
    QTest::mousePress(bar, Qt::LeftButton, {}, QPoint(bar->width() - 3, bar->height() / 2));
    QTest::mouseRelease(bar, Qt::LeftButton, {}, QPoint(bar->width() - 3, bar->height() / 2));
    QVERIFY(shown.elements().scrHorz.Value() > 0);
    QVERIFY(shown.elements().lblLine[0].Left() < shown.elements().picBorder.Width() + 315);
}

void RightToLeftTest::theMouseFindsTheRowsAndTheGlyphs() {
    ShownBox shown;
    shown.loadLines(100);
    QTest::mouseClick(&shown.rows(), Qt::LeftButton, {}, QPoint(200, 50));
    QVERIFY(shown.box().row() > 1);
    shown.box().CollapseLines(1, 20);
    // The rows show what was registered when they are filled again.
    shown.box().AutoRedraw(false);
    shown.box().AutoRedraw(true);
    shown.settle();
    const QRectF strip = pixelRect(shown.elements().picExpand);
    const QRectF glyph = pixelRect(shown.elements().imgExpand[0]);
    const QPointF control = strip.topLeft() + glyph.center();
    const QPoint place = shown.rows().mapFrom(&shown.widget(), control.toPoint());
    QTest::mouseClick(&shown.rows(), Qt::LeftButton, {}, place);
    QCOMPARE(shown.row(1), QString("row 21"));
}

void RightToLeftTest::theEditorCanBeTypedIn() {
    HostOptions options = ShownBox::tall();
    options.OfferEditing = true;
    ShownBox shown(QSize(800, 600), options);
    shown.loadLines(20);
    shown.widget().activateWindow();
    shown.rows().setFocus();
    shown.box().MoveTo(3, 1);
    QTest::keyClick(&shown.rows(), Qt::Key_F2);
    shown.settle();
    QVERIFY(shown.elements().rtbEdit.Visible());
    QWidget* editor = QApplication::focusWidget();
    QVERIFY(editor != nullptr && editor != &shown.rows());
    QVERIFY(!editor->isRightToLeft());
    QTest::keyClicks(editor, "new ");
    QTest::keyClick(editor, Qt::Key_Return, Qt::ControlModifier);
    shown.settle();
    QVERIFY(!shown.elements().rtbEdit.Visible());
    const auto correction = shown.box().Corrections().Of(3);
    QVERIFY(correction && correction->Lines.size() == 1);
    QVERIFY2(correction->Lines[0].find(u"new ") != std::u16string::npos,
             qPrintable(toQString(correction->Lines[0])));
}

void RightToLeftTest::aMenuCanBePickedFrom() {
    ShownBox shown;
    shown.loadLines(100);
    shown.box().CollapseLines(1, 20);
    shown.settle();
    QTest::mouseClick(shown.live().tools().findChild<QToolButton*>("Collapsed"), Qt::LeftButton);
    auto* menu = shown.widget().findChild<QMenu*>("mnuCollapse", Qt::FindDirectChildrenOnly);
    QVERIFY(menu != nullptr && menu->isVisible());
    const QRect window(shown.widget().mapToGlobal(QPoint()), shown.widget().size());
    QVERIFY(window.intersects(menu->geometry()));
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    shown.settle();
    QCOMPARE(shown.row(1), QString("row 21"));
}

QTEST_MAIN(RightToLeftTest)
#include "right_to_left_test.moc"
