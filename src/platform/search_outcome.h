#pragma once

#include <cstdint>
#include <string>

namespace quorvale {

/// What a search for one match came to.
enum class FindOutcome {
    None,      ///< there was no search yet
    Found,     ///< where it looked first
    Wrapped,   ///< on the other side of the text's end
    NotFound,  ///< nowhere
    Stopped,   ///< it was ended before it came to one, or nobody waits for it any more
};

enum class FindDirection { Forward, Backward };

/// A place that the user has picked from the results.
struct PickedPlace {
    std::u16string File;
    std::int32_t Line = 0;
    std::int32_t Column = 0;

    bool operator==(const PickedPlace&) const = default;
};

}  // namespace quorvale
