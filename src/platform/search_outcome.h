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

/// Which way a search goes from the caret.
enum class FindDirection { Forward, Backward };

/// A place that the user has picked from the results.
struct PickedPlace {
    std::u16string File;      ///< its full name
    std::int32_t Line = 0;    ///< from 1
    std::int32_t Column = 0;  ///< from 1, of the line as it is displayed

    /// Equal in all parts.
    bool operator==(const PickedPlace&) const = default;
};

}  // namespace quorvale
