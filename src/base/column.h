#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "base/column_chunk.h"
#include "base/errors.h"

namespace quorvale {

/// A value per line, entries 1 to `Count()`, that takes memory only where values differ: an
/// untouched column has none, and a chunk of 4096 entries of one value holds that value once.
template <class T>
class Column {
public:
    static constexpr std::int32_t ChunkEntries = static_cast<std::int32_t>(ColumnChunk<T>::Entries);

    Column() = default;
    Column(std::int32_t count, T standard) { Reset(count, std::move(standard)); }

    /// Forgets everything: `count` entries, each of the value `standard`.
    void Reset(std::int32_t count, T standard) {
        std::vector<ColumnChunk<T>>().swap(chunks_);
        count_ = std::max(count, 0);
        default_ = std::move(standard);
    }

    std::int32_t Count() const { return count_; }
    const T& Default() const { return default_; }

    /// The value of an entry; the default outside 1 to `Count()`.
    const T& Get(std::int32_t entry) const {
        if (entry < 1 || entry > count_ || chunks_.empty()) return default_;
        return chunks_[ChunkOf(entry)].Get(PlaceOf(entry));
    }

    /// Index outside 1 to `Count()`.
    void Set(std::int32_t entry, T value) {
        RequireEntry(entry);
        if (value == Get(entry)) return;
        ChunkForChange(entry).Set(PlaceOf(entry), std::move(value));
    }

    /// Gives the entries `from` to `to` one value; none when `to` is smaller. Index outside.
    void Fill(std::int32_t from, std::int32_t to, const T& value) {
        ForEachSlice(from, to, [&](ColumnChunk<T>& chunk, std::size_t first, std::size_t size) {
            chunk.Fill(first, size, value);
        });
    }

    /// Adds `step` to the entries `from` to `to`; none when `to` is smaller. Index outside;
    /// Overflow at the first entry that cannot take it: those before it stay changed.
    void AddToRange(std::int32_t from, std::int32_t to, T step) requires std::signed_integral<T> {
        ForEachSlice(from, to, [&](ColumnChunk<T>& chunk, std::size_t first, std::size_t size) {
            chunk.Add(first, size, step);
        });
    }

    /// The first entry from `from` to `upTo` that has the default value; 0 if there is none.
    std::int32_t FindNextDefault(std::int32_t from, std::int32_t upTo) const {
        from = std::max(from, 1);
        upTo = std::min(upTo, count_);
        while (from <= upTo) {
            if (chunks_.empty()) return from;
            const std::int32_t more = std::min(upTo - from, RestOfChunk(from));
            const auto size = static_cast<std::size_t>(more) + 1;
            const std::size_t hit = chunks_[ChunkOf(from)].FindFirst(PlaceOf(from), size, default_);
            if (hit < size) return from + static_cast<std::int32_t>(hit);
            if (more == upTo - from) break;
            from += more + 1;
        }
        return 0;
    }

    /// The last entry from 1 to `from` that has the default value; 0 if there is none.
    std::int32_t FindPreviousDefault(std::int32_t from) const {
        from = std::min(from, count_);
        while (from >= 1) {
            if (chunks_.empty()) return from;
            const std::size_t size = PlaceOf(from) + 1;
            const std::size_t hit = chunks_[ChunkOf(from)].FindLast(size, default_);
            const auto back = static_cast<std::int32_t>(size - hit);
            if (back > 0) return from - back + 1;
            from -= static_cast<std::int32_t>(size);
        }
        return 0;
    }

    /// How many chunks hold a value for each of their entries: what the column costs.
    std::size_t SpreadChunks() const {
        const auto spread = [](const ColumnChunk<T>& chunk) { return chunk.IsSpread(); };
        return static_cast<std::size_t>(std::count_if(chunks_.begin(), chunks_.end(), spread));
    }

private:
    static std::size_t ChunkOf(std::int32_t entry) {
        return static_cast<std::size_t>((entry - 1) / ChunkEntries);
    }
    static std::size_t PlaceOf(std::int32_t entry) {
        return static_cast<std::size_t>((entry - 1) % ChunkEntries);
    }

    /// How many entries of its chunk come behind this one.
    static std::int32_t RestOfChunk(std::int32_t entry) {
        return ChunkEntries - 1 - (entry - 1) % ChunkEntries;
    }

    void RequireEntry(std::int32_t entry) const {
        if (entry >= 1 && entry <= count_) return;
        throw ControlError(ErrorKind::Index, "There is no entry " + std::to_string(entry));
    }

    ColumnChunk<T>& ChunkForChange(std::int32_t entry) {
        if (chunks_.empty()) {
            chunks_.reserve(ChunkOf(count_) + 1);
            while (chunks_.size() <= ChunkOf(count_)) chunks_.emplace_back(default_);
        }
        return chunks_[ChunkOf(entry)];
    }

    /// Calls `change(chunk, first place, number of places)` for each chunk's part of the entries.
    template <class Change>
    void ForEachSlice(std::int32_t from, std::int32_t to, Change change) {
        if (from > to) return;
        RequireEntry(from);
        RequireEntry(to);
        while (true) {
            const std::int32_t more = std::min(to - from, RestOfChunk(from));
            change(ChunkForChange(from), PlaceOf(from), static_cast<std::size_t>(more) + 1);
            if (more == to - from) return;
            from += more + 1;
        }
    }

    std::vector<ColumnChunk<T>> chunks_;
    std::int32_t count_ = 0;
    T default_{};
};

}  // namespace quorvale
