#include "document/line_scan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "document/line_kernels.h"

namespace quorvale {
namespace {

std::vector<LineKernel> AllKernels() {
    std::vector<LineKernel> kernels = {LineKernel::Naive, LineKernel::Portable};
    if (HasAvx2()) kernels.push_back(LineKernel::Avx2);
    return kernels;
}

std::string NameOf(const testing::TestParamInfo<LineKernel>& info) {
    switch (info.param) {
        case LineKernel::Avx2:
            return "Avx2";
        case LineKernel::Portable:
            return "Portable";
        case LineKernel::Naive:
            break;
    }
    return "Naive";
}

/// The units in memory of exactly their size, so that a sanitizer sees a read beyond them.
template <class Unit>
struct Exact {
    explicit Exact(const std::vector<Unit>& units)
        : Memory(std::make_unique<Unit[]>(units.size())), Size(units.size()) {
        std::copy(units.begin(), units.end(), Memory.get());
    }
    std::span<const Unit> Units() const { return {Memory.get(), Size}; }

    std::unique_ptr<Unit[]> Memory;
    std::size_t Size;
};

template <class Unit>
LineScan Model(const std::vector<Unit>& units, std::int32_t behindFirst, std::size_t room,
               std::vector<std::int32_t>& starts) {
    LineScan scan;
    for (const Unit unit : units) {
        if (unit == 10 && scan.Found == room) break;
        if (unit == 10) {
            starts.push_back(behindFirst + static_cast<std::int32_t>(scan.Scanned));
            ++scan.Found;
        }
        if (unit > 127) scan.Ascii = false;
        ++scan.Scanned;
    }
    return scan;
}

class ScanLinesBy : public testing::TestWithParam<LineKernel> {
protected:
    /// Scans with that much room and compares with looking at one unit after the other.
    template <class Unit>
    void Check(const std::vector<Unit>& units, std::size_t room, std::int32_t behindFirst = 2) {
        std::vector<std::int32_t> expectedStarts;
        const LineScan expected = Model(units, behindFirst, room, expectedStarts);
        const Exact<Unit> exact(units);
        const auto memory = std::make_unique<std::int32_t[]>(room);
        const LineScan scan =
            ScanLines(exact.Units(), behindFirst, {memory.get(), room}, GetParam());
        ASSERT_EQ(scan.Scanned, expected.Scanned);
        ASSERT_EQ(scan.Found, expected.Found);
        ASSERT_EQ(scan.Ascii, expected.Ascii);
        ASSERT_EQ(std::vector<std::int32_t>(memory.get(), memory.get() + scan.Found),
                  expectedStarts);
    }
};

INSTANTIATE_TEST_SUITE_P(EachKernel, ScanLinesBy, testing::ValuesIn(AllKernels()), NameOf);

TEST_P(ScanLinesBy, NothingHoldsNoLineFeed) {
    Check(std::vector<std::uint8_t>(), 10);
    Check(std::vector<std::uint8_t>(), 0);
    Check(std::vector<char16_t>(), 10);
}

TEST_P(ScanLinesBy, ALineFeedIsFoundAtEveryPlaceOfTextsOfEverySize) {
    for (std::size_t size = 1; size <= 200; ++size) {
        for (std::size_t place = 0; place < size; ++place) {
            std::vector<std::uint8_t> bytes(size, 'x');
            bytes[place] = '\n';
            Check(bytes, size);
            std::vector<char16_t> units(bytes.begin(), bytes.end());
            Check(units, size);
        }
    }
}

TEST_P(ScanLinesBy, EveryOtherByteIsNone) {
    std::vector<std::uint8_t> bytes;
    for (unsigned byte = 0; byte < 256; ++byte) bytes.push_back(static_cast<std::uint8_t>(byte));
    Check(bytes, 300);
    std::vector<char16_t> units;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) units.push_back(static_cast<char16_t>(unit));
    Check(units, 300);
}

TEST_P(ScanLinesBy, NeighboursOfALineFeedAreNotTakenForOne) {
    // Arithmetic over several units in one word must not carry from one into the next.
    for (const int neighbour : {0x09, 0x0B, 0x0A, 0x8A, 0x00, 0xFF}) {
        for (std::size_t place = 0; place < 128; ++place) {
            std::vector<std::uint8_t> bytes(128, static_cast<std::uint8_t>(neighbour));
            bytes[place] = 0x0A;
            Check(bytes, 200);
        }
    }
}

TEST_P(ScanLinesBy, AllMayBeLineFeeds) {
    for (std::size_t size = 0; size < 300; ++size) {
        Check(std::vector<std::uint8_t>(size, '\n'), size);
        Check(std::vector<char16_t>(size, u'\n'), size);
    }
    Check(std::vector<std::uint8_t>(20000, '\n'), 20000);
}

TEST_P(ScanLinesBy, StopsInFrontOfTheLineFeedThatFindsNoRoom) {
    std::vector<std::uint8_t> bytes(1000, 'x');
    for (std::size_t i = 7; i < bytes.size(); i += 13) bytes[i] = '\n';
    for (std::size_t room = 0; room < 90; ++room) Check(bytes, room);
    for (const std::size_t room : {0U, 1U, 63U, 64U, 65U, 1000U, 5000U}) {
        Check(std::vector<std::uint8_t>(6000, '\n'), room);
        Check(std::vector<char16_t>(6000, u'\n'), room);
    }
}

TEST_P(ScanLinesBy, LittleRoomIsEnoughForALongLine) {
    std::vector<std::uint8_t> bytes(100'000, 'x');
    bytes[99'990] = '\n';
    Check(bytes, 1);
    bytes[99'991] = '\n';
    Check(bytes, 1);
    Check(bytes, 2);
}

TEST_P(ScanLinesBy, AUnitBeyondAsciiIsToldFromEveryPlace) {
    for (std::size_t size = 1; size < 150; ++size) {
        for (std::size_t place = 0; place < size; ++place) {
            std::vector<std::uint8_t> bytes(size, 0x7F);
            bytes[place] = 0x80;
            Check(bytes, 200);
            std::vector<char16_t> units(size, 0x7F);
            units[place] = 0x0180;
            Check(units, 200);
        }
    }
}

TEST_P(ScanLinesBy, AUnitBeyondAsciiBehindTheStopIsNotTold) {
    std::vector<std::uint8_t> bytes(200, 'x');
    bytes[100] = '\n';
    bytes[101] = 0xFF;
    Check(bytes, 0);
    Check(bytes, 1);
}

TEST_P(ScanLinesBy, TheLongestTextEndsAtTheLargestNumber) {
    constexpr auto largest = std::numeric_limits<std::int32_t>::max();
    for (std::size_t size = 1; size < 200; ++size) {
        std::vector<std::uint8_t> bytes(size, 'x');
        bytes.back() = '\n';
        Check(bytes, 100, largest - static_cast<std::int32_t>(size) + 1);
    }
}

TEST_P(ScanLinesBy, RandomTextsAtRandomAlignments) {
    std::mt19937 random(5);
    for (int round = 0; round < 3000; ++round) {
        std::vector<std::uint8_t> bytes(random() % 700);
        const auto density = 1 + random() % 100;
        for (auto& byte : bytes) {
            byte = random() % density == 0 ? std::uint8_t{'\n'}
                                           : static_cast<std::uint8_t>(random() % 128);
        }
        if (!bytes.empty() && random() % 2 == 0) bytes[random() % bytes.size()] = 0xC3;
        const std::size_t room = random() % 3 == 0 ? random() % 20 : 700;
        Check(bytes, room, 1 + static_cast<std::int32_t>(random() % 1000));
        Check(std::vector<char16_t>(bytes.begin(), bytes.end()), room);
        // The same at another address.
        const std::size_t offset = random() % 64;
        if (offset < bytes.size()) {
            std::vector<std::int32_t> expectedStarts;
            const std::vector<std::uint8_t> rest(
                bytes.begin() + static_cast<std::ptrdiff_t>(offset), bytes.end());
            Model(rest, 9, 700, expectedStarts);
            std::vector<std::int32_t> starts(700);
            const LineScan scan = ScanLines(std::span<const std::uint8_t>(bytes).subspan(offset), 9,
                                            starts, GetParam());
            starts.resize(scan.Found);
            ASSERT_EQ(starts, expectedStarts);
        }
    }
}

TEST(BestLineKernel, IsOneThatThisProcessorHas) {
    EXPECT_EQ(BestLineKernel(), HasAvx2() ? LineKernel::Avx2 : LineKernel::Portable);
}

}  // namespace
}  // namespace quorvale
