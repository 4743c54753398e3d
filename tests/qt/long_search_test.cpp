#include <QAccessible>
#include <QApplication>
#include <QShortcut>
#include <QTest>
#include <QWheelEvent>

#include "adapters/posix_files.h"
#include "platform/paced_progress.h"
#include "slow_box.h"

using namespace quorvale;
using namespace quorvale::test;

/// A search that takes long: what is seen of it, how it is ended, and what it keeps away.
class LongSearchTest : public QObject {
    Q_OBJECT

private slots:
    void aShortSearchShowsNothingAndHandlesNoEvents();
    void afterThreeHundredMillisecondsTheBarIsSeen();
    void realFilesAreSearchedAsSlowly();
    void theResultIsThatOfAShortSearch();
    void escapeEndsItAndWhatWasFoundIsListed();
    void aHeldEscapeDoesNotCloseTheList();
    void noInputReachesTheWindowThenOrLater();
    void accessibleActionsAreNotTakenEither();
    void theWindowIsPaintedAndResized();
    void anotherWindowStaysUsable();
    void aSearchInAnotherWindowRunsInside();
    void findingOneMatchInALongTextShowsItToo();
};

namespace {

/// Every question takes its time, where no file is read.
class DraggingClock final : public Clock {
public:
    std::chrono::nanoseconds Now() const override {
        now_ += std::chrono::milliseconds(200);
        return now_;
    }

private:
    mutable std::chrono::nanoseconds now_{0};
};

void turnWheel(QWidget& rows) {
    QWheelEvent event(QPointF(50, 50), rows.mapToGlobal(QPointF(50, 50)), QPoint(), QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&rows, &event);
}

/// Counts the paint events of a widget.
class Paints final : public QObject {
public:
    explicit Paints(QWidget& widget) { widget.installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint;
        return false;
    }
};

}  // namespace

void LongSearchTest::aShortSearchShowsNothingAndHandlesNoEvents() {
    SlowBox slow;
    slow.files->Takes = std::chrono::microseconds(7);
    slow.ticks = 0;
    slow.findAll();
    QCOMPARE(slow.ticks, 0);
    QVERIFY(slow.panel() == nullptr);
    QCOMPARE(slow.shown.elements().lvFound.RowCount(), std::size_t{2002});
}

void LongSearchTest::afterThreeHundredMillisecondsTheBarIsSeen() {
    SlowBox slow;
    const auto start = slow.clock->Now();
    std::chrono::nanoseconds seen{0};
    int last = 0;
    slow.onTick = [&] {
        if (slow.panel() == nullptr) return;
        const auto* bar = slow.panel()->findChild<QProgressBar*>();
        if (seen.count() == 0) {
            seen = slow.clock->Now();
            QVERIFY(slow.panel()->isVisible() && bar->isVisible());
            QCOMPARE(slow.panel()->fileName(), QString("/many/149"));
            QCOMPARE(bar->accessibleName(), QString("Search progress"));
            slow.files->Takes /= 10;
        }
        QVERIFY(bar->value() >= last);
        last = bar->value();
    };
    slow.findAll();
    QVERIFY(seen - start >= PacedProgress::LongAfter);
    QVERIFY(seen - start <= PacedProgress::LongAfter + std::chrono::milliseconds(2));
    QVERIFY(last > 990);
    QVERIFY(slow.panel() == nullptr);
}

void LongSearchTest::realFilesAreSearchedAsSlowly() {
    QTemporaryDir folder;
    QStringList names;
    for (int file = 0; file < SlowBox::Files; ++file) {
        names << folder.filePath(QString::number(file));
        QFile made(names.last());
        QVERIFY(made.open(QIODevice::WriteOnly));
        made.write(file % 10 == 0 ? "a match\n" : "nothing\n");
    }
    // Neither of these is a file that can be read.
    names << folder.path() << folder.filePath("missing") << "/dev/null";
    SlowBox slow(std::make_shared<PosixFiles>());
    slow.shown.widget().setSearchFiles(names);
    slow.shown.box().SearchText(u"match");
    bool seen = false;
    slow.files->Takes /= 10;
    slow.onTick = [&] { seen = seen || slow.panel() != nullptr; };
    slow.findAll();
    QVERIFY(seen);
    QCOMPARE(slow.shown.elements().lvFound.RowCount(), std::size_t{2002});
}

