#pragma once

#include <QHelpEvent>
#include <QWidget>
#include <memory>

#include "qt/control_link.h"
#include "qt/font_faces.h"
#include "qt/mouse_routing.h"
#include "qt/row_painter.h"
#include "qt/wheel_steps.h"

namespace quorvale {

/// The area between the toolbar and the scroll bars: one widget that paints all rows and takes the
/// mouse and the keys for them. It has the keyboard focus when the text has it.
class RowsArea final : public QWidget {
    Q_OBJECT

public:
    RowsArea(ControlLinkPtr link, std::shared_ptr<FontFaces> faces, QWidget* parent);

    /// Where the control's upper left corner lies in the parent: the area may be moved about below
    /// it, what it shows stays in place.
    void setControlOrigin(QPoint origin) { controlOrigin_ = origin; }

    /// Where this area's corner lies on the control.
    QPoint onControl() const { return pos() - controlOrigin_; }

    /// Asks for a place of the control to be painted again.
    void updatePlace(const QRectF& place);

    /// A wheel or touch pad moves over the control.
    void scrollBy(const QWheelEvent& event);

    /// What painting the captions cost so far.
    const CaptionPainter& captions() const { return painter_.captions(); }

    /// For those who tell of the rows in other ways than by painting them.
    const ControlLinkPtr& link() const { return link_; }
    FontFaces& faces() const { return *faces_; }
    /// The area's upper left corner on the control.

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;

private:
    using Route = void (MouseRouting::*)(const QMouseEvent&, Twips, Twips);

    void forward(QMouseEvent* event, Route route);
    void showTip(const QHelpEvent& event);

    ControlLinkPtr link_;
    std::shared_ptr<FontFaces> faces_;
    MouseRouting mouse_;
    WheelSteps wheel_;
    RowPainter painter_;
    QPoint controlOrigin_;
};

}  // namespace quorvale
