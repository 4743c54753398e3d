#include "navigation/reveal.h"

#include <algorithm>
#include <cmath>

#include "base/integers.h"
#include "document/visible_lines.h"
#include "state/horizontal_place.h"
#include "state/slot_lines.h"

namespace quorvale {

void Reveal::RevealLine(Line& line, std::int32_t col) {
    if (document_.LineSlots == 0) return;
    line = std::max(std::min(line, document_.Sentinel()), Line{1});
    const std::uint64_t meant = document_.Generation;
    OpenFolds(line);
    // Inside each step the host may put another document in place: the line is none of its.
    if (document_.Generation == meant) ScrollTo(line);
    if (document_.Generation == meant) ShiftTo(line, col);
}

// The sentinel is asked for when the caret goes to the end; the caret then stands on the last line,
// so that is the one that must not be hidden.
void Reveal::OpenFolds(Line line) {
    const Line shown = std::min(line, document_.LastLine());
    if (!document_.IsHidden(shown)) return;
    peers_.OpenAround(shown);
    if (view_.Suspended()) return;
    peers_.FillRows();
    peers_.LayoutView();
}

// While painting is suspended the rows still show what was painted last: then it counts what the
// next fill would put there.
Line Reveal::LineInSlot(int slot) const {
    if (!view_.Suspended()) return SlotLine(surface_, slot);
    Line line = navigation_.TopLine;
    for (int i = 0; i < slot && line < document_.Sentinel(); ++i) {
        line = NextVisibleLine(document_, line);
    }
    return line;
}

void Reveal::ScrollTo(Line line) {
    if (LineInSlot(0) > line) {
        peers_.SetTopLine(PreviousVisibleLine(document_, line));
        return;
    }
    const int middle = ToInt16(view_.RowsPerView / 2.0);
    if (LineInSlot(middle) > line) return;
    peers_.SetTopLine(Centred(line));
}

// Hidden lines on the way up take no row, so they are not counted.
Line Reveal::Centred(Line line) const {
    const double half = view_.RowsPerView / 2.0;
    Line top = line;
    for (int shown = 1; shown < half && top >= Line{2};) {
        const Line above = top - 1;
        top = VisibleAtOrAbove(document_, above);
        if (!document_.IsHidden(top)) ++shown;
    }
    return std::max(top, Line{1});
}

void Reveal::LayoutIfGrown() {
    if (!view_.Suspended() && view_.LaidOutWidth != document_.WidestLineWidth) {
        peers_.LayoutView();
    }
}

void Reveal::ShiftTo(Line line, std::int32_t col) {
    ScrollBar& bar = surface_.scrHorz;
    if (col < 2) {
        bar.SetValue(0);
        return;
    }
    const SharedText text = lines_.TextOf(line);
    const std::uint64_t meant = document_.Generation;
    LayoutIfGrown();
    if (document_.Generation != meant) return;
    const double place = RoundHalfEven(lines_.WidthBefore(text, col));
    const Twips from = HorizontalPlace(bar, view_);
    const Twips seen = bar.Width() - view_.TextLeftMargin - surface_.picBorder.Width();
    if (place >= from && place <= from + seen) return;
    const double wanted = std::ceil(place / static_cast<double>(view_.HorizontalStep));
    // A range that ends below its start means that everything fits.
    const double low = bar.Min();
    const double high = std::max(bar.Min(), bar.Max());
    bar.SetValue(ToInt32(std::clamp(wanted, low, high)));
}

}  // namespace quorvale
