#pragma once

#include <cstdint>
#include <string>

namespace quorvale {

/// A font as the host describes it. Value semantics; two fonts are equal when all parts are.
struct Font {
    std::u16string Name;
    double Size = 9;           ///< in points
    std::int16_t Charset = 0;  ///< carried for the host, not interpreted
    bool Bold = false;
    bool Italic = false;

    bool operator==(const Font&) const = default;
};

}  // namespace quorvale
