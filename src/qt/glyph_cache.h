#pragma once

#include <QFont>
#include <QList>
#include <QRawFont>
#include <array>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/units.h"

namespace quorvale {

/// How one character is drawn: a glyph of one of the cache's raw fonts.
struct Glyph {
    quint32 Index = 0;
    quint16 Font = 0;
    bool Known = false;
    /// Nothing to draw, as for a blank.
    bool Empty = false;
    /// Twips to the next character.
    Twips Advance = 0;
    /// Twips by which the glyph is drawn left of its place: combining marks sit on the character
    /// before them.
    float Back = 0;
};

/// The glyphs of one font face, each character looked up once: first in the face itself, then in
/// whatever font the system falls back to. Characters stand side by side by their own advances,
/// without kerning or ligatures, so that what is measured is what is painted. A bold character is
/// drawn by the bold face with the advance of the regular one.
class GlyphCache {
public:
    explicit GlyphCache(const QFont& face);

    const Glyph& regular(char32_t character);
    const Glyph& bold(char32_t character);
    const QRawFont& rawFont(quint16 font) const { return fonts_[font]; }

    /// Height of a row of this face, in twips: whole pixels.
    Twips height() const { return height_; }
    /// From the top of a row to its base line, in pixels.
    double ascent() const { return ascent_; }

    /// The plain sum of the advances; that of a surrogate pair counts for its first half.
    Twips width(std::u16string_view text);

    /// The advance of the character at a place, which is `units` long.
    Twips advanceAt(std::u16string_view text, std::size_t at, std::size_t& units);

private:
    using Page = std::array<Glyph, 256>;

    /// All that is known of one weight of the face.
    struct Weight {
        QFont Face;
        std::array<std::unique_ptr<Page>, 256> Pages;
        std::unordered_map<char32_t, Glyph> Others;
    };

    Glyph& entry(Weight& weight, char32_t character);
    Glyph lookUp(const Weight& weight, char32_t character);
    /// The glyph in the face itself; not known where the face has none.
    Glyph inFont(quint16 font, char32_t character) const;
    Glyph inFallback(const Weight& weight, char32_t character);
    /// The box that stands for a character that would not be seen.
    Glyph box(quint16 font) const;
    quint16 numberOf(const QRawFont& font);

    Weight regular_;
    Weight bold_;
    std::vector<QRawFont> fonts_;
    /// The advances of the characters below 256: nearly every text is measured by these alone.
    std::array<Twips, 256> narrow_{};
    Twips height_ = 0;
    double ascent_ = 0;
};

}  // namespace quorvale
