#include <QTest>

#include "shown_box.h"

using namespace quorvale;
using namespace quorvale::test;

/// Sharpness at whole and broken scale factors: this program runs once for each of them.
class ScalingTest : public QObject {
    Q_OBJECT

private slots:
    void theScaleIsTheOneAskedFor();
    void rowsOfOneColourHaveNoSeams();
    void rowsOfTwoColoursMeetWithoutATransition();
    void linesAreSharp();
    void picturesAreDrawnForTheScreen();
};

namespace {

constexpr QRgb red = 0xFFFF0000;
constexpr QRgb blue = 0xFF0000FF;

}  // namespace

void ScalingTest::theScaleIsTheOneAskedFor() {
    ShownBox shown;
    QCOMPARE(shown.scale(), qEnvironmentVariable("QT_SCALE_FACTOR", "1").toDouble());
}

void ScalingTest::rowsOfOneColourHaveNoSeams() {
    ShownBox shown;
    shown.load(QByteArray(200, '\n'));
    for (int line = 1; line <= 200; ++line) shown.box().LineBackColor(line, 0x000000FF);
    const QImage picture = shown.picture();
    const int x = shown.textPixels(0).right() - 2;
    const QRect area = shown.rows().geometry();
    const int top = int(std::ceil(area.top() * shown.scale()));
    const int bottom = int(std::floor((area.bottom() + 1) * shown.scale()));
    QList<int> others;
    for (int y = top; y < bottom; ++y) {
        if (picture.pixel(x, y) != red) others << y;
    }
    QCOMPARE(others, QList<int>());
}

void ScalingTest::rowsOfTwoColoursMeetWithoutATransition() {
    ShownBox shown;
    shown.load(QByteArray(200, '\n'));
    for (int line = 1; line <= 200; ++line) {
        shown.box().LineBackColor(line, line % 2 == 0 ? 0x000000FF : 0x00FF0000);
    }
    const QImage picture = shown.picture();
    const int x = shown.textPixels(0).right() - 2;
    for (int slot = 0; slot < 20; ++slot) {
        const QRect row = shown.textPixels(slot);
        const QRgb own = slot % 2 == 0 ? blue : red;
        for (int y = row.top(); y <= row.bottom(); ++y) QCOMPARE(picture.pixel(x, y), own);
    }
}

void ScalingTest::linesAreSharp() {
    HostOptions options;
    options.BoundaryColumns = {7, 13, 22};
    ShownBox shown(QSize(800, 600), options);
    shown.load(QByteArray(200, '\n'));
    shown.box().ShowGrid(true);
    shown.elements().imgMarker.SetVisible(false);
    const QImage picture = shown.picture();
    const QRect row = shown.textPixels(2);
    const QRgb ground = shown.widget().palette().color(QPalette::Base).rgb();
    const QList<int> inked = inkColumns(picture, row, ground);
    const int width = std::max(1, int(shown.scale()));
    QCOMPARE(inked.size(), 3 * width);
    const QRgb colour = picture.pixel(row.left() + inked[0], row.top());
    for (const int column : inked) QCOMPARE(picture.pixel(row.left() + column, row.top()), colour);
}

void ScalingTest::picturesAreDrawnForTheScreen() {
    ShownBox shown;
    shown.loadLines(50);
    const auto svg = std::make_shared<SvgPicture>(
        "half",
        R"(<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16">)"
        R"(<rect x="0" y="0" width="8" height="16" fill="#ff0000"/></svg>)",
        240, 240);
    shown.box().Icon(svg);
    shown.box().MoveTo(5, 5);
    shown.elements().imgMarker.SetVisible(true);
    const QImage picture = shown.picture();
    const QRectF marker = pixelRect(shown.elements().imgMarker);
    const double s = shown.scale();
    const int left = qRound(marker.left() * s);
    const int y = qRound(marker.center().y() * s);
    int reds = 0;
    for (int x = left - 2; x < left + qRound(marker.width() * s); ++x) {
        if (picture.pixel(x, y) == red) ++reds;
    }
    QCOMPARE(reds, qRound(8 * s));
}

QTEST_MAIN(ScalingTest)
#include "scaling_test.moc"
