#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <memory>
#include <utility>

#include "base/integers.h"
#include "base/runs.h"

namespace quorvale {

/// A stretch of a column: one value for all its entries until they differ. Places count from 0.
template <class T>
class ColumnChunk {
public:
    static constexpr std::size_t Entries = 4096;

    explicit ColumnChunk(const T& same) : same_(same) {}

    const T& Get(std::size_t place) const { return each_ ? each_[place] : same_; }

    void Set(std::size_t place, T value) { Spread()[place] = std::move(value); }

    void Fill(std::size_t first, std::size_t size, const T& value) {
        if (size == Entries) {
            each_.reset();
            same_ = value;
        } else if (each_ || !(same_ == value)) {
            std::fill_n(Spread() + first, size, value);
        }
    }

    /// Overflow at the first entry that cannot take the step; those before it stay changed.
    void Add(std::size_t first, std::size_t size, T step) requires std::signed_integral<T> {
        if (!each_ && size == Entries) {
            same_ = CheckedAdd(same_, step);
        } else {
            AddToEach(Spread() + first, size, step);
        }
    }

    /// The first of the places with the value, counted from `first`; `size` if there is none.
    std::size_t FindFirst(std::size_t first, std::size_t size, const T& value) const {
        if (!each_) return same_ == value ? 0 : size;
        return FindFirstEqual(each_.get() + first, size, value);
    }

    /// The last of the first `size` places with the value; `size` if there is none.
    std::size_t FindLast(std::size_t size, const T& value) const {
        if (!each_) return same_ == value ? size - 1 : size;
        return FindLastEqual(each_.get(), size, value);
    }

    /// Whether there is memory for each entry.
    bool IsSpread() const { return each_ != nullptr; }

private:
    T* Spread() {
        if (!each_) {
            each_ = std::make_unique_for_overwrite<T[]>(Entries);
            std::fill_n(each_.get(), Entries, same_);
        }
        return each_.get();
    }

    T same_;
    std::unique_ptr<T[]> each_;
};

}  // namespace quorvale
