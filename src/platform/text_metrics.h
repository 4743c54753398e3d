#pragma once

#include <cstdint>
#include <string_view>

#include "base/export.h"
#include "base/units.h"
#include "platform/font.h"

namespace quorvale {

/// How exact widths are kept: single precision as positions are stored, or exact along very long
/// lines.
enum class Precision { Single, Exact };

constexpr double Rounded(double value, Precision precision) {
    return precision == Precision::Single ? Single(value) : value;
}

/// Measures text for the control. What is measured here is what a surface must paint: text as one
/// line, never bold, unit after unit, no kerning, no interpretation of tabs or breaks.
class QUORVALE_CORE_EXPORT TextMetrics {
public:
    virtual ~TextMetrics() = default;

    /// Width of the text in twips; 0 for the empty text. May fail with any ControlError.
    virtual Twips Width(std::u16string_view text, const Font& font) const = 0;

    /// Height in twips of the two characters "My": the height of a row.
    virtual Twips Height(const Font& font) const = 0;

    /// The smallest count of leading units (from 1) whose width, rounded as `precision` says, is
    /// greater than `x`; 0 when even the whole text is not wider. Linear in the text.
    virtual std::size_t FirstWider(std::u16string_view text, const Font& font, Twips x,
                                   Precision precision) const = 0;
};

}  // namespace quorvale
