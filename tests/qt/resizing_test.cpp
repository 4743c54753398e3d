#include <QTest>

#include "shown_box.h"

using namespace quorvale;
using namespace quorvale::test;

/// Sizes: the control's, the toolbar's, the frame's.
class ResizingTest : public QObject {
    Q_OBJECT

private slots:
    void aHigherWindowShowsMoreRows();
    void aTallViewIsFilledToItsEnd();
    void theLastRowIsCutByTheEdge();
    void hidingTheToolbarGivesItsRoomToTheRows();
    void aFrameTakesAPixelOnEachSide();
    void aWindowTooSmallForAnythingIsHarmless();
    void theMarkerBlinksOnlyWhileItsTimerRuns();
};

void ResizingTest::aHigherWindowShowsMoreRows() {
    ShownBox shown(QSize(800, 300));
    shown.loadLines(1000);
    const int before = shown.elements().scrVert.LargeChange();
    shown.widget().resize(800, 600);
    shown.settle();
    const double row = toPixels(shown.elements().RowHeight());
    const int after = shown.elements().scrVert.LargeChange();
    QVERIFY(std::abs((after - before) - 300 / row) <= 1);
    QCOMPARE(shown.live().verticalBar().geometry().right(), shown.widget().rect().right());
    QCOMPARE(shown.rows().geometry().bottom(), shown.widget().rect().bottom());
}

void ResizingTest::aTallViewIsFilledToItsEnd() {
    ShownBox shown(QSize(400, 3000), ShownBox::tall());
    shown.loadLines(1000);
    const int last = int(3000 / toPixels(shown.elements().RowHeight())) - 4;
    QVERIFY(last > 128);
    QCOMPARE(shown.row(last), QString("row %1").arg(last + 1));
    const QRgb ground = shown.widget().palette().color(QPalette::Base).rgb();
    QVERIFY(!inkColumns(shown.picture(), shown.textPixels(last), ground).isEmpty());
}

void ResizingTest::theLastRowIsCutByTheEdge() {
    ShownBox shown(QSize(400, 300));
    const double row = toPixels(shown.elements().RowHeight());
    const double top = toPixels(shown.elements().ToolbarHeight());
    // Ten rows and a half.
    shown.widget().resize(400, qRound(top + 10.5 * row));
    shown.loadLines(100);
    QCOMPARE(shown.row(10), QString("row 11"));
    const QRect cut = shown.textPixels(10);
    QVERIFY(cut.height() > 0 && cut.height() < qRound(row * shown.scale()));
}

void ResizingTest::hidingTheToolbarGivesItsRoomToTheRows() {
    ShownBox shown;
    shown.loadLines(1000);
    const QRect before = shown.rows().geometry();
    QTest::mouseClick(&shown.live().moreButton(), Qt::LeftButton);
    shown.settle();
    QVERIFY(!shown.live().tools().isVisible());
    QCOMPARE(shown.rows().geometry().top(), 0);
    QCOMPARE(shown.elements().lblLine[0].Top(), 0.0);
    QTest::mouseClick(&shown.live().moreButton(), Qt::LeftButton);
    shown.settle();
    QVERIFY(shown.live().tools().isVisible());
    QCOMPARE(shown.rows().geometry(), before);
}

void ResizingTest::aFrameTakesAPixelOnEachSide() {
    ShownBox shown(QSize(500, 400));
    shown.loadLines(100);
    shown.box().BorderStyle(1);
    shown.settle();
    QCOMPARE(shown.elements().UserControl.Width(), toTwips(498));
    QCOMPARE(shown.elements().UserControl.Height(), toTwips(398));
    QCOMPARE(shown.rows().geometry().left(), 1);
    QCOMPARE(shown.live().verticalBar().geometry().right(), 498);
    shown.box().BorderStyle(0);
    shown.settle();
    QCOMPARE(shown.elements().UserControl.Width(), toTwips(500));
}

void ResizingTest::aWindowTooSmallForAnythingIsHarmless() {
    ShownBox shown;
    shown.loadLines(1000);
    for (const QSize size : {QSize(1, 1), QSize(40, 10), QSize(0, 0), QSize(300, 25)}) {
        shown.widget().resize(size);
        shown.picture();
    }
    shown.widget().resize(800, 600);
    shown.settle();
    QCOMPARE(shown.row(3), QString("row 4"));
}

void ResizingTest::theMarkerBlinksOnlyWhileItsTimerRuns() {
    ShownBox shown;
    shown.loadLines(10);
    Timer& timer = shown.elements().tmrImage;
    int ticks = 0;
    timer.OnTick = [&] { ++ticks; };
    timer.SetInterval(1);
    timer.SetEnabled(false);
    shown.settle();
    timer.SetEnabled(true);
    QTRY_VERIFY(ticks >= 3);
    timer.SetEnabled(false);
    shown.settle();
    const int stopped = ticks;
    // Another timer of the same length comes round meanwhile.
    int others = 0;
    QTimer other;
    connect(&other, &QTimer::timeout, this, [&] { ++others; });
    other.start(1);
    QTRY_VERIFY(others >= 3);
    QCOMPARE(ticks, stopped);
}

QTEST_MAIN(ResizingTest)
#include "resizing_test.moc"
