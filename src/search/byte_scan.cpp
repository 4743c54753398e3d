#include "search/byte_scan.h"

#include <algorithm>
#include <limits>

#include "document/line_kernels.h"
#include "search/byte_kernels.h"

namespace quorvale {

namespace {

PlaceScan ScanNaively(const std::uint8_t* bytes, std::size_t places, const ByteNeedle& needle) {
    for (std::size_t at = 0; at < places; ++at) {
        std::size_t same = 0;
        while (same < needle.Size() &&
               (bytes[at + same] | needle.Mask(same)) == needle.Value(same)) {
            ++same;
        }
        if (same == needle.Size()) return {at, false};
    }
    return {places, false};
}

}  // namespace

SearchKernel BestSearchKernel() {
    static const bool avx2 = HasAvx2();
    return avx2 ? SearchKernel::Avx2 : SearchKernel::Portable;
}

PlaceScan ScanForNeedle(const std::uint8_t* bytes, std::size_t places, const ByteNeedle& needle,
                        SearchKernel kernel) {
    if (kernel == SearchKernel::Naive) return ScanNaively(bytes, places, needle);
    const NeedleKernel run =
        kernel == SearchKernel::Avx2 ? ScanForNeedleAvx2 : ScanForNeedlePortable;
    NeedleCheck check(needle);
    std::size_t from = 0;
    while (true) {
        const KernelScan scan = run(bytes, from, places, needle, check);
        if (scan.Why != KernelScan::End::Stopped) return {scan.Place, false};
        from = scan.Place + 1;
        if (check.IsTooDear(scan.Place)) return {from, from < places};
        check.Learn(scan.Place);
    }
}

std::size_t CountLineFeeds(std::span<const std::uint8_t> bytes, SearchKernel kernel) {
    switch (kernel) {
        case SearchKernel::Avx2:
            return CountLineFeedsAvx2(bytes);
        case SearchKernel::Portable:
            return CountLineFeedsPortable(bytes);
        case SearchKernel::Naive:
            break;
    }
    return static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n'));
}

std::size_t BehindLastLineFeed(std::span<const std::uint8_t> bytes) {
    return BestSearchKernel() == SearchKernel::Avx2 ? BehindLastLineFeedAvx2(bytes)
                                                    : BehindLastLineFeedPortable(bytes);
}

std::size_t FindByte(std::span<const std::uint8_t> bytes, std::uint8_t byte, std::size_t from) {
    if (from >= bytes.size()) return bytes.size();
    const void* const hit = std::memchr(bytes.data() + from, byte, bytes.size() - from);
    if (hit == nullptr) return bytes.size();
    return static_cast<std::size_t>(static_cast<const std::uint8_t*>(hit) - bytes.data());
}

bool IsAscii(std::span<const std::uint8_t> bytes) {
    return BestSearchKernel() == SearchKernel::Avx2 ? IsAsciiAvx2(bytes) : IsAsciiPortable(bytes);
}

}  // namespace quorvale
