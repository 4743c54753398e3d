#pragma once

#include "corrections/edit_script.h"
#include "platform/byte_rope.h"
#include "platform/encoding.h"
#include "platform/memory.h"
#include "state/document_state.h"

namespace quorvale {

/// InvalidValue when a correction holds a character that the encoding has no bytes for; says which
/// character, and the line.
void RequireWritable(const EditScript& script, Encoding encoding);

/// The whole corrected file as bytes, where nothing but the corrected lines is changed. A line that
/// replaces another one takes its line end; further ones and inserted ones take that of the last
/// line replaced or else the document's first one, which is LF for a document of one line. Behind
/// the last line stands no line end: a file that ends with one is a file whose last line is empty.
/// Fails as `RequireWritable` and as `TextWriter`, and with std::bad_alloc. The bytes may be those
/// of the document itself, and are good as long as it stays.
ByteRope BytesKeepingFormat(const DocumentState& document, const EditScript& script,
                            BlockMemory& memory);

}  // namespace quorvale
