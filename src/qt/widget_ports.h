#pragma once

#include <memory>

#include "platform/clock.h"
#include "platform/files.h"

namespace quorvale {

/// What a host brings of a widget's outside world itself; null for the real ones.
struct WidgetPorts {
    /// Where documents and journals are: the files of the system.
    std::shared_ptr<FileSystem> Files;
    /// What tells that a search takes long.
    std::shared_ptr<const Clock> Time;
};

}  // namespace quorvale
