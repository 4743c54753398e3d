#pragma once

#include <QPainter>
#include <QRectF>
#include <QTransform>
#include <algorithm>
#include <cmath>

namespace quorvale {

/// The screen's own pixels below a painter that is neither turned nor mirrored. At scale factors
/// like 1.25 a logical pixel covers parts of screen pixels: edges that are rounded to the grid
/// neither blur nor leave seams.
class PixelGrid {
public:
    explicit PixelGrid(const QPainter& painter) : toScreen_(painter.deviceTransform()) {}

    double x(double place) const {
        return (std::round(place * toScreen_.m11() + toScreen_.dx()) - toScreen_.dx()) /
               toScreen_.m11();
    }
    double y(double place) const {
        return (std::round(place * toScreen_.m22() + toScreen_.dy()) - toScreen_.dy()) /
               toScreen_.m22();
    }
    QRectF rect(const QRectF& place) const {
        const QPointF topLeft(x(place.left()), y(place.top()));
        return {topLeft, QPointF(x(place.right()), y(place.bottom()))};
    }

    /// Width of the thinnest line: a logical pixel, in whole screen pixels.
    double hairline() const { return std::max(1.0, std::floor(toScreen_.m11())) / toScreen_.m11(); }

    double scale() const { return toScreen_.m11(); }

private:
    QTransform toScreen_;
};

}  // namespace quorvale
