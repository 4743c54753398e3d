#pragma once

#include "adapters/interruption.h"
#include "adapters/located_file.h"
#include "platform/files.h"

namespace quorvale {

enum class RecoveryPurpose {
    Load,   ///< helping files that cannot be removed may stay for another time
    Write,  ///< something new is about to be written: nothing of before may stay
};

/// Ends what a replacement has left unfinished: one that was interrupted before the document
/// changed is taken back, one that was interrupted later is brought to its end. `site` may be null.
/// Throws SystemError when that is impossible or cannot be known; for writing, also when the
/// journal is spent but stays.
JournalStanding RecoverReplacement(LocatedFile& document, const JournalSite* site,
                                   RecoveryPurpose purpose);

/// What `RecoverReplacement` would have to end. Nothing is changed. Throws SystemError when it
/// cannot be known, and while another program is at work.
Interruption FindInterruption(const LocatedFile& document);

/// After a successful replacement: removes the journal that was in force before, and then what is
/// left of the helping files. Throws SystemError when the journal stays; it is known to be spent.
void FinishReplacement(const LocatedFile& document, const JournalSite* site);

/// Removes temporary files with that tag that are ours and in nobody's use. What cannot be removed
/// stays.
void RemoveStrays(const Folder& folder, const std::string& tag, const LocatedFile* document);

}  // namespace quorvale
