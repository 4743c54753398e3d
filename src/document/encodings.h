#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/western_code_page.h"
#include "platform/encoding.h"

namespace quorvale {

/// The bytes of a text, or the place of the first character that the encoding has no byte for.
struct EncodedText {
    std::string Bytes;
    /// 1-based; 0 when every character could be written. Otherwise `Bytes` ends before it.
    std::size_t BadPosition = 0;

    explicit operator bool() const { return BadPosition == 0; }
};

/// Writes a text as bytes. A text that was read in the same encoding comes back as the very bytes
/// it was read from. `Automatic` writes UTF-8.
EncodedText EncodeText(std::u16string_view units, Encoding encoding);

}  // namespace quorvale
