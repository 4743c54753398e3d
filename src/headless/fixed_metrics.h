#pragma once

#include <optional>

#include "base/errors.h"
#include "headless/export.h"
#include "platform/text_metrics.h"

namespace quorvale {

/// Text measures that do not depend on fonts: every UTF-16 unit has the same width.
class QUORVALE_HEADLESS_EXPORT FixedMetrics final : public TextMetrics {
public:
    Twips UnitWidth = 120;  ///< of every UTF-16 unit, whatever the font
    Twips RowHeight = 240;  ///< whatever the font
    /// Lets every measurement fail with this kind of error.
    std::optional<ErrorKind> Fails;

    Twips Width(std::u16string_view text, const Font& font) const override;
    Twips Height(const Font& font) const override;
    std::size_t FirstWider(std::u16string_view text, const Font& font, Twips x,
                           Precision precision) const override;
};

}  // namespace quorvale
