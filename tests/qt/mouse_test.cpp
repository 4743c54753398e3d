#include <QTest>

#include "platform/keys.h"
#include "shown_box.h"

using namespace quorvale;
using namespace quorvale::test;

/// The mouse reaches the element below it, in its coordinates, and stays with it until released.
class MouseTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void aPressReachesTheRowInItsOwnTwips();
    void buttonsAndHeldKeysAreTold();
    void aPressedRowKeepsTheMouse();
    void aMoveTellsTheSumOfTheButtons();
    void aMoveWithoutAButtonIsTold();
    void aDoubleClickIsPressReleaseDoubleReleaseInThisOrder();
    void aPressOnTheMarkerGoesToTheRowBelowItAfterwards();
    void aTwitchOnTheMarkerSelectsNothing();
    void aRightDoubleClickIsTwoPresses();
    void aHiddenMarkerLeavesTheMouseToTheRow();
    void aLineImageIsClickedWhenReleasedOverIt();
    void aGlyphIsClickedAndPressed();
    void rowsPassBelowTheStrips();
    void aReleaseThatWentElsewhereIsForgotten();

private:
    QPoint inRow(int slot, int x) const;
    void record();

    std::unique_ptr<ShownBox> shown_;
    QStringList log_;
};

void MouseTest::init() {
    shown_ = std::make_unique<ShownBox>();
    shown_->loadLines(1000);
    shown_->elements().imgMarker.SetVisible(false);
    log_.clear();
    record();
}

void MouseTest::cleanup() { shown_.reset(); }

void MouseTest::record() {
    Surface& s = shown_->elements();
    const auto mouse = [this](const QString& name) {
        return [this, name](int slot, const MouseEvent& e) {
            log_ << QString("%1 %2 b%3 s%4 %5,%6")
                        .arg(name)
                        .arg(slot)
                        .arg(e.Button)
                        .arg(e.Shift)
                        .arg(e.X)
                        .arg(e.Y);
        };
    };
    s.OnRowMouseDown = mouse("down");
    s.OnRowMouseMove = mouse("move");
    s.OnRowMouseUp = mouse("up");
    s.OnRowDblClick = [this](int slot) { log_ << QString("double %1").arg(slot); };
    s.OnLineImageClick = [this](int slot) { log_ << QString("image %1").arg(slot); };
    s.OnGlyphClick = [this](int slot) { log_ << QString("glyph %1").arg(slot); };
    s.OnGlyphMouseDown = mouse("glyph down");
    s.OnMarkerMouseDown = [mouse](const MouseEvent& e) { mouse("marker down")(-1, e); };
    s.OnMarkerMouseMove = [mouse](const MouseEvent& e) { mouse("marker move")(-1, e); };
    s.OnMarkerMouseUp = [mouse](const MouseEvent& e) { mouse("marker up")(-1, e); };
}

/// A place on the rows' area: `x` pixels into a row's label, in its middle.
QPoint MouseTest::inRow(int slot, int x) const {
    const QRectF label = pixelRect(shown_->elements().lblLine[slot]);
    return QPointF(label.left() + x, label.center().y()).toPoint() - shown_->rows().pos();
}

void MouseTest::aPressReachesTheRowInItsOwnTwips() {
    QTest::mousePress(&shown_->rows(), Qt::LeftButton, {}, inRow(4, 10));
    QCOMPARE(log_, QStringList{"down 4 b1 s0 150,105"});
}

void MouseTest::buttonsAndHeldKeysAreTold() {
    const Qt::KeyboardModifiers all = Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier;
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        QTest::mousePress(&shown_->rows(), button, all, inRow(0, 0));
        QTest::mouseRelease(&shown_->rows(), button, Qt::ShiftModifier, inRow(0, 0));
    }
    QCOMPARE(log_, (QStringList{"down 0 b2 s7 0,105", "up 0 b2 s1 0,105", "down 0 b4 s7 0,105",
                                "up 0 b4 s1 0,105"}));
}

void MouseTest::aPressedRowKeepsTheMouse() {
    QTest::mousePress(&shown_->rows(), Qt::LeftButton, {}, inRow(4, 10));
    const QPoint below = inRow(6, -200);
    QMouseEvent move(QEvent::MouseMove, below, shown_->rows().mapToGlobal(below), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&shown_->rows(), &move);
    QTest::mouseRelease(&shown_->rows(), Qt::LeftButton, {}, below);
    QCOMPARE(log_, (QStringList{"down 4 b1 s0 150,105", "move 4 b1 s0 -3000,525",
                                "up 4 b1 s0 -3000,525"}));
}

void MouseTest::aMoveTellsTheSumOfTheButtons() {
    const QPoint place = inRow(2, 1);
    QMouseEvent move(QEvent::MouseMove, place, shown_->rows().mapToGlobal(place), Qt::NoButton,
                     Qt::LeftButton | Qt::RightButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&shown_->rows(), &move);
    QCOMPARE(log_, QStringList{"move 2 b3 s0 15,105"});
}

void MouseTest::aMoveWithoutAButtonIsTold() {
    QTest::mouseMove(&shown_->rows(), inRow(3, 5));
    QTRY_COMPARE(log_, QStringList{"move 3 b0 s0 75,105"});
}

