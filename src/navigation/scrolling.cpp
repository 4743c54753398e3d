#include "navigation/scrolling.h"

#include <algorithm>

#include "base/integers.h"
#include "document/visible_lines.h"
#include "state/vertical_value.h"

namespace quorvale {

std::int32_t Scrolling::LastTopLine() const {
    return CheckedSubtract(document_.LineSlots, view_.RowsPerView);
}

void Scrolling::SetTopLine(Line line) {
    if (line == navigation_.TopLine) return;
    const std::int32_t kept = std::max(1, std::min(line.Number(), LastTopLine()));
    navigation_.TopLine = Line{kept};
    if (view_.Suspended()) return;
    peers_.LayoutView();
    peers_.FillRows();
    peers_.PlaceCaret();
    peers_.RaiseScrolled();
}

// Where a step is several lines, the bar's ends still mean the document's ends.
Line Scrolling::AimedLine() const {
    const ScrollBar& bar = surface_.scrVert;
    const std::int32_t line = CheckedMultiply<std::int32_t>(document_.ScrollScale, bar.Value());
    if (document_.ScrollScale == 1) return Line{line};
    if (bar.Value() == bar.Min()) return Line{1};
    if (bar.Value() == bar.Max()) return Line{std::max(line, LastTopLine())};
    return Line{line};
}

/// A thumb that is let go where it began leaves the view where it is, also between two steps.
bool Scrolling::StandsAtTopLine() const {
    return document_.ScrollScale > 1 &&
           surface_.scrVert.Value() ==
               VerticalValue(surface_, document_, view_, navigation_.TopLine);
}

void Scrolling::VerticalChanged() {
    if (view_.LayoutInProgress) return;
    if (!StandsAtTopLine()) {
        const Line aimed = AimedLine();
        SetTopLine(aimed <= navigation_.TopLine ? VisibleAtOrAbove(document_, aimed)
                                                : NextVisibleLine(document_, aimed - 1));
    }
    surface_.lblScrollTip.SetVisible(false);
}

void Scrolling::SettleTopLine() {
    surface_.lblScrollTip.SetVisible(false);
    const Line reachable{std::min(navigation_.TopLine.Number(), std::max(1, LastTopLine()))};
    SetTopLine(VisibleAtOrAbove(document_, reachable));
}

}  // namespace quorvale
