#include <QPointer>
#include <QTest>
#include <functional>

#include "control/member_table.h"
#include "shown_box.h"

using namespace quorvale;
using namespace quorvale::test;

/// A host may destroy the widget in every one of the control's events, whatever the user did to
/// raise it. Nothing may touch what is gone: the sanitizers watch.
class DestructionEventsTest : public QObject {
    Q_OBJECT

private slots:
    void theWidgetComesToItsEnd_data();
    void theWidgetComesToItsEnd();
    void everyEventWasTried();
};

namespace {

using W = QuorvaleBoxWidget;
using Hear = std::function<void(W&, std::function<void()>)>;
using Act = std::function<void(ShownBox&)>;

template <class Signal>
Hear hearing(Signal signal) {
    return [signal](W& widget, const std::function<void()>& then) {
        QObject::connect(&widget, signal, &widget, [then] { then(); });
    };
}

struct Case {
    const char* Event;
    const char* What;
    Hear Listen;
    Act Cause;
};

constexpr QPoint inTheText(200, 50);

const std::vector<Case>& cases() {
    static const std::vector<Case> all{
        {"MouseDown", "press", hearing(&W::mouseDown),
         [](auto& s) { QTest::mousePress(&s.rows(), Qt::LeftButton, {}, inTheText); }},
        {"MouseUp", "release", hearing(&W::mouseUp),
         [](auto& s) { QTest::mouseClick(&s.rows(), Qt::LeftButton, {}, inTheText); }},
        {"SelChanged", "press", hearing(&W::selectionChanged),
         [](auto& s) { QTest::mousePress(&s.rows(), Qt::LeftButton, {}, inTheText); }},
        {"SelChanged", "key", hearing(&W::selectionChanged),
         [](auto& s) { QTest::keyPress(&s.rows(), Qt::Key_Down); }},
        {"DblClick", "double click", hearing(&W::doubleClicked),
         [](auto& s) { QTest::mouseDClick(&s.rows(), Qt::LeftButton, {}, inTheText); }},
        {"ImageClick", "in the left border", hearing(&W::imageClicked),
         [](auto& s) { QTest::mouseClick(&s.rows(), Qt::LeftButton, {}, QPoint(5, 50)); }},
        {"KeyDown", "a host's key", hearing(&W::keyDown),
         [](auto& s) { QTest::keyPress(&s.rows(), Qt::Key_F12); }},
        {"KeyUp", "a host's key", hearing(&W::keyUp),
         [](auto& s) { QTest::keyClick(&s.rows(), Qt::Key_F12); }},
        {"Scrolled", "key", hearing(&W::scrolled),
         [](auto& s) { QTest::keyPress(&s.rows(), Qt::Key_PageDown); }},
        {"Scrolled", "line box", hearing(&W::scrolled),
         [](auto& s) {
             s.elements().txtLn.SetText(u"800");
             s.settle();
             QTest::keyPress(s.live().tools().lineBox(), Qt::Key_Return);
         }},
        {"ButtonClick", "Grid", hearing(&W::buttonClicked),
         [](auto& s) {
             QTest::mouseClick(s.live().tools().template findChild<QToolButton*>("Grid"),
                               Qt::LeftButton);
         }},
        {"BeforeFileChange", "a result", hearing(&W::beforeFileChange),
         [](auto& s) {
             QTemporaryDir folder;
             QFile other(folder.filePath("other.txt"));
             QVERIFY(other.open(QIODevice::WriteOnly));
             other.write("needle\n");
             other.close();
             s.widget().setSearchFiles({other.fileName()});
             s.widget().setSearchText("needle");
             s.elements().tbMore.UserMenuClick(u"Find", 1);
             s.settle();
             QVERIFY(s.elements().lvFound.Visible());
             s.widget().act([](Surface& surface) { surface.lvFound.UserDoubleClick(1); });
         }},
    };
    return all;
}

}  // namespace

void DestructionEventsTest::theWidgetComesToItsEnd_data() {
    QTest::addColumn<int>("place");
    for (std::size_t i = 0; i < cases().size(); ++i) {
        QTest::addRow("%s: %s", cases()[i].Event, cases()[i].What) << static_cast<int>(i);
    }
}

void DestructionEventsTest::theWidgetComesToItsEnd() {
    QFETCH(int, place);
    const Case& one = cases()[static_cast<std::size_t>(place)];
    ShownBox shown;
    shown.loadLines(1000);
    shown.widget().activateWindow();
    shown.rows().setFocus();
    bool heard = false;
    one.Listen(shown.widget(), [&] {
        heard = true;
        shown.owner().reset();
    });
    one.Cause(shown);
    QVERIFY(heard);
    QVERIFY(shown.owner() == nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

void DestructionEventsTest::everyEventWasTried() {
    for (const EventDescription& event : DescribeEvents()) {
        QVERIFY2(std::any_of(cases().begin(), cases().end(),
                             [&](const Case& one) { return event.Name == one.Event; }),
                 std::string(event.Name).c_str());
    }
}

QTEST_MAIN(DestructionEventsTest)
#include "destruction_events_test.moc"
