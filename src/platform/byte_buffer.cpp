#include "platform/byte_buffer.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

namespace quorvale {

void ByteBuffer::Reserve(std::size_t size) {
    if (size <= Capacity()) return;
    std::unique_ptr<MemoryBlock> larger = memory_->Allocate(size);
    if (larger == nullptr) throw std::bad_alloc();
    auto* const data = reinterpret_cast<char*>(larger->Data());
    if (size_ > 0) std::memcpy(data, data_, size_);
    block_ = std::move(larger);
    data_ = data;
}

char* ByteBuffer::Extend(std::size_t count) {
    if (count > Capacity() - size_) {
        constexpr std::size_t most = std::numeric_limits<std::size_t>::max() / 2;
        if (count > most - size_) throw std::bad_alloc();
        constexpr std::size_t least = 256;
        Reserve(std::max({size_ + count, Capacity() * 2, least}));
    }
    char* const place = data_ + size_;
    size_ += count;
    return place;
}

void ByteBuffer::Append(std::string_view bytes) {
    if (!bytes.empty()) std::memcpy(Extend(bytes.size()), bytes.data(), bytes.size());
}

}  // namespace quorvale
