#pragma once

#include "base/ordinals.h"
#include "corrections/journal_index.h"
#include "platform/message_box.h"
#include "resources/string_table.h"
#include "state/corrections_state.h"

namespace quorvale {

/// What walking over the corrections asks of the others.
class CorrectionWalkPeers {
public:
    virtual ~CorrectionWalkPeers() = default;
    /// The caret goes to the line through the `row` property: revealed, marked, reported.
    virtual void SetRow(Line row) = 0;
};

enum class WalkDirection { Previous = -1, Next = 1 };

/// Moves the caret to the correction before or behind the picked one.
class CorrectionWalk {
public:
    CorrectionWalk(const CorrectionsState& corrections, const JournalIndex& index,
                   MessageBoxes& messages, Language texts, CorrectionWalkPeers& peers)
        : corrections_(corrections),
          index_(index),
          messages_(messages),
          texts_(texts),
          peers_(peers) {}

    /// Goes to the nearest start, of equal ones to the first in document order; says so when there
    /// is none. The picked correction stays picked, so a second step leads to the same place.
    /// Nothing happens while none is picked.
    void GoToCorrection(WalkDirection direction);

    /// The language of the messages from now on.
    void Speak(Language texts) { texts_ = texts; }

private:
    const Update* Neighbour(std::int32_t start, WalkDirection direction) const;

    const CorrectionsState& corrections_;
    const JournalIndex& index_;
    MessageBoxes& messages_;
    Language texts_;
    CorrectionWalkPeers& peers_;
};

}  // namespace quorvale
