#include "adapters/recovery.h"

#include <unistd.h>

#include "adapters/commit_record.h"
#include "adapters/displacing.h"
#include "adapters/helping_names.h"
#include "adapters/redo_recovery.h"
#include "adapters/system_error.h"

namespace quorvale {

namespace {

enum class Content { Missing, Old, New, Other };

Content ContentOf(const LocatedFile& document, const CommitRecord& record) {
    const auto file = document.Folder.OpenRegular(document.Base);
    if (!file) return Content::Missing;
    const auto size = static_cast<std::uint64_t>(file->Status().st_size);
    if (size != record.Old.Size && size != record.New.Size) return Content::Other;
    const FileDigest digest = file->Digest();
    if (digest == record.New) return Content::New;
    return digest == record.Old ? Content::Old : Content::Other;
}

/// Ends one replacement by renaming.
class RenameRecovery {
public:
    RenameRecovery(const LocatedFile& document, const JournalSite* site, RecoveryPurpose purpose)
        : document_(document), site_(site), purpose_(purpose) {}

    void Run() {
        const auto found = FindCommitRecord(document_);
        if (!found) return;
        // A torn record was not on the disk yet, and so the document has not been touched.
        if (!found->Record) return Tidy([&] { RemoveRecord(); });
        End(*found->Record);
    }

private:
    void End(const CommitRecord& record) {
        switch (ContentOf(document_, record)) {
            case Content::Missing:
                // Whoever took the document away, or put something else there, may bring it back.
                if (!record.OldIsMissing && purpose_ == RecoveryPurpose::Load) return;
                break;
            case Content::Old:
                break;
            case Content::New:
                // The corrections must be safe in the document before the journal may go.
                SyncNames();
                RemoveSpent(document_, site_, record.Journal, true);
                break;
            case Content::Other:
                SetJournalAside(document_, site_, record.Journal);
                break;
        }
        Tidy([&] { RemoveHelpers(record); });
    }

    void SyncNames() const {
        try {
            document_.Folder.Sync();
        } catch (const SystemError& error) {
            throw JournalStays(error);
        }
    }

    void RemoveHelpers(const CommitRecord& record) const {
        Drop(document_.Folder, record.Temporary, {record.Old, record.New}, document_.Base);
        if (site_ != nullptr && !site_->Folder.SameAs(document_.Folder)) site_->Folder.Sync();
        document_.Folder.Sync();
        RemoveRecord();
    }

    void RemoveRecord() const {
        document_.Folder.Remove(CommitRecordName(NameTag(document_.Base)));
    }

    template <class Action>
    void Tidy(Action action) const {
        if (purpose_ == RecoveryPurpose::Write) return action();
        try {
            action();
        } catch (const SystemError&) {
            // The record stays with whatever could not be removed, for the next time.
        }
    }

    const LocatedFile& document_;
    const JournalSite* site_;
    RecoveryPurpose purpose_;
};

}  // namespace

JournalStanding RecoverReplacement(LocatedFile& document, const JournalSite* site,
                                   RecoveryPurpose purpose) {
    try {
        // A document that is half written must be whole before it can be told from another.
        EndProtectedWrites(document, site, purpose);
        RenameRecovery(document, site, purpose).Run();
    } catch (const JournalStays&) {
        if (purpose == RecoveryPurpose::Write) throw;
        return JournalStanding::Spent;
    }
    return JournalStanding::InForce;
}

Interruption FindInterruption(const LocatedFile& document) {
    if (const auto progress = FindProtectedWrite(document)) {
        switch (*progress) {
            case WriteProgress::Untouched:
                return Interruption::NotBegun;
            case WriteProgress::Partial:
                return Interruption::HalfWritten;
            case WriteProgress::Complete:
                return Interruption::Finished;
            case WriteProgress::Foreign:
                return document.IsRegular() ? Interruption::Edited : Interruption::DocumentGone;
        }
    }
    const auto found = FindCommitRecord(document);
    if (!found) return Interruption::None;
    if (!found->Record) return Interruption::NotBegun;
    switch (ContentOf(document, *found->Record)) {
        case Content::New:
            return Interruption::Finished;
        case Content::Other:
            return Interruption::Edited;
        case Content::Missing:
            if (!found->Record->OldIsMissing) return Interruption::DocumentGone;
            break;
        case Content::Old:
            break;
    }
    return Interruption::NotBegun;
}

void FinishReplacement(const LocatedFile& document, const JournalSite* site) {
    const auto spent = document.Folder.Context().Spent.extract(document.Identity());
    if (FinishProtectedWrite(document, site)) return;
    const auto found = FindCommitRecord(document);
    if (!found || !found->Record) {
        if (spent && site != nullptr) RemoveSpent(*site, spent.mapped());
        return;
    }
    const CommitRecord& record = *found->Record;
    RemoveSpent(document, site, record.Journal, false);
    try {
        Drop(document.Folder, record.Temporary, {record.Old, record.New}, document.Base);
        if (site != nullptr && !site->Folder.SameAs(document.Folder)) site->Folder.Sync();
        document.Folder.Sync();
        document.Folder.Remove(CommitRecordName(NameTag(document.Base)));
    } catch (const SystemError&) {
        // With the record still there, the next load goes on here.
    }
}

void RemoveStrays(const Folder& folder, const std::string& tag, const LocatedFile* document) {
    try {
        for (const std::string& name : folder.List()) {
            if (!IsTemporaryName(name, tag)) continue;
            const auto file = folder.OpenRegular(name);
            if (!file) continue;
            const uid_t owner = file->Status().st_uid;
            const bool ours = owner == geteuid() || (document != nullptr && document->Status &&
                                                     owner == document->Status->st_uid);
            if (ours && file->Lock()) folder.Remove(name);
        }
    } catch (const SystemError&) {
        // Strays do no harm.
    }
}

}  // namespace quorvale
