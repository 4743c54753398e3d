#pragma once

#include <cstddef>
#include <memory>

#include "base/export.h"

namespace quorvale {

/// A large stretch of raw memory, given back when it goes.
class QUORVALE_CORE_EXPORT MemoryBlock {
public:
    virtual ~MemoryBlock() = default;
    /// Its first byte.
    virtual std::byte* Data() = 0;
    /// In bytes: as many as were asked for, or more.
    virtual std::size_t Size() const = 0;

    /// Gives everything from `keep` bytes on back to the system where it can; the first `keep`
    /// bytes stay in place. Never fails.
    virtual void Trim(std::size_t keep) = 0;

    /// Gives the pages that lie whole in the `size` bytes from `from` on back to the system where
    /// it can. What they held is lost; the place can be written again. Never fails.
    virtual void Discard(std::size_t from, std::size_t size) = 0;
};

/// Where documents get their memory from. A real one may ask the system for huge pages; the plain
/// one uses the allocator. Called by loading, once or a few times per document.
class QUORVALE_CORE_EXPORT BlockMemory {
public:
    virtual ~BlockMemory() = default;

    /// At least `size` bytes, not initialised. Null when there is not enough memory.
    virtual std::unique_ptr<MemoryBlock> Allocate(std::size_t size) = 0;
};

/// The allocator's memory.
class QUORVALE_CORE_EXPORT PlainMemory final : public BlockMemory {
public:
    std::unique_ptr<MemoryBlock> Allocate(std::size_t size) override;
};

/// Refuses every request after the first `grants`: for tests of what a full memory does.
class QUORVALE_CORE_EXPORT FailingMemory final : public BlockMemory {
public:
    /// The number of requests that are granted.
    explicit FailingMemory(int grants) : grants_(grants) {}
    std::unique_ptr<MemoryBlock> Allocate(std::size_t size) override;

private:
    int grants_;
    PlainMemory plain_;
};

}  // namespace quorvale
