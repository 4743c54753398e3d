#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

#include "qt/qt_picture.h"
#include "shown_box.h"

using namespace quorvale;
using namespace quorvale::test;

/// The toolbar's real buttons and boxes, and the context menus.
class ToolbarTest : public QObject {
    Q_OBJECT

private slots:
    void everyButtonIsSeenWithItsPictureAndTip();
    void buttonsFollowTheirElements();
    void theGridButtonShowsTheBoundaryLines();
    void theFindMenuHasItsEntries();
    void aHostsButtonJoinsTheOthers();
    void theBoxesLieInTheGaps();
    void whatIsTypedReachesTheElementAndNothingComesBack();
    void whatTheControlSetsIsShown();
    void aContextMenuReturnsAtOnceAndReportsThePick();
    void aContextMenuThatIsLeftPicksNothing();
    void largeFontsDoNotCutTheBoxes();
    void tabGoesFromLeftToRight();
    void escapeLeadsToTheTextButNotFromTheLineBox();
};

namespace {

QToolButton* buttonOf(ShownBox& shown, const char* key) {
    return shown.live().tools().findChild<QToolButton*>(key);
}

QMenu* openMenu(ShownBox& shown, const char* name) {
    return shown.widget().findChild<QMenu*>(name, Qt::FindDirectChildrenOnly);
}

}  // namespace

void ToolbarTest::everyButtonIsSeenWithItsPictureAndTip() {
    ShownBox shown;
    for (const char* key : {"Find", "Collapsed", "Edit", "Grid", "Print"}) {
        const QToolButton* button = buttonOf(shown, key);
        QVERIFY(button != nullptr && button->isVisible());
        QVERIFY(!button->icon().pixmap(16, 16).isNull());
        QVERIFY(!button->toolTip().isEmpty());
    }
    QCOMPARE(buttonOf(shown, "Ln")->text(), QString("Ln"));
    QCOMPARE(buttonOf(shown, "Grid")->toolTip(), QString("Show Boundaries"));
    QVERIFY(!shown.live().moreButton().icon().isNull());
}

void ToolbarTest::buttonsFollowTheirElements() {
    ShownBox shown;
    QVERIFY(!buttonOf(shown, "Edit")->isEnabled());
    shown.loadLines(10);
    QVERIFY(buttonOf(shown, "Edit")->isEnabled());
    shown.elements().tbMore.SetButtonEnabled(u"Edit", false);
    shown.settle();
    QVERIFY(!buttonOf(shown, "Edit")->isEnabled());
}

void ToolbarTest::theGridButtonShowsTheBoundaryLines() {
    ShownBox shown;
    shown.load(QByteArray(50, '\n'));
    shown.elements().imgMarker.SetVisible(false);
    const QRgb ground = shown.widget().palette().color(QPalette::Base).rgb();
    const QSignalSpy clicked(&shown.widget(), &QuorvaleBoxWidget::buttonClicked);
    QVERIFY(inkColumns(shown.picture(), shown.textPixels(3), ground).isEmpty());
    QTest::mouseClick(buttonOf(shown, "Grid"), Qt::LeftButton);
    QVERIFY(shown.box().ShowGrid());
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.first().first().toString(), QString("Grid"));
    QVERIFY(inkColumns(shown.picture(), shown.textPixels(3), ground).size() >= 2);
    shown.box().ShowGrid(false);
    QVERIFY(inkColumns(shown.picture(), shown.textPixels(3), ground).isEmpty());
    QVERIFY(!buttonOf(shown, "Grid")->isChecked());
}

void ToolbarTest::theFindMenuHasItsEntries() {
    ShownBox shown;
    const QMenu* menu = buttonOf(shown, "Find")->menu();
    QStringList captions;
    for (const QAction* action : menu->actions()) {
        captions << (action->isSeparator() ? "-" : action->text());
        // It used to be drawn with a dash in front of its line.
        if (action->isSeparator()) QCOMPARE(action->text(), QString());
    }
    QCOMPARE(captions, (QStringList{"Find Next", "Find All", "Wildcard Find All", "-",
                                    "Recent Search List"}));
    QStringList picked;
    shown.elements().tbMore.OnMenuClick = [&](const auto& button, const auto& item) {
        picked << toQString(button) + "/" + toQString(item);
    };
    menu->actions().at(1)->trigger();
    QCOMPARE(picked, QStringList{"Find/All"});
}

void ToolbarTest::aHostsButtonJoinsTheOthers() {
    ShownBox shown;
    QPixmap pixels(16, 16);
    pixels.fill(Qt::red);
    const auto picture = std::make_shared<QtPicture>("mine", QIcon(pixels), QSize(16, 16));
    QVERIFY(shown.box().AddButton(u"Mine", picture, u"My tip"));
    shown.settle();
    QToolButton* button = buttonOf(shown, ".Mine");
    QVERIFY(button != nullptr && button->isVisible());
    QCOMPARE(button->toolTip(), QString("My tip"));
    QVERIFY(button->x() > buttonOf(shown, "Print")->x());
    const QSignalSpy clicked(&shown.widget(), &QuorvaleBoxWidget::buttonClicked);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.first().first().toString(), QString("Mine"));
}