void MouseTest::aDoubleClickIsPressReleaseDoubleReleaseInThisOrder() {
    const QPoint place = inRow(7, 20);
    QTest::mouseClick(&shown_->rows(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(&shown_->rows(), Qt::LeftButton, {}, place);
    QTest::mouseRelease(&shown_->rows(), Qt::LeftButton, {}, place);
    const QString at = " b1 s0 300,105";
    QCOMPARE(log_, (QStringList{"down 7" + at, "up 7" + at, "double 7", "up 7" + at}));
}

void MouseTest::aPressOnTheMarkerGoesToTheRowBelowItAfterwards() {
    Image& marker = shown_->elements().imgMarker;
    const Label& row = shown_->elements().lblLine[4];
    marker.SetVisible(true);
    marker.SetLeft(row.Left() + 300);
    marker.SetTop(row.Top());
    QTest::mousePress(&shown_->rows(), Qt::LeftButton, {}, inRow(4, 22));
    QTest::mouseRelease(&shown_->rows(), Qt::LeftButton, {}, inRow(4, 23));
    QCOMPARE(log_, (QStringList{"marker down -1 b1 s0 30,105", "up 4 b1 s0 345,105"}));
}

// Here the control's own handlers are at work.
void MouseTest::aTwitchOnTheMarkerSelectsNothing() {
    ShownBox shown;
    shown.loadLines(100);
    shown.box().MoveTo(6, 3);
    shown.settle();
    const QRectF marker = pixelRect(shown.elements().imgMarker);
    const QPoint place =
        marker.center().toPoint() + QPoint(0, -2) - shown.rows().geometry().topLeft();
    const auto moveTo = [&](QPoint there) {
        QMouseEvent move(QEvent::MouseMove, there, shown.rows().mapToGlobal(there), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&shown.rows(), &move);
    };
    QTest::mousePress(&shown.rows(), Qt::LeftButton, {}, place);
    QCOMPARE(shown.box().row(), 6);
    moveTo(place + QPoint(3, 0));
    QCOMPARE(shown.box().SelectedRowsCount(), 0);
    moveTo(place + QPoint(3, 40));
    QVERIFY(shown.box().SelectedRowsCount() < -1);
    QTest::mouseRelease(&shown.rows(), Qt::LeftButton, {}, place);
}

void MouseTest::aRightDoubleClickIsTwoPresses() {
    const QPoint place = inRow(7, 20);
    QTest::mouseClick(&shown_->rows(), Qt::RightButton, {}, place);
    QTest::mouseDClick(&shown_->rows(), Qt::RightButton, {}, place);
    const QString at = " b2 s0 300,105";
    QCOMPARE(log_, (QStringList{"down 7" + at, "up 7" + at, "down 7" + at}));
}

void MouseTest::aHiddenMarkerLeavesTheMouseToTheRow() {
    Image& marker = shown_->elements().imgMarker;
    const Label& row = shown_->elements().lblLine[4];
    marker.SetLeft(row.Left() + 300);
    marker.SetTop(row.Top());
    marker.SetVisible(false);
    QTest::mousePress(&shown_->rows(), Qt::LeftButton, {}, inRow(4, 22));
    QCOMPARE(log_, QStringList{"down 4 b1 s0 330,105"});
}

void MouseTest::aLineImageIsClickedWhenReleasedOverIt() {
    const QPoint strip(4, inRow(5, 0).y());
    QTest::mouseClick(&shown_->rows(), Qt::LeftButton, {}, strip);
    QCOMPARE(log_, QStringList{"image 5"});
    log_.clear();
    QTest::mousePress(&shown_->rows(), Qt::LeftButton, {}, strip);
    QTest::mouseRelease(&shown_->rows(), Qt::LeftButton, {}, inRow(6, 30));
    QTest::mouseClick(&shown_->rows(), Qt::RightButton, {}, strip);
    QCOMPARE(log_, QStringList());
}

void MouseTest::aGlyphIsClickedAndPressed() {
    Image& glyph = shown_->elements().imgExpand[3];
    glyph.SetVisible(true);
    const QRectF place =
        pixelRect(glyph).translated(pixelRect(shown_->elements().picExpand).topLeft());
    const QPoint middle = place.center().toPoint() - shown_->rows().pos();
    QTest::mouseClick(&shown_->rows(), Qt::LeftButton, {}, middle);
    QTest::mouseClick(&shown_->rows(), Qt::RightButton, {}, middle);
    QCOMPARE(log_.size(), 3);
    QVERIFY(log_[0].startsWith("glyph down 3 b1"));
    QCOMPARE(log_[1], QString("glyph 3"));
    QVERIFY(log_[2].startsWith("glyph down 3 b2"));
    log_.clear();
    glyph.SetVisible(false);
    QTest::mouseClick(&shown_->rows(), Qt::LeftButton, {}, middle);
    QCOMPARE(log_, QStringList());
}

void MouseTest::rowsPassBelowTheStrips() {
    for (Label& label : shown_->elements().lblLine) label.SetLeft(-3000);
    QTest::mouseClick(&shown_->rows(), Qt::LeftButton, {}, QPoint(20, inRow(2, 0).y()));
    QCOMPARE(log_, QStringList());
    QTest::mousePress(&shown_->rows(), Qt::LeftButton, {}, QPoint(50, inRow(2, 0).y()));
    QCOMPARE(log_, QStringList{"down 2 b1 s0 3750,105"});
}

void MouseTest::aReleaseThatWentElsewhereIsForgotten() {
    QTest::mousePress(&shown_->rows(), Qt::RightButton, {}, inRow(4, 10));
    // The release went to a menu. The next press finds its own row.
    log_.clear();
    const QPoint place = inRow(9, 10);
    QMouseEvent press(QEvent::MouseButtonPress, place, shown_->rows().mapToGlobal(place),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&shown_->rows(), &press);
    QCOMPARE(log_, QStringList{"down 9 b1 s0 150,105"});
}

QTEST_MAIN(MouseTest)
#include "mouse_test.moc"
