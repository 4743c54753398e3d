#pragma once

#include <cstdint>

#include "base/ordinals.h"

namespace quorvale {

/// The lines that the open editor stands for.
struct EditingState {
    /// First line and number of lines in the editor; both 0 before it was ever opened.
    Line EditStart{0};
    std::int32_t EditCount = 0;
    bool EditChanged = false;
};

}  // namespace quorvale
