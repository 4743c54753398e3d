#pragma once

#include <memory>

#include "platform/picture.h"

namespace quorvale {

/// What the host has set that no element holds. Colours, fonts and widths are the elements' own.
struct AppearanceState {
    /// Kept, reported and stored; nothing consults it.
    bool EnabledFlag = false;
    /// The host's pictures for lines.
    std::shared_ptr<Object> ImageList;
};

}  // namespace quorvale
