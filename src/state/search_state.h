#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quorvale {

/// What a search for one match came to.
enum class FindOutcome {
    None,      ///< there was no search yet
    Found,     ///< where it looked first
    Wrapped,   ///< on the other side of the text's end
    NotFound,  ///< nowhere
};

/// A place that the user has picked from the results.
struct PickedPlace {
    std::u16string File;
    std::int32_t Line = 0;
    std::int32_t Column = 0;

    bool operator==(const PickedPlace&) const = default;
};

/// What the search works on.
struct SearchState {
    /// Full names of the files to search, separated by CR.
    std::u16string SearchFiles;
    /// Where typing into the search box starts to search: the caret's offset when the box got the
    /// keyboard last, 0 before that.
    std::int32_t SearchStartOffset = 0;
    /// How the last search for one match ended.
    FindOutcome LastOutcome = FindOutcome::None;
    /// What is being picked, while another file takes the document's place for it.
    std::optional<PickedPlace> Picked;
};

}  // namespace quorvale
