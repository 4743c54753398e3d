#pragma once

#include <optional>
#include <string>

#include "adapters/folder.h"

namespace quorvale {

/// A document file where it really is: links in its name are followed once, and from then on only
/// the folder they led to is worked in.
struct LocatedFile {
    quorvale::Folder Folder;
    std::string Base;
    /// What is there; none when there is nothing.
    std::optional<FileStatus> Status;

    bool IsRegular() const { return Status && S_ISREG(Status->st_mode); }
    /// Says the same for the same place in every process.
    std::string Identity() const;
    std::string Path() const;
};

/// Throws SystemError: for a folder that is not there, for too many links, for a name that is none.
LocatedFile Locate(PosixContext& context, const std::string& path);

/// None when there is no such file, nor a place for one.
std::optional<LocatedFile> FindFile(PosixContext& context, const std::string& path);

/// A journal's place. Links are not followed: what is at the name is what counts.
struct JournalSite {
    quorvale::Folder Folder;
    std::string Name;
};

JournalSite SiteOf(PosixContext& context, const std::string& path);

/// Tells a journal from another: its digest, or none when there is nothing that could be one.
/// Throws SystemError when there is one that cannot be read.
std::optional<FileDigest> DigestOfJournal(const JournalSite& site);

/// Nobody may write it; the modes of a link say nothing.
bool IsReadOnly(const FileStatus& status);

/// Deletes the journal; one that cannot be written with `force` only. Throws SystemError.
void RemoveJournal(const JournalSite& site, bool force);

}  // namespace quorvale
