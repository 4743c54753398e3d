#pragma once

#include <cstdint>
#include <string>

namespace quorvale {

/// A font as the host describes it. Value semantics; two fonts are equal when all parts are.
struct Font {
    std::u16string Name;       ///< of the family
    double Size = 9;           ///< in points
    std::int16_t Charset = 0;  ///< carried for the host, not interpreted
    bool Bold = false;         ///< carried for the host: the control has its own use of bold
    bool Italic = false;       ///< carried for the host

    /// Equal in all parts.
    bool operator==(const Font&) const = default;
};

}  // namespace quorvale
