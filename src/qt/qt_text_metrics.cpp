#include "qt/qt_text_metrics.h"

#include <algorithm>

#include "qt/code_points.h"

namespace quorvale {

namespace {

/// Text is passed over in pieces of this length as long as none of them ends too far right.
constexpr std::size_t pieceLength = 256;

}  // namespace

Twips QtTextMetrics::Width(std::u16string_view text, const Font& font) const {
    return faces_->of(font).width(text);
}

Twips QtTextMetrics::Height(const Font& font) const { return faces_->of(font).height(); }

std::size_t QtTextMetrics::FirstWider(std::u16string_view text, const Font& font, Twips x,
                                      Precision precision) const {
    GlyphCache& glyphs = faces_->of(font);
    Twips sum = 0;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = characterStart(text, std::min(at + pieceLength, text.size()));
        const Twips piece = glyphs.width(text.substr(at, end - at));
        if (Rounded(sum + piece, precision) > x) break;
        sum += piece;
        at = end;
    }
    while (at < text.size()) {
        std::size_t units = 1;
        sum += glyphs.advanceAt(text, at, units);
        if (Rounded(sum, precision) > x) return at + 1;
        at += units;
    }
    return 0;
}

}  // namespace quorvale
