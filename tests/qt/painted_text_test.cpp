#include <QTest>

#include "qt/qt_text_metrics.h"
#include "shown_box.h"

using namespace quorvale;
using namespace quorvale::test;

/// What is painted stands where it was measured, at every scale of the screen.
class PaintedTextTest : public QObject {
    Q_OBJECT

private slots:
    void everyCharacterStandsWhereItWasMeasured_data();
    void everyCharacterStandsWhereItWasMeasured();
    void aBoldRowKeepsTheRegularAdvances();
    void everyByteCanBeSeen();
    void charactersOfFallbackFontsAreSeen();
    void theLastCharacterOfATenMegabyteLineIsReached();
    void aLongLineIsPaintedWithoutWalkingIt();

private:
    static QByteArray ruler(const QByteArray& filler, int columns);
};

namespace {

QRgb groundOf(ShownBox& shown) { return shown.widget().palette().color(QPalette::Base).rgb(); }

/// The first inked column of each bar in a row of bars and blanks.
QList<int> starts(const QList<int>& columns) {
    QList<int> result;
    for (int i = 0; i < columns.size(); ++i) {
        if (i == 0 || columns[i] > columns[i - 1] + 1) result << columns[i];
    }
    return result;
}

}  // namespace

// A bar, the filler, a bar, the filler ...
QByteArray PaintedTextTest::ruler(const QByteArray& filler, int columns) {
    QByteArray text;
    for (int i = 0; i < columns; ++i) text += "|" + filler;
    return text + "|";
}

void PaintedTextTest::everyCharacterStandsWhereItWasMeasured_data() {
    QTest::addColumn<QString>("font");
    QTest::addColumn<double>("size");
    QTest::newRow("fixed pitch") << "DejaVu Sans Mono" << 9.0;
    QTest::newRow("fixed pitch, large") << "DejaVu Sans Mono" << 13.5;
    QTest::newRow("proportional") << "DejaVu Sans" << 10.0;
}

void PaintedTextTest::everyCharacterStandsWhereItWasMeasured() {
    QFETCH(QString, font);
    QFETCH(double, size);
    ShownBox shown(QSize(1000, 200));
    const Font face{toUtf16(font), size};
    shown.box().Font(face);
    shown.load(ruler("       ", 10));
    shown.elements().imgMarker.SetVisible(false);
    QtTextMetrics metrics(std::make_shared<FontFaces>());
    const QList<int> bars =
        starts(inkColumns(shown.picture(), shown.textPixels(0), groundOf(shown)));
    QCOMPARE(bars.size(), 11);
    for (int i = 1; i < bars.size(); ++i) {
        const QByteArray before = ruler("       ", i).chopped(1);
        const double measured =
            toPixels(metrics.Width(toUtf16(QString(before)), face)) * shown.scale();
        QVERIFY2(
            std::abs(bars[i] - bars[0] - measured) <= 1.01,
            qPrintable(
                QString("bar %1 at %2, measured %3").arg(i).arg(bars[i] - bars[0]).arg(measured)));
    }
}

void PaintedTextTest::aBoldRowKeepsTheRegularAdvances() {
    ShownBox shown(QSize(900, 200));
    shown.box().Font(Font{u"DejaVu Sans", 10});
    shown.load(ruler("     ", 8));
    shown.elements().imgMarker.SetVisible(false);
    const QList<int> regular =
        starts(inkColumns(shown.picture(), shown.textPixels(0), groundOf(shown)));
    const QImage before = shown.picture();
    shown.elements().lblLine[0].SetBold(true);
    const QImage after = shown.picture();
    QVERIFY(before != after);
    const QList<int> bold = starts(inkColumns(after, shown.textPixels(0), groundOf(shown)));
    QCOMPARE(bold.size(), regular.size());
    for (int i = 0; i < bold.size(); ++i) QVERIFY(std::abs(bold[i] - regular[i]) <= 1);
}

