#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/byte_buffer.h"
#include "platform/byte_spans.h"

namespace quorvale {

/// Bytes that are put together without moving those that lie somewhere already: of a corrected file
/// nearly all stay where the document has them, and only what is new takes memory.
class ByteRope {
public:
    /// The source of memory must outlive the rope.
    explicit ByteRope(BlockMemory& memory) : own_(memory) {}

    std::size_t Size() const { return size_; }

    /// Takes a copy. Throws std::bad_alloc without memory.
    void Append(std::string_view bytes);
    /// Behind the last byte come `count` more, which the caller writes at once. Throws as `Append`.
    char* Extend(std::size_t count);
    /// Takes no copy: the bytes must stay where they are as long as the rope is in use.
    void Refer(std::string_view bytes);

    bool EndsWith(std::string_view bytes) const;
    /// At most `Size()`.
    void DropLast(std::size_t count);
    void Clear();

    /// Good until the rope changes.
    ByteSpans Spans() const;

    friend bool operator==(const ByteRope& rope, std::string_view bytes) {
        return rope.Spans().Gathered() == bytes;
    }

private:
    struct Piece {
        /// Null for the rope's own bytes, which may still move.
        const char* Data;
        /// Of the rope's own.
        std::size_t At;
        std::size_t Size;
    };

    ByteBuffer own_;
    std::vector<Piece> pieces_;
    std::size_t size_ = 0;
};

}  // namespace quorvale
