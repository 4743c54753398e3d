#include "platform/byte_rope.h"

#include <algorithm>
#include <cstring>

namespace quorvale {

void ByteRope::Append(std::string_view bytes) {
    if (!bytes.empty()) std::memcpy(Extend(bytes.size()), bytes.data(), bytes.size());
}

char* ByteRope::Extend(std::size_t count) {
    const bool goesOn = !pieces_.empty() && pieces_.back().Data == nullptr;
    if (!goesOn) pieces_.push_back({nullptr, own_.Size(), 0});
    char* const place = own_.Extend(count);
    pieces_.back().Size += count;
    size_ += count;
    return place;
}

void ByteRope::Refer(std::string_view bytes) {
    pieces_.push_back({bytes.data(), 0, bytes.size()});
    size_ += bytes.size();
}

bool ByteRope::EndsWith(std::string_view bytes) const {
    const ByteSpans spans = Spans();
    for (auto span = spans.Spans().rbegin(); span != spans.Spans().rend(); ++span) {
        const std::size_t count = std::min(bytes.size(), span->size());
        if (!span->ends_with(bytes.substr(bytes.size() - count))) return false;
        bytes.remove_suffix(count);
        if (bytes.empty()) return true;
    }
    return bytes.empty();
}

void ByteRope::DropLast(std::size_t count) {
    size_ -= count;
    while (count > 0) {
        Piece& last = pieces_.back();
        const std::size_t dropped = std::min(count, last.Size);
        if (last.Data == nullptr) own_.DropLast(dropped);
        last.Size -= dropped;
        count -= dropped;
        if (last.Size == 0) pieces_.pop_back();
    }
}

void ByteRope::Clear() {
    own_.Clear();
    pieces_.clear();
    size_ = 0;
}

ByteSpans ByteRope::Spans() const {
    ByteSpans spans;
    for (const Piece& piece : pieces_) {
        spans.Add(piece.Data != nullptr ? std::string_view(piece.Data, piece.Size)
                                        : own_.View().substr(piece.At, piece.Size));
    }
    return spans;
}

}  // namespace quorvale
