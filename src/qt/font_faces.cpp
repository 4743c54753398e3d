#include "qt/font_faces.h"

#include <QString>
#include <algorithm>

#include "qt/conversions.h"

namespace quorvale {

namespace {

/// In points; Qt counts pixels in whole numbers.
constexpr double largestSize = 2000;

bool sameFace(const Font& a, const Font& b) {
    return a.Size == b.Size && a.Italic == b.Italic && a.Name == b.Name;
}

}  // namespace

QFont toQFont(const Font& font) {
    QFont result;
    if (!font.Name.empty()) result.setFamily(toQString(font.Name));
    if (font.Size > 0) result.setPointSizeF(std::min(font.Size, largestSize));
    result.setBold(font.Bold);
    result.setItalic(font.Italic);
    result.setKerning(false);
    return result;
}

Font fromQFont(const QFont& font) {
    Font result;
    result.Name = toUtf16(font.family());
    const double points = font.pointSizeF();
    // A font given in pixels has no size in points: 72 points are 96 pixels.
    result.Size = points > 0 ? points : font.pixelSize() * 72.0 / 96.0;
    result.Bold = font.bold();
    result.Italic = font.italic();
    return result;
}

GlyphCache& FontFaces::of(const Font& font) {
    for (const Face& face : faces_) {
        if (sameFace(face.Key, font)) return *face.Glyphs;
    }
    faces_.push_back({font, std::make_unique<GlyphCache>(toQFont(font))});
    return *faces_.back().Glyphs;
}

}  // namespace quorvale
