#include "qt/qt_picture.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QStyleOption>
#include <QSvgRenderer>
#include <utility>

#include "qt/conversions.h"

namespace quorvale {

namespace {

QImage drawnSvg(const SvgPicture& picture, QSize screenPixels) {
    QSvgRenderer renderer(QByteArray::fromStdString(picture.Svg()));
    QImage image(screenPixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(QPointF(0, 0), screenPixels));
    return image;
}

QImage drawnIcon(const QtPicture& picture, QSize screenPixels) {
    QImage image(screenPixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    picture.icon().paint(&painter, QRect(QPoint(0, 0), screenPixels));
    return image;
}

/// The drawing in one colour: its own would be hard to see on the colour of a selection.
QPixmap tinted(QPixmap drawing, const QColor& colour) {
    QPainter painter(&drawing);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(drawing.rect(), colour);
    return drawing;
}

/// Draws a picture wherever Qt wants an icon.
class PictureEngine final : public QIconEngine {
public:
    explicit PictureEngine(PicturePtr picture) : picture_(std::move(picture)) {}

    QIconEngine* clone() const override { return new PictureEngine(picture_); }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        const QPixmap plain = QPixmap::fromImage(drawnPicture(*picture_, size));
        if (mode == QIcon::Normal || mode == QIcon::Active) return plain;
        const bool isDrawing = dynamic_cast<const SvgPicture*>(picture_.get()) != nullptr;
        if (mode == QIcon::Selected && isDrawing) {
            return tinted(plain, QApplication::palette().color(QPalette::HighlightedText));
        }
        QStyleOption option;
        option.palette = QApplication::palette();
        return QApplication::style()->generatedIconPixmap(mode, plain, &option);
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State state) override {
        const double scale = painter->device()->devicePixelRatioF();
        const QSize screenPixels = (QSizeF(rect.size()) * scale).toSize();
        painter->drawPixmap(rect, pixmap(screenPixels, mode, state));
    }

private:
    PicturePtr picture_;
};

}  // namespace

QtPicture::QtPicture(std::string name, const QIcon& icon, QSize size)
    : Picture(std::move(name), toTwips(size.width()), toTwips(size.height())), icon_(icon) {}

QImage drawnPicture(const Picture& picture, QSize screenPixels) {
    if (screenPixels.isEmpty()) return {};
    if (const auto* svg = dynamic_cast<const SvgPicture*>(&picture)) {
        return drawnSvg(*svg, screenPixels);
    }
    if (const auto* icon = dynamic_cast<const QtPicture*>(&picture)) {
        return drawnIcon(*icon, screenPixels);
    }
    return {};
}

QIcon toIcon(const PicturePtr& picture) {
    return picture == nullptr ? QIcon() : QIcon(new PictureEngine(picture));
}

}  // namespace quorvale
