#include "corrections/loaded_digest.h"

#include <algorithm>
#include <string>

#include "document/text_writing.h"

namespace quorvale {

FileDigest LoadedDigest(const DocumentState& document) {
    constexpr std::int32_t piece = 1 << 18;
    // The CR LF at the end is the control's own.
    const std::int32_t length = std::max(document.Text.Length() - 2, 0);
    DigestBuilder digest;
    std::string bytes;
    TextWriter writer(document.ReadAs, bytes);
    for (std::int32_t done = 0; done < length;) {
        const std::int32_t size = std::min(piece, length - done);
        bytes.clear();
        writer.PutFrom(document.Text, done + 1, size);
        digest.Add(bytes);
        done += size;
    }
    writer.Finish();
    return digest.Digest();
}

}  // namespace quorvale
