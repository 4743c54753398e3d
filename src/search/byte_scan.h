#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "search/byte_needle.h"

namespace quorvale {

/// The ways of looking through bytes. All find the same; `Naive` is there to prove it.
enum class SearchKernel { Avx2, Portable, Naive };

/// The fastest kernel that this processor has.
SearchKernel BestSearchKernel();

/// What one scan came to.
struct PlaceScan {
    /// The first place from which the needle fits; the number of places if there is none.
    std::size_t Place = 0;
    /// Too much that nearly fits: nothing fits in front of `Place`, and from there on somebody has
    /// to look who does not try each place anew.
    bool GaveUp = false;
};

/// Looks for the needle at the first `places` places; `bytes` has as many and the needle's size
/// less one behind them, and nothing else is read.
PlaceScan ScanForNeedle(const std::uint8_t* bytes, std::size_t places, const ByteNeedle& needle,
                        SearchKernel kernel);

std::size_t CountLineFeeds(std::span<const std::uint8_t> bytes, SearchKernel kernel);

/// The index behind the last line feed; 0 if there is none.
std::size_t BehindLastLineFeed(std::span<const std::uint8_t> bytes);

/// The index of the first such byte at or after `from`; the number of bytes if there is none.
std::size_t FindByte(std::span<const std::uint8_t> bytes, std::uint8_t byte, std::size_t from = 0);

/// Whether there is no byte of 0x80 or more.
bool IsAscii(std::span<const std::uint8_t> bytes);

}  // namespace quorvale
