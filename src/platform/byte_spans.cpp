#include "platform/byte_spans.h"

namespace quorvale {

FileDigest ByteSpans::Digest() const {
    DigestBuilder builder;
    for (const std::string_view span : spans_) builder.Add(span);
    return builder.Digest();
}

std::string ByteSpans::Gathered() const {
    std::string bytes;
    bytes.reserve(size_);
    for (const std::string_view span : spans_) bytes += span;
    return bytes;
}

}  // namespace quorvale
