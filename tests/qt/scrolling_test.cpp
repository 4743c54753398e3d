#include <QSignalSpy>
#include <QStyleOptionSlider>
#include <QTest>
#include <QWheelEvent>

#include "shown_box.h"

using namespace quorvale;
using namespace quorvale::test;

/// Scroll bars, wheel and touch pad.
class ScrollingTest : public QObject {
    Q_OBJECT

private slots:
    void theBarsShowTheElements();
    void aShortDocumentHasNoBars();
    void aRangeBeyondSixteenBitsIsShown();
    void draggingTheThumbShowsTheTipAndScrollsAtItsEnd();
    void aThumbReleasedWhereItWasLeavesNoTip();
    void arrowsAndTroughScroll();
    void theHorizontalThumbMovesTheRowsWhenReleased();
    void oneNotchOfTheWheelIsThreeRows();
    void partsOfANotchAddUp();
    void aTouchPadScrollsWholeRows();
    void turningBackAnswersAtOnce();
    void theWheelStopsAtTheEnds();
    void shiftAndTheWheelScrollSideways();
    void theWheelOverABarScrollsRows();
    void theHostHearsOfEveryScroll();
};

namespace {

QStyleOptionSlider optionOf(const QScrollBar& bar) {
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.orientation = bar.orientation();
    option.minimum = bar.minimum();
    option.maximum = bar.maximum();
    option.sliderPosition = bar.sliderPosition();
    option.sliderValue = bar.value();
    option.singleStep = bar.singleStep();
    option.pageStep = bar.pageStep();
    if (bar.orientation() == Qt::Horizontal) option.state |= QStyle::State_Horizontal;
    return option;
}

QPoint middleOf(const QScrollBar& bar, QStyle::SubControl part) {
    const QStyleOptionSlider option = optionOf(bar);
    return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, part, &bar).center();
}

void turnWheel(QWidget& widget, QPoint angle, QPoint pixels = {},
               Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    const QPointF place(widget.width() / 2.0, widget.height() / 2.0);
    // A touch pad says that fingers are on it, a wheel does not.
    const auto phase = pixels.isNull() ? Qt::NoScrollPhase : Qt::ScrollUpdate;
    QWheelEvent event(place, widget.mapToGlobal(place), pixels, angle, Qt::NoButton, modifiers,
                      phase, false);
    QCoreApplication::sendEvent(&widget, &event);
}

/// The text of a row with its number, e.g. "row 12".
int topRow(ShownBox& shown) { return shown.row(0).section(' ', 1).toInt(); }

}  // namespace

void ScrollingTest::theBarsShowTheElements() {
    ShownBox shown;
    shown.loadLines(1000);
    const ScrollBar& element = shown.elements().scrVert;
    const QScrollBar& bar = shown.live().verticalBar();
    QVERIFY(bar.isVisible());
    QCOMPARE(bar.minimum(), element.Min());
    QCOMPARE(bar.maximum(), element.Max());
    QCOMPARE(bar.pageStep(), element.LargeChange());
    QCOMPARE(bar.geometry(), pixelRect(element).toRect());
    shown.box().TopLine(300);
    shown.settle();
    QCOMPARE(bar.value(), 300);
    QCOMPARE(topRow(shown), 300);
}

void ScrollingTest::aShortDocumentHasNoBars() {
    ShownBox shown;
    shown.loadLines(1000);
    QVERIFY(shown.live().verticalBar().isVisible());
    shown.loadLines(5);
    QVERIFY(!shown.live().verticalBar().isVisible());
    QVERIFY(!shown.live().horizontalBar().isVisible());
    QCOMPARE(shown.rows().geometry().right(), shown.widget().rect().right());
}

