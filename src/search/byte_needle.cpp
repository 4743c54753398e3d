#include "search/byte_needle.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace quorvale {

namespace {

constexpr std::uint8_t unknownByte = 5;
constexpr std::uint8_t beyondAscii = 60;

/// From the most common to the rarest; what is missing is rarer.
constexpr std::string_view byCommonness =
    " etaoinsr0lhd1uc2mpf35g4y68w79b-v.:/,k_=\"()[]\t;x'j<>{}q*z#+&|!@$%?\\\r\n~^`";

constexpr std::array<std::uint8_t, 256> MakeCommonness() {
    std::array<std::uint8_t, 256> table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
        table[byte] = byte < 0x80 ? unknownByte : beyondAscii;
    }
    std::uint8_t rank = 255;
    for (const char character : byCommonness) {
        table[static_cast<std::uint8_t>(character)] = rank;
        rank = static_cast<std::uint8_t>(rank - 3);
    }
    // Letters count in both cases.
    for (std::size_t letter = 'a'; letter <= 'z'; ++letter) table[letter - 0x20] = table[letter];
    return table;
}

constexpr std::array<std::uint8_t, 256> commonness = MakeCommonness();

int CommonnessOfSet(const ByteSet& set) {
    int sum = 0;
    for (std::size_t byte = 0; byte < commonness.size(); ++byte) {
        const bool within = set.Has(static_cast<std::uint8_t>(byte));
        // A set of many bytes is a poor sieve, whatever the bytes are.
        if (within) sum += 20 + commonness[byte];
    }
    return sum;
}

}  // namespace

ByteSet ByteSet::Around(std::span<const std::uint8_t> bytes) {
    ByteSet set = Of(bytes.front());
    for (const std::uint8_t byte : bytes) {
        set.Mask = static_cast<std::uint8_t>(set.Mask | (byte ^ bytes.front()));
    }
    set.Value = static_cast<std::uint8_t>(bytes.front() | set.Mask);
    std::size_t members = 0;
    for (int byte = 0; byte < 256; ++byte) members += set.Has(static_cast<std::uint8_t>(byte));
    set.Exact = members == bytes.size();
    return set;
}

ByteSets::ByteSets(const std::array<char16_t, 256>& keys) {
    std::map<char16_t, std::vector<std::uint8_t>> bytes;
    for (std::size_t byte = 0; byte < keys.size(); ++byte) {
        bytes[keys[byte]].push_back(static_cast<std::uint8_t>(byte));
    }
    for (const auto& [key, same] : bytes) sets_.emplace(key, ByteSet::Around(same));
}

std::optional<ByteSet> ByteSets::Of(char16_t key) const {
    const auto set = sets_.find(key);
    if (set == sets_.end()) return std::nullopt;
    return set->second;
}

ByteNeedle::ByteNeedle(std::span<const ByteSet> sets) : size_(sets.size()) {
    masks_.reserve(size_);
    values_.reserve(size_);
    std::optional<int> rarest;
    std::optional<int> second;
    std::map<std::pair<std::uint8_t, std::uint8_t>, int> known;
    for (std::size_t place = 0; place < size_; ++place) {
        const ByteSet& set = sets[place];
        masks_.push_back(set.Mask);
        values_.push_back(set.Value);
        exact_ = exact_ && set.Exact;
        const auto [entry, isNew] = known.try_emplace({set.Mask, set.Value}, 0);
        if (isNew) entry->second = CommonnessOfSet(set);
        const int common = entry->second;
        if (!rarest || common < *rarest) {
            second = std::exchange(rarest, common);
            sieve_[1] = std::exchange(sieve_[0], place);
        } else if (!second || common < *second) {
            second = common;
            sieve_[1] = place;
        }
    }
    constexpr int ofSingleByte = 512;
    commonness_ = rarest.value_or(0) + second.value_or(ofSingleByte);
}

void ByteNeedle::Learn(std::size_t place) const {
    const auto commonnessAt = [&](std::size_t at) {
        return CommonnessOfSet({masks_[at], values_[at], true});
    };
    ++lessons_;
    if (!hasThree_) {
        sieve_[2] = place;
        hasThree_ = true;
        return;
    }
    auto& commonest = *std::max_element(
        sieve_.begin(), sieve_.end(),
        [&](std::size_t a, std::size_t b) { return commonnessAt(a) < commonnessAt(b); });
    commonest = place;
}

std::uint8_t CommonnessOf(std::uint8_t byte) { return commonness[byte]; }

}  // namespace quorvale
