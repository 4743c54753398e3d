#include "qt/rows_area.h"

#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "platform/keys.h"
#include "qt/conversions.h"
#include "qt/correction_tip.h"
#include "qt/input_codes.h"

namespace quorvale {

namespace {

/// Keys that belong to the text alone; all others also go on to whoever holds the control, as the
/// keys of a dialog must.
bool isOwnKey(std::int16_t code, std::int16_t shift) {
    if (code == key_code::A) return (shift & shift_mask::Ctrl) != 0;
    return (code >= key_code::PageUp && code <= key_code::Down) || code == key_code::F2;
}

/// Pixels of one step to the side, as many as the arrow of the horizontal bar moves.
double columnStep(FontFaces& faces, const Surface& surface) {
    constexpr int blanksPerStep = 5;
    const Twips blank = faces.of(surface.UserControl.Font()).width(u" ");
    return std::max(1.0, toPixels(blanksPerStep * blank));
}

}  // namespace

RowsArea::RowsArea(ControlLinkPtr link, std::shared_ptr<FontFaces> faces, QWidget* parent)
    : QWidget(parent),
      link_(std::move(link)),
      faces_(std::move(faces)),
      mouse_(link_),
      painter_(link_->box()->Elements(), *faces_) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

void RowsArea::updatePlace(const QRectF& place) {
    update(place.translated(-onControl()).toAlignedRect().adjusted(-1, -1, 1, 1));
}

QVariant RowsArea::inputMethodQuery(Qt::InputMethodQuery query) const {
    // Rows are not typed into.
    return query == Qt::ImEnabled ? QVariant(false) : QWidget::inputMethodQuery(query);
}

void RowsArea::paintEvent(QPaintEvent* event) {
    if (link_->box() == nullptr) return;
    QPainter painter(this);
    painter.translate(-onControl());
    painter_.paint(painter, event->rect().translated(onControl()), palette());
}

void RowsArea::forward(QMouseEvent* event, Route route) {
    const QPointF place = event->position() + onControl();
    (mouse_.*route)(*event, toTwips(place.x()), toTwips(place.y()));
    event->accept();
}

void RowsArea::mousePressEvent(QMouseEvent* event) { forward(event, &MouseRouting::press); }
void RowsArea::mouseReleaseEvent(QMouseEvent* event) { forward(event, &MouseRouting::release); }
void RowsArea::mouseMoveEvent(QMouseEvent* event) { forward(event, &MouseRouting::move); }
void RowsArea::mouseDoubleClickEvent(QMouseEvent* event) {
    forward(event, &MouseRouting::doubleClick);
}

void RowsArea::wheelEvent(QWheelEvent* event) {
    scrollBy(*event);
    event->accept();
}

void RowsArea::scrollBy(const QWheelEvent& event) {
    if (link_->box() == nullptr) return;
    const Surface& shown = link_->box()->Elements();
    const double row = std::max(1.0, toPixels(shown.RowHeight()));
    const WheelSteps::Steps steps = wheel_.add(event, row, columnStep(*faces_, shown));
    link_->run([&](Surface& surface) {
        if (steps.Rows != 0) surface.scrVert.UserStepBy(steps.Rows);
        ScrollBar& horizontal = surface.scrHorz;
        if (steps.Columns != 0) horizontal.UserStepBy(steps.Columns * horizontal.SmallChange());
    });
}

void RowsArea::keyPressEvent(QKeyEvent* event) {
    const std::int16_t code = keyCodeOf(*event);
    const std::int16_t shift = shiftMaskOf(event->modifiers());
    event->setAccepted(isOwnKey(code, shift));
    if (code == 0) return;
    link_->run([&](Surface& surface) {
        if (surface.OnKeyDown) surface.OnKeyDown(code, shift);
    });
}

void RowsArea::keyReleaseEvent(QKeyEvent* event) {
    const std::int16_t code = keyCodeOf(*event);
    const std::int16_t shift = shiftMaskOf(event->modifiers());
    event->setAccepted(isOwnKey(code, shift));
    // A key that repeats goes down again and again and comes up once.
    if (code == 0 || event->isAutoRepeat()) return;
    link_->run([&](Surface& surface) {
        if (surface.OnKeyUp) surface.OnKeyUp(code, shift);
    });
}

bool RowsArea::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || link_->box() == nullptr) return QWidget::event(event);
    showTip(static_cast<const QHelpEvent&>(*event));
    return true;
}

// What will replace a corrected row is shown while the mouse rests on it.
void RowsArea::showTip(const QHelpEvent& event) {
    QuorvaleBox& box = *link_->box();
    const QPointF place = event.pos() + onControl();
    const int slot = slotAt(box.Elements(), toTwips(place.y()));
    if (slot < 0) return QToolTip::hideText();
    const int line = toQString(box.Elements().lblLine[slot].Tag()).toInt();
    const auto correction = box.Corrections().Of(line);
    if (!correction) return QToolTip::hideText();
    const QRectF row = pixelRect(box.Elements().lblLine[slot]);
    const QRect rowHere(0, qRound(row.top()) - onControl().y(), width(), qRound(row.height()));
    QToolTip::showText(event.globalPos(), correctionTip(*correction), this, rowHere);
}

void RowsArea::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ActivationChange) {
        update();
    }
    QWidget::changeEvent(event);
}

}  // namespace quorvale
