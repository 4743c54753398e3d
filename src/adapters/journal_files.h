#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "adapters/journal_status.h"
#include "adapters/located_file.h"
#include "platform/files.h"

namespace quorvale {

/// Puts a new journal in the place of the old one, whole or not at all; what is at its name is
/// replaced, never followed, and moved aside when it is a journal that is not known. Throws
/// SystemError, with a known journal as it was.
void SaveJournalFile(PosixContext& context, const JournalPlace& place, std::string_view bytes);

/// A journal that is not known is moved aside instead. Throws SystemError; one that is not there is
/// no failure, a read-only one is without `force`.
void DeleteJournalFile(PosixContext& context, const JournalPlace& place, bool force);

/// What lies at a journal's place; none for nothing. Throws SystemError.
std::optional<JournalStatus> FindJournalFile(const JournalSite& site);

/// Give a journal, or a copy of it, the name of bytes that are the user's only, and tell of it.
/// Throw SystemError, also when there is no journal.
void MoveJournalFileAside(const JournalSite& site);
void CopyJournalFileAside(const JournalSite& site);

/// What belongs to a journal's name in the names of helping files.
std::string TagOfJournal(const std::string& name);

}  // namespace quorvale
