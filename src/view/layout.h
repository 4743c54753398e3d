#pragma once

#include "platform/host_options.h"
#include "platform/surface.h"
#include "platform/text_metrics.h"
#include "state/document_state.h"
#include "state/navigation_state.h"
#include "state/view_state.h"
#include "view/row_slots.h"

namespace quorvale {

/// What the layout asks of the others when the frame stands.
class LayoutPeers {
public:
    virtual ~LayoutPeers() = default;
    /// The top line follows the vertical bar's possibly smaller range.
    virtual void SettleTopLine() = 0;
    /// The rows are shifted as the horizontal bar says.
    virtual void SettleRowShift() = 0;
    virtual void PlaceEditor() = 0;
    /// The caret's marker follows its row; nothing else happens.
    virtual void PlaceMarker() = 0;
    /// More rows fit than ever before: the new ones need content.
    virtual void FillNewRows() = 0;
};

/// Decides the geometry: where every frame element goes, how many rows fit, what the scroll bars
/// range over. A step that fails is skipped and the next one runs, so that a layout always ends.
class Layout {
public:
    Layout(ViewState& view, Surface& surface, const DocumentState& document,
           const NavigationState& navigation, RowSlots& slots, const TextMetrics& metrics,
           const HostOptions& options, LayoutPeers& peers)
        : view_(view),
          surface_(surface),
          document_(document),
          navigation_(navigation),
          slots_(slots),
          metrics_(metrics),
          options_(options),
          peers_(peers) {}

    /// The full layout. A call during another one only hides the scroll tip.
    void LayoutView();

private:
    /// The text area that is left beside and below the frame.
    struct Room {
        Twips Width = 0;
        Twips Height = 0;
        bool Vertical = false;
        bool Horizontal = false;
    };

    void PlaceFrame();
    Room NeedOfBars() const;
    void PlaceToolbar();
    void PlaceBars(const Room& room);
    void PlaceStrips(const Room& room);
    void CountRows(const Room& room);
    void SetVerticalRange();
    void SetHorizontalRange(const Room& room);
    void SetWideHorizontalRange(const Room& room);

    ViewState& view_;
    Surface& surface_;
    const DocumentState& document_;
    const NavigationState& navigation_;
    RowSlots& slots_;
    const TextMetrics& metrics_;
    const HostOptions& options_;
    LayoutPeers& peers_;
};

}  // namespace quorvale
