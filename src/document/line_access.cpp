#include "document/line_access.h"

#include <algorithm>
#include <utility>

#include "base/errors.h"
#include "base/integers.h"
#include "document/display_text.h"
#include "document/line_extent.h"
#include "state/slot_lines.h"

namespace quorvale {

namespace {

/// From this many units on a line's display form is kept while it is in use.
constexpr std::size_t longLine = 1 << 14;

}  // namespace

std::u16string LineAccess::RawLineText(Line line) const {
    const LineExtent extent = ExtentOf(document_, line);
    return document_.Text.Mid(extent.Start, extent.Length);
}

SharedText LineAccess::TextOf(Line line) {
    if (!document_.IsLine(line)) return {};
    if (const auto slot = FindRowSlot(surface_, view_, line)) {
        return surface_.lblLine[*slot].SharedCaption();
    }
    return ExpandedText(line);
}

SharedText LineAccess::ExpandedText(Line line) {
    ForgetStale();
    if (line == expanded_.Of) {
        NoteWidth(expanded_.Width);
        return expanded_.Text;
    }
    std::u16string raw = ExpandTabs(RawLineText(line));
    SharedText text(raw);
    // As wide as the row will be that shows it.
    const std::optional<Twips> width = Measure(MarkControlChars(std::move(raw)));
    if (width && text.View().size() >= longLine) expanded_ = {line, text, *width};
    return text;
}

Twips LineAccess::WidthBefore(const SharedText& text, std::int32_t col) const {
    if (col <= 1) return 0;
    const Font& font = surface_.UserControl.Font();
    const std::u16string_view before = text.View().substr(0, static_cast<std::size_t>(col) - 1);
    if (before.size() < longLine) return metrics_.Width(before, font);
    const bool same = measured_.Text.View().data() == text.View().data() && measured_.Col == col &&
                      measured_.Font == font;
    if (!same) measured_ = {text, col, font, metrics_.Width(before, font)};
    return measured_.Width;
}

SharedText LineAccess::DisplayText(Line line) {
    if (!document_.IsLine(line)) return {};
    ForgetStale();
    const auto kept = longLines_.find(line);
    if (kept != longLines_.end()) {
        kept->second.Used = true;
        NoteWidth(kept->second.Width);
        return kept->second.Display;
    }
    SharedText display(DisplayForm(RawLineText(line)));
    if (display.View().size() >= longLine) return KeepLong(line, std::move(display));
    Measure(display.View());
    return display;
}

SharedText LineAccess::KeepLong(Line line, SharedText display) {
    if (const auto width = Measure(display.View())) longLines_[line] = {display, *width, true};
    return display;
}

void LineAccess::ForgetStale() {
    const Font& font = surface_.UserControl.Font();
    if (longLinesOf_ == document_.Generation && longLinesFont_ == font) return;
    longLines_.clear();
    expanded_ = {};
    measured_ = {};
    longLinesOf_ = document_.Generation;
    longLinesFont_ = font;
}

void LineAccess::BeginFill() {
    for (auto& [line, kept] : longLines_) kept.Used = false;
}

void LineAccess::EndFill() {
    std::erase_if(longLines_, [](const auto& entry) { return !entry.second.Used; });
}

// A line that cannot be measured is shown all the same.
std::optional<Twips> LineAccess::Measure(std::u16string_view display) {
    try {
        const Twips width = metrics_.Width(display, surface_.UserControl.Font());
        NoteWidth(width);
        return width;
    } catch (const ControlError&) {
        return std::nullopt;
    }
}

void LineAccess::NoteWidth(Twips textWidth) {
    const Twips row = surface_.picBorder.Width() + textWidth + view_.TextLeftMargin;
    // Without wide scroll bars a width of more than 32 bits could never be scrolled to.
    if (!options_.WideScrollBars && row > 2147483647.0) return;
    document_.WidestLineWidth = std::max(document_.WidestLineWidth, ToInt64(row));
}

}  // namespace quorvale
