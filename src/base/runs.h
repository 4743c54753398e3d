#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <limits>

#include "base/integers.h"

namespace quorvale {

/// Loops over values that lie side by side. Blocks of a fixed length are looked at without a branch
/// inside, which compilers turn into vector code.
inline constexpr std::size_t RunBlock = 64;

template <class T>
bool BlockHolds(const T* block, const T& value) {
    if constexpr (std::integral<T>) {
        T hit = 0;
        for (std::size_t i = 0; i < RunBlock; ++i) hit |= static_cast<T>(block[i] == value);
        return hit != 0;
    } else {
        return std::find(block, block + RunBlock, value) != block + RunBlock;
    }
}

/// The index of the first entry that equals `value`; `size` if none does.
template <class T>
std::size_t FindFirstEqual(const T* values, std::size_t size, const T& value) {
    std::size_t i = 0;
    while (i + RunBlock <= size && !BlockHolds(values + i, value)) i += RunBlock;
    while (i < size && !(values[i] == value)) ++i;
    return i;
}

/// The index of the last entry that equals `value`; `size` if none does.
template <class T>
std::size_t FindLastEqual(const T* values, std::size_t size, const T& value) {
    std::size_t end = size;
    while (end >= RunBlock && !BlockHolds(values + end - RunBlock, value)) end -= RunBlock;
    while (end > 0 && !(values[end - 1] == value)) --end;
    return end > 0 ? end - 1 : size;
}

/// Adds `step` to every entry in turn. Overflow at the first that cannot take it.
template <std::signed_integral T>
void AddToEach(T* values, std::size_t size, T step) {
    const T limit = step < 0 ? static_cast<T>(std::numeric_limits<T>::min() - step)
                             : static_cast<T>(std::numeric_limits<T>::max() - step);
    std::size_t i = 0;
    for (; i + RunBlock <= size; i += RunBlock) {
        T* const block = values + i;
        T beyond = 0;
        for (std::size_t k = 0; k < RunBlock; ++k) {
            beyond |= static_cast<T>(step < 0 ? block[k] < limit : block[k] > limit);
        }
        if (beyond != 0) break;
        for (std::size_t k = 0; k < RunBlock; ++k) block[k] = static_cast<T>(block[k] + step);
    }
    for (; i < size; ++i) values[i] = CheckedAdd(values[i], step);
}

}  // namespace quorvale
