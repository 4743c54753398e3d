#include "document/line_scan.h"

#include <algorithm>
#include <array>

#include "document/line_kernels.h"

namespace quorvale {

namespace {

/// Unit by unit, up to the line feed that finds no room.
template <class Unit>
LineScan ScanUnits(std::span<const Unit> text, std::int32_t behindFirst,
                   std::span<std::int32_t> starts) {
    LineScan scan;
    for (const Unit unit : text) {
        if (unit == '\n') {
            if (scan.Found == starts.size()) break;
            starts[scan.Found++] = behindFirst + static_cast<std::int32_t>(scan.Scanned);
        }
        scan.Ascii = scan.Ascii && unit < 0x80;
        ++scan.Scanned;
    }
    return scan;
}

template <class Unit>
class Scanner {
public:
    Scanner(std::span<const Unit> text, std::int32_t behindFirst, std::span<std::int32_t> starts)
        : text_(text), behindFirst_(behindFirst), starts_(starts) {}

    LineScan Run(LineKernelFunction<Unit> kernel) {
        Accept(kernel(text_, behindFirst_, starts_));
        while (scan_.Scanned < text_.size() && ScanPiece(kernel)) {
        }
        return scan_;
    }

private:
    /// What the kernel leaves, because the text or the room comes to its end: looked at in pieces
    /// that surely have room elsewhere. False when the room is used up.
    bool ScanPiece(LineKernelFunction<Unit> kernel) {
        std::array<std::int32_t, 4096> elsewhere;
        const auto piece =
            text_.subspan(scan_.Scanned, std::min(text_.size() - scan_.Scanned, elsewhere.size()));
        const auto room = starts_.subspan(scan_.Found);
        LineScan scan = kernel(piece, Place(0), elsewhere);
        const LineScan rest = ScanUnits(piece.subspan(scan.Scanned), Place(scan.Scanned),
                                        std::span(elsewhere).subspan(scan.Found));
        if (scan.Found + rest.Found > room.size()) {
            Accept(ScanUnits(piece, Place(0), room));
            return false;
        }
        std::copy_n(elsewhere.begin(), scan.Found + rest.Found, room.begin());
        Accept(scan);
        Accept(rest);
        return true;
    }

    std::int32_t Place(std::size_t ahead) const {
        return behindFirst_ + static_cast<std::int32_t>(scan_.Scanned + ahead);
    }

    void Accept(const LineScan& scan) {
        scan_.Scanned += scan.Scanned;
        scan_.Found += scan.Found;
        scan_.Ascii = scan_.Ascii && scan.Ascii;
    }

    std::span<const Unit> text_;
    std::int32_t behindFirst_;
    std::span<std::int32_t> starts_;
    LineScan scan_;
};

}  // namespace

LineKernel BestLineKernel() {
    static const bool avx2 = HasAvx2();
    return avx2 ? LineKernel::Avx2 : LineKernel::Portable;
}

LineScan ScanLines(std::span<const std::uint8_t> text, std::int32_t behindFirst,
                   std::span<std::int32_t> starts, LineKernel kernel) {
    switch (kernel) {
        case LineKernel::Avx2:
            return Scanner(text, behindFirst, starts).Run(ScanBlocksAvx2);
        case LineKernel::Portable:
            return Scanner(text, behindFirst, starts).Run(ScanBlocksPortable);
        case LineKernel::Naive:
            break;
    }
    return ScanUnits(text, behindFirst, starts);
}

LineScan ScanLines(std::span<const char16_t> text, std::int32_t behindFirst,
                   std::span<std::int32_t> starts, LineKernel kernel) {
    if (kernel == LineKernel::Naive) return ScanUnits(text, behindFirst, starts);
    return Scanner(text, behindFirst, starts).Run(ScanBlocksPortable);
}

}  // namespace quorvale
