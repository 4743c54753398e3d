#pragma once

#include <QFont>
#include <memory>
#include <vector>

#include "platform/font.h"
#include "qt/glyph_cache.h"

namespace quorvale {

/// A font as Qt describes it. An empty name means the application's font.
QFont toQFont(const Font& font);
Font fromQFont(const QFont& font);

/// The glyphs of every face that one control uses. Bold is no face of its own: see GlyphCache.
class FontFaces {
public:
    /// Stays where it is until `forget`.
    GlyphCache& of(const Font& font);

    /// The screen or the system's fonts changed: everything is to be looked up again.
    void forget() { faces_.clear(); }

private:
    struct Face {
        Font Key;
        std::unique_ptr<GlyphCache> Glyphs;
    };
    std::vector<Face> faces_;
};

}  // namespace quorvale
