#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QTest>

#include "shown_box.h"

using namespace quorvale;
using quorvale::test::ShownBox;

/// The list of results as a real list: what a search finds, picked with mouse and keys.
class ResultsTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void findingAllFillsTheList();
    void aClickSelectsAndADoubleClickGoesThere();
    void keysMoveTheSelectionAndPick();
    void aPageIsAPageOfTheList();
    void escapeClosesTheList();
    void anotherSearchReplacesTheRows();
    void aMatchFarBehindInItsLineIsSeen();
    void theArrowIsSeenOnTheColourOfTheSelection();

private:
    void findAll(const QString& text);
    ListMirror& list() { return shown_->live().results(); }
    QPoint placeOf(int row) { return list().visualRect(list().model()->index(row, 0)).center(); }

    std::unique_ptr<ShownBox> shown_;
};

void ResultsTest::init() {
    shown_ = std::make_unique<ShownBox>();
    shown_->loadLines(3000);
}

void ResultsTest::findAll(const QString& text) {
    constexpr std::size_t all = 1;
    shown_->elements().txtSearch.SetText(toUtf16(text));
    shown_->elements().tbMore.UserMenuClick(u"Find", all);
    shown_->settle();
}

void ResultsTest::findingAllFillsTheList() {
    findAll("row 1");
    QVERIFY(list().isVisible());
    // What was searched for, then 1, 10 to 19, 100 to 199, 1000 to 1999, and how many there are.
    QCOMPARE(list().model()->rowCount(), 1 + 1111 + 1);
    QCOMPARE(list().model()->index(2, 1).data().toString().trimmed(), QString("10"));
    QCOMPARE(list().model()->index(2, 2).data().toString(), QString("row 10"));
    QVERIFY(!list().header()->model()->headerData(0, Qt::Horizontal).toString().isEmpty());
}

void ResultsTest::aClickSelectsAndADoubleClickGoesThere() {
    findAll("row 1");
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, placeOf(3));
    shown_->settle();
    QCOMPARE(list().currentIndex().row(), 3);
    QCOMPARE(*shown_->elements().lvFound.Selected(), std::size_t{3});
    QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, placeOf(3));
    QCOMPARE(shown_->box().row(), 11);
}

void ResultsTest::keysMoveTheSelectionAndPick() {
    findAll("row 1");
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, placeOf(0));
    QTest::keyClick(&list(), Qt::Key_Down);
    QTest::keyClick(&list(), Qt::Key_Down);
    shown_->settle();
    QCOMPARE(list().currentIndex().row(), 2);
    QTest::keyClick(&list(), Qt::Key_Return);
    QCOMPARE(shown_->box().row(), 10);
}

void ResultsTest::aPageIsAPageOfTheList() {
    findAll("row 1");
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, placeOf(0));
    shown_->settle();
    QTest::keyClick(&list(), Qt::Key_PageDown);
    shown_->settle();
    QVERIFY(list().currentIndex().row() > 3);
    QCOMPARE(static_cast<int>(*shown_->elements().lvFound.Selected()), list().currentIndex().row());
}

void ResultsTest::escapeClosesTheList() {
    findAll("row 1");
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, placeOf(0));
    QTest::keyClick(&list(), Qt::Key_Escape);
    shown_->settle();
    QVERIFY(!list().isVisible());
}

void ResultsTest::anotherSearchReplacesTheRows() {
    findAll("row 1");
    findAll("row 29");
    QCOMPARE(list().model()->rowCount(), 1 + 111 + 1);
    QCOMPARE(list().model()->index(1, 2).data().toString(), QString("row 29"));
    findAll("nowhere");
    QCOMPARE(list().model()->rowCount(), 1);
}

// Its blue was all but the selection's own.
void ResultsTest::theArrowIsSeenOnTheColourOfTheSelection() {
    findAll("row 1");
    const auto icon = list().model()->index(0, 0).data(Qt::DecorationRole).value<QIcon>();
    const QImage arrow = icon.pixmap(QSize(32, 32), QIcon::Selected).toImage();
    const QColor wanted = QApplication::palette().color(QPalette::HighlightedText);
    int opaque = 0;
    for (int y = 0; y < arrow.height(); ++y) {
        for (int x = 0; x < arrow.width(); ++x) {
            const QColor colour = arrow.pixelColor(x, y);
            if (colour.alpha() < 255) continue;
            QCOMPARE(colour.rgb(), wanted.rgb());
            ++opaque;
        }
    }
    QVERIFY(opaque > 20);
}

// The middle of a long line was left out, and the match with it.
void ResultsTest::aMatchFarBehindInItsLineIsSeen() {
    const QString line = QString(3000, 'x') + " the match " + QString(3000, 'y');
    shown_->load(line.toUtf8() + "\nthe match at once " + QByteArray(3000, 'z'));
    findAll("the match");
    const auto shownOf = [&](int row) {
        QStyleOptionViewItem option;
        option.initFrom(&list());
        const QModelIndex index = list().model()->index(row, 2);
        option.rect = list().visualRect(index);
        struct Opened : QStyledItemDelegate {
            using QStyledItemDelegate::initStyleOption;
        };
        const auto initialise = &Opened::initStyleOption;
        (static_cast<QStyledItemDelegate*>(list().itemDelegate())->*initialise)(&option, index);
        return option.fontMetrics.elidedText(option.text, option.textElideMode,
                                             option.rect.width());
    };
    QVERIFY2(shownOf(1).contains("the match"), qPrintable(shownOf(1)));
    QVERIFY(shownOf(2).startsWith("the match at once"));
    QVERIFY(list().model()->index(1, 2).data().toString().startsWith("xxx"));
}

QTEST_MAIN(ResultsTest)
#include "results_test.moc"
