#include "adapters/spent_journal.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "adapters/displacing.h"

namespace quorvale {

namespace {

bool IsRecorded(const LocatedFile& document, const JournalSite& site,
                const RecordedJournal& journal) {
    if (site.Name != journal.Name) return false;
    if (journal.Folder.empty()) return site.Folder.SameAs(document.Folder);
    return site.Folder.Path() == journal.Folder;
}

void Aside(const JournalSite& site) {
    if (MoveAside(site.Folder, site.Name, FileNotice::Kind::JournalKept, site.Name)) {
        site.Folder.Sync();
    }
}

/// The document was reached by another name than the one it was replaced by, and the journal that
/// goes with that name lies elsewhere. It is not deleted on the word of a record alone.
void SetOtherAside(const LocatedFile& document, const RecordedJournal& journal) {
    const auto aside = [&](const JournalSite& site) {
        if (journal.Digest && DigestOfJournal(site) == journal.Digest) Aside(site);
    };
    if (journal.Folder.empty()) {
        return aside({document.Folder.OpenFrom("."), journal.Name});
    }
    try {
        aside({Folder::Open(document.Folder.Context(), journal.Folder), journal.Name});
    } catch (const SystemError& error) {
        if (error.Code() != ENOENT && error.Code() != ENOTDIR) throw;
    }
}

}  // namespace

RecordedJournal RecordJournal(const LocatedFile& document, const JournalSite* site,
                              const std::vector<FileDigest>& known) {
    if (site == nullptr) return {};
    RecordedJournal journal{DigestOfJournal(*site), site->Name, {}};
    const bool ours =
        journal.Digest && std::find(known.begin(), known.end(), *journal.Digest) != known.end();
    if (!ours) journal.Digest.reset();
    if (!site->Folder.SameAs(document.Folder)) {
        journal.Folder = site->Folder.Path();
        if (journal.Folder.empty()) throw SystemError("find the journal's folder", ENOENT);
    }
    return journal;
}

void RemoveSpent(const LocatedFile& document, const JournalSite* site,
                 const RecordedJournal& journal, bool force) {
    const bool recorded = site != nullptr && IsRecorded(document, *site, journal);
    const auto found = site != nullptr ? DigestOfJournal(*site) : std::nullopt;
    try {
        if (found && found == journal.Digest) {
            RemoveJournal(*site, force);
        } else if (found && recorded) {
            Aside(*site);
        }
        if (!recorded && !journal.Name.empty()) SetOtherAside(document, journal);
    } catch (const SystemError& error) {
        throw JournalStays(error);
    }
}

void RemoveSpent(const JournalSite& site, const FileDigest& spent) {
    if (DigestOfJournal(site) == spent) RemoveJournal(site, false);
}

void SetJournalAside(const LocatedFile& document, const JournalSite* site,
                     const RecordedJournal& journal) {
    if (site != nullptr && IsRecorded(document, *site, journal)) return Aside(*site);
    if (!journal.Name.empty()) SetOtherAside(document, journal);
}

}  // namespace quorvale
