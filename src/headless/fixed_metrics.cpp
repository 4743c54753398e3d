#include "headless/fixed_metrics.h"

namespace quorvale {

Twips FixedMetrics::Width(std::u16string_view text, const Font&) const {
    if (Fails) throw ControlError(*Fails, "The text cannot be measured");
    return static_cast<Twips>(text.size()) * UnitWidth;
}

Twips FixedMetrics::Height(const Font&) const { return RowHeight; }

std::size_t FixedMetrics::FirstWider(std::u16string_view text, const Font& font, Twips x,
                                     Precision precision) const {
    for (std::size_t units = 1; units <= text.size(); ++units) {
        if (Rounded(Width(text.substr(0, units), font), precision) > x) return units;
    }
    return 0;
}

}  // namespace quorvale
