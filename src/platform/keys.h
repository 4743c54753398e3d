#pragma once

#include <cstdint>

namespace quorvale {

/// Which keys are held: a sum of these.
namespace shift_mask {
/// @{
/// The key of that name is held.
inline constexpr std::int16_t Shift = 1;
inline constexpr std::int16_t Ctrl = 2;
inline constexpr std::int16_t Alt = 4;
/// @}
}  // namespace shift_mask

/// A mouse button of a press or release; the sum of those held in a move.
namespace mouse_button {
/// @{
/// The button of that name.
inline constexpr std::int16_t Left = 1;
inline constexpr std::int16_t Right = 2;
inline constexpr std::int16_t Middle = 4;
/// @}
}  // namespace mouse_button

/// Virtual key numbers; letters carry the code of their capital.
namespace key_code {
/// @{
/// Of the key of that name.
inline constexpr std::int16_t Backspace = 8;
inline constexpr std::int16_t Return = 13;
inline constexpr std::int16_t Escape = 27;
inline constexpr std::int16_t PageUp = 33;
inline constexpr std::int16_t PageDown = 34;
inline constexpr std::int16_t End = 35;
inline constexpr std::int16_t Home = 36;
inline constexpr std::int16_t Left = 37;
inline constexpr std::int16_t Up = 38;
inline constexpr std::int16_t Right = 39;
inline constexpr std::int16_t Down = 40;
inline constexpr std::int16_t A = 65;
inline constexpr std::int16_t F2 = 113;
inline constexpr std::int16_t F3 = 114;
/// @}
}  // namespace key_code

/// A mouse event over an element: the button or buttons, the held keys, and the place in twips,
/// relative to the element.
struct MouseEvent {
    std::int16_t Button = 0;  ///< of mouse_button
    std::int16_t Shift = 0;   ///< of shift_mask
    double X = 0;             ///< from the element's left edge
    double Y = 0;             ///< from its top
};

}  // namespace quorvale
