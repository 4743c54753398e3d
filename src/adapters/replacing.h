#pragma once

#include <string>
#include <vector>

#include "adapters/located_file.h"
#include "adapters/spent_journal.h"
#include "platform/byte_spans.h"
#include "platform/file_digest.h"

namespace quorvale {

/// A replacement, and what is known about it before the first byte is written.
struct ReplacementJob {
    const LocatedFile& Document;
    /// Of the document, as the context knows it.
    std::string Identity;
    /// Null when no journal becomes void.
    const JournalSite* Site;
    /// The versions of that journal which the new content was made with.
    const std::vector<FileDigest>& KnownJournals;
    const LateDigest& Loaded;
    const ByteSpans& NewBytes;

    /// What this object, or an earlier try, has put in place; else another program's version.
    bool IsOurs(const FileDigest& found, const FileDigest& fresh) const;
    /// The new content is in place, safe from a power cut, and the journal void.
    void Confirm(const RecordedJournal& journal) const;
};

/// Puts a new file in the document's place: written and synchronised beside it, announced by a
/// record, exchanged in one step. Throws SystemError; CannotBeReplaced when this way is closed, and
/// nothing has changed. Once the new bytes are in place, the context knows them as unconfirmed
/// until this returns.
void ReplaceByRenaming(const ReplacementJob& job);

/// Writes into the document itself, which is there and keeps its identity: its names, its owner,
/// whatever. What it held and what it gets are recorded elsewhere before. Throws SystemError, after
/// the old bytes are back or the record is left to recovery.
void ReplaceInPlace(const ReplacementJob& job);

}  // namespace quorvale
