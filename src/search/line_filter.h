#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "search/byte_needle.h"
#include "search/byte_scan.h"
#include "search/line_query.h"
#include "search/line_text.h"

namespace quorvale {

/// Finds the lines that may match among the bytes of a file, without cutting it into lines: they
/// must have the bytes that the query names, in their order.
class LineFilter {
public:
    /// For bytes of that form, with tabs among them or not: a blank of a line's text may be one.
    LineFilter(const LineQuery& query, LineForm form, bool tabs, SearchKernel kernel);

    static constexpr std::size_t Nowhere = static_cast<std::size_t>(-1);

    struct Hit {
        /// Somewhere in the line.
        std::size_t Place = Nowhere;
        /// The line does match: for a text, there for the first time.
        bool IsMatch = false;
    };

    /// The first line that may match among those from `from` on, where a line begins.
    Hit Next(std::span<const std::uint8_t> bytes, std::size_t from) const;

    /// For UTF-8: whether it passes over no line that may match where each byte is a unit, either.
    bool CoversSingleBytes() const { return coversSingleBytes_; }

private:
    class Sequences;

    PlaceScan Find(std::span<const std::uint8_t> bytes, std::size_t needle, std::size_t from) const;

    SearchKernel kernel_;
    bool nothingMatches_ = false;
    /// A line that has all the needles, in their order, matches; otherwise it may match then.
    bool needlesAreAll_ = false;
    bool coversSingleBytes_ = false;
    std::vector<ByteNeedle> needles_;
};

}  // namespace quorvale