void LongSearchTest::theResultIsThatOfAShortSearch() {
    SlowBox slow;
    SlowBox quick;
    quick.files->Takes = {};
    slow.files->Takes /= 10;
    slow.findAll();
    quick.findAll();
    const ListView& a = slow.shown.elements().lvFound;
    const ListView& b = quick.shown.elements().lvFound;
    QCOMPARE(a.RowCount(), b.RowCount());
    for (std::size_t row = 0; row < a.RowCount(); ++row) {
        QVERIFY(a.RowTag(row) == b.RowTag(row) && a.Cell(row, 2) == b.Cell(row, 2));
    }
    QVERIFY(a.Selected() == b.Selected());
}

void LongSearchTest::escapeEndsItAndWhatWasFoundIsListed() {
    SlowBox slow;
    std::uint64_t openedAtEscape = 0;
    slow.onceInside([&] {
        openedAtEscape = slow.files->Opened();
        QTest::keyClick(slow.shown.widget().windowHandle(), Qt::Key_Escape);
    });
    slow.findAll();
    QCOMPARE(slow.files->Opened(), openedAtEscape);
    slow.shown.settle();
    QVERIFY(slow.list().isVisible());
    QCOMPARE(slow.list().model()->rowCount(), 15 + 2);
    QCOMPARE(slow.list().model()->index(0, 2).data().toString(), QString("15 match(es) found."));
    // As usable as ever.
    QTest::keyClick(&slow.list(), Qt::Key_Down);
    QTest::keyClick(&slow.list(), Qt::Key_Return);
    QCOMPARE(slow.shown.box().LineText(1), u"a match");
    slow.files->Takes = {};
    slow.findAll();
    QCOMPARE(slow.shown.elements().lvFound.RowCount(), std::size_t{2002});
}

void LongSearchTest::aHeldEscapeDoesNotCloseTheList() {
    SlowBox slow;
    QWindow* window = slow.shown.widget().windowHandle();
    int released = 0;
    slow.shown.elements().OnKeyUp = [&](auto, auto) { ++released; };
    slow.onceInside([&] { QTest::keyPress(window, Qt::Key_Escape); });
    slow.findAll();
    slow.shown.settle();
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(&slow.list(), &repeated);
    QTest::keyRelease(window, Qt::Key_Escape);
    slow.shown.settle();
    QVERIFY(slow.list().isVisible());
    QCOMPARE(released, 0);
    QTest::keyClick(&slow.list(), Qt::Key_Escape);
    slow.shown.settle();
    QVERIFY(!slow.list().isVisible());
}

void LongSearchTest::noInputReachesTheWindowThenOrLater() {
    SlowBox slow;
    ShownBox& shown = slow.shown;
    QWindow* window = shown.widget().windowHandle();
    QWidget& rows = shown.rows();
    int heard = 0;
    int shortcuts = 0;
    const QShortcut shortcut(QKeySequence("Ctrl+J"), &shown.widget(), [&] { ++shortcuts; });
    QTest::keyClick(window, Qt::Key_J, Qt::ControlModifier);
    QCOMPARE(shortcuts, 1);
    shown.elements().OnKeyDown = [&](auto, auto) { ++heard; };
    shown.elements().OnKeyUp = [&](auto, auto) { ++heard; };
    shown.elements().OnRowMouseDown = [&](int, const MouseEvent&) { ++heard; };
    shown.elements().OnRowMouseUp = [&](int, const MouseEvent&) { ++heard; };
    shown.elements().OnRowMouseMove = [&](int, const MouseEvent&) { ++heard; };
    const int top = shown.box().TopLine();
    slow.onceInside([&] {
        QTest::keyClick(window, Qt::Key_J, Qt::ControlModifier);
        QTest::keyClick(window, Qt::Key_Down);
        QTest::keyClick(&rows, Qt::Key_PageDown);
        QTest::mouseClick(&rows, Qt::LeftButton, {}, QPoint(200, 30));
        QTest::mouseClick(window, Qt::LeftButton, {}, QPoint(200, 60));
        QTest::mouseDClick(&rows, Qt::LeftButton, {}, QPoint(200, 30));
        QTest::keyClicks(shown.live().tools().searchBox(), "abc");
        QInputMethodEvent composed;
        composed.setCommitString("typed");
        QCoreApplication::sendEvent(shown.live().tools().searchBox(), &composed);
        turnWheel(rows);
        auto* toggle = &shown.live().moreButton();
        QTest::mouseClick(toggle, Qt::LeftButton);
        // What a screen reader does comes without an event.
        toggle->click();
        slow.hurry();
    });
    slow.findAll();
    shown.settle();
    QCOMPARE(heard, 0);
    QCOMPARE(shortcuts, 1);
    QCOMPARE(shown.box().TopLine(), top);
    QVERIFY(shown.box().SearchText() == u"match");
    QVERIFY(shown.elements().tbMore.Visible());
    QCOMPARE(shown.elements().lvFound.RowCount(), std::size_t{2002});
    QTest::keyClick(window, Qt::Key_J, Qt::ControlModifier);
    QCOMPARE(shortcuts, 2);
}

