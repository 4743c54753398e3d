#pragma once

#include "base/ordinals.h"
#include "corrections/journal_index.h"
#include "platform/surface.h"
#include "state/corrections_state.h"
#include "state/document_state.h"
#include "state/navigation_state.h"
#include "state/view_state.h"

namespace quorvale {

/// What a click on the mark of a corrected row asks of the others.
class CorrectionMarksPeers {
public:
    virtual ~CorrectionMarksPeers() = default;
    /// The caret goes to the line through the `row` property: revealed, marked, reported.
    virtual void SetRow(Line row) = 0;
    virtual void PaintRowColours() = 0;
};

/// The marks beside the rows whose lines are corrected.
class CorrectionMarks {
public:
    CorrectionMarks(CorrectionsState& corrections, const JournalIndex& index,
                    NavigationState& navigation, Surface& surface, const DocumentState& document,
                    const ViewState& view, CorrectionMarksPeers& peers)
        : corrections_(corrections),
          index_(index),
          navigation_(navigation),
          surface_(surface),
          document_(document),
          view_(view),
          peers_(peers) {}

    /// Shows a mark in exactly the rows whose line a correction covers, the cut row and those that
    /// wait below it included. Does nothing while painting is suspended.
    void RefreshCorrectionMarks();

    /// A mark is clicked: its correction is picked, its rows are selected and the menu comes up. On
    /// a row without a correction nothing is picked any more.
    void Clicked(int slot);

private:
    const Update* CorrectionIn(int slot) const;
    bool SelectRowsOf(const UpdateRange& range);

    CorrectionsState& corrections_;
    const JournalIndex& index_;
    NavigationState& navigation_;
    Surface& surface_;
    const DocumentState& document_;
    const ViewState& view_;
    CorrectionMarksPeers& peers_;
};

}  // namespace quorvale
