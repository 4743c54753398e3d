#pragma once

#include "document/line_access.h"
#include "platform/surface.h"
#include "state/appearance_state.h"
#include "state/collapse_state.h"
#include "state/document_state.h"
#include "state/navigation_state.h"
#include "state/view_state.h"
#include "view/range_column.h"

namespace quorvale {

/// What follows a fill.
class FillPeers {
public:
    virtual ~FillPeers() = default;
    virtual void PaintRowColours() = 0;
    virtual void RefreshCorrectionMarks() = 0;
    virtual void PlaceEditor() = 0;
    virtual void LayoutView() = 0;
    /// The caret's marker follows its row; nothing else happens.
    virtual void PlaceMarker() = 0;
    /// There is no document. While the host is being designed the first row has the control's name.
    virtual void NameFirstRow() = 0;
};

/// The one repaint routine: gives every row slot its line, from the top line down, stepping over
/// hidden lines.
class RowFill {
public:
    RowFill(ViewState& view, CollapseState& collapse, Surface& surface,
            const DocumentState& document, const NavigationState& navigation,
            const AppearanceState& appearance, LineAccess& lines, FillPeers& peers)
        : view_(view),
          collapse_(collapse),
          surface_(surface),
          document_(document),
          navigation_(navigation),
          appearance_(appearance),
          lines_(lines),
          peers_(peers) {}

    /// Does nothing while painting is suspended. Overflow, after all rows are filled, when more
    /// than 64 ranges are open at once.
    void FillRows();

private:
    /// How far a fill has come: the next line, and the next range that starts at it or below.
    struct Walk {
        OpenRanges Open;
        std::size_t Cursor = 0;
        Line Next;
    };

    void FillSlots(Walk& walk);
    void EnterAtTop(Walk& walk);
    bool FindLineFor(Walk& walk, int slot);
    void ShowLine(Walk& walk, int slot);
    void ShowGlyph(Walk& walk, int slot, Line line);
    void ShowBlank(int slot);
    void Follow();
    bool GrewSinceLayout() const;

    ViewState& view_;
    CollapseState& collapse_;
    Surface& surface_;
    const DocumentState& document_;
    const NavigationState& navigation_;
    const AppearanceState& appearance_;
    LineAccess& lines_;
    FillPeers& peers_;
};

}  // namespace quorvale
