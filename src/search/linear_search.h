#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "search/case_table.h"

namespace quorvale {

/// Looks for a text by taking every unit once, in order, whatever the text is like. Slower than a
/// sieve, but a needle of a thousand equal letters costs it no more than one of two; and it can go
/// on where one stretch of units ends and the next begins.
class LinearSearch {
public:
    /// At least one unit. `keys` must outlive this object.
    LinearSearch(std::u16string_view needle, const UnitKeys& keys);

    std::size_t Size() const { return needle_.size(); }

    /// One walk over units, up to the first match.
    class Walk {
    public:
        explicit Walk(const LinearSearch& search) : search_(search) {}

        /// Takes units until a match ends, and says how many it took then; 0 when none does.
        template <class Unit>
        std::size_t Take(std::span<const Unit> units) {
            for (std::size_t taken = 0; taken < units.size();) {
                if (Step(units[taken++])) return taken;
            }
            return 0;
        }

    private:
        bool Step(char16_t unit);

        const LinearSearch& search_;
        std::size_t same_ = 0;
    };

private:
    std::u16string needle_;
    const UnitKeys& keys_;
    /// For so many units that are the needle's: how many of their last ones begin it again.
    std::vector<std::uint32_t> shorter_;
};

inline LinearSearch::LinearSearch(std::u16string_view needle, const UnitKeys& keys)
    : needle_(KeysOf(needle, keys)), keys_(keys), shorter_(needle.size() + 1) {
    std::size_t same = 0;
    for (std::size_t at = 1; at < needle_.size(); ++at) {
        while (same > 0 && needle_[at] != needle_[same]) same = shorter_[same];
        if (needle_[at] == needle_[same]) ++same;
        shorter_[at + 1] = static_cast<std::uint32_t>(same);
    }
}

inline bool LinearSearch::Walk::Step(char16_t unit) {
    const std::u16string& needle = search_.needle_;
    const char16_t key = search_.keys_[unit];
    while (same_ > 0 && key != needle[same_]) same_ = search_.shorter_[same_];
    if (key == needle[same_]) ++same_;
    return same_ == needle.size();
}

}  // namespace quorvale