void ScrollingTest::aRangeBeyondSixteenBitsIsShown() {
    ShownBox shown(QSize(800, 600), ShownBox::tall());
    shown.load(QByteArray(200'000, '\n'));
    const QScrollBar& bar = shown.live().verticalBar();
    QCOMPARE(bar.maximum(), shown.elements().scrVert.Max());
    QVERIFY(bar.maximum() > 199'000);
    shown.box().TopLine(150'000);
    shown.settle();
    QCOMPARE(bar.value(), 150'000);
    QCOMPARE(shown.box().TopLine(), 150'000);
}

void ScrollingTest::draggingTheThumbShowsTheTipAndScrollsAtItsEnd() {
    ShownBox shown;
    shown.loadLines(1000);
    QScrollBar& bar = shown.live().verticalBar();
    const QPoint thumb = middleOf(bar, QStyle::SC_ScrollBarSlider);
    const Label& tip = shown.elements().lblScrollTip;
    QTest::mousePress(&bar, Qt::LeftButton, {}, thumb);
    QVERIFY(!tip.Visible());
    QTest::mouseMove(&bar, thumb + QPoint(0, 100));
    QVERIFY(tip.Visible());
    const int aimed = shown.elements().scrVert.Value();
    QVERIFY(aimed > 50);
    QCOMPARE(toQString(tip.Caption()), QString(" Line %1 ").arg(aimed));
    QCOMPARE(topRow(shown), 1);
    // The tip is seen beside the bar, on its own ground.
    const QImage picture = shown.picture();
    const QRectF place = pixelRect(tip);
    const QRgb ground = shown.widget().palette().color(QPalette::Button).rgb();
    QCOMPARE(picture.pixel((place.topLeft() + QPointF(1, 1)).toPoint() * shown.scale()), ground);
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, thumb + QPoint(0, 100));
    QVERIFY(!tip.Visible());
    QCOMPARE(shown.box().TopLine(), aimed);
    QCOMPARE(topRow(shown), aimed);
    shown.settle();
    QCOMPARE(bar.value(), aimed);
}

void ScrollingTest::aThumbReleasedWhereItWasLeavesNoTip() {
    ShownBox shown;
    shown.loadLines(1000);
    QScrollBar& bar = shown.live().verticalBar();
    const QPoint thumb = middleOf(bar, QStyle::SC_ScrollBarSlider);
    QTest::mousePress(&bar, Qt::LeftButton, {}, thumb);
    QTest::mouseMove(&bar, thumb + QPoint(0, 60));
    QTest::mouseMove(&bar, thumb);
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, thumb);
    QVERIFY(!shown.elements().lblScrollTip.Visible());
    QCOMPARE(topRow(shown), 1);
}

void ScrollingTest::arrowsAndTroughScroll() {
    ShownBox shown;
    shown.loadLines(1000);
    QScrollBar& bar = shown.live().verticalBar();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, middleOf(bar, QStyle::SC_ScrollBarAddLine));
    QCOMPARE(topRow(shown), 2);
    shown.settle();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, middleOf(bar, QStyle::SC_ScrollBarAddPage));
    QCOMPARE(topRow(shown), 2 + shown.elements().scrVert.LargeChange());
    shown.settle();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, middleOf(bar, QStyle::SC_ScrollBarSubPage));
    shown.settle();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, middleOf(bar, QStyle::SC_ScrollBarSubLine));
    QCOMPARE(topRow(shown), 1);
    shown.settle();
    QCOMPARE(bar.value(), 1);
}

void ScrollingTest::theHorizontalThumbMovesTheRowsWhenReleased() {
    ShownBox shown;
    shown.load(QByteArray(500, 'x') + "\n");
    QScrollBar& bar = shown.live().horizontalBar();
    QVERIFY(bar.isVisible());
    const Twips before = shown.elements().lblLine[0].Left();
    const QPoint thumb = middleOf(bar, QStyle::SC_ScrollBarSlider);
    QTest::mousePress(&bar, Qt::LeftButton, {}, thumb);
    QTest::mouseMove(&bar, thumb + QPoint(80, 0));
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, thumb + QPoint(80, 0));
    const int value = shown.elements().scrHorz.Value();
    QVERIFY(value > 0);
    QCOMPARE(shown.elements().lblLine[0].Left(), before - value);
}

