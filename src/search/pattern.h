#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "search/case_table.h"

namespace quorvale {

/// A wildcard pattern that whole lines are held against: "*" stands for any run of characters, "?"
/// for any one, "#" for a digit, "[list]" for one of the list, "[!list]" for one that is not in it,
/// where "a-z" is a range. A line costs at most its length times that of the pattern, whatever the
/// stars.
///
/// In a list "!" is special in front only; "-" stands for itself at either end; "?", "*", "#" and
/// "[" always do; "]" ends it, always. "[]" stands for nothing and "[!]" for the "!". A list that
/// does not end, a range that goes down, or a "-" between nothing makes the pattern invalid.
class Pattern {
public:
    /// The pattern in capitals. An invalid one is kept: the error comes when it is used.
    explicit Pattern(std::u16string_view pattern);

    bool IsValid() const { return valid_; }

    /// Whether the whole text matches, each unit as `capitals` has it. Bytes are the units U+0000
    /// to U+00FF. InvalidValue for an invalid pattern.
    bool Matches(std::span<const char16_t> text, const UnitKeys& capitals) const;
    bool Matches(std::span<const std::uint8_t> text, const UnitKeys& capitals) const;

    /// The runs of characters that stand for themselves: every matching text has them, in order.
    std::vector<std::u16string> Literals() const;
    /// Whether having them, in order, is all that is asked of a text.
    bool AsksForLiteralsOnly() const;

private:
    enum class Kind : std::uint8_t { Literal, AnyOne, AnyRun, Digit, OneOf, NoneOf };

    struct Token {
        Kind What;
        char16_t Unit = 0;
        /// Of a list: its ranges in `ranges_`.
        std::uint32_t FirstRange = 0;
        std::uint32_t Ranges = 0;
    };

    struct Range {
        char16_t From;
        char16_t To;
    };

    std::size_t ReadList(std::u16string_view list);
    bool ReadRanges(std::u16string_view members);
    bool Has(const Token& token, char16_t unit) const;
    template <class Unit>
    std::size_t FirstFit(std::size_t token, std::span<const Unit> text, std::size_t from,
                         const UnitKeys& capitals) const;
    template <class Unit>
    bool MatchesUnits(std::span<const Unit> text, const UnitKeys& capitals) const;

    std::vector<Token> tokens_;
    std::vector<Range> ranges_;
    bool valid_ = true;
};

}  // namespace quorvale
