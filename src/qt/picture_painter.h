#pragma once

#include <QImage>
#include <QPainter>
#include <memory>
#include <vector>

#include "platform/simple_elements.h"
#include "qt/pixel_grid.h"

namespace quorvale {

/// Paints image elements, each picture drawn once for the size that it has on the screen.
class PicturePainter {
public:
    /// Paints a visible image with a picture into `place` (logical pixels, rounded to the grid).
    void paint(QPainter& painter, const PixelGrid& grid, const Image& image, const QRectF& place);

private:
    struct Drawn {
        std::weak_ptr<const Picture> Owner;
        QImage Pixels;
    };

    const QImage& drawn(const PicturePtr& picture, QSize screenPixels);

    std::vector<Drawn> drawn_;
};

}  // namespace quorvale
