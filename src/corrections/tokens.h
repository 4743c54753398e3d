#pragma once

#include <string>

namespace quorvale {

/// Takes what stands before the first separator off the text, and drops the separator; takes the
/// whole text where there is none.
std::u16string TakeFirstToken(std::u16string& text, char16_t separator = u';');

/// Takes what stands behind the last separator off the text, and drops the separator; takes the
/// whole text where there is none.
std::u16string TakeLastToken(std::u16string& text, char16_t separator = u';');

}  // namespace quorvale
