#include <QAccessible>
#include <QLineEdit>
#include <QTest>

#include "qt/accessible_row.h"
#include "qt/accessible_rows.h"
#include "shown_box.h"

using namespace quorvale;
using namespace quorvale::test;

/// What assistive technology reads of the control, asked for in the same process.
class AccessibilityTest : public QObject {
    Q_OBJECT

private slots:
    void theRowsAreAListOfTheLinesOnScreen();
    void blankLinesAreSaidAsBlank();
    void theRowsBehindTheLastLineAreNotTold();
    void theCaretIsInItsRowAndNowhereElse();
    void aCaretOutOfSightIsStillFound();
    void selectedRowsAreTold();
    void foldsAreToldAndCanBeToggled();
    void aCorrectedRowIsTold();
    void rowsAreFoundWhereTheyAreSeen();
    void charactersAreFoundWhereTheyArePainted();
    void aRowTakesTheFocusAndTheCaret();
    void anItemIsKnownByItsLine();
    void itemsThatScrolledAwayAreGivenUp();
    void aLineOfAMegabyteIsToldInPart();
    void nothingIsLookedAtWhileNobodyListens();
    void buttonsBoxesAndEditorHaveNames();
    void theListOfResultsAndItsColumnsHaveNamesInEveryLanguage();
    void aListenerMayDestroyTheControl();
};

namespace {

/// The list of the rows, as Qt finds it.
AccessibleRows& listOf(ShownBox& shown) {
    auto* found =
        dynamic_cast<AccessibleRows*>(QAccessible::queryAccessibleInterface(&shown.rows()));
    if (found == nullptr) qFatal("the rows have no interface of their own");
    return *found;
}

QString nameOf(const QAccessibleInterface* part) { return part->text(QAccessible::Name); }

QString nameOf(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

QString describe(const QAccessibleInterface* part) { return part->text(QAccessible::Description); }

/// Lines that can be folded below the first of them; none is.
void makeRange(ShownBox& shown, int first, int last) {
    shown.box().AutoRedraw(false);
    shown.box().CollapseLines(first, last);
    shown.box().AutoRedraw(true);
    shown.settle();
}

void giveFocus(ShownBox& shown) {
    shown.widget().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&shown.widget()));
    shown.rows().setFocus();
    shown.settle();
}

}  // namespace

void AccessibilityTest::theRowsAreAListOfTheLinesOnScreen() {
    ShownBox shown;
    shown.loadLines(1000);
    AccessibleRows& list = listOf(shown);
    QCOMPARE(list.role(), QAccessible::List);
    QCOMPARE(nameOf(&list), QString("Text"));
    QVERIFY(list.state().multiSelectable);
    const int rows = list.childCount();
    QVERIFY(rows > 20 && rows < 60);
    QVERIFY(list.child(-1) == nullptr);
    QVERIFY(list.child(rows) == nullptr);
    shown.box().TopLine(500);
    shown.settle();
    for (int i = 0; i < rows; ++i) {
        QAccessibleInterface* row = list.child(i);
        QCOMPARE(row->role(), QAccessible::ListItem);
        QCOMPARE(nameOf(row), QString("row %1").arg(500 + i));
        QCOMPARE(describe(row), QString("line %1").arg(500 + i));
        QCOMPARE(list.indexOfChild(row), i);
        QVERIFY(row->parent() == &list);
        QVERIFY(row->isValid() && !row->state().offscreen && !row->state().invisible);
        QVERIFY(row->window() == shown.widget().windowHandle());
    }
}

void AccessibilityTest::blankLinesAreSaidAsBlank() {
    ShownBox shown;
    shown.load("first\n\n   \t\n  x\n");
    AccessibleRows& list = listOf(shown);
    QCOMPARE(nameOf(list.child(0)), QString("first"));
    QCOMPARE(nameOf(list.child(1)), QString("blank"));
    QCOMPARE(nameOf(list.child(2)), QString("blank"));
    QCOMPARE(nameOf(list.child(3)), QString("  x"));
    QCOMPARE(list.child(1)->textInterface()->characterCount(), 0);
    QCOMPARE(list.child(2)->textInterface()->text(0, 99), QString(8, ' '));
}

void AccessibilityTest::theRowsBehindTheLastLineAreNotTold() {
    ShownBox shown;
    shown.load("one\ntwo\nthree");
    QCOMPARE(listOf(shown).childCount(), 3);
    QVERIFY(listOf(shown).row(4) == nullptr);
    QVERIFY(listOf(shown).row(0) == nullptr);
    shown.load("");
    QCOMPARE(listOf(shown).childCount(), shown.box().LineCount());
}

