#include "adapters/huge_pages.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace quorvale {

namespace {

constexpr std::size_t hugePage = std::size_t{2} << 20;

/// Below this the allocator does as well, and a document of a few lines takes no page of its own.
constexpr std::size_t leastMapped = std::size_t{128} << 10;

std::size_t PageSize() {
    static const auto size = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    return size;
}

std::size_t RoundedUp(std::size_t size, std::size_t unit) {
    return (size + unit - 1) / unit * unit;
}

/// Fresh pages from the system, from a multiple of `alignment` on; null when there are none.
std::byte* MapAligned(std::size_t size, std::size_t alignment) {
    const std::size_t spare = alignment - PageSize();
    void* const mapped =
        mmap(nullptr, size + spare, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED) return nullptr;
    auto* const begin = static_cast<std::byte*>(mapped);
    const std::size_t before = RoundedUp(reinterpret_cast<std::uintptr_t>(begin), alignment) -
                               reinterpret_cast<std::uintptr_t>(begin);
    if (before > 0) munmap(begin, before);
    if (spare > before) munmap(begin + before + size, spare - before);
    return begin + before;
}

class MappedBlock final : public MemoryBlock {
public:
    MappedBlock(std::byte* data, std::size_t size) : data_(data), size_(size), mapped_(size) {}
    MappedBlock(const MappedBlock&) = delete;
    MappedBlock& operator=(const MappedBlock&) = delete;
    ~MappedBlock() override {
        if (mapped_ > 0) munmap(data_, mapped_);
    }

    std::byte* Data() override { return data_; }
    std::size_t Size() const override { return size_; }

    void Trim(std::size_t keep) override {
        const std::size_t kept = RoundedUp(std::min(keep, mapped_), PageSize());
        if (kept >= mapped_) return;
        munmap(data_ + kept, mapped_ - kept);
        mapped_ = kept;
        size_ = std::min(size_, kept);
    }

    void Discard(std::size_t from, std::size_t size) override {
        const std::size_t first = RoundedUp(from, PageSize());
        const std::size_t end = std::min(from + size, mapped_) / PageSize() * PageSize();
        if (first < end) madvise(data_ + first, end - first, MADV_DONTNEED);
    }

private:
    std::byte* data_;
    std::size_t size_;
    std::size_t mapped_;
};

}  // namespace

std::unique_ptr<MemoryBlock> HugePageMemory::Allocate(std::size_t size) {
    if (size < leastMapped) return small_.Allocate(size);
    if (size > std::numeric_limits<std::size_t>::max() / 2) return nullptr;
    const std::size_t mapped = RoundedUp(size, PageSize());
    const bool huge = advice_ == Advice::AskForHugePages && mapped >= hugePage;
    std::byte* const data = MapAligned(mapped, huge ? hugePage : PageSize());
    if (data == nullptr) return nullptr;
    // A wish that the system may refuse; the memory is good either way.
    if (huge) madvise(data, mapped, MADV_HUGEPAGE);
    return std::make_unique<MappedBlock>(data, mapped);
}

}  // namespace quorvale
