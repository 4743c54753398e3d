#include "adapters/located_file.h"

#include <cerrno>
#include <utility>

#include "adapters/posix_names.h"
#include "adapters/system_error.h"

namespace quorvale {

namespace {

constexpr int mostLinks = 40;

void RequireName(const std::string& base) {
    if (base.empty() || base == "." || base == "..") throw SystemError("open", EISDIR);
}

}  // namespace

std::string LocatedFile::Identity() const {
    const FileStatus status = Folder.Handle().Status();
    return std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino) + "/" + Base;
}

std::string LocatedFile::Path() const {
    const std::string folder = Folder.Path();
    if (folder.empty()) return {};
    return folder.ends_with('/') ? folder + Base : folder + "/" + Base;
}

LocatedFile Locate(PosixContext& context, const std::string& path) {
    SplitPath split = Split(path);
    RequireName(split.Base);
    LocatedFile file{Folder::Open(context, split.Folder), split.Base, std::nullopt};
    for (int links = 0;; ++links) {
        file.Status = file.Folder.Find(file.Base);
        if (!file.Status || !S_ISLNK(file.Status->st_mode)) return file;
        if (links == mostLinks) throw SystemError("open", ELOOP);
        split = Split(file.Folder.ReadLink(file.Base));
        RequireName(split.Base);
        file.Folder = file.Folder.OpenFrom(split.Folder);
        file.Base = std::move(split.Base);
    }
}

std::optional<LocatedFile> FindFile(PosixContext& context, const std::string& path) {
    try {
        return Locate(context, path);
    } catch (const SystemError& error) {
        if (!IsAbsence(error.Code())) throw;
        return std::nullopt;
    }
}

JournalSite SiteOf(PosixContext& context, const std::string& path) {
    SplitPath split = Split(path);
    RequireName(split.Base);
    return {Folder::Open(context, split.Folder), std::move(split.Base)};
}

std::optional<FileDigest> DigestOfJournal(const JournalSite& site) {
    const auto journal = site.Folder.OpenRegular(site.Name);
    if (!journal) return std::nullopt;
    return journal->Digest();
}

bool IsReadOnly(const FileStatus& status) {
    constexpr mode_t anyWriting = S_IWUSR | S_IWGRP | S_IWOTH;
    return !S_ISLNK(status.st_mode) && (status.st_mode & anyWriting) == 0;
}

void RemoveJournal(const JournalSite& site, bool force) {
    const auto status = force ? std::nullopt : site.Folder.Find(site.Name);
    if (status && IsReadOnly(*status)) {
        throw SystemError("delete", "The journal is read-only", EACCES);
    }
    site.Folder.Remove(site.Name);
}

}  // namespace quorvale
