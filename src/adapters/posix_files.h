#pragma once

#include "platform/files.h"

namespace quorvale {

/// The files of a POSIX system. Names are UTF-8 there; a lone surrogate U+DC80 to U+DCFF in a name
/// stands for the byte 0x80 to 0xFF, so that every file can be named. A name with a NUL is refused.
class PosixFiles final : public FileSystem {
public:
    FileResult<std::unique_ptr<ReadStream>> OpenForReading(std::u16string_view name) override;
};

}  // namespace quorvale
