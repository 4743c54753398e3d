#pragma once

#include <QPainter>
#include <QPointF>
#include <vector>

#include "platform/simple_elements.h"
#include "qt/caption_index.h"
#include "qt/font_faces.h"

namespace quorvale {

/// Paints captions: every character at the place where it was measured, and only those that can be
/// seen.
class CaptionPainter {
public:
    explicit CaptionPainter(FontFaces& faces) : faces_(faces) {}

    /// Where a caption stands and which piece of it is seen, in pixels.
    struct Place {
        double Left;
        double BaseLine;
        double SeenFrom;
        double SeenTo;
    };

    /// The painter's pen gives the colour.
    void paint(QPainter& painter, const Label& label, const Place& place);

    /// From the top of a row to its base line, in pixels.
    double ascent(const Label& label) { return faces_.of(label.Font()).ascent(); }

    const CaptionIndex& index() const { return index_; }

    /// How many characters were looked at so far, seen or not.
    std::size_t charactersWalked() const { return walked_; }

private:
    void add(const Glyph& glyph, double x);
    void flush(QPainter& painter, GlyphCache& glyphs, double baseLine);

    FontFaces& faces_;
    CaptionIndex index_;
    /// The run being gathered: glyphs of one raw font.
    std::vector<quint32> indexes_;
    std::vector<QPointF> positions_;
    quint16 font_ = 0;
    std::size_t walked_ = 0;
};

}  // namespace quorvale
