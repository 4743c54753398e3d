#pragma once

#include <optional>
#include <string>
#include <vector>

#include "corrections/update.h"
#include "state/corrections_state.h"
#include "state/document_state.h"

namespace quorvale {

/// One correction of a journal, and whether a commit can do with it just what it says.
struct PendingCorrection {
    XmlNodePtr Node;
    /// None when it does not say where it belongs.
    std::optional<UpdateRange> Range;
    /// Why it does not fit, for people; empty when it does.
    std::string Problem;

    /// It fits but for characters that the file cannot hold.
    bool IsUnwritable = false;

    bool Fits() const { return Problem.empty(); }
    /// A commit that succeeds does what it says.
    bool HasPlace() const { return Fits() || IsUnwritable; }
};

/// All corrections of the journal in their order. Without a document (null) it is only looked at
/// whether they say where they belong.
std::vector<PendingCorrection> FindPending(const CorrectionsState& journal,
                                           const DocumentState* document);

}  // namespace quorvale
