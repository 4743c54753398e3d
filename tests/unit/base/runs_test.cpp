#include "base/runs.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "base/errors.h"

namespace quorvale {
namespace {

template <class T>
class FindInRuns : public testing::Test {};

using ValueTypes = testing::Types<std::int16_t, std::uint32_t, char16_t, std::uint8_t>;
TYPED_TEST_SUITE(FindInRuns, ValueTypes);

TYPED_TEST(FindInRuns, TheFirstAndTheLastAreFoundAtEveryPlace) {
    for (std::size_t size = 0; size <= 3 * RunBlock + 1; ++size) {
        std::vector<TypeParam> values(size, TypeParam{7});
        EXPECT_EQ(FindFirstEqual(values.data(), size, TypeParam{3}), size);
        EXPECT_EQ(FindLastEqual(values.data(), size, TypeParam{3}), size);
        for (std::size_t place = 0; place < size; ++place) {
            values[place] = 3;
            ASSERT_EQ(FindFirstEqual(values.data(), size, TypeParam{3}), place);
            ASSERT_EQ(FindLastEqual(values.data(), size, TypeParam{3}), place);
            values[place] = 7;
        }
    }
}

TYPED_TEST(FindInRuns, AmongSeveralTheOutermostAreFound) {
    std::vector<TypeParam> values(500, TypeParam{7});
    values[130] = values[131] = values[400] = 3;
    EXPECT_EQ(FindFirstEqual(values.data(), values.size(), TypeParam{3}), 130U);
    EXPECT_EQ(FindLastEqual(values.data(), values.size(), TypeParam{3}), 400U);
}

TEST(FindInRunsOfObjects, WorksForValuesThatAreNoNumbers) {
    std::vector<std::string> values(200, "a");
    values[150] = "b";
    EXPECT_EQ(FindFirstEqual(values.data(), values.size(), std::string("b")), 150U);
    EXPECT_EQ(FindLastEqual(values.data(), values.size(), std::string("b")), 150U);
    EXPECT_EQ(FindLastEqual(values.data(), values.size(), std::string("c")), 200U);
}

TEST(AddToEach, RaisesEveryEntry) {
    for (std::size_t size = 0; size <= 2 * RunBlock + 3; ++size) {
        std::vector<std::int16_t> values(size + 1, 41);
        AddToEach(values.data(), size, std::int16_t{1});
        for (std::size_t i = 0; i < size; ++i) ASSERT_EQ(values[i], 42);
        ASSERT_EQ(values[size], 41);
    }
}

TEST(AddToEach, StopsWithAnOverflowWhereItIsAndKeepsWhatItDid) {
    constexpr auto largest = std::numeric_limits<std::int16_t>::max();
    for (const std::size_t place : {0U, 1U, 63U, 64U, 100U, 129U}) {
        std::vector<std::int16_t> values(130, 5);
        values[place] = largest;
        EXPECT_THROW(AddToEach(values.data(), values.size(), std::int16_t{1}), ControlError);
        for (std::size_t i = 0; i < values.size(); ++i) {
            ASSERT_EQ(values[i], i < place ? 6 : i == place ? largest : 5) << place << " " << i;
        }
    }
}

TEST(AddToEach, LowersDownToTheSmallest) {
    constexpr auto smallest = std::numeric_limits<std::int16_t>::min();
    std::vector<std::int16_t> values(70, smallest + 1);
    AddToEach(values.data(), values.size(), std::int16_t{-1});
    EXPECT_EQ(values[0], smallest);
    EXPECT_EQ(values[69], smallest);
    EXPECT_THROW(AddToEach(values.data(), values.size(), std::int16_t{-1}), ControlError);
    EXPECT_EQ(values[0], smallest);
}

}  // namespace
}  // namespace quorvale
