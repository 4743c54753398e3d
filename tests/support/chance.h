#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

namespace quorvale {

/// Random numbers that a seed alone decides, on every machine.
class Chance {
public:
    explicit Chance(unsigned seed) : engine_(seed) {}

    std::mt19937& Engine() { return engine_; }

    /// From `low` to `high`, both included.
    int Number(int low, int high) {
        const auto count = static_cast<unsigned>(high - low + 1);
        return low + static_cast<int>(engine_() % count);
    }

    bool OneIn(int times) { return Number(1, times) == 1; }

    template <class T, std::size_t Size>
    const T& OneOf(const T (&all)[Size]) {
        return all[engine_() % Size];
    }

private:
    std::mt19937 engine_;
};

}  // namespace quorvale
