#pragma once

#include <cstddef>
#include <memory>

namespace quorvale {

/// A large stretch of raw memory, given back when it goes.
class MemoryBlock {
public:
    virtual ~MemoryBlock() = default;
    virtual std::byte* Data() = 0;
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
class BlockMemory {
public:
    virtual ~BlockMemory() = default;

    /// At least `size` bytes, not initialised. Null when there is not enough memory.
    virtual std::unique_ptr<MemoryBlock> Allocate(std::size_t size) = 0;
};

/// The allocator's memory.
class PlainMemory final : public BlockMemory {
public:
    std::unique_ptr<MemoryBlock> Allocate(std::size_t size) override;
};

/// Refuses every request after the first `grants`: for tests of what a full memory does.
class FailingMemory final : public BlockMemory {
public:
    explicit FailingMemory(int grants) : grants_(grants) {}
    std::unique_ptr<MemoryBlock> Allocate(std::size_t size) override;

private:
    int grants_;
    PlainMemory plain_;
};

}  // namespace quorvale