void AccessibilityTest::theCaretIsInItsRowAndNowhereElse() {
    ShownBox shown;
    shown.loadLines(100);
    AccessibleRows& list = listOf(shown);
    giveFocus(shown);
    shown.box().MoveTo(7, 4);
    AccessibleRow* row = list.row(7);
    QVERIFY(list.focusChild() == row);
    QVERIFY(!list.state().focused);
    auto* control = QAccessible::queryAccessibleInterface(&shown.widget());
    QVERIFY(control->focusChild() == row);
    QVERIFY(!control->state().focused);
    QCOMPARE(row->cursorPosition(), 3);
    QVERIFY(row->state().focused && row->state().active);
    QVERIFY(!list.row(6)->state().focused && !list.row(6)->state().active);
    QCOMPARE(list.row(6)->cursorPosition(), -1);
    QTest::keyClick(&shown.rows(), Qt::Key_Down);
    QVERIFY(list.focusChild() == list.row(8));
    QTest::keyClick(&shown.rows(), Qt::Key_End);
    QCOMPARE(list.row(8)->cursorPosition(), int(QString("row 8").size()));
    shown.live().tools().searchBox()->setFocus();
    QVERIFY(list.focusChild() == nullptr);
    QCOMPARE(nameOf(control->focusChild()), QString("Find"));
    QVERIFY(list.row(8)->state().active && !list.row(8)->state().focused);
}

void AccessibilityTest::aCaretOutOfSightIsStillFound() {
    ShownBox shown;
    shown.load("first\n\ttabbed\n" + QByteArray(1000, '\n'));
    giveFocus(shown);
    shown.box().MoveTo(2, 1);
    shown.box().TopLine(500);
    AccessibleRows& list = listOf(shown);
    QAccessibleInterface* row = list.focusChild();
    QVERIFY(row != nullptr && row->isValid());
    QCOMPARE(nameOf(row), QString("        tabbed"));
    QVERIFY(row->state().focused && row->state().offscreen);
    QVERIFY(row->rect().isEmpty());
    QCOMPARE(list.indexOfChild(row), -1);
}

void AccessibilityTest::selectedRowsAreTold() {
    ShownBox shown;
    shown.loadLines(100);
    AccessibleRows& list = listOf(shown);
    shown.box().row(5);
    QVERIFY(list.row(5)->state().selectable && !list.row(5)->state().selected);
    shown.box().SelectedRowsCount(3);
    QList<int> selected;
    for (int line = 1; line < 20; ++line) {
        if (list.row(line)->state().selected) selected << line;
    }
    QCOMPARE(selected, (QList<int>{5, 6, 7}));
}

void AccessibilityTest::foldsAreToldAndCanBeToggled() {
    ShownBox shown;
    shown.loadLines(100);
    makeRange(shown, 3, 6);
    AccessibleRows& list = listOf(shown);
    QVERIFY(!list.row(2)->state().expandable);
    QVERIFY(!list.row(2)->actionNames().contains(QAccessibleActionInterface::toggleAction()));
    list.row(2)->doAction(QAccessibleActionInterface::toggleAction());
    AccessibleRow* head = list.row(3);
    QVERIFY(head->state().expandable && head->state().expanded);
    for (const bool folded : {true, false}) {
        head->doAction(QAccessibleActionInterface::toggleAction());
        QVERIFY(head->state().expandable);
        QCOMPARE(bool(head->state().collapsed), folded);
        QCOMPARE(bool(head->state().expanded), !folded);
        QCOMPARE(describe(head), QString(folded ? "line 3, folded" : "line 3"));
        QCOMPARE(nameOf(list.child(3)), QString(folded ? "row 7" : "row 4"));
    }
}

void AccessibilityTest::aCorrectedRowIsTold() {
    ShownBox shown;
    shown.loadLines(100);
    shown.elements().imgEdit[3].SetVisible(true);
    AccessibleRows& list = listOf(shown);
    QVERIFY(list.row(4)->state().checked && !list.row(4)->state().checkable);
    QCOMPARE(describe(list.row(4)), QString("line 4, corrected"));
    QVERIFY(!list.row(5)->state().checked);
    QCOMPARE(describe(list.row(5)), QString("line 5"));
}

