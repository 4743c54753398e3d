#include "adapters/huge_pages.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

namespace quorvale {
namespace {

constexpr std::size_t mebibyte = std::size_t{1} << 20;

/// How many of the pages from `data` on hold anything. The place may not be mapped: then none.
std::size_t ResidentPages(const std::byte* data, std::size_t size) {
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    std::vector<unsigned char> pages((size + page - 1) / page);
    if (mincore(const_cast<std::byte*>(data), size, pages.data()) != 0) return 0;
    std::size_t resident = 0;
    for (const unsigned char state : pages) resident += state & 1U;
    return resident;
}

class HugePages : public testing::TestWithParam<HugePageMemory::Advice> {
protected:
    HugePageMemory memory_{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(WithAndWithoutAdvice, HugePages,
                         testing::Values(HugePageMemory::Advice::AskForHugePages,
                                         HugePageMemory::Advice::PlainPages));

TEST_P(HugePages, ABlockOfAnySizeCanBeWritten) {
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{4096}, mebibyte / 8,
                                   mebibyte + 1, 2 * mebibyte, 5 * mebibyte + 3}) {
        const auto block = memory_.Allocate(size);
        ASSERT_NE(block, nullptr);
        ASSERT_GE(block->Size(), size);
        if (size == 0) continue;
        std::memset(block->Data(), 7, size);
        EXPECT_EQ(block->Data()[size - 1], std::byte{7});
    }
}

TEST_P(HugePages, TrimGivesTheEndBackAndKeepsTheRest) {
    const auto block = memory_.Allocate(8 * mebibyte);
    ASSERT_NE(block, nullptr);
    const std::byte* const data = block->Data();
    std::memset(block->Data(), 7, 8 * mebibyte);
    ASSERT_GT(ResidentPages(data + 5 * mebibyte, 3 * mebibyte), 0U);
    block->Trim(4 * mebibyte + 100);
    EXPECT_EQ(block->Data(), data);
    EXPECT_LT(block->Size(), 5 * mebibyte);
    EXPECT_GE(block->Size(), 4 * mebibyte + 100);
    EXPECT_EQ(ResidentPages(data + 5 * mebibyte, 3 * mebibyte), 0U);
    EXPECT_EQ(block->Data()[4 * mebibyte + 99], std::byte{7});
}

TEST_P(HugePages, TrimmingToMoreOrToNothingIsFine) {
    const auto block = memory_.Allocate(4 * mebibyte);
    std::memset(block->Data(), 7, 4 * mebibyte);
    block->Trim(100 * mebibyte);
    EXPECT_GE(block->Size(), 4 * mebibyte);
    EXPECT_EQ(block->Data()[4 * mebibyte - 1], std::byte{7});
    block->Trim(0);
    EXPECT_EQ(block->Size(), 0U);
    block->Trim(5);
}

TEST_P(HugePages, DiscardTakesThePagesInTheMiddleAndNothingElse) {
    const auto block = memory_.Allocate(8 * mebibyte);
    std::byte* const data = block->Data();
    std::memset(data, 7, 8 * mebibyte);
    block->Discard(2 * mebibyte + 1, 4 * mebibyte);
    EXPECT_EQ(ResidentPages(data + 3 * mebibyte, 2 * mebibyte), 0U);
    EXPECT_EQ(data[2 * mebibyte], std::byte{7});
    EXPECT_EQ(data[6 * mebibyte + 1], std::byte{7});
    std::memset(data + 3 * mebibyte, 9, mebibyte);
    EXPECT_EQ(data[4 * mebibyte - 1], std::byte{9});
}

TEST_P(HugePages, DiscardingLessThanAPageOrBeyondTheEndIsFine) {
    const auto block = memory_.Allocate(mebibyte);
    std::memset(block->Data(), 7, mebibyte);
    block->Discard(10, 100);
    block->Discard(mebibyte - 10, 100 * mebibyte);
    block->Discard(0, 0);
    EXPECT_EQ(block->Data()[10], std::byte{7});
    EXPECT_EQ(block->Data()[mebibyte - 1], std::byte{7});
}

TEST_P(HugePages, MoreThanThereIsIsRefused) {
    EXPECT_EQ(memory_.Allocate(std::numeric_limits<std::size_t>::max()), nullptr);
    EXPECT_EQ(memory_.Allocate(std::numeric_limits<std::size_t>::max() / 4), nullptr);
}

TEST_P(HugePages, ABlockGivesItsMemoryBackWhenItGoes) {
    auto block = memory_.Allocate(8 * mebibyte);
    const std::byte* const data = block->Data();
    std::memset(block->Data(), 7, 8 * mebibyte);
    block.reset();
    EXPECT_EQ(ResidentPages(data, 8 * mebibyte), 0U);
}

TEST(HugePageMemory, ALargeBlockBeginsWhereAHugePageDoes) {
    HugePageMemory memory;
    for (int round = 0; round < 3; ++round) {
        const auto block = memory.Allocate(4 * mebibyte);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block->Data()) % (2 * mebibyte), 0U);
    }
}

}  // namespace
}  // namespace quorvale
