#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "search/case_table.h"
#include "search/pattern.h"
#include "search/text_search.h"

namespace quorvale {

/// What a search for all matches holds every line against: a text that may stand anywhere in it, or
/// a wildcard pattern.
class LineQuery {
public:
    enum class Kind { Plain, Wildcard };

    LineQuery(std::u16string_view typed, Kind kind, CaseTablePtr cases = CaseTableOf(nullptr),
              SearchKernel kernel = BestSearchKernel());

    bool IsPlain() const { return !pattern_.has_value(); }

    /// The 1-based position of the first match in a line; a line that matches a pattern does so at
    /// its first character. 0 when there is no match. Bytes are the units U+0000 to U+00FF.
    /// InvalidValue for an invalid pattern.
    std::int32_t PositionIn(std::span<const std::uint8_t> line) const;
    std::int32_t PositionIn(std::span<const char16_t> line) const;

    /// What the units of a line are compared by, and the runs of keys that every matching line has.
    const UnitKeys& Keys() const { return IsPlain() ? cases_->Folds : cases_->Capitals; }
    std::vector<std::u16string> Literals() const;
    /// Whether every line that has them, in order and side by side, matches.
    bool AsksForLiteralsOnly() const { return !pattern_ || pattern_->AsksForLiteralsOnly(); }

private:
    template <class Unit>
    std::int32_t PositionAmong(std::span<const Unit> line) const;

    CaseTablePtr cases_;
    std::u16string wanted_;
    TextSearch search_;
    std::optional<Pattern> pattern_;
};

}  // namespace quorvale