void ToolbarTest::theBoxesLieInTheGaps() {
    ShownBox shown;
    const ToolStrip& tools = shown.live().tools();
    QCOMPARE(tools.searchBox()->width(), 2000 / 15);
    QCOMPARE(tools.lineBox()->width(), 1000 / 15);
    QVERIFY(tools.searchBox()->x() >= buttonOf(shown, "Find")->geometry().right());
    QVERIFY(tools.lineBox()->x() >= buttonOf(shown, "Ln")->geometry().right());
    QCOMPARE(tools.searchBox()->text(), QString("Searchg"));
}

void ToolbarTest::whatIsTypedReachesTheElementAndNothingComesBack() {
    ShownBox shown;
    TextBox& element = shown.elements().txtSearch;
    int changes = 0;
    element.OnChange = [&] { ++changes; };
    QLineEdit& box = *shown.live().tools().searchBox();
    box.selectAll();
    QTest::keyClicks(&box, "abc");
    shown.settle();
    QCOMPARE(toQString(element.Text()), QString("abc"));
    QCOMPARE(changes, 3);
    QCOMPARE(element.SelStart(), std::size_t{3});
    QTest::keyClick(&box, Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(element.SelStart(), std::size_t{2});
    QCOMPARE(element.SelLength(), std::size_t{1});
    shown.settle();
    QCOMPARE(box.selectedText(), QString("c"));
    QCOMPARE(changes, 3);
}

void ToolbarTest::whatTheControlSetsIsShown() {
    ShownBox shown;
    TextBox& element = shown.elements().txtLn;
    QLineEdit& box = *shown.live().tools().lineBox();
    const QSignalSpy edited(&box, &QLineEdit::textEdited);
    element.SetText(u"12345");
    element.Select(5, 0);
    shown.settle();
    QCOMPARE(box.text(), QString("12345"));
    QCOMPARE(box.cursorPosition(), 5);
    element.Select(1, 3);
    shown.settle();
    QCOMPARE(box.selectedText(), QString("234"));
    QCOMPARE(edited.count(), 0);
}

void ToolbarTest::aContextMenuReturnsAtOnceAndReportsThePick() {
    ShownBox shown;
    Menu& element = shown.elements().mnuCollapse;
    QStringList picked;
    element.OnPick = [&](const auto& key) { picked << toQString(key); };
    element.PopUp(150, 360);
    QMenu* menu = openMenu(shown, "mnuCollapse");
    QVERIFY(menu != nullptr && menu->isVisible());
    QCOMPARE(menu->pos(), shown.widget().mapToGlobal(QPoint(10, 24)));
    QCOMPARE(menu->actions().first()->text(), QString("&Collapse All"));
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    QCOMPARE(picked, QStringList{"mnuCollapseCollapseAll"});
    QTRY_VERIFY(openMenu(shown, "mnuCollapse") == nullptr);
    QVERIFY(!element.PoppedUpAt());
}

void ToolbarTest::aContextMenuThatIsLeftPicksNothing() {
    ShownBox shown;
    Menu& element = shown.elements().mnuPopup;
    int picks = 0;
    element.OnPick = [&](const auto&) { ++picks; };
    element.PopUp(0, 360);
    QVERIFY(element.PoppedUpAt());
    QTest::keyClick(openMenu(shown, "mnuPopup"), Qt::Key_Escape);
    QTRY_VERIFY(!element.PoppedUpAt());
    QCOMPARE(picks, 0);
}

void ToolbarTest::largeFontsDoNotCutTheBoxes() {
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSizeF(20);
    QApplication::setFont(large);
    {
        ShownBox shown;
        const QLineEdit& box = *shown.live().tools().searchBox();
        QVERIFY(box.height() >= QFontMetrics(box.font()).height());
        QVERIFY(shown.live().tools().height() >= box.height());
        QCOMPARE(shown.rows().y(), shown.live().tools().height());
    }
    QApplication::setFont(before);
}

// The boxes came first, whatever stood in front of them.
void ToolbarTest::tabGoesFromLeftToRight() {
    ShownBox shown;
    ToolStrip& tools = shown.live().tools();
    QStringList order;
    QWidget* next = tools.nextInFocusChain();
    for (; next != &tools; next = next->nextInFocusChain()) {
        if (next->parentWidget() == &tools) order << next->objectName();
    }
    QCOMPARE(order, (QStringList{"Find", "txtSearch", "Ln", "txtLn", "Collapsed", "Edit", "Grid",
                                 "Print"}));
}

void ToolbarTest::escapeLeadsToTheTextButNotFromTheLineBox() {
    ShownBox shown;
    auto* line = shown.live().tools().findChild<QLineEdit*>("txtLn");
    auto* search = shown.live().tools().findChild<QLineEdit*>("txtSearch");
    for (const auto& [from, leaves] : {std::pair<QWidget*, bool>(buttonOf(shown, "Grid"), true),
                                       {search, true},
                                       {line, false}}) {
        from->setFocus();
        QVERIFY(from->hasFocus());
        QTest::keyClick(from, Qt::Key_Escape);
        QCOMPARE(from->hasFocus(), !leaves);
    }
}

QTEST_MAIN(ToolbarTest)
#include "toolbar_test.moc"
