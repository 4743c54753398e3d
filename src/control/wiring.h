#pragma once

namespace quorvale {

class ControlParts;

/// Lets the elements' handlers run the behaviours.
void WireHandlers(ControlParts& parts);

}  // namespace quorvale