void AccessibilityTest::rowsAreFoundWhereTheyAreSeen() {
    ShownBox shown;
    shown.loadLines(100);
    AccessibleRows& list = listOf(shown);
    const QRect area(shown.rows().mapToGlobal(QPoint()), shown.rows().size());
    QCOMPARE(list.rect(), area);
    for (int i = 0; i < list.childCount(); ++i) {
        const QRect place = list.child(i)->rect();
        QVERIFY(!place.isEmpty() && area.contains(place));
        QVERIFY(list.childAt(place.center().x(), place.center().y()) == list.child(i));
        if (i > 0) QCOMPARE(place.top(), list.child(i - 1)->rect().bottom() + 1);
    }
    QVERIFY(list.childAt(area.right() + 5, area.top() + 5) == nullptr);
    shown.load("only one");
    QVERIFY(list.childAt(area.center().x(), area.bottom() - 5) == nullptr);
}

void AccessibilityTest::charactersAreFoundWhereTheyArePainted() {
    ShownBox shown(QSize(800, 600), ShownBox::tall());
    shown.load("plain\nab\U0001F600cd\n");
    AccessibleRow* row = listOf(shown).row(2);
    QCOMPARE(row->characterCount(), 6);
    QCOMPARE(row->text(0, 2), QString("ab"));
    QCOMPARE(row->text(4, 99), QString("cd"));
    QCOMPARE(row->text(-3, -1), QString());
    const double left = toPixels(shown.elements().lblLine[1].Left());
    const QRect first = row->characterRect(0);
    QCOMPARE(first.left(), shown.rows().mapToGlobal(QPoint(qRound(left), 0)).x());
    QCOMPARE(first.height(), row->rect().height());
    QCOMPARE(row->characterRect(1).left(), first.right() + 1);
    QVERIFY(row->characterRect(6).left() > row->characterRect(5).left());
    QVERIFY(row->characterRect(7).isEmpty());
    for (const int offset : {0, 1, 2, 4, 5, 6}) {
        QCOMPARE(row->offsetAtPoint(row->characterRect(offset).center()), offset);
    }
    QCOMPARE(row->offsetAtPoint(row->rect().bottomLeft() + QPoint(0, 1)), -1);
    int start = -1;
    int end = -1;
    QCOMPARE(row->textAtOffset(1, QAccessible::CharBoundary, &start, &end), QString("b"));
    QCOMPARE(row->textAtOffset(1, QAccessible::LineBoundary, &start, &end).size(), 6);
}

void AccessibilityTest::aRowTakesTheFocusAndTheCaret() {
    ShownBox shown;
    shown.loadLines(100);
    giveFocus(shown);
    shown.live().tools().searchBox()->setFocus();
    AccessibleRow* row = listOf(shown).row(9);
    row->doAction(QAccessibleActionInterface::setFocusAction());
    QVERIFY(shown.rows().hasFocus());
    QCOMPARE(shown.box().row(), 9);
    row->setCursorPosition(2);
    QCOMPARE(shown.box().col(), 3);
    row->setCursorPosition(99);
    QCOMPARE(shown.box().col(), int(QString("row 9").size()) + 1);
    row->doAction("no such action");
    QCOMPARE(shown.box().row(), 9);
}

void AccessibilityTest::anItemIsKnownByItsLine() {
    ShownBox shown;
    shown.loadLines(1000);
    AccessibleRows& list = listOf(shown);
    AccessibleRow* row = list.row(3);
    shown.box().TopLine(3);
    QVERIFY(list.child(0) == row);
    shown.box().TopLine(700);
    QCOMPARE(nameOf(row), QString("row 3"));
    QVERIFY(row->state().offscreen);
    shown.load("another\ndocument");
    QVERIFY(!row->isValid());
    QVERIFY(row->state().invalid);
    QCOMPARE(nameOf(row), QString());
    QCOMPARE(row->characterCount(), 0);
}

void AccessibilityTest::itemsThatScrolledAwayAreGivenUp() {
    ShownBox shown;
    shown.loadLines(5000);
    shown.box().row(2);
    AccessibleRows& list = listOf(shown);
    const QAccessible::Id first = QAccessible::uniqueId(list.row(1));
    const QAccessible::Id caret = QAccessible::uniqueId(list.row(2));
    for (int top = 1; top < 4000; top += 30) {
        shown.box().TopLine(top);
        for (int i = 0; i < list.childCount(); ++i) QVERIFY(list.child(i)->isValid());
    }
    QVERIFY(QAccessible::accessibleInterface(first) == nullptr);
    QVERIFY(QAccessible::accessibleInterface(caret) == list.row(2));
}

