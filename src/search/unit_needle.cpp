#include "search/unit_needle.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <optional>

namespace quorvale {

namespace {

typedef char16_t Vector __attribute__((vector_size(16)));

constexpr std::size_t vectorUnits = sizeof(Vector) / sizeof(char16_t);
constexpr std::size_t blockUnits = 4 * vectorUnits;
constexpr std::size_t freeWork = 4096;

/// The units that stand for a key, the last one repeated; none when there are none or too many.
std::optional<UnitNeedle::Members> MembersOf(char16_t key, const UnitKeys& keys) {
    UnitNeedle::Members members{};
    std::size_t count = 0;
    for (auto at = std::find(keys.begin(), keys.end(), key); at != keys.end();
         at = std::find(at + 1, keys.end(), key)) {
        if (count == members.size()) return std::nullopt;
        members[count++] = static_cast<char16_t>(at - keys.begin());
    }
    if (count == 0) return std::nullopt;
    std::fill(members.begin() + static_cast<std::ptrdiff_t>(count), members.end(),
              members[count - 1]);
    return members;
}

int CommonnessOfUnit(char16_t unit) {
    if (unit < 0x100) return CommonnessOf(static_cast<std::uint8_t>(unit));
    const bool kana = unit >= 0x3040 && unit < 0x3100;
    const bool hangul = unit >= 0xAC00 && unit < 0xD7B0;
    return kana || hangul ? 120 : 40;
}

Vector Load(const char16_t* from) {
    Vector vector;
    std::memcpy(&vector, from, sizeof vector);
    return vector;
}

class Sieve {
public:
    Sieve(const char16_t* units, const UnitNeedle& needle)
        : first_(units + needle.First()), second_(units + needle.Second()) {
        for (std::size_t i = 0; i < UnitNeedle::Most; ++i) {
            ofFirst_[i] = Vector{} + needle.OfFirst()[i];
            ofSecond_[i] = Vector{} + needle.OfSecond()[i];
        }
    }

    Vector Pass(std::size_t at) const {
        const Vector a = Load(first_ + at);
        const Vector b = Load(second_ + at);
        const auto first =
            (a == ofFirst_[0]) | (a == ofFirst_[1]) | (a == ofFirst_[2]) | (a == ofFirst_[3]);
        const auto second =
            (b == ofSecond_[0]) | (b == ofSecond_[1]) | (b == ofSecond_[2]) | (b == ofSecond_[3]);
        const auto both = first & second;
        Vector passed;
        static_assert(sizeof both == sizeof passed);
        std::memcpy(&passed, &both, sizeof passed);
        return passed;
    }

private:
    const char16_t* first_;
    const char16_t* second_;
    Vector ofFirst_[UnitNeedle::Most];
    Vector ofSecond_[UnitNeedle::Most];
};

bool IsAnySet(const Vector& vector) {
    std::array<std::uint64_t, 2> words;
    std::memcpy(words.data(), &vector, sizeof vector);
    return (words[0] | words[1]) != 0;
}

class UnitScan {
public:
    UnitScan(const char16_t* units, std::size_t places, const UnitNeedle& needle)
        : units_(units), places_(places), needle_(needle) {}

    PlaceScan Run() {
        const Sieve sieve(units_, needle_);
        std::size_t at = 0;
        for (; places_ - at >= blockUnits; at += blockUnits) {
            const Vector passed[] = {sieve.Pass(at), sieve.Pass(at + vectorUnits),
                                     sieve.Pass(at + 2 * vectorUnits),
                                     sieve.Pass(at + 3 * vectorUnits)};
            if (!IsAnySet(passed[0] | passed[1] | passed[2] | passed[3])) continue;
            for (std::size_t i = 0; i < 4; ++i) {
                if (CheckPassed(passed[i], at + i * vectorUnits)) return scan_;
            }
        }
        for (; at < places_; ++at) {
            if (EndsAt(at)) return scan_;
        }
        return {places_, false};
    }

private:
    bool CheckPassed(const Vector& passed, std::size_t at) {
        if (!IsAnySet(passed)) return false;
        for (std::size_t i = 0; i < vectorUnits; ++i) {
            if (passed[i] != 0 && EndsAt(at + i)) return true;
        }
        return false;
    }

    bool EndsAt(std::size_t place) {
        const std::size_t same = needle_.SameUnits(units_ + place);
        work_ += same;
        scan_.Place = place;
        if (same == needle_.Size()) return true;
        scan_.GaveUp = work_ > freeWork + 2 * place;
        return scan_.GaveUp;
    }

    const char16_t* units_;
    std::size_t places_;
    const UnitNeedle& needle_;
    PlaceScan scan_;
    std::size_t work_ = 0;
};

}  // namespace

UnitNeedle::UnitNeedle(std::u16string_view needle, const UnitKeys& keys)
    : needle_(KeysOf(needle, keys)), keys_(&keys) {
    // Looking for the members takes longer than a glance at the text: only for the rarest.
    std::vector<std::size_t> places(needle_.size());
    for (std::size_t place = 0; place < places.size(); ++place) places[place] = place;
    constexpr std::size_t mostTries = 6;
    const auto tried =
        places.begin() + static_cast<std::ptrdiff_t>(std::min(mostTries, places.size()));
    std::partial_sort(places.begin(), tried, places.end(), [&](std::size_t a, std::size_t b) {
        return CommonnessOfUnit(needle_[a]) < CommonnessOfUnit(needle_[b]);
    });
    std::size_t found = 0;
    for (auto place = places.begin(); place != tried && found < 2; ++place) {
        const auto members = MembersOf(needle_[*place], keys);
        if (!members) continue;
        if (found == 0) {
            first_ = *place;
            ofFirst_ = *members;
        }
        second_ = *place;
        ofSecond_ = *members;
        ++found;
    }
    hasSieve_ = found > 0;
}

PlaceScan ScanForNeedle(const char16_t* units, std::size_t places, const UnitNeedle& needle,
                        SearchKernel kernel) {
    if (kernel != SearchKernel::Naive) {
        if (!needle.HasSieve()) return {0, true};
        return UnitScan(units, places, needle).Run();
    }
    for (std::size_t at = 0; at < places; ++at) {
        if (needle.SameUnits(units + at) == needle.Size()) return {at, false};
    }
    return {places, false};
}

}  // namespace quorvale