void ScrollingTest::oneNotchOfTheWheelIsThreeRows() {
    ShownBox shown;
    shown.loadLines(1000);
    turnWheel(shown.rows(), QPoint(0, -120));
    QCOMPARE(topRow(shown), 4);
    turnWheel(shown.rows(), QPoint(0, 120));
    QCOMPARE(topRow(shown), 1);
}

void ScrollingTest::partsOfANotchAddUp() {
    ShownBox shown;
    shown.loadLines(1000);
    // Eight steps of a fine wheel are one notch.
    for (int i = 0; i < 8; ++i) turnWheel(shown.rows(), QPoint(0, -15));
    QCOMPARE(topRow(shown), 4);
}

void ScrollingTest::aTouchPadScrollsWholeRows() {
    ShownBox shown;
    shown.loadLines(1000);
    const int row = qRound(toPixels(shown.elements().RowHeight()));
    for (int i = 1; i < row; ++i) turnWheel(shown.rows(), QPoint(0, -8), QPoint(0, -1));
    QCOMPARE(topRow(shown), 1);
    turnWheel(shown.rows(), QPoint(0, -8), QPoint(0, -1));
    QCOMPARE(topRow(shown), 2);
    turnWheel(shown.rows(), QPoint(0, -80), QPoint(0, -10 * row));
    QCOMPARE(topRow(shown), 12);
}

void ScrollingTest::turningBackAnswersAtOnce() {
    ShownBox shown;
    shown.loadLines(1000);
    const int row = qRound(toPixels(shown.elements().RowHeight()));
    turnWheel(shown.rows(), QPoint(0, -100), QPoint(0, -(5 * row + row - 1)));
    QCOMPARE(topRow(shown), 6);
    turnWheel(shown.rows(), QPoint(0, 8), QPoint(0, row));
    QCOMPARE(topRow(shown), 5);
}

void ScrollingTest::theWheelStopsAtTheEnds() {
    ShownBox shown;
    shown.loadLines(100);
    turnWheel(shown.rows(), QPoint(0, 1200));
    QCOMPARE(topRow(shown), 1);
    turnWheel(shown.rows(), QPoint(0, -120000));
    QCOMPARE(shown.box().TopLine(), shown.elements().scrVert.Max());
}

void ScrollingTest::shiftAndTheWheelScrollSideways() {
    ShownBox shown;
    shown.load(QByteArray(500, 'x') + "\n" + QByteArray(300, '\n'));
    const ScrollBar& bar = shown.elements().scrHorz;
    turnWheel(shown.rows(), QPoint(0, -120), {}, Qt::ShiftModifier);
    QCOMPARE(bar.Value(), 3 * bar.SmallChange());
    QCOMPARE(shown.box().TopLine(), 1);
    turnWheel(shown.rows(), QPoint(120, 0));
    QCOMPARE(bar.Value(), 0);
}

void ScrollingTest::theWheelOverABarScrollsRows() {
    ShownBox shown;
    shown.loadLines(1000);
    turnWheel(shown.live().verticalBar(), QPoint(0, -120));
    QCOMPARE(topRow(shown), 4);
}

void ScrollingTest::theHostHearsOfEveryScroll() {
    ShownBox shown;
    shown.loadLines(1000);
    const QSignalSpy scrolled(&shown.widget(), &QuorvaleBoxWidget::scrolled);
    turnWheel(shown.rows(), QPoint(0, -120));
    QCOMPARE(scrolled.count(), 1);
    shown.box().TopLine(50);
    QCOMPARE(scrolled.count(), 2);
    shown.box().TopLine(50);
    QCOMPARE(scrolled.count(), 2);
}

QTEST_MAIN(ScrollingTest)
#include "scrolling_test.moc"
