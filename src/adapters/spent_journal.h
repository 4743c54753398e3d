#pragma once

#include <optional>
#include <string>
#include <vector>

#include "adapters/located_file.h"
#include "adapters/system_error.h"

namespace quorvale {

/// The journal that becomes void with a replacement, as its record names it.
struct RecordedJournal {
    /// None when there was no journal, or only one that the corrections do not come from.
    std::optional<FileDigest> Digest;
    std::string Name;
    /// Empty when it lies in the document's folder: folders may move.
    std::string Folder;
};

/// `site` may be null; `known` are the versions that the corrections may come from. Throws
/// SystemError when there is a journal that cannot be read.
RecordedJournal RecordJournal(const LocatedFile& document, const JournalSite* site,
                              const std::vector<FileDigest>& known);

/// The spent journal is known to be spent, but it is still there.
class JournalStays : public SystemError {
public:
    explicit JournalStays(const SystemError& why) : SystemError(why) {}
};

/// Removes a spent journal. Only the very bytes that were recorded are deleted; another journal at
/// that place belongs to no document any more and is moved aside. A journal that cannot be written
/// goes with `force` only. Throws JournalStays; SystemError when there is one that cannot be read.
void RemoveSpent(const LocatedFile& document, const JournalSite* site,
                 const RecordedJournal& journal, bool force);

/// The same without a record: removes a journal that is this one, and leaves any other.
void RemoveSpent(const JournalSite& site, const FileDigest& spent);

/// The document is neither the old nor the new one, and nobody knows whether the corrections are in
/// it: its journal is moved aside.
void SetJournalAside(const LocatedFile& document, const JournalSite* site,
                     const RecordedJournal& journal);

}  // namespace quorvale
