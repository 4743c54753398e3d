#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "base/errors.h"
#include "platform/text_metrics.h"

namespace quorvale {

/// Measures for tests of the lower folders: every unit has one width, in any font, and every row
/// one height.
class EvenMetrics final : public TextMetrics {
public:
    Twips UnitWidth = 120;
    Twips RowHeight = 240;
    /// Lets every measurement of a width fail with this kind of error.
    std::optional<ErrorKind> Fails;

    Twips Width(std::u16string_view text, const Font&) const override {
        if (Fails) throw ControlError(*Fails, "no measure");
        return UnitWidth * static_cast<double>(text.size());
    }

    Twips Height(const Font&) const override { return RowHeight; }

    std::size_t FirstWider(std::u16string_view text, const Font& font, Twips x,
                           Precision precision) const override {
        for (std::size_t units = 1; units <= text.size(); ++units) {
            if (Rounded(Width(text.substr(0, units), font), precision) > x) return units;
        }
        return 0;
    }
};

}  // namespace quorvale
