#pragma once

namespace quorvale {

/// How the bytes of a file become characters. Every encoding gives back the very bytes it read.
enum class Encoding {
    SingleByte,   ///< byte b is U+00b, all 256 values
    Windows1252,  ///< the Western code page; its five unassigned bytes are read one to one
    Utf8,         ///< a byte that is not valid becomes the lone surrogate U+DC00 + byte
    Automatic,    ///< per file: a wholly valid UTF-8 file is read as Utf8, any other as SingleByte
};

}  // namespace quorvale
