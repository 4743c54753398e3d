#pragma once

#include <optional>

#include "adapters/located_file.h"
#include "adapters/recovery.h"
#include "adapters/redo_record.h"

namespace quorvale {

/// Ends writing into the document that was interrupted: a document that was touched gets the rest
/// of its new bytes. Throws as RecoverReplacement does, and JournalStays.
void EndProtectedWrites(LocatedFile& document, const JournalSite* site, RecoveryPurpose purpose);

/// How far an interrupted writing into the document got; none when there is no whole record of one.
/// Nothing is changed. Throws SystemError while another program is at work.
std::optional<WriteProgress> FindProtectedWrite(const LocatedFile& document);

/// After a successful write into the document: removes the journal and the record. False when there
/// is no record. Throws SystemError when the journal stays.
bool FinishProtectedWrite(const LocatedFile& document, const JournalSite* site);

}  // namespace quorvale
