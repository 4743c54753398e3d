#pragma once

#include <QScrollBar>

#include "qt/control_link.h"

namespace quorvale {

class RowsArea;

/// A real scroll bar that shows a scroll bar element. What the user does to it goes to the element,
/// which alone decides; the bar then shows what came of it and never moves on its own.
class BarMirror final : public QScrollBar {
    Q_OBJECT

public:
    using ElementOf = ScrollBar Surface::*;

    BarMirror(Qt::Orientation orientation, ElementOf element, ControlLinkPtr link, RowsArea& area,
              QWidget* parent);

    /// Shows the element's range, value, place and visibility. Runs none of the bar's signals.
    void mirror(const Surface& surface, QPoint controlOrigin);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void takeAction(int action);
    void takeRelease();

    ElementOf element_;
    ControlLinkPtr link_;
    RowsArea& area_;
};

}  // namespace quorvale
