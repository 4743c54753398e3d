#include "qt/wheel_steps.h"

#include <QApplication>
#include <cmath>

namespace quorvale {

namespace {

/// What a wheel reports for one notch.
constexpr double notch = 120;

QPointF sideways(QPointF delta) { return delta.x() == 0 ? QPointF(delta.y(), 0) : delta; }

}  // namespace

std::int64_t WheelSteps::Rest::take(double steps) {
    // Turning back answers at once.
    if (rest_ * steps < 0) rest_ = 0;
    rest_ += steps;
    const double whole = std::trunc(rest_);
    rest_ -= whole;
    return static_cast<std::int64_t>(whole);
}

WheelSteps::Steps WheelSteps::add(const QWheelEvent& event, double row, double column) {
    if (event.phase() == Qt::ScrollBegin) {
        columns_.clear();
        rows_.clear();
    }
    const bool side = event.modifiers() & Qt::ShiftModifier;
    const QPointF pixels = event.pixelDelta();
    QPointF steps;
    if (!pixels.isNull()) {
        const QPointF delta = side ? sideways(pixels) : pixels;
        steps = QPointF(delta.x() / column, delta.y() / row);
    } else {
        const QPointF angle = event.angleDelta();
        steps = (side ? sideways(angle) : angle) / notch * QApplication::wheelScrollLines();
    }
    return {columns_.take(-steps.x()), rows_.take(-steps.y())};
}

}  // namespace quorvale
