#pragma once

#include <optional>

#include "base/ordinals.h"
#include "document/line_access.h"
#include "platform/host_options.h"
#include "platform/surface.h"
#include "platform/text_metrics.h"
#include "state/document_state.h"
#include "state/navigation_state.h"
#include "state/view_state.h"

namespace quorvale {

/// What a caret move asks of the others.
class CaretPeers {
public:
    virtual ~CaretPeers() = default;
    /// Records what stands in an open editor.
    virtual void CloseEdit() = 0;
    /// Opens the folded range that starts at the line, one level.
    virtual void ExpandAt(Line line) = 0;
    virtual void PaintRowColours() = 0;
    virtual void RaiseSelChanged() = 0;
    /// Opens the folds around the line and scrolls line and column into view.
    virtual void RevealLine(Line line, std::int32_t col) = 0;
};

/// Keeps the caret and the selected rows, and lays the caret's picture over the rows.
class Caret {
public:
    Caret(NavigationState& navigation, Surface& surface, const DocumentState& document,
          const ViewState& view, LineAccess& lines, const TextMetrics& metrics,
          const HostOptions& options, CaretPeers& peers)
        : navigation_(navigation),
          surface_(surface),
          document_(document),
          view_(view),
          lines_(lines),
          metrics_(metrics),
          options_(options),
          peers_(peers) {}

    /// Moves the caret to a line, to the column at the place it keeps along the line.
    void SetRow(Line row);
    void SetCol(std::int32_t col);
    void MoveTo(Line row, std::int32_t col);
    /// Moves it behind the unit at a 1-based position of the text; below 1 that is the first. From
    /// the last unit on it goes to the start of the last line.
    void SetOffset(std::int32_t position);
    /// Selects rows from the caret on; the anchor stays. Overflow, and nothing changes, when the
    /// range leaves 32 bits.
    void SetSelectedRowsCount(std::int32_t count);

    /// Puts the caret on a line and column, both clamped to what is there, and writes its place
    /// along the line, in twips, into `x` before anybody hears of the move. Only a caret that
    /// really moved updates the selection.
    void PlaceCaretMarker(Line row, std::int32_t col, Twips& x);
    /// The same for the place where the caret is; the kept place along the line stays.
    void PlaceCaret();
    /// The mouse points at a row. A blank one stands for the last line, which is brought into view
    /// when a fold hides it.
    void PointAt(Line row, std::int32_t col);
    /// Stores the caret's line and tells nobody: no marker, no selection, no event. The column
    /// stays as far as the line reaches.
    void StoreRow(Line row);
    /// Lays the picture over the caret's row; no clamping, no box, no events.
    void PlaceMarker();
    /// The caret's row is shown: a fold that was made while painting was suspended may hide it.
    void SettleCaret();

    /// What follows when the caret has moved: the selection, the event, the colours.
    void CaretMoved();

    /// The number of the character at a place along a text: of the first one that reaches past it,
    /// else of the last; 0 for an empty text.
    std::int32_t ColumnAtX(std::u16string_view text, Twips x) const;

private:
    void RevealAndPlace(Line row, std::int32_t col, Twips& x);
    void UpdateSelection();
    void DropEndlessSelection();
    Twips PlaceOfColumn(const SharedText& text, std::int32_t col) const;
    void MoveMarker(std::optional<int> slot, Twips x);
    Precision PlacePrecision() const;

    NavigationState& navigation_;
    Surface& surface_;
    const DocumentState& document_;
    const ViewState& view_;
    LineAccess& lines_;
    const TextMetrics& metrics_;
    const HostOptions& options_;
    CaretPeers& peers_;
};

}  // namespace quorvale