void AccessibilityTest::aLineOfAMegabyteIsToldInPart() {
    ShownBox shown;
    shown.load(QByteArray(1'000'000, 'x') + "\nshort");
    AccessibleRow* row = listOf(shown).row(1);
    QCOMPARE(row->characterCount(), int(mostSpoken));
    QCOMPARE(std::size_t(nameOf(row).size()), mostSpoken);
    shown.box().MoveTo(1, 900'000);
    QCOMPARE(row->cursorPosition(), int(mostSpoken));
}

void AccessibilityTest::nothingIsLookedAtWhileNobodyListens() {
    QVERIFY(!QAccessible::isActive());
    ShownBox shown;
    shown.loadLines(1000);
    giveFocus(shown);
    shown.box().TopLine(500);
    QTest::keyClick(&shown.rows(), Qt::Key_Down);
    shown.settle();
    QCOMPARE(shown.live().announcer().looks(), 0);
}

void AccessibilityTest::buttonsBoxesAndEditorHaveNames() {
    ShownBox shown;
    ToolStrip& tools = shown.live().tools();
    QCOMPARE(QAccessible::queryAccessibleInterface(&tools)->role(), QAccessible::ToolBar);
    for (const auto& [key, name] :
         {std::pair("Find", "Find"), std::pair("Ln", "Go to Line"),
          std::pair("Collapsed", "Collapse Lines"), std::pair("Grid", "Show Boundaries")}) {
        QCOMPARE(nameOf(tools.findChild<QToolButton*>(key)), QString(name));
    }
    QCOMPARE(nameOf(tools.searchBox()), QString("Find"));
    QCOMPARE(nameOf(tools.lineBox()), QString("Go to Line"));
    QCOMPARE(nameOf(&shown.live().editor()), QString("Edit"));
    QCOMPARE(nameOf(&shown.live().moreButton()), QString("Hide Toolbar"));
    shown.elements().cmdMore.UserClick();
    shown.settle();
    QCOMPARE(nameOf(&shown.live().moreButton()), QString("Show Toolbar"));
    QPixmap pixels(16, 16);
    pixels.fill(Qt::red);
    QVERIFY(shown.widget().addButton("Mine", QIcon(pixels)));
    shown.settle();
    QCOMPARE(nameOf(tools.findChild<QToolButton*>(".Mine")), QString("Mine"));
}

// A screen reader came to a list without a name.
void AccessibilityTest::theListOfResultsAndItsColumnsHaveNamesInEveryLanguage() {
    struct Said {
        QLocale::Language Language;
        QString Name;
        QStringList Columns;
    };
    const Said all[] = {
        {QLocale::English, "Search results", {"FileName", "Line No.", "Source Line"}},
        {QLocale::Japanese, "検索結果", {"ファイル名", "行番号", "ソース行"}},
        {QLocale::Korean, "검색 결과", {"파일 이름", "행 번호", "소스 행"}},
        {QLocale::English, "Search results", {"FileName", "Line No.", "Source Line"}},
    };
    ShownBox shown;
    shown.loadLines(100);
    shown.widget().setSearchText("row 7");
    shown.elements().tbMore.UserMenuClick(u"Find", 1);
    shown.settle();
    ListMirror& list = shown.live().results();
    QVERIFY(list.isVisible());
    for (const Said& said : all) {
        QuorvaleBoxWidget::setInterfaceLanguage(said.Language);
        shown.widget().speakAnew();
        QuorvaleBoxWidget::setInterfaceLanguage(QLocale::AnyLanguage);
        shown.settle();
        QCOMPARE(nameOf(&list), said.Name);
        auto* table = QAccessible::queryAccessibleInterface(&list)->tableInterface();
        QVERIFY(table != nullptr);
        QStringList columns;
        for (int i = 0; i < table->columnCount(); ++i) columns << table->columnDescription(i);
        QCOMPARE(columns, said.Columns);
    }
}

void AccessibilityTest::aListenerMayDestroyTheControl() {
    ShownBox shown;
    shown.loadLines(100);
    makeRange(shown, 3, 6);
    const QAccessible::Id head = QAccessible::uniqueId(listOf(shown).row(3));
    shown.elements().OnGlyphClick = [&](int) {
        shown.owner().reset();
        // The area goes when the event is over; until then nothing is told.
        QAccessibleInterface* row = QAccessible::accessibleInterface(head);
        QVERIFY(row != nullptr && !row->isValid());
        QCOMPARE(nameOf(row), QString());
        QVERIFY(row->rect().isEmpty());
        QCOMPARE(row->parent()->childCount(), 0);
    };
    listOf(shown).row(3)->doAction(QAccessibleActionInterface::toggleAction());
    QVERIFY(shown.owner() == nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(QAccessible::accessibleInterface(head) == nullptr);
}

QTEST_MAIN(AccessibilityTest)
#include "accessibility_test.moc"
