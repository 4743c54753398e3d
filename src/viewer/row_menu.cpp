#include "viewer/row_menu.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>

#include "qt/conversions.h"
#include "qt/live_surface.h"

namespace quorvale {

RowMenu::RowMenu(QMenu& edit) : QObject(&edit), menu_(edit) {}

void RowMenu::setControl(QuorvaleBoxWidget& control) {
    control_ = &control;
    control.liveSurface().rows().installEventFilter(this);
}

bool RowMenu::eventFilter(QObject*, QEvent* event) {
    // The rows tell of their own end too, when the control around them is half gone.
    const bool asksForMenu = event->type() == QEvent::ContextMenu;
    if ((!asksForMenu && event->type() != QEvent::KeyPress) || control_ == nullptr) return false;
    return asksForMenu ? openFor(static_cast<const QContextMenuEvent&>(*event))
                       : openFor(static_cast<const QKeyEvent&>(*event));
}

// Keyboards without a menu key have this instead.
bool RowMenu::openFor(const QKeyEvent& event) {
    if (event.key() != Qt::Key_F10 || event.modifiers() != Qt::ShiftModifier) return false;
    menu_.popup(placeBelowCaret(*control_));
    return true;
}

bool RowMenu::openFor(const QContextMenuEvent& event) {
    if (event.reason() == QContextMenuEvent::Keyboard) {
        menu_.popup(placeBelowCaret(*control_));
        return true;
    }
    // The glyphs and marks left of the text have menus of their own.
    const Box& glyphs = control_->box().Elements().picExpand;
    if (event.x() < toPixels(glyphs.Left() + glyphs.Width())) return false;
    menu_.popup(event.globalPos());
    return true;
}

int slotOfCaret(QuorvaleBox& box) {
    const Surface& surface = box.Elements();
    const auto row = toUtf16(QString::number(box.row()));
    for (int slot = 0; surface.lblLine.Has(slot); ++slot) {
        const Label& label = surface.lblLine[slot];
        if (label.Visible() && label.Tag() == row) return slot;
    }
    return -1;
}

QPoint placeBelowCaret(QuorvaleBoxWidget& control) {
    const Surface& surface = control.box().Elements();
    const Box& glyphs = surface.picExpand;
    QPointF place(toPixels(glyphs.Left() + glyphs.Width()), toPixels(glyphs.Top()));
    const int slot = slotOfCaret(control.box());
    if (slot >= 0)
        place.setY(toPixels(surface.lblLine[slot].Top() + surface.lblLine[slot].Height()));
    return control.mapToGlobal(place.toPoint());
}

}  // namespace quorvale
