#include "control/host_extras.h"

#include <algorithm>
#include <utility>

#include "control/control_parts.h"
#include "control/creation.h"
#include "control/frame.h"
#include "corrections/edit_range.h"

namespace quorvale {

Language HostExtras::Language() const { return parts_.Texts; }

void HostExtras::Speak(quorvale::Language language) {
    const Frame frame(parts_.shared_from_this());
    const auto former = std::exchange(frame->Texts, language);
    frame->ScrollTip.Speak(language);
    frame->Undo.Speak(language);
    frame->Walk.Speak(language);
    frame->Commit.Speak(language);
    frame->FindAll.Speak(language);
    // A new first text of the search box is nothing to search for.
    SearchExtras::WithoutSearching(*frame.operator->(),
                                   [&] { ChangeTexts(frame->Elements, former, language); });
}

Encoding HostExtras::FileEncoding() const { return parts_.Document.ReadAs; }

std::u16string HostExtras::RawLineText(std::int32_t i) const {
    return parts_.Lines.RawLineText(Line{i});
}

std::u16string HostExtras::RawLineStart(std::int32_t i, std::int32_t most) const {
    const DocumentState& document = parts_.Document;
    if (!document.IsLine(Line{i})) return {};
    const std::int32_t start = document.Table.Starts[i];
    const std::int32_t end = document.Table.Starts[i + 1] - 1;
    if (end - start <= most) return RawLineText(i);
    return document.Text.Mid(start, most);
}

HostExtras::Stretch HostExtras::StretchOf(std::int32_t first, std::int32_t last) const {
    const DocumentState& document = parts_.Document;
    const Line from{std::max(first, 1)};
    const Line to = std::min(Line{last}, document.LastLine());
    if (from > to) return {};
    const LineStarts& starts = document.Table.Starts;
    const std::int32_t start = starts[from.Number()];
    return {start, starts[to.Number() + 1] - 1 - start};
}

std::u16string HostExtras::RawText(std::int32_t first, std::int32_t last) const {
    const Stretch stretch = StretchOf(first, last);
    std::u16string text = parts_.Document.Text.Mid(stretch.Start, stretch.Length);
    if (!text.empty() && text.back() == u'\r') text.pop_back();
    return text;
}

std::int64_t HostExtras::RawTextLength(std::int32_t first, std::int32_t last) const {
    return StretchOf(first, last).Length;
}

std::int32_t HostExtras::TextLength() const { return parts_.Document.Text.Length(); }

std::uint64_t HostExtras::DocumentNumber() const { return parts_.Document.Generation; }

HostExtras::LineRange HostExtras::SelectedLines() const {
    const Line last = parts_.Document.LastLine();
    if (last < Line{1}) return {};
    const UpdateRange lines = quorvale::SelectedLines(parts_.Navigation.CaretRow,
                                                      parts_.Navigation.SelectedRowsCount, last);
    return {lines.Start, lines.Start + lines.Count - 1};
}

SearchExtras& HostExtras::Search() const { return parts_.SearchExtras; }

void HostExtras::ForgetFolds() {
    const Frame frame(parts_.shared_from_this());
    frame->Ranges.ForgetAll();
    frame->Document.Table.HiddenDepth.Reset(frame->Document.LineSlots, 0);
    // Nobody asked for the caret: view and selection stay.
    if (!frame->View.Suspended()) ShowWhatIs(frame);
}

}  // namespace quorvale
