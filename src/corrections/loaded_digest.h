#pragma once

#include "platform/file_digest.h"
#include "state/document_state.h"

namespace quorvale {

/// The digest of the bytes that the shown file had when it was loaded. They are worked out of the
/// text: every encoding gives back the very bytes it has read.
FileDigest LoadedDigest(const DocumentState& document);

}  // namespace quorvale
