#pragma once

#include <string>

namespace quorvale {

/// Something that a file system did, or could not do, while what it was asked for went on. A host
/// may tell its user; nothing has to be done about it.
struct FileNotice {
    /// What it was.
    enum class Kind {
        DocumentKept,       ///< another program's version of the document was moved aside
        JournalKept,        ///< a journal of somebody else, or of another version, was moved aside
        RecordKept,         ///< the record of an interrupted write no longer fits its document
        WriteEnded,         ///< an interrupted write of the document was brought to its end
        DurabilityUnknown,  ///< the system does not say whether a change is safe from a power cut
    };

    Kind What = Kind::DurabilityUnknown;  ///< what it was
    /// The file it is about, by its last name.
    std::u16string Name;
    /// Where the bytes are now; empty when nothing was moved.
    std::u16string KeptAs;
};

}  // namespace quorvale
