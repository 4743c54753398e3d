#include "control/host_extras.h"

#include <algorithm>

#include "control/control_parts.h"
#include "control/frame.h"

namespace quorvale {

Encoding HostExtras::FileEncoding() const { return parts_.Document.ReadAs; }

std::u16string HostExtras::RawLineText(std::int32_t i) const {
    return parts_.Lines.RawLineText(Line{i});
}

std::u16string HostExtras::RawText(std::int32_t first, std::int32_t last) const {
    const DocumentState& document = parts_.Document;
    const Line from{std::max(first, 1)};
    const Line to = std::min(Line{last}, document.LastLine());
    if (from > to) return {};
    const LineStarts& starts = document.Table.Starts;
    const std::int32_t start = starts[from.Number()];
    std::u16string text = document.Text.Mid(start, starts[to.Number() + 1] - 1 - start);
    if (!text.empty() && text.back() == u'\r') text.pop_back();
    return text;
}

HostExtras::LineRange HostExtras::SelectedLines() const {
    const std::int64_t last = parts_.Document.LastLine().Number();
    if (last < 1) return {};
    const std::int64_t caret = parts_.Navigation.CaretRow.Number();
    const std::int64_t count = parts_.Navigation.SelectedRowsCount;
    std::int64_t first = caret;
    std::int64_t end = caret;
    if (count > 0) end = caret + count - 1;
    if (count < 0) first = caret + count + 1;
    // A host may have set any count.
    first = std::clamp<std::int64_t>(first, 1, last);
    end = std::clamp<std::int64_t>(end, 1, last);
    return {static_cast<std::int32_t>(first), static_cast<std::int32_t>(end)};
}

void HostExtras::ForgetFolds() {
    const Frame frame(parts_.shared_from_this());
    frame->Ranges.ForgetAll();
    if (frame->Document.LineSlots > 0) frame->Folding.ExpandAll();
}

}  // namespace quorvale
