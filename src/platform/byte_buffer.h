#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include "platform/memory.h"

namespace quorvale {

/// Bytes behind one another, in the kind of memory that documents lie in: what is going to be a
/// whole file is too large for ordinary pages to be quick. It grows as it needs; who knows how much
/// is to come reserves it, and nothing is copied.
class ByteBuffer {
public:
    /// The source of memory must outlive the buffer.
    explicit ByteBuffer(BlockMemory& memory) : memory_(&memory) {}

    std::size_t Size() const { return size_; }
    std::string_view View() const { return {data_, size_}; }

    /// Makes room for so many bytes in all. Throws std::bad_alloc when there is none; everything is
    /// as it was then.
    void Reserve(std::size_t size);

    /// Behind the last byte come `count` more, which the caller writes. Throws as `Reserve`.
    char* Extend(std::size_t count);
    void Append(std::string_view bytes);

    void DropLast(std::size_t count) { size_ -= count; }
    /// The memory stays.
    void Clear() { size_ = 0; }

    friend bool operator==(const ByteBuffer& buffer, std::string_view bytes) {
        return buffer.View() == bytes;
    }

private:
    std::size_t Capacity() const { return block_ == nullptr ? 0 : block_->Size(); }

    BlockMemory* memory_;
    std::unique_ptr<MemoryBlock> block_;
    char* data_ = nullptr;
    std::size_t size_ = 0;
};

}  // namespace quorvale
