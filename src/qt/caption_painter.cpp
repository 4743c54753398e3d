#include "qt/caption_painter.h"

#include <QGlyphRun>
#include <algorithm>

#include "qt/code_points.h"
#include "qt/conversions.h"

namespace quorvale {

namespace {

/// A run of marks without a width of their own could be as long as the caption.
constexpr std::size_t mostGlyphs = 16384;

}  // namespace

void CaptionPainter::paint(QPainter& painter, const Label& label, const Place& place) {
    const std::u16string_view text = label.Caption();
    if (text.empty() || place.SeenFrom >= place.SeenTo) return;
    GlyphCache& glyphs = faces_.of(label.Font());
    const bool bold = label.Bold();
    // Slanted and marked characters reach over their edges.
    const Twips overhang = glyphs.height();
    const Twips from = std::max(0.0, toTwips(place.SeenFrom - place.Left) - overhang);
    const Twips to = toTwips(place.SeenTo - place.Left);
    CaptionIndex::Place at = index_.placeBefore(label.SharedCaption(), glyphs, from);
    std::size_t drawn = 0;
    while (at.Unit < text.size() && at.Left < to && drawn < mostGlyphs) {
        const CodePoint point = codePointAt(text, at.Unit);
        const Glyph& glyph = bold ? glyphs.bold(point.Value) : glyphs.regular(point.Value);
        if (!glyph.Empty && at.Left + glyph.Advance >= from) {
            if (glyph.Font != font_) flush(painter, glyphs, place.BaseLine);
            add(glyph, place.Left + toPixels(at.Left - static_cast<double>(glyph.Back)));
            ++drawn;
        }
        at.Left += glyph.Advance;
        at.Unit += point.Units;
        ++walked_;
    }
    flush(painter, glyphs, place.BaseLine);
}

void CaptionPainter::add(const Glyph& glyph, double x) {
    font_ = glyph.Font;
    indexes_.push_back(glyph.Index);
    positions_.emplace_back(x, 0);
}

void CaptionPainter::flush(QPainter& painter, GlyphCache& glyphs, double baseLine) {
    if (indexes_.empty()) return;
    QGlyphRun run;
    run.setRawFont(glyphs.rawFont(font_));
    run.setRawData(indexes_.data(), positions_.data(), static_cast<int>(indexes_.size()));
    painter.drawGlyphRun(QPointF(0, baseLine), run);
    indexes_.clear();
    positions_.clear();
}

}  // namespace quorvale
