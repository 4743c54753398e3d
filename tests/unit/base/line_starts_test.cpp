#include "base/line_starts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "base/errors.h"

namespace quorvale {
namespace {

constexpr std::int32_t segment = LineStarts::SegmentEntries;

/// Hands out memory as long as there is some left, and counts it.
struct CountedMemory {
    std::size_t Left;
    std::vector<std::size_t> Requests{};

    LineStarts::SegmentSource Source() {
        return [this](std::size_t entries) -> std::shared_ptr<std::int32_t> {
            if (entries > Left) return nullptr;
            Left -= entries;
            Requests.push_back(entries);
            auto memory = std::make_shared<std::vector<std::int32_t>>(entries);
            return {memory, memory->data()};
        };
    }
};

TEST(LineStarts, ANewOneIsEmpty) { EXPECT_EQ(LineStarts().Count(), 0); }

TEST(LineStarts, ElementsCountFromOne) {
    LineStarts starts;
    starts.Append(1);
    starts.Append(17);
    EXPECT_EQ(starts.Count(), 2);
    EXPECT_EQ(starts[1], 1);
    EXPECT_EQ(starts[2], 17);
}

TEST(LineStarts, EveryEntryStaysAcrossSegments) {
    LineStarts starts;
    const std::int32_t count = 2 * segment + 100;
    for (std::int32_t i = 1; i <= count; ++i) starts.Append(i * 3);
    ASSERT_EQ(starts.Count(), count);
    for (std::int32_t i = 1; i <= count; ++i) ASSERT_EQ(starts[i], i * 3);
}

TEST(LineStarts, ManyEntriesAreWrittenIntoTheRoom) {
    LineStarts starts;
    std::int32_t next = 1;
    while (starts.Count() < 3 * segment) {
        const std::span<std::int32_t> room = starts.Room();
        ASSERT_FALSE(room.empty());
        const std::size_t used = std::min<std::size_t>(room.size(), 777);
        for (std::size_t i = 0; i < used; ++i) room[i] = next++;
        starts.Commit(used);
    }
    for (std::int32_t i = 1; i <= starts.Count(); ++i) ASSERT_EQ(starts[i], i);
}

TEST(LineStarts, AShortTableTakesLittleMemory) {
    CountedMemory memory{1 << 20};
    LineStarts starts(memory.Source());
    starts.Append(1);
    ASSERT_EQ(memory.Requests.size(), 1U);
    EXPECT_LE(memory.Requests.front(), 1024U);
}

TEST(LineStarts, ALongTableIsNeverCopied) {
    CountedMemory memory{std::size_t{1} << 24};
    LineStarts starts(memory.Source());
    for (std::int32_t i = 0; i < segment; ++i) starts.Append(i);
    const std::size_t requests = memory.Requests.size();
    for (std::int32_t i = 0; i < 4 * segment; ++i) starts.Append(i);
    // One segment for each of the segments that were added, and no larger one.
    EXPECT_EQ(memory.Requests.size(), requests + 4);
    EXPECT_EQ(*std::max_element(memory.Requests.begin(), memory.Requests.end()),
              static_cast<std::size_t>(segment));
}

TEST(LineStarts, NoMemoryLeftIsAnErrorThatLosesNothing) {
    CountedMemory memory{1024 + 2048};
    LineStarts starts(memory.Source());
    for (std::int32_t i = 1; i <= 2048; ++i) starts.Append(i);
    try {
        starts.Append(2049);
        FAIL() << "there was memory";
    } catch (const ControlError& error) {
        EXPECT_EQ(error.Kind(), ErrorKind::OutOfMemory);
    }
    ASSERT_EQ(starts.Count(), 2048);
    EXPECT_EQ(starts[1], 1);
    EXPECT_EQ(starts[2048], 2048);
}

TEST(LineStarts, AFinishedTableAsksItsSourceForNothing) {
    CountedMemory memory{1024};
    LineStarts starts(memory.Source());
    starts.Append(1);
    starts.Finish();
    for (std::int32_t i = 2; i <= 5000; ++i) starts.Append(i);
    EXPECT_EQ(memory.Requests.size(), 1U);
    EXPECT_EQ(starts[5000], 5000);
}

TEST(LineStarts, TruncateDropsTheLastEntries) {
    LineStarts starts;
    for (std::int32_t i = 1; i <= segment + 10; ++i) starts.Append(i);
    starts.Truncate(segment + 20);
    EXPECT_EQ(starts.Count(), segment + 10);
    starts.Truncate(5);
    EXPECT_EQ(starts.Count(), 5);
    EXPECT_EQ(starts[5], 5);
    for (std::int32_t i = 6; i <= segment + 10; ++i) starts.Append(-i);
    EXPECT_EQ(starts[5], 5);
    EXPECT_EQ(starts[6], -6);
    EXPECT_EQ(starts[segment + 10], -segment - 10);
    starts.Truncate(-1);
    EXPECT_EQ(starts.Count(), 0);
}

TEST(LineStarts, MovingLeavesAnEmptyTableBehind) {
    LineStarts from;
    from.Append(1);
    LineStarts to = std::move(from);
    EXPECT_EQ(from.Count(), 0);
    EXPECT_EQ(to[1], 1);
    from.Append(9);
    EXPECT_EQ(from[1], 9);
    EXPECT_EQ(to[1], 1);
    to = std::move(from);
    EXPECT_EQ(to.Count(), 1);
    EXPECT_EQ(to[1], 9);
    EXPECT_EQ(from.Count(), 0);
    from.Append(4);
    EXPECT_EQ(from[1], 4);
    EXPECT_EQ(to[1], 9);
}

}  // namespace
}  // namespace quorvale
