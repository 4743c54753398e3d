#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace quorvale {

/// UTF-8 bytes on their way to UTF-16 units. A byte that is not part of a valid character becomes
/// the lone surrogate U+DC00 + byte, so that it can be written back as it was.
class Utf8Decoder {
public:
    explicit Utf8Decoder(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

    bool AtEnd() const { return rest_.empty() && pendingLow_ == 0; }

    /// The bytes that are not decoded yet.
    std::span<const std::uint8_t> Rest() const { return rest_; }

    /// Writes units of one byte each until `room` are written, the bytes end, or the next unit does
    /// not fit into a byte; returns how many. `out` may be where the bytes come from, or before.
    std::size_t DecodeNarrow(std::uint8_t* out, std::size_t room);

    /// Writes units until `room` are written or the bytes end; returns how many.
    std::size_t DecodeWide(char16_t* out, std::size_t room);

private:
    std::span<const std::uint8_t> rest_;
    /// The second half of a pair whose first half was the last to find room; 0 for none.
    char16_t pendingLow_ = 0;
};

}  // namespace quorvale
