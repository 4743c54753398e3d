#pragma once

#include <string>
#include <string_view>

#include "adapters/posix_context.h"

namespace quorvale {

/// Puts a new journal in the place of the old one, whole or not at all; what is at its name is
/// replaced, never followed. `document` may be empty. Throws SystemError, with the old journal as
/// it was.
void SaveJournalFile(PosixContext& context, const std::string& journal, const std::string& document,
                     std::string_view bytes);

/// Throws SystemError; a journal that is not there is no failure, a read-only one is without
/// `force`.
void DeleteJournalFile(PosixContext& context, const std::string& journal, bool force);

/// What belongs to a journal's name in the names of helping files.
std::string TagOfJournal(const std::string& name);

}  // namespace quorvale
