#include "qt/caption_index.h"

#include <algorithm>

#include "qt/code_points.h"

namespace quorvale {

namespace {

/// Shorter captions are walked from their start.
constexpr std::size_t longCaption = 4096;
constexpr std::size_t stretch = 1024;

}  // namespace

CaptionIndex::Place CaptionIndex::placeBefore(const SharedText& caption, GlyphCache& glyphs,
                                              Twips x) {
    const std::u16string_view text = caption.View();
    if (text.size() < longCaption || x <= 0) return {};
    const std::vector<Twips>& lefts = entryFor(caption, glyphs).Lefts;
    const auto behind = std::upper_bound(lefts.begin(), lefts.end(), x);
    const auto number = static_cast<std::size_t>(behind - lefts.begin()) - 1;
    return {characterStart(text, number * stretch), lefts[number]};
}

const CaptionIndex::Entry& CaptionIndex::entryFor(const SharedText& caption, GlyphCache& glyphs) {
    for (const Entry& entry : entries_) {
        if (entry.Glyphs == &glyphs && entry.Owner.lock() == caption.Owner()) return entry;
    }
    std::erase_if(entries_, [](const Entry& entry) { return entry.Owner.expired(); });
    Entry entry{caption.Owner(), &glyphs, {}};
    const std::u16string_view text = caption.View();
    Twips left = 0;
    std::size_t at = 0;
    while (at < text.size()) {
        entry.Lefts.push_back(left);
        const std::size_t next = entry.Lefts.size() * stretch;
        const std::size_t end = characterStart(text, std::min(next, text.size()));
        left += glyphs.width(text.substr(at, end - at));
        at = end;
    }
    entries_.push_back(std::move(entry));
    return entries_.back();
}

}  // namespace quorvale
