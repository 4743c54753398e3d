#pragma once

#include <cstddef>

namespace quorvale {

/// The largest file, in bytes, that can be shown: the control appends CR LF to it, and the place
/// behind that is a 31-bit number too.
inline constexpr std::size_t mostFileBytes = 2147483647 - 3;

}  // namespace quorvale
