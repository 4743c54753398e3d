#pragma once

#include "base/export.h"
#include "platform/memory.h"

namespace quorvale {

/// Memory straight from the system, on huge pages where it grants them: a fresh gigabyte then costs
/// 512 page faults instead of 262144. Asking can stall once while the system makes room for them on
/// fragmented memory, so the request can be turned off. Small requests go to the allocator.
class QUORVALE_CORE_EXPORT HugePageMemory final : public BlockMemory {
public:
    /// Whether the system is asked for huge pages.
    enum class Advice { AskForHugePages, PlainPages };

    /// It holds for every request.
    explicit HugePageMemory(Advice advice = Advice::AskForHugePages) : advice_(advice) {}

    std::unique_ptr<MemoryBlock> Allocate(std::size_t size) override;

private:
    Advice advice_;
    PlainMemory small_;
};

}  // namespace quorvale
