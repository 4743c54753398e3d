#include "adapters/journal_files.h"

#include <cerrno>
#include <optional>

#include "adapters/displacing.h"
#include "adapters/helping_names.h"
#include "adapters/kept_properties.h"
#include "adapters/located_file.h"
#include "adapters/recovery.h"
#include "adapters/system_error.h"
#include "adapters/temporary_file.h"

namespace quorvale {

namespace {

/// None when there is no such file, nor a folder for one.
std::optional<LocatedFile> FindDocument(PosixContext& context, const std::string& path) {
    if (path.empty()) return std::nullopt;
    try {
        return Locate(context, path);
    } catch (const SystemError& error) {
        if (error.Code() != ENOENT && error.Code() != ENOTDIR) throw;
        return std::nullopt;
    }
}

/// A replacement that failed at its very end has the corrections in the document all the same. A
/// journal with them would bring them in twice.
void RequireNotInDocument(const LocatedFile& document, const JournalSite& site,
                          std::string_view bytes) {
    auto& unconfirmed = document.Folder.Context().Unconfirmed;
    const auto placed = unconfirmed.find(document.Identity());
    if (placed == unconfirmed.end()) return;
    const auto file = document.Folder.OpenRegular(document.Base);
    if (!file || file->Digest() != placed->second) {
        unconfirmed.erase(placed);
        return;
    }
    SaveAside(site.Folder, bytes, FileNotice::Kind::JournalKept, site.Name);
    throw SystemError("save", "The corrections are in the file already");
}

/// Unless it is seen that there is none, a document has an access list.
bool MayHaveAccessList(const LocatedFile& document) {
    try {
        const auto file = document.Folder.OpenRegular(document.Base);
        return !file || HasAccessList(*file);
    } catch (const SystemError&) {
        return true;
    }
}

void Protect(const std::optional<LocatedFile>& document, const PosixFile& journal) {
    // Without a document nobody says who may read: nobody else may.
    if (!document || !document->Status) return;
    ProtectLike(*document->Status, MayHaveAccessList(*document), journal);
}

/// No load ever looks after the journal that belongs to no document.
void RemoveStraysOf(const JournalSite& site) {
    if (site.Name == journalEnding) RemoveStrays(site.Folder, TagOfJournal(site.Name), nullptr);
}

}  // namespace

std::string TagOfJournal(const std::string& name) {
    std::string_view stem = name;
    if (stem.ends_with(journalEnding)) stem.remove_suffix(journalEnding.size());
    return NameTag(stem);
}

void SaveJournalFile(PosixContext& context, const std::string& journal, const std::string& document,
                     std::string_view bytes) {
    const JournalSite site = SiteOf(context, journal);
    auto located = FindDocument(context, document);
    if (located) {
        RecoverReplacement(*located, &site, RecoveryPurpose::Write);
        RequireNotInDocument(*located, site, bytes);
        // The record of a replacement that is done must not come back and speak of this journal.
        located->Folder.Sync();
    }
    RemoveStraysOf(site);

    TemporaryFile temporary(site.Folder, TemporaryName(context, TagOfJournal(site.Name)), 0600);
    temporary.Fill(bytes);
    Protect(located, temporary.File());
    temporary.Finish(bytes.size());
    const int folder = site.Folder.Handle().Descriptor();
    const int renamed = Uninterrupted([&] {
        return context.Calls.Rename(folder, temporary.Name().c_str(), folder, site.Name.c_str(), 0);
    });
    if (renamed != 0) throw SystemError("save", errno);
    temporary.Keep();
    site.Folder.Sync();
}

void DeleteJournalFile(PosixContext& context, const std::string& journal, bool force) {
    const JournalSite site = SiteOf(context, journal);
    RemoveStraysOf(site);
    const auto status = site.Folder.Find(site.Name);
    if (!status) return;
    constexpr mode_t anyWriting = S_IWUSR | S_IWGRP | S_IWOTH;
    if (!force && !S_ISLNK(status->st_mode) && (status->st_mode & anyWriting) == 0) {
        throw SystemError("delete", "The journal is read-only", EACCES);
    }
    site.Folder.Remove(site.Name);
    site.Folder.Sync();
}

}  // namespace quorvale
