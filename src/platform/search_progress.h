#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quorvale {

/// How far a search for all matches has come.
struct SearchPlace {
    /// The file being read, as it stands in the list; "*" for the document in memory.
    std::u16string_view File;
    std::size_t FilesDone = 0;
    std::size_t Files = 0;
    /// How much of this file is done, in bytes; lines of the document in memory.
    std::uint64_t Done = 0;
    std::uint64_t Size = 0;
    /// Matches listed so far.
    std::size_t Found = 0;
};

/// Hears how a search for all matches gets on, and may end it. Called on the control's thread
/// before every file and many times in a large one; it has to be quick, and may show something,
/// wait for nobody, and even destroy the control.
class SearchProgress {
public:
    virtual ~SearchProgress() = default;

    /// False ends the search: what was found so far is listed.
    virtual bool GoOn(const SearchPlace&) { return true; }
};

}  // namespace quorvale
