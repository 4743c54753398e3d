#pragma once

#include <string>
#include <string_view>

#include "adapters/posix_context.h"

namespace quorvale {

// The names of the files that the file layer puts beside a document for a while.

/// What stands for a document's last name in the names of the files that belong to it.
std::string NameTag(std::string_view base);

/// Bytes on their way to the name with that tag.
std::string TemporaryName(PosixContext& context, const std::string& tag);
bool IsTemporaryName(std::string_view name, const std::string& tag);

/// The record of a replacement.
std::string CommitRecordName(const std::string& tag);

/// Bytes that are nobody's to delete but the user's.
std::string DisplacedName(PosixContext& context);
bool IsDisplacedName(std::string_view name);

inline constexpr std::string_view redoRecordEnding = ".redo";
std::string RedoRecordName(PosixContext& context);

inline constexpr std::string_view journalEnding = "!.xml";

}  // namespace quorvale
