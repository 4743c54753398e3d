#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/xml_document.h"

namespace quorvale {

/// The corrections of the loaded file that are not yet in it.
struct CorrectionsState {
    /// The journal in memory and its element `corrections`; both null when no file is loaded.
    XmlDocumentPtr JournalDocument;
    XmlNodePtr JournalRoot;
    /// The loaded file's name as it was when the file was read, valid in any current directory.
    std::u16string DocumentPath;
    /// Why the journal that lies beside the file could not be read: it must stay as it is.
    std::optional<FileFailure> Unreadable;
    /// The versions of the journal's file that are our own: the one that was read, or was saved
    /// last; and one that was to be saved and may be there or not.
    std::vector<FileDigest> OwnFiles;
    /// The correction whose mark was clicked last. It may have been removed since, or belong to a
    /// journal that is closed.
    XmlNodePtr Current;
    /// Rises with every change of the journal.
    std::uint64_t Changes = 0;
    /// What `Changes` was when the file beside the document held just these corrections.
    std::uint64_t SavedAt = 0;
};

}  // namespace quorvale
