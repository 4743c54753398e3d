#pragma once

#include <optional>
#include <string>

#include "adapters/located_file.h"
#include "adapters/spent_journal.h"

namespace quorvale {

/// Says that a replacement goes on, and how one can see afterwards whether it took place. It is on
/// the disk, beside the document, before the document can change, and goes when everything else is
/// done: in between, "the record is there and the document is the new one" means that the journal's
/// corrections are in the document already.
struct CommitRecord {
    FileDigest Old;
    FileDigest New;
    /// There was no document to be replaced.
    bool OldIsMissing = false;
    /// Where the new bytes wait, and the old ones afterwards.
    std::string Temporary;
    RecordedJournal Journal;
};

std::string EncodeCommitRecord(const CommitRecord& record, const std::string& base);
/// None for anything that is not a whole record of the document with that last name.
std::optional<CommitRecord> DecodeCommitRecord(std::string_view bytes, const std::string& base);

/// A record that was found.
struct FoundRecord {
    /// None when it is torn: whoever wrote it did not get any further.
    std::optional<CommitRecord> Record;
    PosixFile File;
};

/// The record of the document, if there is one that can be trusted: ours, or of the document's own
/// owner. Throws SystemError when it cannot be read, and when its writer is still at work.
std::optional<FoundRecord> FindCommitRecord(const LocatedFile& document);

}  // namespace quorvale
