#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/text_store.h"
#include "search/byte_needle.h"
#include "search/byte_scan.h"
#include "search/case_table.h"
#include "search/linear_search.h"
#include "search/unit_needle.h"

namespace quorvale {

/// Looks for one text in others without regard to case. It goes over the units where they lie:
/// nothing is copied or folded, except for the text that is looked for.
class TextSearch {
public:
    static constexpr std::size_t Nowhere = static_cast<std::size_t>(-1);

    explicit TextSearch(std::u16string_view what, CaseTablePtr cases = CaseTableOf(nullptr),
                        SearchKernel kernel = BestSearchKernel());

    bool IsEmpty() const { return what_.empty(); }

    /// The index of the first match; `Nowhere` if there is none. An empty text matches at once
    /// where there is any unit. Bytes are the units U+0000 to U+00FF.
    std::size_t FindIn(std::span<const std::uint8_t> text) const;
    std::size_t FindIn(std::span<const char16_t> text) const;

    /// The first or the last match that begins at a position from `first` to `last`; 0 if there is
    /// none. Not for an empty text.
    std::int32_t FirstIn(const TextStore& text, std::int32_t first, std::int32_t last) const;
    std::int32_t LastIn(const TextStore& text, std::int32_t first, std::int32_t last) const;

private:
    struct Piece {
        std::span<const std::uint8_t> Narrow;
        std::span<const char16_t> Wide;

        std::size_t Size() const { return Narrow.size() + Wide.size(); }
    };

    static std::vector<Piece> PiecesOf(const TextStore& text, std::int32_t first,
                                       std::int32_t count);

    template <class Unit, class Needle>
    std::size_t FindWith(std::span<const Unit> text, const Needle& needle) const;
    std::size_t FindInPieces(std::span<const Piece> pieces) const;
    std::size_t FindAcrossEnd(std::span<const Piece> pieces) const;
    const UnitNeedle& WideNeedle() const;

    std::u16string what_;
    CaseTablePtr cases_;
    SearchKernel kernel_;
    LinearSearch linear_;
    /// None when no byte stands for some unit of the text.
    std::optional<ByteNeedle> narrow_;
    bool narrowIsExact_ = false;
    /// Made when the first text of 16-bit units comes.
    mutable std::optional<UnitNeedle> wide_;
};

/// The position of the first match at or after `start`, which is 1 or more; 0 if there is none. An
/// empty text is found at `start`, in a text that reaches so far.
std::int32_t FindText(const TextStore& text, std::int32_t start, const TextSearch& search);

}  // namespace quorvale
