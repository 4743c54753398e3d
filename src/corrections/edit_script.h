#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <vector>

#include "corrections/update.h"

namespace quorvale {

/// One piece of a corrected text: lines of the document, or the text of a correction.
struct ScriptStep {
    /// Null for lines of the document. Otherwise one of the updates the script was made from.
    const Update* Insert = nullptr;
    /// The lines copied; an end before the start copies nothing.
    std::int32_t From = 0;
    std::int32_t To = 0;
};

using EditScript = std::list<ScriptStep>;

/// How the lines `first` to `first` + `count` - 1 are put together once they are corrected. Every
/// correction that begins in them replaces its lines in the run of lines that it begins in; of two
/// that overlap the later one in document order is left out. The updates must outlive the script.
EditScript MakeEditScript(std::int32_t first, std::int32_t count,
                          const std::vector<Update>& updates);

/// The script as text: "o1:4" for lines and "m0" for the correction with that number, each followed
/// by CR.
std::u16string ScriptText(const EditScript& script);

}  // namespace quorvale
