#include "platform/memory.h"

#include <gtest/gtest.h>

#include <cstring>

namespace quorvale {
namespace {

TEST(PlainMemory, ABlockHoldsWhatIsWritten) {
    PlainMemory memory;
    const auto block = memory.Allocate(1000);
    ASSERT_NE(block, nullptr);
    ASSERT_GE(block->Size(), 1000U);
    std::memset(block->Data(), 7, 1000);
    block->Trim(10);
    block->Discard(500, 100);
    EXPECT_EQ(block->Data()[9], std::byte{7});
}

TEST(PlainMemory, ABlockOfNothingIsABlock) {
    PlainMemory memory;
    const auto block = memory.Allocate(0);
    ASSERT_NE(block, nullptr);
    EXPECT_NE(block->Data(), nullptr);
}

TEST(FailingMemory, RefusesEverythingBehindWhatItGrants) {
    FailingMemory memory(2);
    EXPECT_NE(memory.Allocate(1), nullptr);
    EXPECT_NE(memory.Allocate(1), nullptr);
    EXPECT_EQ(memory.Allocate(1), nullptr);
    EXPECT_EQ(memory.Allocate(1), nullptr);
}

}  // namespace
}  // namespace quorvale
