#include "corrections/loaded_digest.h"

#include <algorithm>

#include "document/text_writing.h"
#include "platform/byte_rope.h"
#include "platform/memory.h"

namespace quorvale {

FileDigest LoadedDigest(const DocumentState& document) {
    // What is looked at twice is still in the processor's cache then.
    constexpr std::int32_t piece = 1 << 16;
    // The CR LF at the end is the control's own.
    const std::int32_t length = std::max(document.Text.Length() - 2, 0);
    DigestBuilder digest;
    PlainMemory memory;
    ByteRope bytes(memory);
    TextWriter writer(document.ReadAs, bytes);
    for (std::int32_t done = 0; done < length;) {
        const std::int32_t size = std::min(piece, length - done);
        bytes.Clear();
        writer.PutFrom(document.Text, done + 1, size);
        const ByteSpans spans = bytes.Spans();
        for (const std::string_view span : spans.Spans()) digest.Add(span);
        done += size;
    }
    writer.Finish();
    return digest.Digest();
}

}  // namespace quorvale
