#pragma once

#include "platform/host_options.h"
#include "platform/surface.h"
#include "platform/text_metrics.h"
#include "state/document_state.h"
#include "state/view_state.h"

namespace quorvale {

/// What shifting the rows asks of the others.
class RowShiftPeers {
public:
    virtual ~RowShiftPeers() = default;
    /// Places the caret where it is, so that the marker follows the rows.
    virtual void PlaceCaret() = 0;
    /// The same for the marker's picture alone: nothing is clamped and nothing raised.
    virtual void PlaceMarker() = 0;
    virtual bool UserMode() const = 0;
};

/// Shifts the rows sideways as the horizontal scroll bar says, and the boundary lines with them.
class RowShift {
public:
    RowShift(const ViewState& view, Surface& surface, const TextMetrics& metrics,
             const HostOptions& options, RowShiftPeers& peers)
        : view_(view), surface_(surface), metrics_(metrics), options_(options), peers_(peers) {}

    /// The horizontal bar's value moved, or the margin did.
    void HorizontalChanged();

private:
    void ShiftRows();
    void ShiftBoundaries();

    const ViewState& view_;
    Surface& surface_;
    const TextMetrics& metrics_;
    const HostOptions& options_;
    RowShiftPeers& peers_;
};

}  // namespace quorvale
