#include "base/nested_depths.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

namespace quorvale {
namespace {

using Depths = Column<std::int16_t>;
constexpr std::int32_t chunk = Depths::ChunkEntries;

std::vector<int> All(const Depths& depths) {
    std::vector<int> values;
    for (std::int32_t i = 1; i <= depths.Count(); ++i) values.push_back(depths.Get(i));
    return values;
}

std::vector<int> Naive(std::int32_t count, const std::vector<EntryRange>& ranges) {
    std::vector<int> values(static_cast<std::size_t>(count), 0);
    for (const EntryRange& range : ranges) {
        for (std::int32_t i = range.First; i <= range.Last; ++i)
            ++values[static_cast<std::size_t>(i - 1)];
    }
    return values;
}

TEST(SetNestedDepths, CountsTheRangesAroundEachEntry) {
    Depths depths(10, 0);
    SetNestedDepths(depths, std::vector<EntryRange>{{2, 8}, {4, 5}, {5, 9}});
    EXPECT_EQ(All(depths), (std::vector<int>{0, 1, 1, 2, 3, 2, 2, 2, 1, 0}));
}

TEST(SetNestedDepths, WhatWasThereBeforeIsGone) {
    Depths depths(5, 0);
    depths.Fill(1, 5, 7);
    SetNestedDepths(depths, std::vector<EntryRange>{{1, 2}});
    EXPECT_EQ(All(depths), (std::vector<int>{1, 1, 0, 0, 0}));
    SetNestedDepths(depths, {});
    EXPECT_EQ(All(depths), (std::vector<int>{0, 0, 0, 0, 0}));
}

TEST(SetNestedDepths, RangesMayReachBothEndsAndCrossChunks) {
    const std::int32_t count = 2 * chunk + 5;
    const std::vector<EntryRange> ranges = {
        {1, count}, {chunk, chunk + 1}, {chunk + 1, 2 * chunk}, {count, count}, {1, 1}};
    Depths depths(count, 0);
    SetNestedDepths(depths, ranges);
    EXPECT_EQ(All(depths), Naive(count, ranges));
}

TEST(SetNestedDepths, TheLastEntryMayEndAChunk) {
    const std::vector<EntryRange> ranges = {{2, chunk}, {chunk, chunk}};
    Depths depths(chunk, 0);
    SetNestedDepths(depths, ranges);
    EXPECT_EQ(All(depths), Naive(chunk, ranges));
}

TEST(SetNestedDepths, EmptyRangesCountForNothing) {
    Depths depths(3, 0);
    SetNestedDepths(depths, std::vector<EntryRange>{{3, 2}, {100, 50}, {2, 2}});
    EXPECT_EQ(All(depths), (std::vector<int>{0, 1, 0}));
}

TEST(SetNestedDepths, AColumnWithoutEntriesTakesNoRanges) {
    Depths depths;
    SetNestedDepths(depths, {});
    EXPECT_THROW(SetNestedDepths(depths, std::vector<EntryRange>{{1, 1}}), ControlError);
}

TEST(SetNestedDepths, ARangeOutsideChangesNothing) {
    Depths depths(5, 0);
    depths.Set(3, 9);
    for (const EntryRange range : {EntryRange{0, 3}, EntryRange{3, 6}, EntryRange{-5, -1}}) {
        try {
            SetNestedDepths(depths, std::vector<EntryRange>{{1, 2}, range});
            if (range.Last >= range.First) FAIL() << "no error for a range outside";
        } catch (const ControlError& error) {
            EXPECT_EQ(error.Kind(), ErrorKind::Index);
        }
    }
    EXPECT_EQ(All(depths), (std::vector<int>{0, 0, 9, 0, 0}));
}

TEST(SetNestedDepths, ADepthBeyond16BitsChangesNothing) {
    constexpr std::size_t most = std::numeric_limits<std::int16_t>::max();
    Depths depths(5, 0);
    std::vector<EntryRange> ranges(most, {2, 3});
    SetNestedDepths(depths, ranges);
    EXPECT_EQ(depths.Get(2), static_cast<int>(most));
    ranges.push_back({3, 3});
    try {
        SetNestedDepths(depths, ranges);
        FAIL() << "no overflow";
    } catch (const ControlError& error) {
        EXPECT_EQ(error.Kind(), ErrorKind::Overflow);
    }
    EXPECT_EQ(depths.Get(3), static_cast<int>(most));
}

TEST(SetNestedDepths, LongRangesTakeNoMemoryPerEntry) {
    Depths depths(1000 * chunk, 0);
    std::vector<EntryRange> ranges;
    for (std::int32_t i = 0; i < 100; ++i) ranges.push_back({2 + i, 1000 * chunk - i});
    SetNestedDepths(depths, ranges);
    EXPECT_EQ(depths.Get(500 * chunk), 100);
    EXPECT_EQ(depths.SpreadChunks(), 2U);
}

TEST(SetNestedDepths, AgreesWithCountingOnRandomRanges) {
    std::mt19937 random(3);
    for (int round = 0; round < 30; ++round) {
        const std::int32_t count = 1 + static_cast<std::int32_t>(random() % (3 * chunk));
        std::vector<EntryRange> ranges;
        for (std::size_t i = random() % 500; i > 0; --i) {
            const auto first =
                1 + static_cast<std::int32_t>(random() % static_cast<unsigned>(count));
            const auto size =
                static_cast<std::int32_t>(random() % (round % 2 == 0 ? 50U : 100000U));
            ranges.push_back({first, std::min(count, first - 1 + size)});
        }
        Depths depths(count, 0);
        depths.Set(1 + count / 2, 5);
        SetNestedDepths(depths, ranges);
        ASSERT_EQ(All(depths), Naive(count, ranges));
    }
}

}  // namespace
}  // namespace quorvale
