#pragma once

#include <cstdint>
#include <vector>

#include "platform/encoding.h"

namespace quorvale {

/// What a host may switch on beyond what the members promise. Set before loading; every default
/// keeps the promised behaviour.
struct HostOptions {
    /// Off: scroll bars hold 16-bit values, the vertical one steps `ScrollScale` lines at a time
    /// and rows are cut at 40000 twips. On: every line and every column of any document can be
    /// reached.
    bool WideScrollBars = false;

    /// Off: 129 row slots, at most 127 whole rows. On: as many as the surface is high.
    bool TallView = false;

    /// How the bytes of loaded files are read.
    quorvale::Encoding Encoding = quorvale::Encoding::SingleByte;

    /// Off: the Edit command and F2 change nothing. On: they open the editor over the selected
    /// rows.
    bool OfferEditing = false;

    /// Off: corrections are saved beside the file, and a commit writes them into it. On: they are
    /// shown, and nothing else: the journal is neither saved nor deleted, nothing is edited, taken
    /// back or committed. For a file that somebody else corrects just now.
    bool ReadOnly = false;

    /// The editor opens over at most so many lines, and so many characters in them; 0 for any
    /// number. `HostCorrections::TooMuchToEdit` is called instead where there are more.
    std::int32_t MostEditedLines = 0;
    std::int32_t MostEditedCharacters = 0;  ///< in UTF-16 units, line breaks included

    /// Off: a commit ends every line with CR LF and writes blanks for tabs, except in corrected
    /// lines. On: it leaves all but the corrected lines as they are, byte for byte.
    bool KeepLineFormat = false;

    /// The columns at which "Show Boundaries" draws its lines; 0 and less for the left edge of the
    /// text.
    std::vector<std::int32_t> BoundaryColumns = {72, 80};
};

}  // namespace quorvale
