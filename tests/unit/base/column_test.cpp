#include "base/column.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace quorvale {
namespace {

constexpr std::int32_t chunk = Column<std::int16_t>::ChunkEntries;
constexpr std::int32_t farOut = std::numeric_limits<std::int32_t>::max();
constexpr auto largest16 = std::numeric_limits<std::int16_t>::max();

using Depths = Column<std::int16_t>;

std::string ErrorOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const ControlError& error) {
        if (error.Kind() == ErrorKind::Index) return "index";
        if (error.Kind() == ErrorKind::Overflow) return "overflow";
        return "another";
    }
    return "none";
}

TEST(Column, ANewOneHasNoEntries) {
    const Depths column;
    EXPECT_EQ(column.Count(), 0);
    EXPECT_EQ(column.Get(1), 0);
    EXPECT_EQ(column.FindNextDefault(1, 10), 0);
    EXPECT_EQ(column.FindPreviousDefault(10), 0);
}

TEST(Column, EveryEntryHasTheDefaultUntilItIsSet) {
    Column<std::uint32_t> column(10, 0x80000012);
    EXPECT_EQ(column.Get(1), 0x80000012);
    column.Set(3, 0xFF);
    EXPECT_EQ(column.Get(3), 0xFFU);
    EXPECT_EQ(column.Get(2), 0x80000012);
    EXPECT_EQ(column.Get(4), 0x80000012);
}

TEST(Column, OutsideThereIsTheDefault) {
    Depths column(10, 5);
    column.Set(1, 6);
    column.Set(10, 6);
    EXPECT_EQ(column.Get(0), 5);
    EXPECT_EQ(column.Get(11), 5);
    EXPECT_EQ(column.Get(-farOut - 1), 5);
    EXPECT_EQ(column.Get(farOut), 5);
}

TEST(Column, SettingOutsideIsAnIndexError) {
    Depths column(10, 0);
    for (const std::int32_t entry : {0, 11, -1, farOut, -farOut - 1}) {
        EXPECT_EQ(ErrorOf([&] { column.Set(entry, 1); }), "index");
    }
    EXPECT_EQ(ErrorOf([] { Depths().Set(1, 1); }), "index");
}

TEST(Column, AnUntouchedColumnTakesNoMemoryForItsEntries) {
    Depths column(10'000'000, 0);
    column.Set(5, 0);
    column.Fill(1, 10'000'000, 0);
    EXPECT_EQ(column.SpreadChunks(), 0U);
}

TEST(Column, OnlyAChunkInWhichSomethingWasSetTakesMemory) {
    Depths column(10 * chunk, 0);
    column.Set(1, 1);
    column.Set(chunk, 2);
    EXPECT_EQ(column.SpreadChunks(), 1U);
    column.Set(chunk + 1, 3);
    EXPECT_EQ(column.SpreadChunks(), 2U);
    column.Set(10 * chunk, 4);
    EXPECT_EQ(column.SpreadChunks(), 3U);
    EXPECT_EQ(column.Get(chunk), 2);
    EXPECT_EQ(column.Get(chunk + 1), 3);
    EXPECT_EQ(column.Get(10 * chunk), 4);
}

TEST(Column, ResetForgetsEverything) {
    Depths column(10, 0);
    column.Set(3, 7);
    column.Reset(20, 1);
    EXPECT_EQ(column.Count(), 20);
    EXPECT_EQ(column.Get(3), 1);
    EXPECT_EQ(column.SpreadChunks(), 0U);
    column.Reset(-1, 1);
    EXPECT_EQ(column.Count(), 0);
}

TEST(Column, HoldsValuesThatAreNoNumbers) {
    Column<std::u16string> column(5000, u"none");
    column.Set(4999, u"a key");
    EXPECT_EQ(column.Get(4999), u"a key");
    EXPECT_EQ(column.Get(4998), u"none");
    EXPECT_EQ(column.FindNextDefault(4999, 5000), 5000);
    EXPECT_EQ(column.FindPreviousDefault(4999), 4998);
}