void PaintedTextTest::everyByteCanBeSeen() {
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != '\n') bytes += char(byte);
        bytes += "\n";
    }
    ShownBox shown(QSize(300, 200));
    shown.load(bytes);
    shown.elements().imgMarker.SetVisible(false);
    for (int byte = 0; byte < 256; ++byte) {
        shown.box().TopLine(byte + 1);
        const int slot = byte + 1 - shown.box().TopLine();
        // A carriage return at the end of a line belongs to the line's end.
        const bool blank =
            byte == '\n' || byte == '\r' || byte == '\t' || byte == ' ' || byte == 0xA0;
        const QImage picture = shown.picture();
        const bool inked = !inkColumns(picture, shown.textPixels(slot), groundOf(shown)).isEmpty();
        QVERIFY2(inked != blank, qPrintable(QString::number(byte)));
    }
}

void PaintedTextTest::charactersOfFallbackFontsAreSeen() {
    ShownBox shown(QSize(400, 200), ShownBox::tall());
    shown.load("\xE6\x97\xA5\xE6\x9C\xAC\n\xED\x95\x9C\xEA\xB5\xAD\n");
    QCOMPARE(shown.row(0), QString::fromUtf8("\xE6\x97\xA5\xE6\x9C\xAC"));
    const QImage picture = shown.picture();
    for (const int slot : {0, 1}) {
        // Two wide characters: more than two narrow ones could ink.
        QVERIFY(inkColumns(picture, shown.textPixels(slot), groundOf(shown)).size() > 16);
    }
}

void PaintedTextTest::theLastCharacterOfATenMegabyteLineIsReached() {
    ShownBox shown(QSize(600, 200), ShownBox::tall());
    const QByteArray end = "THE END";
    shown.load(QByteArray(10'000'000, 'x') + end);
    shown.box().MoveTo(1, 10'000'000 + int(end.size()) + 1);
    ScrollBar& bar = shown.elements().scrHorz;
    bar.UserStepBy(std::int64_t{1} << 40);
    QCOMPARE(bar.Value(), bar.Max());
    shown.elements().imgMarker.SetVisible(false);
    const QImage long_ = shown.picture();
    // The same characters at the same place of a short line look the same.
    const QRect text = shown.textPixels(0);
    const int width = qRound(toPixels(QtTextMetrics(std::make_shared<FontFaces>())
                                          .Width(u"THE END", Font{u"DejaVu Sans Mono", 9})) *
                             shown.scale());
    const QRect tail(text.right() - width + 1, text.top(), width, text.height());
    const QImage seen = long_.copy(tail);
    ShownBox other(QSize(600, 200), ShownBox::tall());
    other.load(end);
    other.elements().imgMarker.SetVisible(false);
    const QRect whole = other.textPixels(0);
    const QList<int> expected = inkColumns(
        other.picture(), QRect(whole.left(), whole.top(), width, whole.height()), groundOf(other));
    const QList<int> found = inkColumns(seen, seen.rect(), groundOf(shown));
    QVERIFY(std::abs(found.size() - expected.size()) <= 4);
    QVERIFY(!found.isEmpty() && found.last() >= width - 4);
}

void PaintedTextTest::aLongLineIsPaintedWithoutWalkingIt() {
    ShownBox shown(QSize(600, 200), ShownBox::tall());
    shown.load(QByteArray(10'000'000, 'x') + "\nshort\n");
    shown.box().MoveTo(1, 9'000'000);
    shown.picture();
    const std::size_t before = shown.rows().captions().charactersWalked();
    for (int i = 0; i < 10; ++i) {
        shown.elements().scrHorz.UserArrow(-1);
        shown.picture();
    }
    const std::size_t walked = shown.rows().captions().charactersWalked() - before;
    QVERIFY2(walked < 10 * 3000, qPrintable(QString::number(walked)));
    QCOMPARE(shown.rows().captions().index().size(), std::size_t{1});
    // Another document: nothing of the old one is kept.
    shown.load(QByteArray(100'000, 'y'));
    shown.box().MoveTo(1, 90'000);
    shown.picture();
    QCOMPARE(shown.rows().captions().index().size(), std::size_t{1});
}

QTEST_MAIN(PaintedTextTest)
#include "painted_text_test.moc"
