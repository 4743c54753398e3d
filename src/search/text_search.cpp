#include "search/text_search.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace quorvale {

namespace {

/// Which bytes stand for the units of the needle; nothing when one has none.
std::optional<ByteNeedle> NarrowNeedle(std::u16string_view what, const CaseTable& cases) {
    std::vector<ByteSet> sets;
    sets.reserve(what.size());
    for (const char16_t unit : what) {
        const auto set = cases.FoldedBytes.Of(cases.Folds[unit]);
        if (!set) return std::nullopt;
        sets.push_back(*set);
    }
    if (sets.empty()) return std::nullopt;
    return ByteNeedle(sets);
}

}  // namespace

TextSearch::TextSearch(std::u16string_view what, CaseTablePtr cases, SearchKernel kernel)
    : what_(what),
      cases_(std::move(cases)),
      kernel_(kernel),
      linear_(what, cases_->Folds),
      narrow_(NarrowNeedle(what, *cases_)),
      narrowIsExact_(narrow_ && narrow_->IsExact()) {}

const UnitNeedle& TextSearch::WideNeedle() const {
    if (!wide_) wide_.emplace(what_, cases_->Folds);
    return *wide_;
}

template <class Unit, class Needle>
std::size_t TextSearch::FindWith(std::span<const Unit> text, const Needle& needle) const {
    if (text.size() < what_.size()) return Nowhere;
    const std::size_t places = text.size() - what_.size() + 1;
    const PlaceScan scan = ScanForNeedle(text.data(), places, needle, kernel_);
    if (!scan.GaveUp) return scan.Place == places ? Nowhere : scan.Place;
    const std::size_t taken = LinearSearch::Walk(linear_).Take(text.subspan(scan.Place));
    return taken == 0 ? Nowhere : scan.Place + taken - what_.size();
}

std::size_t TextSearch::FindIn(std::span<const std::uint8_t> text) const {
    if (what_.empty()) return text.empty() ? Nowhere : 0;
    if (!narrow_) return Nowhere;
    if (narrowIsExact_) return FindWith(text, *narrow_);
    const std::size_t taken = LinearSearch::Walk(linear_).Take(text);
    return taken == 0 ? Nowhere : taken - what_.size();
}

std::size_t TextSearch::FindIn(std::span<const char16_t> text) const {
    if (what_.empty()) return text.empty() ? Nowhere : 0;
    return FindWith(text, WideNeedle());
}

std::vector<TextSearch::Piece> TextSearch::PiecesOf(const TextStore& text, std::int32_t first,
                                                    std::int32_t count) {
    std::vector<Piece> pieces;
    text.VisitSpans(first, count, [&](auto units) {
        if constexpr (sizeof(units[0]) == 1) {
            pieces.push_back({units, {}});
        } else {
            pieces.push_back({{}, units});
        }
    });
    return pieces;
}

std::int32_t TextSearch::FirstIn(const TextStore& text, std::int32_t first,
                                 std::int32_t last) const {
    last = std::min(last, text.Length());
    if (first > last) return 0;
    // Up to the end of a match that begins at the last position.
    const std::int64_t count = std::int64_t{last} - first + static_cast<std::int64_t>(what_.size());
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    const auto pieces = PiecesOf(text, first, static_cast<std::int32_t>(std::min(count, most)));
    const std::size_t index = FindInPieces(pieces);
    return index == Nowhere ? 0 : first + static_cast<std::int32_t>(index);
}

std::int32_t TextSearch::LastIn(const TextStore& text, std::int32_t first,
                                std::int32_t last) const {
    // Stretch by stretch towards the front, each searched forwards for its last match.
    constexpr std::int32_t stretch = 1 << 16;
    last = std::min(last, text.Length());
    while (first <= last) {
        const std::int32_t from = std::max(first, last - stretch + 1);
        std::int32_t latest = 0;
        for (std::int32_t found = FirstIn(text, from, last); found != 0;) {
            latest = found;
            found = found < last ? FirstIn(text, found + 1, last) : 0;
        }
        if (latest != 0) return latest;
        last = from - 1;
    }
    return 0;
}

std::size_t TextSearch::FindInPieces(std::span<const Piece> pieces) const {
    std::size_t before = 0;
    for (; !pieces.empty(); pieces = pieces.subspan(1)) {
        const Piece& piece = pieces.front();
        std::size_t index = piece.Wide.empty() ? FindIn(piece.Narrow) : FindIn(piece.Wide);
        if (index == Nowhere) index = FindAcrossEnd(pieces);
        if (index != Nowhere) return before + index;
        before += piece.Size();
    }
    return Nowhere;
}

/// A match that begins in the first piece and ends in a later one.
std::size_t TextSearch::FindAcrossEnd(std::span<const Piece> pieces) const {
    const std::size_t reach = what_.size() - 1;
    if (pieces.size() < 2 || reach == 0) return Nowhere;
    LinearSearch::Walk walk(linear_);
    const auto take = [&](const Piece& piece, std::size_t from, std::size_t count) {
        return piece.Wide.empty() ? walk.Take(piece.Narrow.subspan(from, count))
                                  : walk.Take(piece.Wide.subspan(from, count));
    };
    const std::size_t own = std::min(reach, pieces.front().Size());
    const std::size_t start = pieces.front().Size() - own;
    take(pieces.front(), start, own);
    std::size_t beyond = 0;
    for (const Piece& piece : pieces.subspan(1)) {
        const std::size_t count = std::min(reach - beyond, piece.Size());
        const std::size_t taken = take(piece, 0, count);
        if (taken > 0) return start + own + beyond + taken - what_.size();
        beyond += count;
        if (beyond == reach) break;
    }
    return Nowhere;
}

std::int32_t FindText(const TextStore& text, std::int32_t start, const TextSearch& search) {
    if (start > text.Length()) return 0;
    if (search.IsEmpty()) return start;
    return search.FirstIn(text, start, text.Length());
}

}  // namespace quorvale
