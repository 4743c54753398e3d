#include "adapters/journal_files.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <optional>

#include "adapters/displacing.h"
#include "adapters/helping_names.h"
#include "adapters/kept_properties.h"
#include "adapters/located_file.h"
#include "adapters/posix_names.h"
#include "adapters/recovery.h"
#include "adapters/system_error.h"
#include "adapters/temporary_file.h"

namespace quorvale {

namespace {

/// Once is enough, however often it is tried to save them.
void KeepAside(const JournalSite& site, const std::string& identity, std::string_view bytes) {
    auto& kept = site.Folder.Context().KeptAside;
    const auto before = kept.find(identity);
    if (before != kept.end()) {
        const auto copy = site.Folder.OpenRegular(before->second);
        if (copy && copy->Digest() == DigestOf(bytes)) return;
    }
    kept[identity] = SaveAside(site.Folder, bytes, FileNotice::Kind::JournalKept, site.Name);
}

/// A replacement that failed at its very end has the corrections in the document all the same. A
/// journal with them would bring them in twice.
void RequireNotInDocument(const LocatedFile& document, const JournalSite& site,
                          std::string_view bytes) {
    auto& unconfirmed = document.Folder.Context().Unconfirmed;
    const std::string identity = document.Identity();
    const auto placed = unconfirmed.find(identity);
    if (placed == unconfirmed.end()) return;
    const auto file = document.Folder.OpenRegular(document.Base);
    if (!file || file->Digest() != placed->second) {
        unconfirmed.erase(placed);
        return;
    }
    KeepAside(site, identity, bytes);
    throw SystemError("save", "The corrections are in the file already");
}

/// Whoever took a journal away that we know may have written its corrections into the document.
void RequireDocumentAsLoaded(const LocatedFile& document, const JournalSite& site,
                             const JournalPlace& place, std::string_view bytes) {
    if (!place.Loaded || place.Known.empty()) return;
    if (site.Folder.Find(site.Name)) return;
    const auto file = document.Folder.OpenRegular(document.Base);
    if (!file || file->Digest() == *place.Loaded) return;
    KeepAside(site, document.Identity(), bytes);
    throw SystemError("save", "Another program has taken the corrections and changed the file");
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

/// Is it a journal that somebody else has put there? Without a document there are no others.
bool IsForeign(const JournalSite& site, const JournalPlace& place) {
    if (place.Document.empty()) return false;
    const auto found = DigestOfJournal(site);
    return found && std::find(place.Known.begin(), place.Known.end(), *found) == place.Known.end();
}

bool SetForeignAside(const JournalSite& site, const JournalPlace& place) {
    return IsForeign(site, place) &&
           MoveAside(site.Folder, site.Name, FileNotice::Kind::JournalKept, site.Name);
}

/// Another program may just be saving its journal, but not for ever.
void PutInPlace(const TemporaryFile& temporary, const JournalSite& site,
                const JournalPlace& place) {
    const int folder = site.Folder.Handle().Descriptor();
    for (int attempt = 0; attempt < 4; ++attempt) {
        const auto before = site.Folder.Find(site.Name);
        if (SetForeignAside(site, place) || !before) {
            if (site.Folder.RenameToFree(temporary.Name(), site.Name)) return;
            continue;
        }
        const auto now = site.Folder.Find(site.Name);
        if (!now || !SameUntouched(*before, *now)) continue;
        const int renamed = Uninterrupted([&] {
            return site.Folder.Context().Calls.Rename(folder, temporary.Name().c_str(), folder,
                                                      site.Name.c_str(), 0);
        });
        if (renamed != 0) throw SystemError("save", errno);
        return;
    }
    throw SystemError("save", "Another program is just writing the journal", EBUSY);
}

}  // namespace

std::string TagOfJournal(const std::string& name) {
    std::string_view stem = name;
    if (stem.ends_with(journalEnding)) stem.remove_suffix(journalEnding.size());
    return NameTag(stem);
}

void SaveJournalFile(PosixContext& context, const JournalPlace& place, std::string_view bytes) {
    const JournalSite site = SiteOf(context, PathOf(place.Name));
    auto located = FindFile(context, PathOf(place.Document));
    if (located) {
        RecoverReplacement(*located, &site, RecoveryPurpose::Write);
        RequireNotInDocument(*located, site, bytes);
        RequireDocumentAsLoaded(*located, site, place, bytes);
        // The record of a replacement that is done must not come back and speak of this journal.
        located->Folder.Sync();
    }
    RemoveStraysOf(site);

    TemporaryFile temporary(site.Folder, TemporaryName(context, TagOfJournal(site.Name)), 0600);
    temporary.Fill(bytes);
    Protect(located, temporary.File());
    temporary.Finish(bytes.size());
    PutInPlace(temporary, site, place);
    temporary.Keep();
    site.Folder.Sync();
}

void DeleteJournalFile(PosixContext& context, const JournalPlace& place, bool force) {
    const JournalSite site = SiteOf(context, PathOf(place.Name));
    RemoveStraysOf(site);
    if (!site.Folder.Find(site.Name)) return;
    if (!SetForeignAside(site, place)) RemoveJournal(site, force);
    site.Folder.Sync();
}

std::optional<JournalStatus> FindJournalFile(const JournalSite& site) {
    const auto status = site.Folder.Find(site.Name);
    if (!status) return std::nullopt;
    const int folderAllows = Uninterrupted([&] {
        return site.Folder.Context().Calls.MayWrite(site.Folder.Handle().Descriptor(), ".");
    });
    return JournalStatus{S_ISREG(status->st_mode), folderAllows == 0 && !IsReadOnly(*status)};
}

void MoveJournalFileAside(const JournalSite& site) {
    if (!MoveAside(site.Folder, site.Name, FileNotice::Kind::JournalKept, site.Name)) {
        throw SystemError("move", ENOENT);
    }
    site.Folder.Sync();
}

void CopyJournalFileAside(const JournalSite& site) {
    const auto file = site.Folder.OpenRegular(site.Name);
    if (!file) throw SystemError("copy", ENOENT);
    std::string bytes;
    const auto size = static_cast<std::uint64_t>(file->Status().st_size);
    file->ReadPieces(0, size, [&](std::string_view piece) { bytes += piece; });
    if (LiesAside(site.Folder, DigestOf(bytes), FileNotice::Kind::JournalKept, site.Name)) return;
    SaveAside(site.Folder, bytes, FileNotice::Kind::JournalKept, site.Name);
}

}  // namespace quorvale