TEST(ColumnFill, GivesARangeOneValue) {
    Depths column(3 * chunk + 10, 0);
    column.Fill(chunk - 1, 3 * chunk + 2, 9);
    EXPECT_EQ(column.Get(chunk - 2), 0);
    EXPECT_EQ(column.Get(chunk - 1), 9);
    EXPECT_EQ(column.Get(2 * chunk), 9);
    EXPECT_EQ(column.Get(3 * chunk + 2), 9);
    EXPECT_EQ(column.Get(3 * chunk + 3), 0);
    // The two whole chunks in the middle hold the value once.
    EXPECT_EQ(column.SpreadChunks(), 2U);
}

TEST(ColumnFill, AWholeChunkGivesItsMemoryBack) {
    Depths column(chunk, 0);
    column.Set(7, 7);
    column.Fill(1, chunk, 2);
    EXPECT_EQ(column.SpreadChunks(), 0U);
    EXPECT_EQ(column.Get(7), 2);
}

TEST(ColumnFill, AnEmptyRangeIsNothingAndOneOutsideAnError) {
    Depths column(10, 0);
    column.Fill(5, 4, 1);
    column.Fill(100, 99, 1);
    EXPECT_EQ(column.Get(5), 0);
    EXPECT_EQ(ErrorOf([&] { column.Fill(0, 5, 1); }), "index");
    EXPECT_EQ(ErrorOf([&] { column.Fill(5, 11, 1); }), "index");
    EXPECT_EQ(column.Get(5), 0);
}

TEST(ColumnAddToRange, RaisesAndLowersARange) {
    Depths column(3 * chunk, 0);
    column.AddToRange(5, 2 * chunk + 5, 1);
    column.AddToRange(10, 20, 1);
    column.AddToRange(1, 3 * chunk, -1);
    EXPECT_EQ(column.Get(4), -1);
    EXPECT_EQ(column.Get(5), 0);
    EXPECT_EQ(column.Get(15), 1);
    EXPECT_EQ(column.Get(21), 0);
    EXPECT_EQ(column.Get(chunk + 5), 0);
    EXPECT_EQ(column.Get(2 * chunk + 5), 0);
    EXPECT_EQ(column.Get(2 * chunk + 6), -1);
}

TEST(ColumnAddToRange, ValuesInFrontOfAnOverflowStayRaised) {
    Depths column(3 * chunk, 0);
    column.Set(chunk + 7, largest16);
    EXPECT_EQ(ErrorOf([&] { column.AddToRange(5, 3 * chunk, 1); }), "overflow");
    EXPECT_EQ(column.Get(4), 0);
    EXPECT_EQ(column.Get(5), 1);
    EXPECT_EQ(column.Get(chunk + 6), 1);
    EXPECT_EQ(column.Get(chunk + 7), largest16);
    EXPECT_EQ(column.Get(chunk + 8), 0);
}

TEST(ColumnAddToRange, AWholeChunkAtItsLimitOverflowsToo) {
    Depths column(2 * chunk, largest16);
    EXPECT_EQ(ErrorOf([&] { column.AddToRange(1, 2 * chunk, 1); }), "overflow");
    EXPECT_EQ(column.Get(1), largest16);
    EXPECT_EQ(column.SpreadChunks(), 0U);
}

TEST(ColumnAddToRange, AnEmptyRangeIsNothingAndOneOutsideAnError) {
    Depths column(10, 0);
    column.AddToRange(6, 5, 1);
    EXPECT_EQ(ErrorOf([&] { column.AddToRange(0, 1, 1); }), "index");
    EXPECT_EQ(ErrorOf([&] { column.AddToRange(9, 11, 1); }), "index");
    for (std::int32_t i = 1; i <= 10; ++i) EXPECT_EQ(column.Get(i), 0);
}

