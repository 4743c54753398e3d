#include "navigation/scroll_tip.h"

#include "base/integers.h"
#include "base/numbers_in_text.h"
#include "resources/message_format.h"
#include "resources/text_ids.h"

namespace quorvale {

namespace {

/// The tip keeps this far from the bar, and the thumb this far from the bar's ends.
constexpr Twips gapToBar = 30;
constexpr Twips barEnd = 240;

}  // namespace

void ScrollTip::ThumbMoved() {
    Label& tip = surface_.lblScrollTip;
    if (!tip.Visible()) ShowAtThumb();
    const std::int32_t line =
        CheckedMultiply<std::int32_t>(document_.ScrollScale, surface_.scrVert.Value());
    tip.SetCaption(FormatMessage(LoadText(text_id::ScrollTip, language_), DecimalText(line)));
    tip.SetLeft(surface_.scrVert.Left() - tip.Width() - gapToBar);
}

void ScrollTip::ShowAtThumb() {
    Label& tip = surface_.lblScrollTip;
    const ScrollBar& bar = surface_.scrVert;
    const double range = static_cast<double>(bar.Max()) + bar.LargeChange();
    const double share = range == 0 ? 0 : bar.Value() / range;
    tip.SetTop(Single(share * (bar.Height() - 2 * barEnd) + barEnd + surface_.cmdMore.Height()));
    tip.SetVisible(true);
}

}  // namespace quorvale
