#pragma once

#include <string>

namespace quorvale {

/// What the search works on.
struct SearchState {
    /// Full names of the files to search, separated by CR.
    std::u16string SearchFiles;
};

}  // namespace quorvale