TEST(ColumnFind, TheNextDefaultIsFoundAcrossChunks) {
    Depths column(10 * chunk, 0);
    column.AddToRange(100, 9 * chunk + 3, 1);
    EXPECT_EQ(column.FindNextDefault(1, 10 * chunk), 1);
    EXPECT_EQ(column.FindNextDefault(99, 10 * chunk), 99);
    EXPECT_EQ(column.FindNextDefault(100, 10 * chunk), 9 * chunk + 4);
    EXPECT_EQ(column.FindNextDefault(5 * chunk, farOut), 9 * chunk + 4);
    EXPECT_EQ(column.FindNextDefault(100, 9 * chunk + 3), 0);
    EXPECT_EQ(column.FindNextDefault(100, 9 * chunk + 4), 9 * chunk + 4);
    EXPECT_EQ(column.FindNextDefault(-5, 10), 1);
    EXPECT_EQ(column.FindNextDefault(20, 10), 0);
    EXPECT_EQ(column.FindNextDefault(10 * chunk + 1, farOut), 0);
}

TEST(ColumnFind, ThePreviousDefaultIsFoundAcrossChunks) {
    Depths column(10 * chunk, 0);
    column.AddToRange(100, 9 * chunk + 3, 1);
    EXPECT_EQ(column.FindPreviousDefault(farOut), 10 * chunk);
    EXPECT_EQ(column.FindPreviousDefault(9 * chunk + 4), 9 * chunk + 4);
    EXPECT_EQ(column.FindPreviousDefault(9 * chunk + 3), 99);
    EXPECT_EQ(column.FindPreviousDefault(5 * chunk), 99);
    EXPECT_EQ(column.FindPreviousDefault(99), 99);
    EXPECT_EQ(column.FindPreviousDefault(1), 1);
    EXPECT_EQ(column.FindPreviousDefault(0), 0);
    column.AddToRange(1, 99, 1);
    EXPECT_EQ(column.FindPreviousDefault(5 * chunk), 0);
}

TEST(Column, AgreesWithAPlainVectorWhateverIsDone) {
    std::mt19937 random(11);
    const std::int32_t count = 3 * chunk + 77;
    Depths column(count, 0);
    std::vector<std::int16_t> model(static_cast<std::size_t>(count) + 1, 0);
    const auto entry = [&] {
        return 1 + static_cast<std::int32_t>(random() % static_cast<unsigned>(count));
    };
    for (int round = 0; round < 3000; ++round) {
        std::int32_t from = entry();
        std::int32_t to = random() % 4 == 0 ? entry() : std::min(count, from + 300);
        if (from > to) std::swap(from, to);
        const auto value = static_cast<std::int16_t>(random() % 3);
        const auto at = [&](std::int32_t i) -> std::int16_t& {
            return model[static_cast<std::size_t>(i)];
        };
        switch (random() % 3) {
            case 0:
                column.Set(from, value);
                at(from) = value;
                break;
            case 1:
                column.Fill(from, to, value);
                for (std::int32_t i = from; i <= to; ++i) at(i) = value;
                break;
            default: {
                const auto step = static_cast<std::int16_t>(random() % 3 - 1);
                column.AddToRange(from, to, step);
                for (std::int32_t i = from; i <= to; ++i)
                    at(i) = static_cast<std::int16_t>(at(i) + step);
            }
        }
        const std::int32_t start = entry();
        std::int32_t next = start;
        while (next <= count && at(next) != 0) ++next;
        ASSERT_EQ(column.FindNextDefault(start, count), next > count ? 0 : next);
        std::int32_t previous = start;
        while (previous > 0 && at(previous) != 0) --previous;
        ASSERT_EQ(column.FindPreviousDefault(start), previous);
        ASSERT_EQ(column.Get(start), at(start));
    }
    for (std::int32_t i = 1; i <= count; ++i)
        ASSERT_EQ(column.Get(i), model[static_cast<std::size_t>(i)]);
}

}  // namespace
}  // namespace quorvale
