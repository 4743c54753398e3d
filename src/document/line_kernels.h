#pragma once

#include <cstdint>
#include <span>

#include "document/line_scan.h"

namespace quorvale {

/// The kernels behind `ScanLines`. They write as it does, but may stop earlier: before the last 64
/// units of the text, and where `starts` has fewer than 64 places left. They write no more than 64
/// places behind what they found.
template <class Unit>
using LineKernelFunction = LineScan (*)(std::span<const Unit> text, std::int32_t behindFirst,
                                        std::span<std::int32_t> starts);

LineScan ScanBlocksPortable(std::span<const std::uint8_t> text, std::int32_t behindFirst,
                            std::span<std::int32_t> starts);
LineScan ScanBlocksPortable(std::span<const char16_t> text, std::int32_t behindFirst,
                            std::span<std::int32_t> starts);

/// Only where `HasAvx2`.
LineScan ScanBlocksAvx2(std::span<const std::uint8_t> text, std::int32_t behindFirst,
                        std::span<std::int32_t> starts);

bool HasAvx2();

}  // namespace quorvale
