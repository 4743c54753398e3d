#pragma once

namespace quorvale {

/// What a replacement that did not come to its end has left of a document, and so what the next
/// load will do.
enum class Interruption {
    None,          ///< nothing was interrupted
    NotBegun,      ///< the document is the old one: the journal is in force, helping files go
    HalfWritten,   ///< the rest of the new bytes will be written; then the journal goes
    Finished,      ///< the document is the new one already: the journal goes
    Edited,        ///< somebody wrote the document since: the journal will be moved aside
    DocumentGone,  ///< somebody took the document away: everything stays as it is
};

}  // namespace quorvale
