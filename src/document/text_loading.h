#pragma once

#include <string_view>

#include "base/line_starts.h"
#include "base/text_store.h"
#include "document/line_scan.h"
#include "platform/encoding.h"
#include "platform/files.h"
#include "platform/memory.h"

namespace quorvale {

/// A document's text with CR LF behind it, and where its lines start: element 1 is 1, element k
/// stands behind the (k-1)th line feed, the last one behind the text.
struct LoadedText {
    TextStore Text;
    LineStarts Starts;
    /// How the bytes became characters; never `Automatic`.
    Encoding Used = Encoding::SingleByte;
};

/// Reads the stream to the size that it had when it was opened, in one pass: what a growing file
/// gets later is not read, of a shrinking one what is left is taken. `kernel` is for tests and
/// measurements.
/// Overflow for more than 2^31 - 3 bytes; OutOfMemory; File when reading fails.
LoadedText ReadText(ReadStream& stream, Encoding encoding, BlockMemory& memory,
                    LineKernel kernel = BestLineKernel());

/// The same for a text that is at hand. Its encoding is Utf8, which can write any text.
/// Overflow for more than 2^31 - 3 units; OutOfMemory.
LoadedText TextFromString(std::u16string_view value);

/// Raises the control's File error: operation, name and reason.
[[noreturn]] void RaiseFileFailure(const FileFailure& failure);

}  // namespace quorvale
