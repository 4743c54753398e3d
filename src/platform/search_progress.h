#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/export.h"

namespace quorvale {

/// How far a search has come.
struct SearchPlace {
    /// The file being read, as it stands in the list, or the one whose text is searched; "*" for
    /// the document in memory.
    std::u16string_view File;
    std::size_t FilesDone = 0;  ///< how many are over
    std::size_t Files = 0;      ///< how many the list has
    /// How much of this file is done: in bytes, in lines of the document in memory, in characters
    /// of it for a search for one match.
    std::uint64_t Done = 0;
    std::uint64_t Size = 0;  ///< of the file, in the same measure
    /// Matches listed so far.
    std::size_t Found = 0;
};

/// Hears how a search gets on, and may end it. Called on the control's thread: before every file of
/// a list, and in between at least once for every 256 KiB of a file, 64 Ki characters of lines in
/// memory, or 1 Mi characters of the text that one match is looked for in; a single line that is
/// longer than that is one step. What typing into the search box sets off is not told: what is
/// typed meanwhile must not be lost.
///
/// It has to be quick, and may do anything to the control, also destroy it or load another
/// document: a search that has lost its control or its document ends and shows nothing. A second
/// search inside it is told between `Began` and `Ended` of its own.
class QUORVALE_CORE_EXPORT SearchProgress {
public:
    virtual ~SearchProgress() = default;

    /// The first call for a search.
    virtual void Began() {}

    /// False ends the search: what was found so far is listed; a search for one match leaves the
    /// caret alone.
    virtual bool GoOn(const SearchPlace&) { return true; }

    /// The last call for a search, however it came to its end, before its result is shown.
    virtual void Ended() noexcept {}
};

}  // namespace quorvale
