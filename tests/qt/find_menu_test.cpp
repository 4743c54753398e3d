#include <QMenu>
#include <QTest>

#include "shown_box.h"

using namespace quorvale;
using namespace quorvale::test;

/// The menu of the Find button, opened and picked from with a mouse.
class FindMenuTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void nextGoesToTheNextMatch();
    void allListsTheMatches();
    void allOfAPatternListsMatchingLines();
    void recentShowsTheListAgain();
    void theButtonItselfGoesToTheNextMatch();
    void withoutATextTheButtonAndItsMenuAreDisabled();
    void theWaysBackHaveTheirPicture();
    void aSelectedResultFarDownIsSeen();

private:
    QToolButton& button() { return *shown_->live().tools().findChild<QToolButton*>("Find"); }
    /// Where the keys go once the window has them.
    bool hasKeys(QWidget& widget) { return shown_->widget().focusWidget() == &widget; }
    void pick(const QString& caption);
    QStringList listed();

    std::unique_ptr<ShownBox> shown_;
};

void FindMenuTest::init() {
    shown_ = std::make_unique<ShownBox>();
    shown_->load("zero\nabc one\nxABCx\na c\nabc two\n");
    shown_->box().SearchText(u"abc");
    shown_->settle();
}

void FindMenuTest::pick(const QString& caption) {
    QMenu* menu = button().menu();
    bool opened = false;
    QTimer::singleShot(0, menu, [&] {
        opened = menu->isVisible();
        for (QAction* action : menu->actions()) {
            if (action->text() != caption) continue;
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
        }
        menu->close();
    });
    const QPoint arrow(button().width() - 3, button().height() / 2);
    QTest::mouseClick(&button(), Qt::LeftButton, {}, arrow);
    QVERIFY(opened);
    shown_->settle();
}

QStringList FindMenuTest::listed() {
    QStringList lines;
    ListMirror& list = shown_->live().results();
    if (!list.isVisible()) return {"hidden"};
    for (int row = 0; row < list.model()->rowCount(); ++row) {
        lines << list.model()->index(row, 2).data().toString();
    }
    return lines;
}

void FindMenuTest::nextGoesToTheNextMatch() {
    pick("Find Next");
    QCOMPARE(shown_->box().row(), 2);
    pick("Find Next");
    QCOMPARE(shown_->box().row(), 3);
    QVERIFY(hasKeys(*shown_->live().tools().searchBox()));
    QCOMPARE(listed(), QStringList{"hidden"});
}

void FindMenuTest::allListsTheMatches() {
    pick("Find All");
    QCOMPARE(listed(),
             (QStringList{"3 match(es) found.", "abc one", "xABCx", "abc two", QString()}));
    QVERIFY(hasKeys(shown_->live().results()));
}

void FindMenuTest::allOfAPatternListsMatchingLines() {
    shown_->box().SearchText(u"a?c");
    pick("Wildcard Find All");
    QCOMPARE(listed(),
             (QStringList{"4 match(es) found.", "abc one", "xABCx", "a c", "abc two", QString()}));
    pick("Find All");
    QCOMPARE(listed(), (QStringList{"No match found."}));
}

void FindMenuTest::recentShowsTheListAgain() {
    pick("Find All");
    QTest::keyClick(&shown_->live().results(), Qt::Key_Return);
    shown_->settle();
    QCOMPARE(listed(), QStringList{"hidden"});
    shown_->box().SearchText(u"zero");
    pick("Recent Search List");
    QCOMPARE(listed().size(), 5);
    QVERIFY(hasKeys(shown_->live().results()));
}

void FindMenuTest::theButtonItselfGoesToTheNextMatch() {
    QTest::mouseClick(&button(), Qt::LeftButton, {}, QPoint(6, button().height() / 2));
    QCOMPARE(shown_->box().row(), 2);
}

void FindMenuTest::withoutATextTheButtonAndItsMenuAreDisabled() {
    shown_->box().SearchText(u"");
    shown_->settle();
    QVERIFY(!button().isEnabled());
    QTest::mouseClick(&button(), Qt::LeftButton, {}, QPoint(button().width() - 3, 5));
    QVERIFY(!button().menu()->isVisible());
}

void FindMenuTest::theWaysBackHaveTheirPicture() {
    pick("Find All");
    const QAbstractItemModel& model = *shown_->live().results().model();
    for (int row = 0; row < 5; ++row) {
        const bool isWayBack = row == 0 || row == 4;
        const auto icon = model.index(row, 0).data(Qt::DecorationRole).value<QIcon>();
        QCOMPARE(!icon.isNull(), isWayBack);
        QCOMPARE(model.index(row, 0).data(Qt::FontRole).value<QFont>().bold(), isWayBack);
    }
}

void FindMenuTest::aSelectedResultFarDownIsSeen() {
    shown_->loadLines(1000);
    shown_->box().row(500);
    shown_->box().SearchText(u"row");
    pick("Find All");
    ListMirror& list = shown_->live().results();
    QCOMPARE(list.currentIndex().row(), 500);
    QVERIFY(list.viewport()->rect().contains(list.visualRect(list.currentIndex())));
}

QTEST_MAIN(FindMenuTest)
#include "find_menu_test.moc"
