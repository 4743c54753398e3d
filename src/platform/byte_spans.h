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
    ByteSpans(std::string_view bytes) { Add(bytes); }
    ByteSpans(const std::string& bytes) : ByteSpans(std::string_view(bytes)) {}
    ByteSpans(const char* bytes) : ByteSpans(std::string_view(bytes)) {}

    void Add(std::string_view bytes) {
        if (bytes.empty()) return;
        spans_.push_back(bytes);
        size_ += bytes.size();
    }

    std::size_t Size() const { return size_; }
    /// None of them is empty.
    const std::vector<std::string_view>& Spans() const { return spans_; }

    FileDigest Digest() const;
    /// A copy in one place.
    std::string Gathered() const;

private:
    std::vector<std::string_view> spans_;
    std::size_t size_ = 0;
};

}  // namespace quorvale
