#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>

#include "base/export.h"

namespace quorvale {

/// Tells one content of a file from another: size in bytes and 128 bits of hash. Made for speed,
/// not against somebody who searches for two contents with one digest.
struct FileDigest {
    std::uint64_t Size = 0;  ///< in bytes
    std::uint64_t High = 0;  ///< half of the hash
    std::uint64_t Low = 0;   ///< the other half

    /// Equal for equal contents, and in practice for no others.
    friend bool operator==(const FileDigest&, const FileDigest&) = default;
};

/// Computes the digest of bytes that come in pieces of any size.
class QUORVALE_CORE_EXPORT DigestBuilder {
public:
    DigestBuilder();

    /// The bytes that follow those added before.
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

QUORVALE_CORE_EXPORT FileDigest DigestOf(std::string_view bytes);

/// A digest that may be long in the making: it is worked out when somebody asks for it, and once.
class QUORVALE_CORE_EXPORT LateDigest {
public:
    /// One that is known already.
    LateDigest(FileDigest known = {}) : known_(known) {}
    /// What the work looks at must outlive this.
    explicit LateDigest(std::function<FileDigest()> work) : work_(std::move(work)) {}

    /// Does the work at the first time. Throws what the work throws.
    operator const FileDigest&() const;

private:
    mutable std::function<FileDigest()> work_;
    mutable FileDigest known_;
};

}  // namespace quorvale
