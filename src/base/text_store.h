#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorvale {

/// The whole text of a document as UTF-16 code units at the positions 1 to `Length()`. A unit takes
/// one byte in every block whose units are all U+00FF or less, two in the others: one line of
/// Japanese in a huge log widens its own block only. The text never changes; it is replaced whole.
class TextStore {
public:
    static constexpr std::int32_t BlockUnits = 1 << 20;

    /// What a text is made of. `Narrow` holds the unit at position p in its byte p - 1; the bytes
    /// of a block that `Wide` holds mean nothing. `Wide` is empty, or has an entry per block, null
    /// for a narrow one.
    struct Parts {
        std::shared_ptr<const std::uint8_t> Narrow;
        std::vector<std::shared_ptr<const char16_t>> Wide;
        std::int32_t Length = 0;
    };

    TextStore() = default;
    explicit TextStore(Parts parts);
    TextStore(TextStore&& other) noexcept;
    TextStore& operator=(TextStore&& other) noexcept;

    /// The units of `text` and of `tail` behind them. Overflow beyond 2^31 - 1 units.
    static TextStore FromString(std::u16string_view text, std::u16string_view tail = {});

    std::int32_t Length() const { return parts_.Length; }

    /// Whether every unit is stored in one byte: then the text is one stretch of bytes.
    bool IsNarrow() const { return parts_.Wide.empty(); }

    /// The unit at the position; U+0000 outside the text.
    char16_t At(std::int32_t position) const;

    /// Up to `count` units from `start` on; only those that lie in the text.
    std::u16string Mid(std::int32_t start, std::int32_t count) const;

    /// The same, put behind what `out` holds.
    void AppendTo(std::u16string& out, std::int32_t start, std::int32_t count) const;

    /// The first line feed at or after `from` (below 1: from the first unit); 0 if there is none.
    std::int32_t FindLineFeed(std::int32_t from) const;

    /// Hands the units that `start` and `count` name to `visit`, in order, in as few pieces as
    /// possible: each a `std::span<const std::uint8_t>` or a `std::span<const char16_t>`.
    template <class Visitor>
    void VisitSpans(std::int32_t start, std::int32_t count, Visitor&& visit) const {
        Range rest = Clip(start, count);
        while (rest.First < rest.End) {
            const Piece piece = PieceAt(rest);
            const auto size = static_cast<std::size_t>(piece.End - rest.First);
            if (piece.Wide != nullptr) {
                visit(std::span<const char16_t>(piece.Wide, size));
            } else {
                visit(std::span<const std::uint8_t>(parts_.Narrow.get() + rest.First, size));
            }
            rest.First = piece.End;
        }
    }

private:
    /// Units by 0-based index, the end not included.
    struct Range {
        std::int32_t First;
        std::int32_t End;
    };

    /// The units from the asked one to `End` lie side by side; `Wide` is null for narrow ones.
    struct Piece {
        const char16_t* Wide;
        std::int32_t End;
    };

    Range Clip(std::int32_t start, std::int32_t count) const;
    Piece PieceAt(Range rest) const;

    Parts parts_;
};

}  // namespace quorvale
