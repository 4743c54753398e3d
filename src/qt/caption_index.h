#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/shared_text.h"
#include "qt/glyph_cache.h"

namespace quorvale {

/// Finds the visible piece of very long captions without walking them from their start at every
/// paint: remembers how far each stretch of a caption reaches, as long as somebody holds the text.
class CaptionIndex {
public:
    /// A character of a caption and how many twips stand before it.
    struct Place {
        std::size_t Unit = 0;
        Twips Left = 0;
    };

    /// A character at or before the one that `x` twips fall on, and not far from it.
    Place placeBefore(const SharedText& caption, GlyphCache& glyphs, Twips x);

    /// Captions that are being remembered.
    std::size_t size() const { return entries_.size(); }

private:
    struct Entry {
        std::weak_ptr<const std::u16string> Owner;
        const GlyphCache* Glyphs = nullptr;
        /// Twips before each stretch.
        std::vector<Twips> Lefts;
    };

    const Entry& entryFor(const SharedText& caption, GlyphCache& glyphs);

    std::vector<Entry> entries_;
};

}  // namespace quorvale
