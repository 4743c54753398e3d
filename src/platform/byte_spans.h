#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/export.h"
#include "platform/file_digest.h"

namespace quorvale {

/// Bytes that lie in several places and count as one behind another. They belong to somebody else,
/// who keeps them as long as they are looked at.
class QUORVALE_CORE_EXPORT ByteSpans {
public:
    ByteSpans() = default;
    /// One stretch of bytes, which is not copied.
    ByteSpans(std::string_view bytes) { Add(bytes); }
    /// The bytes of a string, which is not copied.
    ByteSpans(const std::string& bytes) : ByteSpans(std::string_view(bytes)) {}
    /// The bytes in front of the NUL, which are not copied.
    ByteSpans(const char* bytes) : ByteSpans(std::string_view(bytes)) {}

    /// Puts further bytes behind the others; they are not copied.
    void Add(std::string_view bytes) {
        if (bytes.empty()) return;
        spans_.push_back(bytes);
        size_ += bytes.size();
    }

    /// How many bytes all of them are.
    std::size_t Size() const { return size_; }
    /// None of them is empty.
    const std::vector<std::string_view>& Spans() const { return spans_; }

    /// Of the bytes as if they lay in one place.
    FileDigest Digest() const;
    /// A copy in one place.
    std::string Gathered() const;

private:
    std::vector<std::string_view> spans_;
    std::size_t size_ = 0;
};

}  // namespace quorvale
