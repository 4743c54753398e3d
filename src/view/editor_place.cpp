#include "view/editor_place.h"

#include <algorithm>

#include "base/integers.h"
#include "state/slot_lines.h"

namespace quorvale {

namespace {

/// The editor is a little taller than its rows, for its frame.
constexpr Twips frame = 30;
constexpr Twips lowerEdge = 15;

}  // namespace

EditorPlace::Span EditorPlace::FindSpan() const {
    const int beyond = view_.RowsPerView + 1;
    Span span{0, beyond};
    const Line end = editing_.EditStart + editing_.EditCount;
    bool ended = false;
    for (int slot = 0; slot <= beyond && surface_.lblLine.Has(slot); ++slot) {
        const Line line = SlotLine(surface_, slot);
        // A slot that shows nothing says nothing about where the lines are.
        if (line < Line{1}) continue;
        if (line <= editing_.EditStart) span.First = slot;
        if (!ended && line >= end) {
            span.End = slot;
            ended = true;
        }
    }
    return span;
}

void EditorPlace::PlaceEditor() {
    if (!surface_.rtbEdit.Visible()) return;
    const Span span = FindSpan();
    const Twips height = surface_.RowHeight();
    const Twips toolbar = surface_.ToolbarHeight();
    const Twips top = std::max(0.0, span.First * height - frame + toolbar);
    const Twips lowest =
        surface_.scrHorz.Visible() ? surface_.scrHorz.Top() : surface_.UserControl.Height();
    const Twips bottom = std::min(span.End * height + frame + toolbar, lowest);
    if (bottom - top < height) {
        peers_.CloseEdit();
        return;
    }
    const Twips left = surface_.picExpand.Left() + surface_.picExpand.Width();
    const Twips right =
        surface_.scrVert.Visible() ? surface_.scrVert.Left() : surface_.UserControl.Width();
    surface_.rtbEdit.Move(RoundHalfEven(left), RoundHalfEven(top), RoundHalfEven(right - left),
                          RoundHalfEven(bottom - top - lowerEdge));
}

}  // namespace quorvale
