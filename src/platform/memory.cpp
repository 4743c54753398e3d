#include "platform/memory.h"

#include <cstdlib>

namespace quorvale {

namespace {

struct FreeBytes {
    void operator()(std::byte* bytes) const { std::free(bytes); }
};

class PlainBlock final : public MemoryBlock {
public:
    PlainBlock(std::byte* data, std::size_t size) : data_(data), size_(size) {}

    std::byte* Data() override { return data_.get(); }
    std::size_t Size() const override { return size_; }

    // The allocator offers no shrinking that promises to stay in place.
    void Trim(std::size_t) override {}
    void Discard(std::size_t, std::size_t) override {}

private:
    std::unique_ptr<std::byte, FreeBytes> data_;
    std::size_t size_;
};

}  // namespace

std::unique_ptr<MemoryBlock> PlainMemory::Allocate(std::size_t size) {
    auto* data = static_cast<std::byte*>(std::malloc(size == 0 ? 1 : size));
    if (data == nullptr) return nullptr;
    return std::make_unique<PlainBlock>(data, size);
}

std::unique_ptr<MemoryBlock> FailingMemory::Allocate(std::size_t size) {
    if (grants_ <= 0) return nullptr;
    --grants_;
    return plain_.Allocate(size);
}

}  // namespace quorvale
