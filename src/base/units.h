#pragma once

#include <cstdint>

namespace quorvale {

/// A position or size on the surface, in twips (1/1440 inch; 15 twips are a pixel at 96 dpi).
/// Kept in double so that places far along a very long line stay exact; see `Single`.
using Twips = double;

/// The nearest single-precision value: what positions and widths are rounded to when stored.
constexpr double Single(double value) { return static_cast<double>(static_cast<float>(value)); }

/// A colour: red in the low byte, then green, then blue. A top byte of 0x80 marks a system colour
/// index, which only a surface resolves, when it draws.
using Colour = std::uint32_t;

namespace system_colour {
inline constexpr Colour Highlight = 0x8000000D;
inline constexpr Colour HighlightText = 0x8000000E;
inline constexpr Colour ButtonFace = 0x8000000F;
inline constexpr Colour ButtonText = 0x80000012;
}  // namespace system_colour

}  // namespace quorvale
