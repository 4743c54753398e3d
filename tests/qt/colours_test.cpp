#include <QApplication>
#include <QTest>
#include <QToolButton>
#include <algorithm>
#include <cmath>

#include "qt/system_colours.h"
#include "shown_box.h"

using namespace quorvale;
using namespace quorvale::test;

/// Colours: the user's theme where the host has chosen none.
class ColoursTest : public QObject {
    Q_OBJECT

private slots:
    void aColourHasRedInItsLowByte();
    void systemIndexesFollowThePalette();
    void aDarkThemeIsReadable();
    void aChangeOfTheThemeIsShownAtOnce();
    void aNewThemeOfTheWholeProgramIsShownToo();
    void aSetColourStaysInEveryTheme();
    void thePicturesOfTheToolbarStandOutInBothThemes();
    void aRowHasItsOwnColours();
    void aSelectedRowIsHighlighted();
};

namespace {

double luminance(QRgb colour) {
    const auto channel = [](int value) {
        const double v = value / 255.0;
        return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * channel(qRed(colour)) + 0.7152 * channel(qGreen(colour)) +
           0.0722 * channel(qBlue(colour));
}

double contrast(QRgb a, QRgb b) {
    const double x = luminance(a);
    const double y = luminance(b);
    return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}

QPalette darkPalette() {
    QPalette dark(QColor(50, 50, 54), QColor(40, 40, 44));
    dark.setColor(QPalette::Base, QColor(24, 24, 28));
    dark.setColor(QPalette::Text, QColor(230, 230, 230));
    dark.setColor(QPalette::WindowText, QColor(230, 230, 230));
    dark.setColor(QPalette::ButtonText, QColor(230, 230, 230));
    dark.setColor(QPalette::Highlight, QColor(48, 96, 160));
    dark.setColor(QPalette::HighlightedText, QColor(255, 255, 255));
    return dark;
}

/// The colour of a part that stands out most from the ground.
QRgb inkOf(const QImage& picture, QRect part, QRgb ground) {
    QRgb ink = ground;
    for (int x = part.left(); x <= part.right(); ++x) {
        for (int y = part.top(); y <= part.bottom(); ++y) {
            const QRgb pixel = picture.pixel(x, y);
            if (contrast(pixel, ground) > contrast(ink, ground)) ink = pixel;
        }
    }
    return ink;
}

QRgb lastPixel(const QImage& picture, QRect part) {
    return picture.pixel(part.right() - 1, part.center().y());
}

}  // namespace

void ColoursTest::aColourHasRedInItsLowByte() {
    QCOMPARE(resolvedColour(0x00336699, QPalette()), QColor(0x99, 0x66, 0x33));
}

void ColoursTest::systemIndexesFollowThePalette() {
    const QPalette dark = darkPalette();
    QCOMPARE(resolvedColour(0x80000005, dark), dark.color(QPalette::Base));
    QCOMPARE(resolvedColour(0x80000008, dark), dark.color(QPalette::Text));
    QCOMPARE(resolvedColour(0x8000000D, dark), dark.color(QPalette::Highlight));
    QCOMPARE(resolvedColour(0x8000000E, dark), dark.color(QPalette::HighlightedText));
    QCOMPARE(resolvedColour(0x8000000F, dark), dark.color(QPalette::Button));
    QCOMPARE(resolvedColour(0x80000012, dark), dark.color(QPalette::ButtonText));
    QCOMPARE(resolvedColour(0x80000011, dark), dark.color(QPalette::Disabled, QPalette::Text));
    QCOMPARE(resolvedColour(0x80000018, dark), dark.color(QPalette::ToolTipBase));
    QVERIFY(resolvedColour(0x800000FF, dark).isValid());
}

void ColoursTest::aDarkThemeIsReadable() {
    ShownBox shown;
    shown.widget().setPalette(darkPalette());
    shown.loadLines(100);
    const QImage picture = shown.picture();
    const QRect text = shown.textPixels(1);
    const QRgb ground = lastPixel(picture, text);
    QCOMPARE(ground, darkPalette().color(QPalette::Base).rgb());
    QVERIFY(contrast(inkOf(picture, text, ground), ground) >= 7);
    // The control's own colours, those of buttons, are readable too.
    shown.box().BackColor(0x8000000F);
    shown.box().ForeColor(0x80000012);
    shown.loadLines(100);
    const QImage plain = shown.picture();
    const QRgb face = lastPixel(plain, text);
    QCOMPARE(face, darkPalette().color(QPalette::Button).rgb());
    QVERIFY(contrast(inkOf(plain, text, face), face) >= 7);
}

void ColoursTest::aChangeOfTheThemeIsShownAtOnce() {
    ShownBox shown;
    shown.loadLines(100);
    const QRect text = shown.textPixels(3);
    QCOMPARE(lastPixel(shown.picture(), text), QApplication::palette().color(QPalette::Base).rgb());
    shown.widget().setPalette(darkPalette());
    QCOMPARE(lastPixel(shown.picture(), text), darkPalette().color(QPalette::Base).rgb());
}

void ColoursTest::aNewThemeOfTheWholeProgramIsShownToo() {
    const QPalette before = QApplication::palette();
    ShownBox shown;
    shown.loadLines(100);
    shown.box().MoveTo(5, 1);
    shown.box().SelectedRowsCount(2);
    shown.box().BorderColor(0x80000005);
    shown.settle();
    QApplication::setPalette(darkPalette());
    const QImage picture = shown.picture();
    QApplication::setPalette(before);
    const QRgb ground = darkPalette().color(QPalette::Base).rgb();
    QCOMPARE(lastPixel(picture, shown.textPixels(1)), ground);
    QCOMPARE(lastPixel(picture, shown.textPixels(4)),
             darkPalette().color(QPalette::Highlight).rgb());
    const QRectF strip = pixelRect(shown.elements().picBorder);
    const QPointF place = QPointF(strip.center().x(), strip.bottom() - 20) * shown.scale();
    QCOMPARE(picture.pixel(place.toPoint()), ground);
    QVERIFY(contrast(inkOf(picture, shown.textPixels(1), ground), ground) >= 7);
    // And back again.
    QCOMPARE(lastPixel(shown.picture(), shown.textPixels(1)), before.color(QPalette::Base).rgb());
}

void ColoursTest::aSetColourStaysInEveryTheme() {
    ShownBox shown;
    shown.widget().setBackColor(QColor(0xFF, 0xFF, 0xE0));
    shown.widget().setForeColor(Qt::black);
    shown.loadLines(100);
    shown.widget().setPalette(darkPalette());
    const QImage picture = shown.picture();
    const QRgb ground = lastPixel(picture, shown.textPixels(3));
    QCOMPARE(ground, qRgb(0xFF, 0xFF, 0xE0));
    QVERIFY(contrast(inkOf(picture, shown.textPixels(3), ground), ground) >= 7);
}

void ColoursTest::thePicturesOfTheToolbarStandOutInBothThemes() {
    const QPalette before = QApplication::palette();
    for (const QPalette& theme : {before, darkPalette()}) {
        QApplication::setPalette(theme);
        ShownBox shown;
        shown.loadLines(100);
        shown.box().CollapseLines(1, 9);
        const QImage picture = shown.picture();
        for (const char* key : {"Find", "Ln", "Collapsed", "Edit", "Grid", "Print", "cmdMore"}) {
            const auto* button = shown.widget().findChild<QToolButton*>(key);
            const QPoint corner = button->mapTo(&shown.widget(), QPoint());
            const QRect part(corner * shown.scale(), button->size() * shown.scale());
            const QRgb ground = picture.pixel(part.topLeft() + QPoint(2, 2));
            const double seen = contrast(inkOf(picture, part, ground), ground);
            QVERIFY2(seen >= 3, qPrintable(QString("%1: %2").arg(key).arg(seen)));
        }
    }
    QApplication::setPalette(before);
}

void ColoursTest::aRowHasItsOwnColours() {
    ShownBox shown;
    shown.loadLines(100);
    shown.box().LineBackColor(3, 0x0000C0FF);
    shown.box().LineForeColor(3, 0x00800000);
    const QImage picture = shown.picture();
    const QRgb ground = qRgb(0xFF, 0xC0, 0x00);
    QCOMPARE(lastPixel(picture, shown.textPixels(2)), ground);
    QCOMPARE(inkOf(picture, shown.textPixels(2), ground), qRgb(0, 0, 0x80));
    QVERIFY(lastPixel(picture, shown.textPixels(1)) != ground);
    QVERIFY(lastPixel(picture, shown.textPixels(3)) != ground);
}

void ColoursTest::aSelectedRowIsHighlighted() {
    ShownBox shown;
    shown.widget().setPalette(darkPalette());
    shown.loadLines(100);
    shown.box().MoveTo(5, 1);
    shown.box().SelectedRowsCount(2);
    const QImage picture = shown.picture();
    const QRgb highlight = darkPalette().color(QPalette::Highlight).rgb();
    for (const int slot : {4, 5}) {
        QCOMPARE(lastPixel(picture, shown.textPixels(slot)), highlight);
        QVERIFY(contrast(inkOf(picture, shown.textPixels(slot), highlight), highlight) >= 4.5);
    }
    QVERIFY(lastPixel(picture, shown.textPixels(3)) != highlight);
    QVERIFY(lastPixel(picture, shown.textPixels(6)) != highlight);
}

QTEST_MAIN(ColoursTest)
#include "colours_test.moc"
