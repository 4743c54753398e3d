#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "platform/encoding.h"

namespace quorvale {

/// How bytes are the characters of a line.
enum class LineForm : std::uint8_t {
    SingleByte,   ///< byte b is U+00b
    Windows1252,  ///< the Western code page
    Utf8,
    Units,  ///< two bytes a unit, as they lie in memory
};

/// Of an encoding that is not `Automatic`.
LineForm FormOf(Encoding encoding);

/// The characters of a line's bytes, with its tabs expanded.
std::u16string TextOfLine(std::span<const std::uint8_t> bytes, LineForm form);

/// The first `most` of them, at a cost that does not depend on the rest.
std::u16string StartOfLine(std::span<const std::uint8_t> bytes, LineForm form, std::size_t most);

/// Whether every byte is the unit of the same number in the line's text, so that the text need not
/// be made: no tabs, and no byte that means something else.
bool IsPlainLine(std::span<const std::uint8_t> bytes, LineForm form);

}  // namespace quorvale
