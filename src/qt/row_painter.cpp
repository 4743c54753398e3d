#include "qt/row_painter.h"

#include <algorithm>

#include "qt/conversions.h"
#include "qt/system_colours.h"

namespace quorvale {

namespace {

/// How far hairlines stand out from their ground.
constexpr double edgeShare = 0.3;
constexpr double boundaryShare = 0.2;
constexpr double bracketShare = 0.5;

QColor ruleColour(const Surface& surface, const QPalette& palette, double share) {
    const Box& control = surface.UserControl;
    return mixed(resolvedColour(control.BackColor(), palette),
                 resolvedColour(control.ForeColor(), palette), share);
}

}  // namespace

void RowPainter::paint(QPainter& painter, const QRectF& exposed, const QPalette& palette) {
    Scene scene{painter, PixelGrid(painter), exposed, palette};
    findSlots(scene);
    painter.fillRect(exposed, resolvedColour(surface_.UserControl.BackColor(), palette));
    paintGrounds(scene);
    paintTexts(scene);
    paintGridLines(scene);
    paintMarker(scene);
    paintBorderStrip(scene);
    paintGlyphColumn(scene);
    paintScrollTip(scene);
}

bool RowPainter::isSeen(const Scene& scene, const QRectF& place) const {
    return place.intersects(scene.Exposed);
}

void RowPainter::findSlots(Scene& scene) const {
    const Twips top = toTwips(scene.Exposed.top());
    const Twips bottom = toTwips(scene.Exposed.bottom());
    const int count = surface_.lblLine.UpperBound() + 1;
    const auto endsAbove = [&](int slot) {
        const Label& label = surface_.lblLine[slot];
        return label.Top() + label.Height() <= top;
    };
    while (scene.First < count && endsAbove(scene.First)) ++scene.First;
    scene.Behind = scene.First;
    while (scene.Behind < count && surface_.lblLine[scene.Behind].Top() < bottom) ++scene.Behind;
}

void RowPainter::paintGrounds(Scene& scene) {
    const Colour own = surface_.UserControl.BackColor();
    for (int slot = scene.First; slot < scene.Behind; ++slot) {
        const Label& label = surface_.lblLine[slot];
        if (!label.Visible() || label.BackColor() == own) continue;
        const QRectF place = pixelRect(label) & scene.Exposed;
        scene.Painter.fillRect(scene.Grid.rect(place),
                               resolvedColour(label.BackColor(), scene.Palette));
    }
}

void RowPainter::paintTexts(Scene& scene) {
    // The strips cover whatever of a row lies below them.
    const Box& column = surface_.picExpand;
    const double covered = toPixels(column.Left() + column.Width());
    Colour penColour = surface_.UserControl.ForeColor();
    scene.Painter.setPen(resolvedColour(penColour, scene.Palette));
    for (int slot = scene.First; slot < scene.Behind; ++slot) {
        const Label& label = surface_.lblLine[slot];
        if (!label.Visible() || label.Caption().empty()) continue;
        if (label.ForeColor() != penColour) {
            penColour = label.ForeColor();
            scene.Painter.setPen(resolvedColour(penColour, scene.Palette));
        }
        const double left = scene.Grid.x(toPixels(label.Left()));
        const double top = scene.Grid.y(toPixels(label.Top()));
        const double right = left + toPixels(label.Width());
        captions_.paint(
            scene.Painter, label,
            {left, scene.Grid.y(top + captions_.ascent(label)),
             std::max(scene.Exposed.left(), covered), std::min(scene.Exposed.right(), right)});
    }
}

void RowPainter::paintGridLines(Scene& scene) {
    const QColor colour = ruleColour(surface_, scene.Palette, boundaryShare);
    for (const LineShape& line : surface_.lnGrid) paintLine(scene, line, QPointF(), colour);
}

void RowPainter::paintMarker(Scene& scene) {
    const Image& marker = surface_.imgMarker;
    const QRectF place = pixelRect(marker);
    if (isSeen(scene, place)) pictures_.paint(scene.Painter, scene.Grid, marker, place);
}

void RowPainter::paintBorderStrip(Scene& scene) {
    const Box& strip = surface_.picBorder;
    const QRectF place = pixelRect(strip);
    if (!strip.Visible() || !isSeen(scene, place)) return;
    const QColor ground = resolvedColour(strip.BackColor(), scene.Palette);
    scene.Painter.fillRect(scene.Grid.rect(place & scene.Exposed), ground);
    const int behind = std::min(scene.Behind, surface_.imgLine.UpperBound() + 1);
    for (int slot = scene.First; slot < behind; ++slot) {
        const Image& image = surface_.imgLine[slot];
        pictures_.paint(scene.Painter, scene.Grid, image,
                        pixelRect(image).translated(place.topLeft()));
    }
    const QColor text = resolvedColour(surface_.UserControl.ForeColor(), scene.Palette);
    paintLine(scene, surface_.lnBorderLeft, place.topLeft(), mixed(ground, text, edgeShare));
}

void RowPainter::paintGlyphColumn(Scene& scene) {
    const Box& column = surface_.picExpand;
    const QRectF place = pixelRect(column);
    if (!column.Visible() || !isSeen(scene, place)) return;
    scene.Painter.fillRect(scene.Grid.rect(place & scene.Exposed),
                           resolvedColour(column.BackColor(), scene.Palette));
    paintBrackets(scene, place);
    const int behind = std::min(scene.Behind, surface_.imgExpand.UpperBound() + 1);
    for (int slot = scene.First; slot < behind; ++slot) {
        for (const Image* image : {&surface_.imgEdit[slot], &surface_.imgExpand[slot]}) {
            const QRectF inColumn = pixelRect(*image).translated(place.topLeft());
            // Glyphs of deep folds may reach over the column's edge, as rows reach below it.
            if (inColumn.left() < place.right()) {
                pictures_.paint(scene.Painter, scene.Grid, *image, inColumn);
            }
        }
    }
}

void RowPainter::paintBrackets(Scene& scene, const QRectF& column) {
    const QColor colour = ruleColour(surface_, scene.Palette, bracketShare);
    for (const LineShape& line : surface_.lnExpand) {
        paintLine(scene, line, column.topLeft(), colour);
    }
    for (const LineShape& line : surface_.lnExpandTo) {
        paintLine(scene, line, column.topLeft(), colour);
    }
}

void RowPainter::paintScrollTip(Scene& scene) {
    const Label& tip = surface_.lblScrollTip;
    if (!tip.Visible()) return;
    const QRectF place = scene.Grid.rect(pixelRect(tip));
    if (!isSeen(scene, place)) return;
    const QColor ground = resolvedColour(tip.BackColor(), scene.Palette);
    const QColor text = resolvedColour(tip.ForeColor(), scene.Palette);
    const double line = scene.Grid.hairline();
    scene.Painter.fillRect(place.adjusted(-line, -line, line, line),
                           mixed(ground, text, bracketShare));
    scene.Painter.fillRect(place, ground);
    scene.Painter.setPen(text);
    captions_.paint(scene.Painter, tip,
                    {place.left(), scene.Grid.y(place.top() + captions_.ascent(tip)), place.left(),
                     place.right()});
}

void RowPainter::paintLine(Scene& scene, const LineShape& line, QPointF origin,
                           const QColor& colour) {
    if (!line.Visible()) return;
    const double width = scene.Grid.hairline();
    const double left = scene.Grid.x(origin.x() + toPixels(std::min(line.X1(), line.X2())));
    const double top = scene.Grid.y(origin.y() + toPixels(std::min(line.Y1(), line.Y2())));
    const double right = scene.Grid.x(origin.x() + toPixels(std::max(line.X1(), line.X2())));
    const double bottom = scene.Grid.y(origin.y() + toPixels(std::max(line.Y1(), line.Y2())));
    // The lines of a control stand upright or lie flat.
    const QRectF stroke(left, top, std::max(width, right - left), std::max(width, bottom - top));
    if (isSeen(scene, stroke)) scene.Painter.fillRect(stroke & scene.Exposed, colour);
}

}  // namespace quorvale