void LongSearchTest::accessibleActionsAreNotTakenEither() {
    SlowBox slow;
    QAccessibleInterface* rows = QAccessible::queryAccessibleInterface(&slow.shown.rows());
    QVERIFY(rows != nullptr && rows->childCount() > 1);
    slow.onceInside([&] {
        QAccessibleInterface* row = rows->child(1);
        row->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
        slow.hurry();
    });
    slow.findAll();
    QCOMPARE(slow.shown.box().row(), 1);
}

void LongSearchTest::theWindowIsPaintedAndResized() {
    SlowBox slow;
    Paints paints(slow.shown.rows());
    int paintedInside = 0;
    int lookedAgain = 0;
    slow.onceInside([&] {
        paints.count = 0;
        slow.shown.widget().resize(500, 400);
        slow.onTick = [&] {
            if (slow.panel() == nullptr || ++lookedAgain < 20) return;
            paintedInside = paints.count;
            slow.onTick = nullptr;
            slow.hurry();
            const QRect panel = slow.panel()->geometry();
            QCOMPARE(panel.width(), 500);
            QCOMPARE(panel.bottom(), 399);
            QCOMPARE(slow.shown.rows().geometry().right(),
                     slow.shown.live().verticalBar().isVisible()
                         ? slow.shown.live().verticalBar().geometry().left() - 1
                         : 499);
        };
    });
    slow.findAll();
    QVERIFY(paintedInside > 0);
}

void LongSearchTest::anotherWindowStaysUsable() {
    SlowBox slow;
    ShownBox other;
    other.loadLines(10);
    slow.onceInside([&] {
        QTest::keyClick(&other.rows(), Qt::Key_Down);
        QTest::keyClick(&other.rows(), Qt::Key_Escape);
        slow.hurry();
    });
    slow.findAll();
    QCOMPARE(other.box().row(), 2);
    QCOMPARE(slow.shown.elements().lvFound.RowCount(), std::size_t{2002});
}

void LongSearchTest::aSearchInAnotherWindowRunsInside() {
    SlowBox outer;
    SlowBox inner;
    bool bothSeen = false;
    inner.onTick = [&] {
        if (inner.panel() == nullptr || outer.panel() == nullptr) return;
        bothSeen = true;
        // Ends the inner one only.
        QTest::keyClick(inner.shown.widget().windowHandle(), Qt::Key_Escape);
    };
    outer.onceInside([&] {
        inner.findAll();
        outer.hurry();
    });
    outer.findAll();
    QVERIFY(bothSeen);
    QCOMPARE(outer.shown.elements().lvFound.RowCount(), std::size_t{2002});
    QVERIFY(inner.shown.elements().lvFound.RowCount() < 100);
    QVERIFY(outer.panel() == nullptr && inner.panel() == nullptr);
}

void LongSearchTest::findingOneMatchInALongTextShowsItToo() {
    WidgetPorts ports;
    ports.Time = std::make_shared<DraggingClock>();
    ShownBox shown(QSize(800, 600), {}, ports);
    shown.load("first\n" + QByteArray(30'000'000, 'x') + "\nmatch\n");
    shown.box().SearchText(u"match");
    QString seen;
    bool ends = false;
    QTimer host;
    connect(&host, &QTimer::timeout, &host, [&] {
        const auto* panel = shown.widget().findChild<SearchPanel*>();
        if (panel == nullptr) return;
        seen = panel->fileName();
        if (ends) QTest::keyClick(shown.widget().windowHandle(), Qt::Key_Escape);
    });
    host.start(0);
    shown.widget().act([](Surface& surface) { surface.tbMore.UserClick(u"Find"); });
    QVERIFY(seen.endsWith("shown.txt"));
    QCOMPARE(shown.box().row(), 3);
    shown.box().row(1);
    ends = true;
    shown.widget().act([](Surface& surface) { surface.tbMore.UserClick(u"Find"); });
    QCOMPARE(shown.box().row(), 1);
    QVERIFY(shown.elements().Focus.Active() == FocusChild::SearchBox);
}

QTEST_MAIN(LongSearchTest)
#include "long_search_test.moc"
