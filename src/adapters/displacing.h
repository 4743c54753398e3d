#pragma once

#include <string>
#include <vector>

#include "adapters/folder.h"

namespace quorvale {

// Bytes that are not ours are never deleted: they get a name of their own, and the host is told.

/// Moves what is at a name aside. False when nothing is there.
bool MoveAside(const Folder& folder, const std::string& name, FileNotice::Kind what,
               const std::string& about);

/// Copies the content of an open file aside: into the folder, or into the one for records where the
/// folder takes no new files.
void CopyAside(const Folder& folder, const PosixFile& source, const std::string& about);

/// Writes bytes that could not go where they should. Returns the name they have now.
std::string SaveAside(const Folder& folder, std::string_view bytes, FileNotice::Kind what,
                      const std::string& about);

/// Whether these bytes lie aside in the folder already: one copy is enough, however often it is
/// tried to do what it was made for. The host is told of it as of a new one.
bool LiesAside(const Folder& folder, const FileDigest& digest, FileNotice::Kind what,
               const std::string& about);

/// Deletes a helping file that holds one of these contents, and moves any other one aside.
void Drop(const Folder& folder, const std::string& name, const std::vector<FileDigest>& ours,
          const std::string& about);

}  // namespace quorvale
