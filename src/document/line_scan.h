#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace quorvale {

/// The ways of looking for line feeds. All find the same ones; `Naive` is there to prove it.
enum class LineKernel { Avx2, Portable, Naive };

/// The fastest kernel that this processor has.
LineKernel BestLineKernel();

/// What one scan came to.
struct LineScan {
    std::size_t Scanned = 0;  ///< units looked at: fewer than given only when the room was used up
    std::size_t Found = 0;    ///< line starts written
    bool Ascii = true;        ///< no unit above U+007F among those looked at
};

/// Writes the place behind every line feed of `text` into `starts`, in order; `behindFirst` is the
/// place behind the first unit. Stops when `starts` is full: the scan goes on at
/// `text.subspan(Scanned)`. Nothing outside `text` is read.
LineScan ScanLines(std::span<const std::uint8_t> text, std::int32_t behindFirst,
                   std::span<std::int32_t> starts, LineKernel kernel);

LineScan ScanLines(std::span<const char16_t> text, std::int32_t behindFirst,
                   std::span<std::int32_t> starts, LineKernel kernel);

}  // namespace quorvale
