#include "qt/bar_mirror.h"

#include <QContextMenuEvent>
#include <QSignalBlocker>

#include "qt/conversions.h"
#include "qt/rows_area.h"

namespace quorvale {

namespace {

/// Farther than any bar reaches.
constexpr std::int64_t wholeRange = std::int64_t{1} << 33;

void step(ScrollBar& bar, int action) {
    switch (action) {
        case QAbstractSlider::SliderSingleStepAdd:
            bar.UserArrow(1);
            break;
        case QAbstractSlider::SliderSingleStepSub:
            bar.UserArrow(-1);
            break;
        case QAbstractSlider::SliderPageStepAdd:
            bar.UserPage(1);
            break;
        case QAbstractSlider::SliderPageStepSub:
            bar.UserPage(-1);
            break;
        case QAbstractSlider::SliderToMinimum:
            bar.UserStepBy(-wholeRange);
            break;
        case QAbstractSlider::SliderToMaximum:
            bar.UserStepBy(wholeRange);
            break;
        default:
            break;
    }
}

}  // namespace

BarMirror::BarMirror(Qt::Orientation orientation, ElementOf element, ControlLinkPtr link,
                     RowsArea& area, QWidget* parent)
    : QScrollBar(orientation, parent), element_(element), link_(std::move(link)), area_(area) {
    setFocusPolicy(Qt::NoFocus);
    connect(this, &QScrollBar::actionTriggered, this, &BarMirror::takeAction);
    connect(this, &QScrollBar::sliderReleased, this, &BarMirror::takeRelease);
}

void BarMirror::mirror(const Surface& surface, QPoint controlOrigin) {
    const ScrollBar& bar = surface.*element_;
    const QSignalBlocker quiet(this);
    // A range that is upside down cannot be moved in.
    const bool movable = bar.Min() <= bar.Max();
    setRange(bar.Min(), movable ? bar.Max() : bar.Min());
    setPageStep(bar.LargeChange());
    setSingleStep(bar.SmallChange());
    setValue(bar.Value());
    setEnabled(bar.Enabled() && movable);
    setGeometry(pixelRect(bar).toRect().translated(controlOrigin));
    setVisible(bar.Visible());
}

void BarMirror::takeAction(int action) {
    if (action == SliderMove) {
        const int reached = sliderPosition();
        link_->run([&](Surface& surface) { (surface.*element_).UserDrag(reached); });
        return;
    }
    // Whatever the bar itself would do is undone: the element says where the thumb belongs.
    setSliderPosition(value());
    link_->run([&](Surface& surface) { step(surface.*element_, action); });
}

void BarMirror::takeRelease() {
    link_->run([&](Surface& surface) { (surface.*element_).UserRelease(); });
}

void BarMirror::mousePressEvent(QMouseEvent* event) {
    const bool there = link_->run([&](Surface& surface) { (surface.*element_).UserClickInto(); });
    if (there) QScrollBar::mousePressEvent(event);
}

void BarMirror::wheelEvent(QWheelEvent* event) {
    area_.scrollBy(*event);
    event->accept();
}

// The bar's own menu would wait for an answer in the middle of an event.
void BarMirror::contextMenuEvent(QContextMenuEvent* event) { event->accept(); }

}  // namespace quorvale
