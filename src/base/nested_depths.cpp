#include "base/nested_depths.h"

#include <array>
#include <bit>
#include <cstddef>
#include <limits>
#include <vector>

namespace quorvale {

namespace {

constexpr std::size_t chunkEntries = ColumnChunk<std::int16_t>::Entries;

/// A place in a chunk where the depth changes.
struct Edge {
    std::uint16_t Place;
    std::int16_t Step;
};

/// The edges of all ranges, sorted by chunk but not within one. Entries count from 0 here.
class Edges {
public:
    Edges(std::span<const EntryRange> ranges, std::int32_t count)
        : ends_(static_cast<std::size_t>(count) / chunkEntries + 2) {
        const auto forEach = [&](auto visit) {
            for (const EntryRange& range : ranges) {
                if (range.Last < range.First) continue;
                visit(static_cast<std::size_t>(range.First - 1), 1);
                if (range.Last < count) visit(static_cast<std::size_t>(range.Last), -1);
            }
        };
        // A chunk's number of edges stands behind it, then the place of its first edge stands
        // there, and at last, when all are put down, the place behind its last.
        forEach([&](std::size_t entry, int) { ++ends_[entry / chunkEntries + 1]; });
        for (std::size_t chunk = 1; chunk < ends_.size(); ++chunk) ends_[chunk] += ends_[chunk - 1];
        edges_.resize(ends_.back());
        forEach([&](std::size_t entry, int step) {
            edges_[ends_[entry / chunkEntries]++] = {
                static_cast<std::uint16_t>(entry % chunkEntries), static_cast<std::int16_t>(step)};
        });
    }

    std::size_t Chunks() const { return ends_.size() - 1; }

    std::span<const Edge> Of(std::size_t chunk) const {
        const std::size_t first = chunk == 0 ? 0 : ends_[chunk - 1];
        return {edges_.data() + first, ends_[chunk] - first};
    }

private:
    std::vector<std::size_t> ends_;
    std::vector<Edge> edges_;
};

/// Sums up the edges of one chunk and hands out its stretches of one depth.
class ChunkSums {
public:
    /// Calls `visit(first place, place behind the last, depth)` in order.
    template <class Visit>
    void ForEachRun(std::span<const Edge> edges, std::int64_t& depth, Visit visit) {
        for (const Edge edge : edges) {
            steps_[edge.Place] += edge.Step;
            touched_[edge.Place / 64U] |= std::uint64_t{1} << (edge.Place % 64U);
        }
        std::size_t first = 0;
        for (std::size_t word = 0; word < touched_.size(); ++word) {
            for (std::uint64_t bits = touched_[word]; bits != 0; bits &= bits - 1) {
                const std::size_t place =
                    word * 64 + static_cast<std::size_t>(std::countr_zero(bits));
                if (place > first && steps_[place] != 0) {
                    visit(first, place, depth);
                    first = place;
                }
                depth += steps_[place];
                steps_[place] = 0;
            }
            touched_[word] = 0;
        }
        visit(first, chunkEntries, depth);
    }

private:
    std::array<std::int32_t, chunkEntries> steps_{};
    std::array<std::uint64_t, chunkEntries / 64> touched_{};
};

void RequireWithin(std::span<const EntryRange> ranges, std::int32_t count) {
    for (const EntryRange& range : ranges) {
        if (range.Last < range.First || (range.First >= 1 && range.Last <= count)) continue;
        throw ControlError(ErrorKind::Index, "A range lies outside the lines");
    }
}

template <class Visit>
void ForEachRun(const Edges& edges, Visit visit) {
    ChunkSums sums;
    std::int64_t depth = 0;
    for (std::size_t chunk = 0; chunk < edges.Chunks(); ++chunk) {
        sums.ForEachRun(edges.Of(chunk), depth,
                        [&](std::size_t first, std::size_t end, std::int64_t value) {
                            visit(chunk * chunkEntries + first, chunk * chunkEntries + end, value);
                        });
    }
}

}  // namespace

void SetNestedDepths(Column<std::int16_t>& depths, std::span<const EntryRange> ranges) {
    RequireWithin(ranges, depths.Count());
    const Edges edges(ranges, depths.Count());
    ForEachRun(edges, [](std::size_t, std::size_t, std::int64_t depth) {
        if (depth > std::numeric_limits<std::int16_t>::max()) RaiseOverflow("depth");
    });
    const auto count = static_cast<std::size_t>(depths.Count());
    ForEachRun(edges, [&](std::size_t first, std::size_t end, std::int64_t depth) {
        end = std::min(end, count);
        if (first >= end) return;
        depths.Fill(static_cast<std::int32_t>(first + 1), static_cast<std::int32_t>(end),
                    static_cast<std::int16_t>(depth));
    });
}

}  // namespace quorvale
