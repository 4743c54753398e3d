#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "base/text_store.h"
#include "platform/byte_rope.h"
#include "platform/encoding.h"

namespace quorvale {

/// Writes a text as bytes, piece by piece: the counterpart of reading a file. A character may be
/// split between two pieces. Fails with InvalidValue for a character that the encoding has no
/// bytes for, and with Overflow before more than `mostFileBytes` stand in the rope.
class TextWriter {
public:
    /// The rope must outlive the writer; it may be emptied between two pieces. `encoding` is not
    /// `Automatic`.
    TextWriter(Encoding encoding, ByteRope& out) : encoding_(encoding), out_(out) {}

    void Put(std::u16string_view units);
    /// Units up to U+00FF, one in each byte. Where these are the very bytes the rope may refer to
    /// them: they must stay as long as it is in use.
    void Put(std::span<const std::uint8_t> units);
    void Put(std::span<const char16_t> units) {
        Put(std::u16string_view(units.data(), units.size()));
    }

    /// The units of a text that `start` and `count` name.
    void PutFrom(const TextStore& text, std::int32_t start, std::int32_t count);

    /// After the last piece: fails when that ended in the middle of a character.
    void Finish();

private:
    void RequireRoom(std::size_t bytes) const;
    void PutSame(std::string_view bytes);
    void PutBeyondAscii(std::span<const std::uint8_t> units);
    void PutAscii(std::u16string_view units);
    void PutEncoded(std::u16string_view units);
    std::u16string_view WithoutHalf(std::u16string_view units);

    Encoding encoding_;
    ByteRope& out_;
    /// The first half of a character whose second half is still to come; 0 for none.
    char16_t half_ = 0;
};

}  // namespace quorvale
