#include "qt/wheel_steps.h"

#include <QApplication>
#include <QInputDevice>
#include <algorithm>
#include <cmath>

namespace quorvale {

namespace {

/// What a wheel reports for one notch.
constexpr double notch = 120;

/// Whether the event tells how far fingers moved over a touch pad, in pixels. X11 fills in numbers
/// of another meaning, for plain wheels too.
bool isInPixels(const QWheelEvent& event) {
    if (event.pixelDelta().isNull() || QGuiApplication::platformName() == "xcb") return false;
    return event.phase() != Qt::NoScrollPhase ||
           event.deviceType() == QInputDevice::DeviceType::TouchPad;
}

QPointF sideways(QPointF delta) { return delta.x() == 0 ? QPointF(delta.y(), 0) : delta; }

}  // namespace

std::int64_t WheelSteps::Rest::take(double distance, double unit) {
    // Turning back answers at once, and a wheel knows nothing of what a touch pad began.
    if (rest_ * distance < 0 || unit != unit_) rest_ = 0;
    unit_ = unit;
    rest_ += distance;
    const double whole = std::trunc(rest_ / unit);
    rest_ -= whole * unit;
    return static_cast<std::int64_t>(whole);
}

WheelSteps::Steps WheelSteps::add(const QWheelEvent& event, double row, double column) {
    if (event.phase() == Qt::ScrollBegin) {
        columns_.clear();
        rows_.clear();
    }
    const bool touched = isInPixels(event);
    const QPointF moved = touched ? event.pixelDelta() : event.angleDelta();
    const QPointF delta = event.modifiers() & Qt::ShiftModifier ? sideways(moved) : moved;
    const double perStep = notch / std::max(1, QApplication::wheelScrollLines());
    return {columns_.take(-delta.x(), touched ? column : perStep),
            rows_.take(-delta.y(), touched ? row : perStep)};
}

}  // namespace quorvale
