#pragma once

#include <string>
#include <string_view>

namespace quorvale {

/// The pattern with every "%1" replaced by the value, in one pass: nothing in the value is looked
/// at, so a file name with "%1" in it comes out as it is. A pattern without "%1" drops the value.
std::u16string FormatMessage(std::u16string_view pattern, std::u16string_view value);

}  // namespace quorvale
