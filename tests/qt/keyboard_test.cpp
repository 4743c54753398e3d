#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QVBoxLayout>

#include "shown_box.h"

using namespace quorvale;
using namespace quorvale::test;

/// Keys and the keyboard focus.
class KeyboardTest : public QObject {
    Q_OBJECT

private slots:
    void keysHaveTheirNumbers_data();
    void keysHaveTheirNumbers();
    void aKeyOfAnotherScriptIsNamedByItsPlace();
    void theMenuBarIsNoLeaving();
    void aRepeatingKeyGoesDownOftenAndComesUpOnce();
    void ownKeysStayAndOthersGoOn();
    void theControlIsEnteredBeforeTheTextAndLeftAfterIt();
    void aMoveInsideIsNoLeaving();
    void aPopupOrAnotherWindowIsNoLeaving();
    void theCoreMovesTheFocus();
    void theCoreCannotMoveTheFocusToSomethingHidden();
    void keysInABoxAreSeenByTheControlFirst();
    void aBoxCanSwallowAKey();
    void rowsAreNotTypedInto();
};

namespace {

/// A window with a control and a line edit beside it.
class TwoWidgets : public QWidget {
public:
    TwoWidgets() : control(new QuorvaleBoxWidget(this)), other(new QLineEdit(this)) {
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(control);
        layout->addWidget(other);
        resize(600, 400);
        Surface& surface = control->box().Elements();
        surface.OnEnter = [this] { log << "enter"; };
        surface.OnExit = [this] { log << "exit"; };
        surface.Focus.OnGot = [this](FocusChild child) {
            log << QString("got %1").arg(int(child));
        };
        surface.Focus.OnLost = [this](FocusChild child) {
            log << QString("lost %1").arg(int(child));
        };
        other->setFocus();
        show();
        activateWindow();
        (void)QTest::qWaitForWindowActive(this);
        log.clear();
    }

    QWidget& rows() { return control->liveSurface().rows(); }
    QLineEdit& search() { return *control->liveSurface().tools().searchBox(); }

    QuorvaleBoxWidget* control;
    QLineEdit* other;
    QStringList log;

protected:
    void keyPressEvent(QKeyEvent* event) override { log << QString("window %1").arg(event->key()); }
};

const QString text = QString::number(int(FocusChild::TextArea));
const QString search = QString::number(int(FocusChild::SearchBox));

}  // namespace

void KeyboardTest::keysHaveTheirNumbers_data() {
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("code");
    const std::pair<int, int> pairs[] = {
        {Qt::Key_Up, 38},      {Qt::Key_Down, 40},      {Qt::Key_Left, 37},
        {Qt::Key_Right, 39},   {Qt::Key_Home, 36},      {Qt::Key_End, 35},
        {Qt::Key_PageUp, 33},  {Qt::Key_PageDown, 34},  {Qt::Key_Return, 13},
        {Qt::Key_Escape, 27},  {Qt::Key_Backspace, 8},  {Qt::Key_A, 65},
        {Qt::Key_Z, 90},       {Qt::Key_0, 48},         {Qt::Key_F1, 112},
        {Qt::Key_F2, 113},     {Qt::Key_F12, 123},      {Qt::Key_Delete, 46},
        {Qt::Key_Space, 32},   {Qt::Key_Enter, 13},     {Qt::Key_Insert, 45},
        {Qt::Key_Period, 190}, {Qt::Key_Semicolon, 186}};
    for (const auto& [key, code] : pairs) {
        QTest::newRow(qPrintable(QKeySequence(key).toString())) << key << code;
    }
}

void KeyboardTest::keysHaveTheirNumbers() {
    QFETCH(int, key);
    QFETCH(int, code);
    ShownBox shown;
    QStringList log;
    shown.elements().OnKeyDown = [&](auto c, auto s) {
        log << QString("down %1 %2").arg(c).arg(s);
    };
    shown.elements().OnKeyUp = [&](auto c, auto s) { log << QString("up %1 %2").arg(c).arg(s); };
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::ControlModifier);
        QCoreApplication::sendEvent(&shown.rows(), &event);
    }
    QCOMPARE(log, (QStringList{QString("down %1 2").arg(code), QString("up %1 2").arg(code)}));
}

void KeyboardTest::aKeyOfAnotherScriptIsNamedByItsPlace() {
    ShownBox shown;
    shown.rows().setFocus();
    QStringList heard;
    connect(&shown.widget(), &QuorvaleBoxWidget::keyDown, &shown.widget(),
            [&](int code, int shift) { heard << QString("%1 %2").arg(code).arg(shift); });
    const auto press = [&](int key, quint32 place) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, place, 0, 0);
        QCoreApplication::sendEvent(&shown.rows(), &event);
    };
    // A Cyrillic letter where Latin keyboards have S, a German one where American ones have '.
    press(0x042B, 39);
    press(0x00C4, 48);
    press(Qt::Key_MediaPlay, 39);
    QCOMPARE(heard, (QStringList{"83 0", "222 0"}));
}

void KeyboardTest::theMenuBarIsNoLeaving() {
    QMainWindow window;
    auto* control = new QuorvaleBoxWidget(&window);
    window.setCentralWidget(control);
    window.menuBar()->addMenu("File")->addAction("Open");
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    control->setFocus();
    int exits = 0;
    control->box().Elements().OnExit = [&] { ++exits; };
    window.menuBar()->setFocus(Qt::MenuBarFocusReason);
    QCOMPARE(exits, 0);
    control->setFocus();
    QCOMPARE(exits, 0);
}

