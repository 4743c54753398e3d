#pragma once

#include "control/control_parts.h"
#include "control/quorvale_box.h"

namespace quorvale {

/// The data that a control works on. For tests that hold what is shown against what is stored;
/// everything else goes through the members and the elements, as hosts and users do.
const ControlParts& Inside(const QuorvaleBox& box);

}  // namespace quorvale
