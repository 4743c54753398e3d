#include "base/text_store.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <utility>

#include "base/integers.h"
#include "base/runs.h"

namespace quorvale {

namespace {

constexpr std::int32_t noLineFeed = -1;

std::int32_t IndexOfLineFeed(std::span<const std::uint8_t> units) {
    const void* hit = std::memchr(units.data(), '\n', units.size());
    if (hit == nullptr) return noLineFeed;
    return static_cast<std::int32_t>(static_cast<const std::uint8_t*>(hit) - units.data());
}

std::int32_t IndexOfLineFeed(std::span<const char16_t> units) {
    const std::size_t index = FindFirstEqual(units.data(), units.size(), u'\n');
    return index == units.size() ? noLineFeed : static_cast<std::int32_t>(index);
}

/// One block of the text that is cut into two views.
class Cut {
public:
    Cut(std::u16string_view text, std::u16string_view tail, std::size_t first)
        : pieces_{text.substr(std::min(first, text.size()), blockUnits), {}} {
        const std::size_t fromText = pieces_[0].size();
        if (fromText == blockUnits) return;
        pieces_[1] = tail.substr(first + fromText - text.size(), blockUnits - fromText);
    }

    bool IsNarrow() const {
        char16_t all = 0;
        for (const auto piece : pieces_) {
            for (const char16_t unit : piece) all |= unit;
        }
        return all <= 0xFF;
    }

    template <class Unit>
    void CopyTo(Unit* out) const {
        for (const auto piece : pieces_) {
            for (const char16_t unit : piece) *out++ = static_cast<Unit>(unit);
        }
    }

    std::size_t Size() const { return pieces_[0].size() + pieces_[1].size(); }

private:
    static constexpr auto blockUnits = static_cast<std::size_t>(TextStore::BlockUnits);

    std::array<std::u16string_view, 2> pieces_;
};

}  // namespace

TextStore::TextStore(Parts parts) : parts_(std::move(parts)) {}

TextStore::TextStore(TextStore&& other) noexcept : parts_(std::exchange(other.parts_, {})) {}

TextStore& TextStore::operator=(TextStore&& other) noexcept {
    parts_ = std::exchange(other.parts_, {});
    return *this;
}

TextStore TextStore::FromString(std::u16string_view text, std::u16string_view tail) {
    constexpr auto block = static_cast<std::size_t>(BlockUnits);
    Parts parts;
    const std::size_t size = text.size() + tail.size();
    parts.Length = CheckedCast<std::int32_t>(size);
    std::size_t narrowEnd = 0;
    for (std::size_t first = 0; first < size; first += block) {
        const Cut cut(text, tail, first);
        if (cut.IsNarrow()) {
            narrowEnd = first + cut.Size();
            continue;
        }
        parts.Wide.resize((size - 1) / block + 1);
        auto units = std::make_shared_for_overwrite<char16_t[]>(cut.Size());
        cut.CopyTo(units.get());
        parts.Wide[first / block] = std::shared_ptr<const char16_t>(units, units.get());
    }
    if (narrowEnd == 0) return TextStore(std::move(parts));
    auto units = std::make_shared_for_overwrite<std::uint8_t[]>(narrowEnd);
    for (std::size_t first = 0; first < narrowEnd; first += block) {
        const bool wide = !parts.Wide.empty() && parts.Wide[first / block] != nullptr;
        if (!wide) Cut(text, tail, first).CopyTo(units.get() + first);
    }
    parts.Narrow = std::shared_ptr<const std::uint8_t>(units, units.get());
    return TextStore(std::move(parts));
}

char16_t TextStore::At(std::int32_t position) const {
    if (position < 1 || position > parts_.Length) return 0;
    const auto index = static_cast<std::size_t>(position - 1);
    if (!IsNarrow()) {
        const char16_t* wide = parts_.Wide[index / BlockUnits].get();
        if (wide != nullptr) return wide[index % BlockUnits];
    }
    return parts_.Narrow.get()[index];
}

std::u16string TextStore::Mid(std::int32_t start, std::int32_t count) const {
    std::u16string out;
    AppendTo(out, start, count);
    return out;
}

void TextStore::AppendTo(std::u16string& out, std::int32_t start, std::int32_t count) const {
    const Range range = Clip(start, count);
    const std::size_t before = out.size();
    out.resize(before + static_cast<std::size_t>(std::max(range.End - range.First, 0)));
    char16_t* to = out.data() + before;
    VisitSpans(start, count, [&](auto units) { to = std::copy(units.begin(), units.end(), to); });
}

std::int32_t TextStore::FindLineFeed(std::int32_t from) const {
    Range rest = Clip(std::max(from, 1), std::numeric_limits<std::int32_t>::max());
    while (rest.First < rest.End) {
        const Piece piece = PieceAt(rest);
        const auto size = static_cast<std::size_t>(piece.End - rest.First);
        const std::int32_t hit = piece.Wide != nullptr
                                     ? IndexOfLineFeed(std::span<const char16_t>(piece.Wide, size))
                                     : IndexOfLineFeed(std::span<const std::uint8_t>(
                                           parts_.Narrow.get() + rest.First, size));
        if (hit != noLineFeed) return rest.First + hit + 1;
        rest.First = piece.End;
    }
    return 0;
}

TextStore::Range TextStore::Clip(std::int32_t start, std::int32_t count) const {
    // In 64 bits, because a start below 1 shortens the piece and start + count may be anything.
    const std::int64_t first = std::int64_t{start} - 1;
    const std::int64_t end = first + std::max(count, 0);
    const auto clip = [&](std::int64_t index) {
        return static_cast<std::int32_t>(std::clamp<std::int64_t>(index, 0, parts_.Length));
    };
    return {clip(first), clip(end)};
}

TextStore::Piece TextStore::PieceAt(Range rest) const {
    if (IsNarrow()) return {nullptr, rest.End};
    const auto wideAt = [&](std::int32_t block) {
        return parts_.Wide[static_cast<std::size_t>(block)].get();
    };
    // Only the last block can end before its last unit.
    const auto endOf = [&](std::int32_t block) {
        return std::min(block + 1 < static_cast<std::int32_t>(parts_.Wide.size())
                            ? (block + 1) * BlockUnits
                            : parts_.Length,
                        rest.End);
    };
    std::int32_t block = rest.First / BlockUnits;
    const char16_t* wide = wideAt(block);
    if (wide != nullptr) return {wide + rest.First % BlockUnits, endOf(block)};
    while (endOf(block) < rest.End && wideAt(block + 1) == nullptr) ++block;
    return {nullptr, endOf(block)};
}

}  // namespace quorvale
