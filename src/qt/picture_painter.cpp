#include "qt/picture_painter.h"

#include "qt/qt_picture.h"

namespace quorvale {

namespace {

constexpr std::size_t mostKept = 64;

}  // namespace

void PicturePainter::paint(QPainter& painter, const PixelGrid& grid, const Image& image,
                           const QRectF& place) {
    if (!image.Visible() || image.Shown() == nullptr) return;
    const QSize size = (place.size() * grid.scale()).toSize();
    const QImage& pixels = drawn(image.Shown(), size);
    if (pixels.isNull()) return;
    const QPointF corner(grid.x(place.left()), grid.y(place.top()));
    painter.drawImage(QRectF(corner, QSizeF(size) / grid.scale()), pixels);
}

const QImage& PicturePainter::drawn(const PicturePtr& picture, QSize screenPixels) {
    for (const Drawn& known : drawn_) {
        if (known.Pixels.size() == screenPixels && known.Owner.lock() == picture) {
            return known.Pixels;
        }
    }
    if (drawn_.size() >= mostKept) drawn_.clear();
    drawn_.push_back({picture, drawnPicture(*picture, screenPixels)});
    return drawn_.back().Pixels;
}

}  // namespace quorvale
