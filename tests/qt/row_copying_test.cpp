#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>

#include "qt/row_copying.h"
#include "shown_box.h"

using namespace quorvale;
using quorvale::test::ShownBox;

/// Copying rows with the keys, as a host switches it on.
class RowCopyingTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void theSelectedRowsAreCopiedAsTheyStandInTheFile();
    void rowsSelectedUpwardAreTheSameRows();
    void withoutASelectionTheCaretsRowIsCopied();
    void lineNumbersComeWithShift();
    void theWholeDocumentIsCopiedWithoutTheControlsLineBreak();
    void theHostHearsTheKeyFirst();
    void nothingIsCopiedBeforeADocumentIsSet();
    void aControlWithoutItLeavesTheClipboardAlone();
    void otherKeysCopyNothing();
    void tooMuchTextIsRefused();
    void theNumbersCountToo();

private:
    QString clipboard() { return QGuiApplication::clipboard()->text(); }
};

void RowCopyingTest::init() { QGuiApplication::clipboard()->setText("before"); }

void RowCopyingTest::theSelectedRowsAreCopiedAsTheyStandInTheFile() {
    ShownBox shown;
    RowCopying copying(shown.widget());
    // Rows show a tab as blanks, a lone carriage return and a zero byte as signs.
    shown.load(QByteArray("one\na\tb\rc\0d\r\nthree\nfour\n", 24));
    shown.box().MoveTo(2, 1);
    shown.box().SelectedRowsCount(2);
    QSignalSpy copied(&copying, &RowCopying::copied);
    QTest::keyClick(&shown.rows(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(clipboard(), QString::fromLatin1("a\tb\rc\0d\r\nthree", 14));
    QCOMPARE(copied.count(), 1);
    QCOMPARE(copied.first().first().toInt(), 2);
}

void RowCopyingTest::rowsSelectedUpwardAreTheSameRows() {
    ShownBox shown;
    RowCopying copying(shown.widget());
    shown.loadLines(9);
    shown.box().MoveTo(5, 1);
    shown.box().SelectedRowsCount(-3);
    copying.copyRows();
    QCOMPARE(clipboard(), QString("row 3\nrow 4\nrow 5"));
}

void RowCopyingTest::withoutASelectionTheCaretsRowIsCopied() {
    ShownBox shown;
    RowCopying copying(shown.widget());
    shown.loadLines(9);
    shown.box().MoveTo(4, 2);
    QTest::keyClick(&shown.rows(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(clipboard(), QString("row 4"));
}

void RowCopyingTest::lineNumbersComeWithShift() {
    ShownBox shown;
    RowCopying copying(shown.widget());
    shown.loadLines(12);
    shown.box().MoveTo(9, 1);
    shown.box().SelectedRowsCount(2);
    QTest::keyClick(&shown.rows(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(clipboard(), QString("9\trow 9\n10\trow 10"));
}

void RowCopyingTest::theWholeDocumentIsCopiedWithoutTheControlsLineBreak() {
    ShownBox shown;
    RowCopying copying(shown.widget());
    shown.load("one\ntwo");
    QTest::keyClick(&shown.rows(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&shown.rows(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(clipboard(), QString("one\ntwo"));
    // The break at the end of a file begins one more, empty line.
    shown.load("one\ntwo\n");
    QTest::keyClick(&shown.rows(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&shown.rows(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(clipboard(), QString("one\ntwo\n"));
}

void RowCopyingTest::theHostHearsTheKeyFirst() {
    ShownBox shown;
    QString heard;
    QObject::connect(&shown.widget(), &QuorvaleBoxWidget::keyDown, &shown.widget(),
                     [&](int keyCode, int shift) {
                         heard = QString("%1 %2 %3").arg(keyCode).arg(shift).arg(clipboard());
                     });
    RowCopying copying(shown.widget());
    shown.loadLines(3);
    QTest::keyClick(&shown.rows(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(heard, QString("67 2 before"));
    QCOMPARE(clipboard(), QString("row 1"));
}

void RowCopyingTest::nothingIsCopiedBeforeADocumentIsSet() {
    ShownBox shown;
    RowCopying copying(shown.widget());
    copying.copyRows();
    copying.copyNumberedRows();
    QCOMPARE(clipboard(), QString("before"));
}

void RowCopyingTest::aControlWithoutItLeavesTheClipboardAlone() {
    ShownBox shown;
    shown.loadLines(3);
    QTest::keyClick(&shown.rows(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(clipboard(), QString("before"));
}

void RowCopyingTest::otherKeysCopyNothing() {
    ShownBox shown;
    RowCopying copying(shown.widget());
    shown.loadLines(3);
    QTest::keyClick(&shown.rows(), Qt::Key_C);
    QTest::keyClick(&shown.rows(), Qt::Key_C, Qt::ShiftModifier);
    QTest::keyClick(&shown.rows(), Qt::Key_C, Qt::ControlModifier | Qt::AltModifier);
    QTest::keyClick(&shown.rows(), Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(clipboard(), QString("before"));
}

void RowCopyingTest::tooMuchTextIsRefused() {
    ShownBox shown;
    RowCopying copying(shown.widget());
    QSignalSpy refused(&copying, &RowCopying::tooMuch);
    QByteArray half(static_cast<int>(RowCopying::MostCharacters / 2), 'x');
    half += '\n';
    shown.load(half + half);
    shown.box().SelectedRowsCount(2);
    copying.copyRows();
    QCOMPARE(refused.count(), 1);
    QCOMPARE(clipboard(), QString("before"));
}

void RowCopyingTest::theNumbersCountToo() {
    ShownBox shown;
    RowCopying copying(shown.widget());
    QSignalSpy refused(&copying, &RowCopying::tooMuch);
    // Few characters, but a number for each of very many lines.
    shown.load(QByteArray(static_cast<int>(RowCopying::MostCharacters / 8), '\n'));
    shown.box().SelectedRowsCount(shown.box().LineCount());
    copying.copyNumberedRows();
    QCOMPARE(refused.count(), 1);
    QCOMPARE(clipboard(), QString("before"));
}

QTEST_MAIN(RowCopyingTest)
#include "row_copying_test.moc"
