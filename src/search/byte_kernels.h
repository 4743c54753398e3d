#pragma once

#include <cstring>

#include "search/byte_scan.h"

namespace quorvale {

/// Compares the needle with the bytes at places that passed its sieve, and keeps account of what
/// that costs.
class NeedleCheck {
public:
    explicit NeedleCheck(const ByteNeedle& needle)
        : needle_(needle), masks_(needle.Masks()), values_(needle.Values()), size_(needle.Size()) {}

    bool Fits(const std::uint8_t* bytes) {
        const bool fits = size_ >= sizeof(std::uint64_t)   ? FitsBy<std::uint64_t>(bytes)
                          : size_ >= sizeof(std::uint32_t) ? FitsBy<std::uint32_t>(bytes)
                                                           : SameBytes(bytes) == size_;
        if (!fits) missed_ = bytes;
        return fits;
    }

    /// After a false alarm: whether to stop and think. `scanned` places were looked at so far.
    bool ShouldStop(std::size_t scanned) {
        if (++cost_ < nextReview_) return false;
        nextReview_ = cost_ + reviewStep;
        return IsTooDear(scanned) || IsWorthLearning(scanned);
    }

    /// This costs more than taking every byte in order would.
    bool IsTooDear(std::size_t scanned) const { return cost_ > freeCost + 2 * scanned; }

    void Learn(std::size_t scanned) {
        needle_.Learn(SameBytes(missed_));
        learnedAt_ = scanned;
        learnedCost_ = cost_;
    }

private:
    static constexpr std::size_t freeCost = 4096;
    static constexpr std::size_t reviewStep = 32;
    /// So many bytes for an alarm are a fair price.
    static constexpr std::size_t rareEnough = 2048;

    template <class Word>
    static Word Load(const std::uint8_t* from) {
        Word value;
        std::memcpy(&value, from, sizeof value);
        return value;
    }

    template <class Word>
    bool WordFits(const std::uint8_t* bytes, std::size_t at) const {
        return (Load<Word>(bytes + at) | Load<Word>(masks_ + at)) == Load<Word>(values_ + at);
    }

    /// Word by word; the last one may lie over the one before it. For needles of a word or more.
    template <class Word>
    bool FitsBy(const std::uint8_t* bytes) {
        for (std::size_t at = 0; size_ - at > sizeof(Word); at += sizeof(Word), ++cost_) {
            if (!WordFits<Word>(bytes, at)) return false;
        }
        return WordFits<Word>(bytes, size_ - sizeof(Word));
    }

    /// How many bytes from there on are the needle's.
    std::size_t SameBytes(const std::uint8_t* bytes) const {
        std::size_t same = 0;
        while (same < size_ && (bytes[same] | masks_[same]) == values_[same]) ++same;
        return same;
    }

    bool IsWorthLearning(std::size_t scanned) const {
        return cost_ - learnedCost_ > (scanned - learnedAt_) / rareEnough && needle_.CanLearn();
    }

    const ByteNeedle& needle_;
    const std::uint8_t* masks_;
    const std::uint8_t* values_;
    std::size_t size_;
    /// Where the needle did not fit last.
    const std::uint8_t* missed_ = nullptr;
    /// In words compared and alarms.
    std::size_t cost_ = 0;
    std::size_t nextReview_ = reviewStep;
    std::size_t learnedAt_ = 0;
    std::size_t learnedCost_ = 0;
};

/// What one run of a kernel came to: the needle fits at `Place`, or the check wants to stop there,
/// where it does not fit, or there is no place left.
struct KernelScan {
    enum class End { Fits, Stopped, Nowhere };

    End Why = End::Nowhere;
    std::size_t Place = 0;
};

/// The kernels behind `ScanForNeedle`: at the places from `from` on that are below `places`.
using NeedleKernel = KernelScan (*)(const std::uint8_t* bytes, std::size_t from, std::size_t places,
                                    const ByteNeedle& needle, NeedleCheck& check);

KernelScan ScanForNeedlePortable(const std::uint8_t* bytes, std::size_t from, std::size_t places,
                                 const ByteNeedle& needle, NeedleCheck& check);

std::size_t CountLineFeedsPortable(std::span<const std::uint8_t> bytes);
std::size_t BehindLastLineFeedPortable(std::span<const std::uint8_t> bytes);
bool IsAsciiPortable(std::span<const std::uint8_t> bytes);

/// Only where the processor has AVX2.
KernelScan ScanForNeedleAvx2(const std::uint8_t* bytes, std::size_t from, std::size_t places,
                             const ByteNeedle& needle, NeedleCheck& check);
std::size_t CountLineFeedsAvx2(std::span<const std::uint8_t> bytes);
std::size_t BehindLastLineFeedAvx2(std::span<const std::uint8_t> bytes);
bool IsAsciiAvx2(std::span<const std::uint8_t> bytes);

/// Checks one place; true when the scan ends there.
inline bool EndsAt(std::size_t place, const std::uint8_t* bytes, NeedleCheck& check,
                   KernelScan& scan) {
    scan.Place = place;
    const bool fits = check.Fits(bytes + place);
    if (!fits && !check.ShouldStop(place)) return false;
    scan.Why = fits ? KernelScan::End::Fits : KernelScan::End::Stopped;
    return true;
}

/// Place by place, for the last places that do not fill a block.
inline KernelScan ScanPlaces(const std::uint8_t* bytes, std::size_t from, std::size_t places,
                             NeedleCheck& check) {
    KernelScan scan;
    for (std::size_t at = from; at < places; ++at) {
        if (EndsAt(at, bytes, check, scan)) return scan;
    }
    return {KernelScan::End::Nowhere, places};
}

}  // namespace quorvale
