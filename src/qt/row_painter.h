#pragma once

#include <QPainter>
#include <QPalette>
#include <QRectF>

#include "platform/surface.h"
#include "qt/caption_painter.h"
#include "qt/picture_painter.h"
#include "qt/pixel_grid.h"

namespace quorvale {

/// Paints everything between the toolbar and the scroll bars straight from the elements, from back
/// to front: the ground, the rows, the boundary lines, the marker, the border strip, the glyph
/// column and the scroll tip. Nothing but what it is asked to show again is looked at.
class RowPainter {
public:
    RowPainter(const Surface& surface, FontFaces& faces) : surface_(surface), captions_(faces) {}

    /// The painter's and the exposed part's coordinates are the control's, in pixels.
    void paint(QPainter& painter, const QRectF& exposed, const QPalette& palette);

    const CaptionPainter& captions() const { return captions_; }

private:
    struct Scene {
        QPainter& Painter;
        PixelGrid Grid;
        QRectF Exposed;
        const QPalette& Palette;
        /// The slots that are seen: from `First` to before `Behind`.
        int First = 0;
        int Behind = 0;
    };

    void findSlots(Scene& scene) const;
    void paintGrounds(Scene& scene);
    void paintTexts(Scene& scene);
    void paintGridLines(Scene& scene);
    void paintMarker(Scene& scene);
    void paintBorderStrip(Scene& scene);
    void paintGlyphColumn(Scene& scene);
    void paintBrackets(Scene& scene, const QRectF& column);
    void paintScrollTip(Scene& scene);
    void paintLine(Scene& scene, const LineShape& line, QPointF origin, const QColor& colour);
    bool isSeen(const Scene& scene, const QRectF& place) const;

    const Surface& surface_;
    CaptionPainter captions_;
    PicturePainter pictures_;
};

}  // namespace quorvale
