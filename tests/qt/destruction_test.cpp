#include <QTest>
#include <QWheelEvent>

#include "shown_box.h"

using namespace quorvale;
using namespace quorvale::test;

/// A host may destroy the widget in any of its events. Nothing may touch what is gone: the
/// sanitizers watch.
class DestructionTest : public QObject {
    Q_OBJECT

private slots:
    void inTheMiddleOfAScroll_data();
    void inTheMiddleOfAScroll();
    void inAMember();
    void inAButtonsClick();
    void inAMouseEvent();
    void inAKeyEvent();
    void inAKeyOfABox();
    void whenTheFocusMoves();
    void inAMenusPick();
    void withThePendingChangesOfATurn();
    void withItsWindow();
};

namespace {

/// A control that goes away at its next scroll.
class Doomed {
public:
    Doomed() {
        shown.loadLines(1000);
        QObject::connect(&shown.widget(), &QuorvaleBoxWidget::scrolled, [this] { destroy(); });
    }

    void destroy() {
        shown.owner().reset();
        gone = true;
    }

    /// What was put off in the event runs after it.
    bool isGone() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        return gone && shown.owner() == nullptr;
    }

    ShownBox shown;
    bool gone = false;
};

void pressAt(QWidget& widget, QPoint place) {
    QTest::mousePress(&widget, Qt::LeftButton, {}, place);
}

}  // namespace

void DestructionTest::inTheMiddleOfAScroll_data() {
    QTest::addColumn<int>("way");
    QTest::newRow("arrow") << 0;
    QTest::newRow("trough") << 1;
    QTest::newRow("thumb") << 2;
    QTest::newRow("wheel") << 3;
}

void DestructionTest::inTheMiddleOfAScroll() {
    QFETCH(int, way);
    Doomed doomed;
    QScrollBar& bar = doomed.shown.live().verticalBar();
    const QPoint bottom(bar.width() / 2, bar.height() - 3);
    const QPoint trough(bar.width() / 2, bar.height() - 40);
    const QPoint thumb(bar.width() / 2, 22);
    if (way == 0) pressAt(bar, bottom);
    if (way == 1) pressAt(bar, trough);
    if (way == 2) {
        pressAt(bar, thumb);
        QTest::mouseMove(&bar, thumb + QPoint(0, 80));
        QVERIFY(!doomed.gone);
        QTest::mouseRelease(&bar, Qt::LeftButton, {}, thumb + QPoint(0, 80));
    }
    if (way == 3) {
        QWidget& rows = doomed.shown.rows();
        QWheelEvent event(QPointF(50, 50), rows.mapToGlobal(QPointF(50, 50)), QPoint(),
                          QPoint(0, -120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&rows, &event);
    }
    QVERIFY(doomed.isGone());
}

void DestructionTest::inAMember() {
    Doomed doomed;
    doomed.shown.box().TopLine(500);
    QVERIFY(doomed.isGone());
}

void DestructionTest::inAButtonsClick() {
    Doomed doomed;
    connect(&doomed.shown.widget(), &QuorvaleBoxWidget::buttonClicked, this,
            [&] { doomed.destroy(); });
    auto* grid = doomed.shown.widget().findChild<QToolButton*>("Grid");
    QTest::mouseClick(grid, Qt::LeftButton);
    QVERIFY(doomed.isGone());
}

void DestructionTest::inAMouseEvent() {
    Doomed doomed;
    doomed.shown.elements().OnRowMouseDown = [&](int, const MouseEvent&) { doomed.destroy(); };
    pressAt(doomed.shown.rows(), QPoint(200, 50));
    QVERIFY(doomed.isGone());
}

void DestructionTest::inAKeyEvent() {
    Doomed doomed;
    doomed.shown.elements().OnKeyDown = [&](auto, auto) { doomed.destroy(); };
    QTest::keyPress(&doomed.shown.rows(), Qt::Key_Down);
    QVERIFY(doomed.isGone());
}

void DestructionTest::inAKeyOfABox() {
    Doomed doomed;
    doomed.shown.elements().txtSearch.OnChange = [&] { doomed.destroy(); };
    QTest::keyPress(doomed.shown.live().tools().searchBox(), Qt::Key_X);
    QVERIFY(doomed.isGone());
}

void DestructionTest::whenTheFocusMoves() {
    Doomed doomed;
    doomed.shown.widget().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&doomed.shown.widget()));
    doomed.shown.rows().setFocus();
    doomed.shown.elements().Focus.OnLost = [&](FocusChild) { doomed.destroy(); };
    doomed.shown.live().tools().searchBox()->setFocus();
    QVERIFY(doomed.isGone());
}

void DestructionTest::inAMenusPick() {
    Doomed doomed;
    Menu& menu = doomed.shown.elements().mnuCollapse;
    menu.OnPick = [&](const auto&) { doomed.destroy(); };
    menu.PopUp(0, 360);
    auto* open = doomed.shown.widget().findChild<QWidget*>("mnuCollapse");
    QVERIFY(open != nullptr);
    QTest::keyClick(open, Qt::Key_Down);
    QTest::keyClick(open, Qt::Key_Return);
    QVERIFY(doomed.isGone());
}

void DestructionTest::withThePendingChangesOfATurn() {
    Doomed doomed;
    doomed.shown.elements().lblLine[0].SetCaption(u"changed");
    doomed.destroy();
    QVERIFY(doomed.isGone());
}

void DestructionTest::withItsWindow() {
    auto window = std::make_unique<QWidget>();
    auto* control = new QuorvaleBoxWidget(window.get());
    control->setFocus();
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    window.reset();
    QCoreApplication::processEvents();
}

QTEST_MAIN(DestructionTest)
#include "destruction_test.moc"
