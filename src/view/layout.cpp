#include "view/layout.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <new>

#include "base/errors.h"
#include "base/integers.h"
#include "state/vertical_value.h"

namespace quorvale {

namespace {

/// The strips overlap the toolbar and the bottom edge, so that their own frame never shows.
constexpr Twips stripOverlap = 15;
constexpr int blanksPerHorizontalStep = 5;

/// One step of the layout: a failure skips it.
template <class Step>
void Try(Step step) {
    try {
        step();
    } catch (const ControlError&) {
    } catch (const std::bad_alloc&) {
    }
}

/// Raises a flag while it lives.
class Raised {
public:
    explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
    ~Raised() { flag_ = false; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

private:
    bool& flag_;
};

void PlaceElement(Element& element, Twips left, Twips top, Twips width, Twips height) {
    Try([&] { element.SetLeft(left); });
    Try([&] { element.SetTop(top); });
    Try([&] { element.SetWidth(width); });
    Try([&] { element.SetHeight(height); });
}

std::int32_t Saturated16(double value) {
    return ToInt32(std::clamp(RoundHalfEven(value), -32768.0, 32767.0));
}

}  // namespace

void Layout::LayoutView() {
    Try([&] { surface_.lblScrollTip.SetVisible(false); });
    if (view_.LayoutInProgress) return;
    const std::int32_t slotsBefore = view_.RowSlotCount;
    {
        Raised inProgress(view_.LayoutInProgress);
        PlaceFrame();
    }
    Try([&] { peers_.SettleTopLine(); });
    Try([&] { peers_.SettleRowShift(); });
    Try([&] { peers_.PlaceEditor(); });
    Try([&] { peers_.PlaceMarker(); });
    if (view_.RowSlotCount > slotsBefore) peers_.FillNewRows();
}

void Layout::PlaceFrame() {
    view_.LaidOutWidth = document_.WidestLineWidth;
    view_.LaidOutMargin = view_.TextLeftMargin;
    const Room room = NeedOfBars();
    Try([&] { surface_.scrVert.SetVisible(room.Vertical); });
    Try([&] { surface_.scrHorz.SetVisible(room.Horizontal); });
    PlaceToolbar();
    PlaceBars(room);
    PlaceStrips(room);
    Try([&] { CountRows(room); });
    SetVerticalRange();
    if (options_.WideScrollBars) {
        SetWideHorizontalRange(room);
    } else {
        SetHorizontalRange(room);
    }
}

// Showing the horizontal bar can make the vertical one necessary, never the other way round a
// second time: two rounds are enough.
Layout::Room Layout::NeedOfBars() const {
    Room room;
    room.Width = surface_.UserControl.Width();
    room.Height = RoundHalfEven(surface_.UserControl.Height() - surface_.ToolbarHeight());
    while (true) {
        const Twips needed = Single(document_.LineSlots * surface_.RowHeight());
        if (needed > room.Height) {
            if (!room.Vertical) room.Width -= surface_.scrVert.Width();
            room.Vertical = true;
        } else {
            room.Vertical = false;
        }
        if (room.Width >= static_cast<Twips>(document_.WidestLineWidth)) {
            room.Horizontal = false;
            return room;
        }
        if (room.Horizontal) return room;
        room.Horizontal = true;
        room.Height -= surface_.scrHorz.Height();
    }
}

void Layout::PlaceToolbar() {
    const Twips width = surface_.UserControl.Width();
    const Twips barWidth = surface_.scrVert.Width();
    CommandButton& more = surface_.cmdMore;
    PlaceElement(more, width - barWidth, 0, barWidth, more.Height());
    PlaceElement(surface_.tbMore, 0, 0, width - more.Width(), more.Height());
}

void Layout::PlaceBars(const Room& room) {
    const Box& control = surface_.UserControl;
    ScrollBar& vertical = surface_.scrVert;
    ScrollBar& horizontal = surface_.scrHorz;
    const Twips buttonHeight = surface_.cmdMore.Height();
    const Twips height = RoundHalfEven(room.Height + surface_.ToolbarHeight() - buttonHeight);
    PlaceElement(vertical, control.Width() - vertical.Width(), buttonHeight, vertical.Width(),
                 height);
    PlaceElement(horizontal, 0, control.Height() - horizontal.Height(), room.Width,
                 horizontal.Height());
    Box& corner = surface_.picCorner;
    Try([&] { corner.SetVisible(room.Vertical && room.Horizontal); });
    PlaceElement(corner, horizontal.Left() + horizontal.Width(), vertical.Top() + vertical.Height(),
                 corner.Width(), corner.Height());
}

void Layout::PlaceStrips(const Room& room) {
    const Twips top = surface_.ToolbarHeight() - stripOverlap;
    const Twips height = room.Height + 2 * stripOverlap;
    Box& border = surface_.picBorder;
    PlaceElement(border, 0, top, border.Width(), height);
    LineShape& rule = surface_.lnBorderLeft;
    Try([&] { rule.SetX1(border.Width() - stripOverlap); });
    Try([&] { rule.SetX2(border.Width() - stripOverlap); });
    Try([&] { rule.SetY1(0); });
    Try([&] { rule.SetY2(border.Height()); });
    PlaceElement(surface_.picExpand, border.Width(), top, view_.TextLeftMargin, height);
}

void Layout::CountRows(const Room& room) {
    const std::int32_t fit = IntDivide(ToInt32(room.Height), ToInt32(surface_.RowHeight()));
    if (options_.TallView && fit + 1 > view_.RowSlotCount && view_.RowSlotCount > 0) {
        slots_.GrowTo(std::min(fit + 1, RowSlots::TallCount));
    }
    // The slot below the last whole row is drawn too, and the last one of all stays empty.
    view_.RowsPerView = std::clamp(fit, 0, std::max(view_.RowSlotCount - 1, 0));
}

void Layout::SetVerticalRange() {
    ScrollBar& bar = surface_.scrVert;
    const bool wide = options_.WideScrollBars;
    bar.SetWide(wide);
    const auto toBar = [&](double value) { return wide ? ToInt32(value) : ToInt16(value); };
    const double scale = document_.ScrollScale;
    Try([&] { bar.SetLargeChange(view_.RowsPerView - 2); });
    Try([&] { bar.SetSmallChange(document_.ScrollScale); });
    Try([&] { bar.SetMin(1); });
    Try([&] { bar.SetMax(toBar((document_.LineSlots - view_.RowsPerView) / scale)); });
    Try([&] { bar.SetValue(VerticalValue(surface_, document_, view_, navigation_.TopLine)); });
}

// Text that is too wide for 16 bits is reachable as far as they go: a range left over from the
// document before would depend on what was shown last.
void Layout::SetHorizontalRange(const Room& room) {
    ScrollBar& bar = surface_.scrHorz;
    bar.SetWide(false);
    view_.HorizontalStep = 1;
    const double beyond = static_cast<double>(document_.WidestLineWidth) - room.Width;
    Try([&] { bar.SetLargeChange(Saturated16(room.Width / 2)); });
    Try([&] {
        const Twips blank = metrics_.Width(u" ", surface_.UserControl.Font());
        bar.SetSmallChange(Saturated16(blanksPerHorizontalStep * blank));
    });
    Try([&] { bar.SetMin(0); });
    Try([&] { bar.SetMax(Saturated16(beyond)); });
}

void Layout::SetWideHorizontalRange(const Room& room) {
    ScrollBar& bar = surface_.scrHorz;
    bar.SetWide(true);
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    const std::int64_t beyond = document_.WidestLineWidth - ToInt64(room.Width);
    const std::int64_t step = std::max<std::int64_t>(1, (beyond + most - 1) / most);
    const auto steps = [&](double twips) {
        return ToInt32(std::max(1.0, twips / static_cast<double>(step)));
    };
    const std::int64_t oldPlace = bar.Value() * view_.HorizontalStep;
    view_.HorizontalStep = step;
    view_.HorizontalEnd = beyond;
    Try([&] { bar.SetLargeChange(steps(room.Width / 2)); });
    Try([&] {
        const Twips blank = metrics_.Width(u" ", surface_.UserControl.Font());
        bar.SetSmallChange(steps(blanksPerHorizontalStep * blank));
    });
    Try([&] { bar.SetMin(0); });
    Try([&] { bar.SetMax(CheckedCast<std::int32_t>((beyond + step - 1) / step)); });
    Try([&] { bar.SetValue(CheckedCast<std::int32_t>(oldPlace / step)); });
    // Rows as wide as the widest line, so that none is cut before its end.
    const Twips rowWidth =
        std::max(RowSlots::RowWidth, static_cast<Twips>(document_.WidestLineWidth));
    for (Label& label : surface_.lblLine) Try([&] { label.SetWidth(rowWidth); });
}

}  // namespace quorvale