void KeyboardTest::aRepeatingKeyGoesDownOftenAndComesUpOnce() {
    ShownBox shown;
    QStringList log;
    shown.elements().OnKeyDown = [&](auto, auto) { log << "down"; };
    shown.elements().OnKeyUp = [&](auto, auto) { log << "up"; };
    const auto send = [&](QEvent::Type type, bool repeated) {
        QKeyEvent event(type, Qt::Key_Down, Qt::NoModifier, QString(), repeated);
        QCoreApplication::sendEvent(&shown.rows(), &event);
    };
    send(QEvent::KeyPress, false);
    for (int i = 0; i < 2; ++i) {
        send(QEvent::KeyRelease, true);
        send(QEvent::KeyPress, true);
    }
    send(QEvent::KeyRelease, false);
    QCOMPARE(log, (QStringList{"down", "down", "down", "up"}));
}

void KeyboardTest::ownKeysStayAndOthersGoOn() {
    TwoWidgets window;
    window.rows().setFocus();
    window.log.clear();
    QTest::keyClick(&window.rows(), Qt::Key_Down);
    QTest::keyClick(&window.rows(), Qt::Key_A, Qt::ControlModifier);
    const QString control = QString("window %1").arg(Qt::Key_Control);
    window.log.removeAll(control);
    QCOMPARE(window.log.filter("window"), QStringList());
    QTest::keyClick(&window.rows(), Qt::Key_Escape);
    QCOMPARE(window.log.filter("window"), QStringList{QString("window %1").arg(Qt::Key_Escape)});
}

void KeyboardTest::theControlIsEnteredBeforeTheTextAndLeftAfterIt() {
    TwoWidgets window;
    window.control->setFocus();
    QCOMPARE(window.log, (QStringList{"enter", "got " + text}));
    window.log.clear();
    window.other->setFocus();
    QCOMPARE(window.log, (QStringList{"lost " + text, "exit"}));
}

void KeyboardTest::aMoveInsideIsNoLeaving() {
    TwoWidgets window;
    window.control->setFocus();
    window.log.clear();
    window.search().setFocus();
    window.rows().setFocus();
    QCOMPARE(window.log,
             (QStringList{"lost " + text, "got " + search, "lost " + search, "got " + text}));
}

void KeyboardTest::aPopupOrAnotherWindowIsNoLeaving() {
    TwoWidgets window;
    window.control->setFocus();
    window.log.clear();
    QMenu menu(&window);
    menu.addAction("one");
    menu.popup(window.mapToGlobal(QPoint(10, 10)));
    QTRY_VERIFY(menu.isVisible());
    menu.close();
    QWidget front;
    QLineEdit inFront(&front);
    front.show();
    front.activateWindow();
    inFront.setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&front));
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QCOMPARE(window.log, QStringList());
    // Another widget of the window does take it, also while the window is not the active one.
    front.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&front));
    window.other->setFocus();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QCOMPARE(window.log, (QStringList{"lost " + text, "exit"}));
}

void KeyboardTest::theCoreMovesTheFocus() {
    TwoWidgets window;
    Focus& focus = window.control->box().Elements().Focus;
    QVERIFY(focus.Request(FocusChild::SearchBox));
    QVERIFY(window.search().hasFocus());
    QVERIFY(focus.Request(FocusChild::TextArea));
    QVERIFY(window.rows().hasFocus());
    QCOMPARE(window.log, (QStringList{"enter", "got " + search, "lost " + search, "got " + text}));
}

void KeyboardTest::theCoreCannotMoveTheFocusToSomethingHidden() {
    TwoWidgets window;
    window.control->setFocus();
    window.control->box().Elements().cmdMore.UserClick();
    QCoreApplication::processEvents();
    QVERIFY(!window.control->box().Elements().Focus.Request(FocusChild::SearchBox));
    QVERIFY(!window.control->box().Elements().Focus.Request(FocusChild::Editor));
    QVERIFY(window.rows().hasFocus());
}

void KeyboardTest::keysInABoxAreSeenByTheControlFirst() {
    TwoWidgets window;
    Surface& surface = window.control->box().Elements();
    surface.OnKeyDown = [&](auto code, auto) { window.log << QString("control %1").arg(code); };
    surface.OnKeyUp = [&](auto code, auto) { window.log << QString("control up %1").arg(code); };
    surface.txtSearch.OnKeyDown = [&](auto& code, auto) {
        window.log << QString("box %1 '%2'").arg(code).arg(window.search().text());
    };
    window.search().setFocus();
    window.search().clear();
    window.log.clear();
    QTest::keyClick(&window.search(), Qt::Key_X);
    QCOMPARE(window.log, (QStringList{"control 88", "box 88 ''", "control up 88"}));
    QCOMPARE(window.search().text(), QString("x"));
}

void KeyboardTest::aBoxCanSwallowAKey() {
    TwoWidgets window;
    Surface& surface = window.control->box().Elements();
    surface.txtSearch.OnKeyDown = [](std::int16_t& code, std::int16_t) {
        if (code == 88) code = 0;
    };
    window.search().setFocus();
    window.search().setText("a");
    QTest::keyClick(&window.search(), Qt::Key_X);
    QTest::keyClick(&window.search(), Qt::Key_Y);
    QCOMPARE(window.search().text(), QString("ay"));
}

void KeyboardTest::rowsAreNotTypedInto() {
    ShownBox shown;
    QVERIFY(!shown.rows().inputMethodQuery(Qt::ImEnabled).toBool());
}

QTEST_MAIN(KeyboardTest)
#include "keyboard_test.moc"
