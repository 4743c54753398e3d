#pragma once

#include "adapters/located_file.h"
#include "adapters/recovery.h"

namespace quorvale {

/// Ends writing into the document that was interrupted: a document that was touched gets the rest
/// of its new bytes. Throws as RecoverReplacement does, and JournalStays.
void EndProtectedWrites(LocatedFile& document, const JournalSite* site, RecoveryPurpose purpose);

/// After a successful write into the document: removes the journal and the record. False when there
/// is no record. Throws SystemError when the journal stays.
bool FinishProtectedWrite(const LocatedFile& document, const JournalSite* site);

}  // namespace quorvale
