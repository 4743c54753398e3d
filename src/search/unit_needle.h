#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "search/byte_scan.h"
#include "search/case_table.h"

namespace quorvale {

/// A sequence of keys to look for among 16-bit units. Two places in it serve as a sieve, those of
/// the rarest units among the ones that few units stand for.
class UnitNeedle {
public:
    /// So many units can stand for a key of the sieve; Unicode's rules need no more.
    static constexpr std::size_t Most = 4;
    using Members = std::array<char16_t, Most>;

    /// At least one key.
    UnitNeedle(std::u16string_view needle, const UnitKeys& keys);

    std::size_t Size() const { return needle_.size(); }
    /// Without a sieve every place would have to be tried.
    bool HasSieve() const { return hasSieve_; }
    std::size_t First() const { return first_; }
    std::size_t Second() const { return second_; }
    const Members& OfFirst() const { return ofFirst_; }
    const Members& OfSecond() const { return ofSecond_; }

    /// How many units from there on are the needle's: `Size()` for a match.
    std::size_t SameUnits(const char16_t* units) const {
        std::size_t same = 0;
        while (same < needle_.size() && (*keys_)[units[same]] == needle_[same]) ++same;
        return same;
    }

private:
    std::u16string needle_;
    const UnitKeys* keys_;
    std::size_t first_ = 0;
    std::size_t second_ = 0;
    Members ofFirst_{};
    Members ofSecond_{};
    bool hasSieve_ = false;
};

/// As for bytes: at the first `places` places, the needle's size less one behind them.
PlaceScan ScanForNeedle(const char16_t* units, std::size_t places, const UnitNeedle& needle,
                        SearchKernel kernel);

}  // namespace quorvale
