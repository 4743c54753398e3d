#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/search_outcome.h"

namespace quorvale {

/// What the search works on.
struct SearchState {
    /// Full names of the files to search, separated by CR.
    std::u16string SearchFiles;
    /// Where typing into the search box starts to search: the caret's offset when the box got the
    /// keyboard last, 0 before that.
    std::int32_t SearchStartOffset = 0;
    /// How many searches for one match there were: of two inside one another the later one counts.
    std::uint32_t Finds = 0;
    /// How the last search for one match ended.
    FindOutcome LastOutcome = FindOutcome::None;
    /// What is being picked, while another file takes the document's place for it.
    std::optional<PickedPlace> Picked;
};

}  // namespace quorvale
