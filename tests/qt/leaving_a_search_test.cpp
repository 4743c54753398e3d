#include <QApplication>
#include <QMenu>
#include <QProgressBar>
#include <QTest>

#include "slow_box.h"

using namespace quorvale;
using namespace quorvale::test;

/// What takes a long search its control, its document or its application away ends it; nothing is
/// touched that is gone: the sanitizers watch.
class LeavingASearchTest : public QObject {
    Q_OBJECT

private slots:
    void closingTheWindowEndsItFirst();
    void aTimerDestroysTheControl();
    void aTimerDestroysTheControlOfAPickedMenu();
    void aTimerLetsTheControlBeDeletedLater();
    void aTimerDestroysTheWindowAroundIt();
    void aTimerDestroysTheControlWhileAKeyIsTyped();
    void aTimerLoadsAnotherFile();
    void aTimerSearchesAnew();
    void aTimerLearnsOfItAndChangesTheLanguage();
    void quittingEndsItFirst();
    void leavingTheEventLoopEndsIt();
};

namespace {

/// What was put off runs now.
void settle() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

}  // namespace

void LeavingASearchTest::closingTheWindowEndsItFirst() {
    SlowBox slow;
    bool seenAfterClosing = false;
    slow.onceInside([&] {
        slow.shown.widget().close();
        seenAfterClosing = slow.shown.widget().isVisible();
    });
    slow.findAll();
    QVERIFY(seenAfterClosing);
    QVERIFY(slow.files->Opened() < 200);
    QVERIFY(slow.shown.elements().lvFound.Visible());
    settle();
    QVERIFY(!slow.shown.widget().isVisible());
}

void LeavingASearchTest::aTimerDestroysTheControl() {
    SlowBox slow;
    slow.onceInside([&] { slow.shown.owner().reset(); });
    slow.findAll();
    QVERIFY(slow.shown.owner() == nullptr);
    QVERIFY(slow.files->Opened() < 200);
    settle();
}

void LeavingASearchTest::aTimerDestroysTheControlOfAPickedMenu() {
    SlowBox slow;
    auto* button = slow.shown.live().tools().findChild<QToolButton*>("Find");
    QMenu* menu = button->menu();
    QTimer::singleShot(0, menu, [&] {
        slow.onTick = [&] {
            if (slow.panel() == nullptr) return;
            slow.shown.owner().reset();
        };
        const QRect entry = menu->actionGeometry(menu->actions().at(1));
        QTest::mouseClick(menu, Qt::LeftButton, {}, entry.center());
    });
    // On the arrow: the menu runs in it.
    QTest::mouseClick(button, Qt::LeftButton, {},
                      QPoint(button->width() - 3, button->height() / 2));
    QVERIFY(slow.shown.owner() == nullptr);
    settle();
}

void LeavingASearchTest::aTimerLetsTheControlBeDeletedLater() {
    SlowBox slow;
    slow.onceInside([&] { slow.shown.owner().release()->deleteLater(); });
    slow.findAll();
    QVERIFY(slow.files->Opened() < 300);
    settle();
}

void LeavingASearchTest::aTimerDestroysTheWindowAroundIt() {
    SlowBox slow;
    auto window = std::make_unique<QWidget>();
    QuorvaleBoxWidget* control = slow.shown.owner().release();
    control->setParent(window.get());
    window->show();
    control->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    slow.onTick = [&] {
        if (window != nullptr && window->findChild<SearchPanel*>() != nullptr) window.reset();
    };
    control->act([](Surface& surface) { surface.tbMore.UserMenuClick(u"Find", 1); });
    QVERIFY(window == nullptr);
    settle();
}

void LeavingASearchTest::aTimerDestroysTheControlWhileAKeyIsTyped() {
    SlowBox slow;
    TextBox& box = slow.shown.elements().txtSearch;
    box.OnKeyDown = [&](std::int16_t&, std::int16_t) {
        slow.shown.elements().tbMore.UserMenuClick(u"Find", 1);
    };
    slow.onceInside([&] { slow.shown.owner().reset(); });
    QTest::keyPress(slow.shown.live().tools().searchBox(), Qt::Key_Return);
    QVERIFY(slow.shown.owner() == nullptr);
    settle();
}

void LeavingASearchTest::aTimerLoadsAnotherFile() {
    SlowBox slow;
    slow.onceInside([&] { slow.shown.widget().loadFile("/other"); });
    slow.findAll();
    slow.shown.settle();
    QVERIFY(slow.files->Opened() < 200);
    QVERIFY(slow.shown.box().LineText(1) == u"another");
    QVERIFY(!slow.list().isVisible());
    QVERIFY(slow.panel() == nullptr);
}

void LeavingASearchTest::aTimerSearchesAnew() {
    SlowBox slow;
    slow.onceInside([&] {
        slow.shown.box().SearchFiles(u"/many/0");
        slow.shown.elements().tbMore.UserMenuClick(u"Find", 1);
    });
    slow.findAll();
    QCOMPARE(slow.shown.elements().lvFound.RowCount(), std::size_t{3});
    QVERIFY(slow.files->Opened() < 200);
    QVERIFY(slow.panel() == nullptr);
}

void LeavingASearchTest::aTimerLearnsOfItAndChangesTheLanguage() {
    SlowBox slow;
    bool searching = false;
    QuorvaleBoxWidget& widget = slow.shown.widget();
    slow.onceInside([&] {
        searching = widget.isSearching();
        QuorvaleBoxWidget::setInterfaceLanguage(QLocale::Japanese);
        widget.speakAnew();
        QuorvaleBoxWidget::setInterfaceLanguage(QLocale::AnyLanguage);
        slow.onTick = [&] {
            const auto* panel = slow.panel();
            if (panel == nullptr) return;
            const auto* bar = panel->findChild<QProgressBar*>();
            if (bar->accessibleName() == QString::fromUtf8("検索の進行状況")) slow.hurry();
        };
    });
    slow.findAll();
    QVERIFY(searching);
    QVERIFY(!widget.isSearching());
    const ListView& list = slow.shown.elements().lvFound;
    QVERIFY(list.Headers()[1] == u"行番号");
    QCOMPARE(toQString(list.Cell(0, 0)), QString::fromUtf8("戻る"));
}

void LeavingASearchTest::quittingEndsItFirst() {
    SlowBox slow;
    bool running = false;
    slow.onceInside([&] {
        QCoreApplication::quit();
        running = slow.shown.widget().isVisible();
    });
    QTimer::singleShot(0, &slow.shown.widget(), [&] { slow.findAll(); });
    QCOMPARE(QCoreApplication::exec(), 0);
    QVERIFY(running);
    QVERIFY(slow.files->Opened() < 200);
}

void LeavingASearchTest::leavingTheEventLoopEndsIt() {
    SlowBox slow;
    slow.onceInside([] { QCoreApplication::exit(3); });
    QTimer::singleShot(0, &slow.shown.widget(), [&] { slow.findAll(); });
    QCOMPARE(QCoreApplication::exec(), 3);
    QVERIFY(slow.files->Opened() < 200);
    QVERIFY(slow.panel() == nullptr);
}

QTEST_MAIN(LeavingASearchTest)
#include "leaving_a_search_test.moc"
