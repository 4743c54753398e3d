#pragma once

#include <cstdint>
#include <vector>

namespace quorvale {

/// A range of lines that may be folded: `FromRow` stays visible as its head.
struct CollapseRange {
    std::int32_t FromRow;
    std::int32_t ToRow;
    /// How many other ranges it lies in; 0 until the next fill has sorted the list.
    std::int32_t Depth;

    bool operator==(const CollapseRange&) const = default;
};

/// The registered ranges, in the order of registration until a fill sorts them by their heads.
/// Ranges are numbered from 1 where they are named by number.
struct CollapseState {
    std::vector<CollapseRange> Ranges;
    /// True while the list is sorted and its nesting is known.
    bool RangesUnchanged = true;
    /// The greatest `Depth` of a range, at most 64.
    std::int32_t DeepestNesting = 0;
};

}  // namespace quorvale
