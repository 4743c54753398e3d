#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quorvale {

/// Tells one content of a file from another: size in bytes and 128 bits of hash. Made for speed,
/// not against somebody who searches for two contents with one digest.
struct FileDigest {
    std::uint64_t Size = 0;
    std::uint64_t High = 0;
    std::uint64_t Low = 0;

    friend bool operator==(const FileDigest&, const FileDigest&) = default;
};

/// Computes the digest of bytes that come in pieces of any size.
class DigestBuilder {
public:
    DigestBuilder();

    void Add(std::string_view piece);

    /// Of everything added so far; more may follow.
    FileDigest Digest() const;

private:
    static constexpr std::size_t laneCount = 8;
    static constexpr std::size_t blockSize = laneCount * sizeof(std::uint64_t);
    using Lanes = std::array<std::uint64_t, laneCount>;

    static void Mix(Lanes& lanes, const char* block);

    Lanes lanes_;
    std::uint64_t size_ = 0;
    /// What was added since the last whole block.
    std::array<char, blockSize> rest_{};
    std::size_t restSize_ = 0;
};

FileDigest DigestOf(std::string_view bytes);

}  // namespace quorvale
