#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "base/ordinals.h"
#include "corrections/update.h"
#include "state/corrections_state.h"

namespace quorvale {

/// Finds corrections by line. It reads the journal once after each change, so that a repaint with
/// twenty thousand corrections costs no more than one with twenty.
class JournalIndex {
public:
    explicit JournalIndex(const CorrectionsState& state) : state_(state) {}

    /// The usable corrections in document order; none without a journal.
    const std::vector<Update>& Updates() const;
    /// How many elements `update` there are, the useless ones too.
    std::size_t CountOfAll() const;

    /// The first correction in document order that covers the line; null if none does. Any number
    /// is looked up.
    const Update* FindCorrection(Line line) const;

    /// Widens a range of lines to every correction that it meets, in a single pass in document
    /// order: a correction that only a later widening reaches is not looked at again.
    void ExpandToCorrections(std::int32_t& start, std::int32_t& count) const;

private:
    /// From this line on, up to the next stretch's, the same correction is the first.
    struct Stretch {
        std::int32_t From;
        std::optional<std::size_t> First;
    };

    void Refresh() const;
    void ReadUpdates() const;
    void FindStretches() const;

    const CorrectionsState& state_;
    mutable std::uint64_t readAt_ = 0;
    mutable std::size_t countOfAll_ = 0;
    mutable std::vector<Update> updates_;
    mutable std::vector<Stretch> stretches_;
};

}  // namespace quorvale
