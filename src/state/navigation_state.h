#pragma once

#include <cstdint>

#include "base/ordinals.h"
#include "base/units.h"

namespace quorvale {

/// Where the user is: the view's top line, the caret, the selected rows and what the mouse and the
/// keys are in the middle of.
struct NavigationState {
    Line TopLine{1};
    /// The caret's line; 0 before any document.
    Line CaretRow{0};
    /// The caret stands before this character of the line, 1-based; 0 left of the first.
    std::int32_t CaretCol = 0;
    /// The caret's place along the line, kept over moves that only change the row.
    Twips DesiredX = 0;
    /// Rows from the caret down (positive) or up (negative) to the anchor, both counted; 0: none.
    std::int32_t SelectedRowsCount = 0;
    Line SelectionAnchor{1};
    /// How often the caret has moved: tells whether a call moved it.
    std::uint32_t CaretMoves = 0;
    /// The next change of the caret extends the selection instead of dropping it.
    bool ExtendSelection = false;
    /// Place of the last press on a row, on that row's label; not positive: no press to drag from.
    Twips MouseDownX = -1000;
    Twips MouseDownY = -1000;
    bool Dragging = false;
    /// A key went down in the text: the next release is reported.
    bool KeyUpPending = false;

    /// The caret stands at the start of a new document; nothing is selected or dragged. The top
    /// line stays: it changes where everybody hears of it.
    void StartDocument() {
        const Line top = TopLine;
        const std::uint32_t moves = CaretMoves;
        const bool keyUp = KeyUpPending;
        *this = {};
        TopLine = top;
        CaretMoves = moves;
        KeyUpPending = keyUp;
        CaretRow = Line{1};
        CaretCol = 1;
    }
};

}  // namespace quorvale
