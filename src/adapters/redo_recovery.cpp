#include "adapters/redo_recovery.h"

#include <fcntl.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "adapters/displacing.h"
#include "adapters/helping_names.h"
#include "adapters/posix_names.h"
#include "adapters/redo_record.h"
#include "adapters/state_folder.h"
#include "adapters/system_error.h"

namespace quorvale {

namespace {

/// A record that was found in the folder for records.
struct FoundRedo {
    std::string Name;
    PosixFile File;
    /// None when it is torn.
    std::optional<StoredRedo> Redo;
};

/// Hands over each record that is of this document or of none, while nobody writes it.
void ForEachRecord(const Folder& state, const LocatedFile& document,
                   const std::function<void(FoundRedo&)>& take) {
    for (const std::string& name : state.List()) {
        if (!name.ends_with(redoRecordEnding)) continue;
        auto file = state.OpenRegular(name);
        if (!file) continue;
        auto redo = ReadRedo(*file);
        if (redo && !redo->Record.IsOf(document)) continue;
        const bool free = file->Lock();
        if (!free && !redo) continue;
        if (!free) throw SystemError("recover", "Another program is just writing the file", EBUSY);
        FoundRedo found{name, std::move(*file), std::move(redo)};
        take(found);
    }
}

/// The journal's folder is told relative to the name that the document was written by.
RecordedJournal JournalOf(const RedoRecord& record, const LocatedFile& document) {
    RecordedJournal journal = record.Journal;
    if (journal.Folder.empty() && record.Path != document.Path()) {
        journal.Folder = Split(record.Path).Folder;
    }
    return journal;
}

/// The record is not torn.
WriteProgress ProgressBy(const FoundRedo& found, const LocatedFile& document) {
    const auto file = document.Folder.OpenRegular(document.Base);
    if (!file) return WriteProgress::Foreign;
    if (IsIntact(found.File, *found.Redo)) return ProgressOf(*file, found.File, *found.Redo);
    // The record is spoilt; it can still say whether the document is.
    const FileDigest digest = file->Digest();
    if (digest == found.Redo->Record.New) return WriteProgress::Complete;
    if (digest == found.Redo->Record.Old) return WriteProgress::Untouched;
    return WriteProgress::Foreign;
}

/// Ends one write into the document.
class RedoRecovery {
public:
    RedoRecovery(const Folder& state, LocatedFile& document, const JournalSite* site,
                 RecoveryPurpose purpose)
        : state_(state), document_(document), site_(site), purpose_(purpose) {}

    void End(const FoundRedo& found) {
        // A torn record was not on the disk yet, and so the document has not been touched.
        if (!found.Redo) return Remove(found);
        const StoredRedo& redo = *found.Redo;
        switch (ProgressBy(found, document_)) {
            case WriteProgress::Untouched:
                return Remove(found);
            case WriteProgress::Partial:
                WriteRest(found.File, redo);
                break;
            case WriteProgress::Complete:
                // It may not be on the disk yet.
                document_.Folder.OpenFile(document_.Base, O_RDONLY).Sync();
                break;
            case WriteProgress::Foreign:
                return SetAside(found);
        }
        RemoveSpent(document_, site_, JournalOf(redo.Record, document_), true);
        Remove(found);
    }

private:
    void WriteRest(const PosixFile& file, const StoredRedo& redo) {
        PosixFile document = document_.Folder.OpenFile(document_.Base, O_WRONLY);
        if (!document_.Status || !SameFile(document.Status(), *document_.Status)) {
            throw SystemError("recover", "The file was changed just now");
        }
        std::uint64_t at = 0;
        file.ReadPieces(redo.NewAt(), redo.Record.New.Size, [&](std::string_view piece) {
            document.Write(piece, at);
            at += piece.size();
        });
        document.Truncate(redo.Record.New.Size);
        document.Sync();
        document.Close();
        document_.Status = document_.Folder.Find(document_.Base);
        document_.Folder.Context().Note(FileNotice::Kind::WriteEnded, document_.Base);
    }

    void SetAside(const FoundRedo& found) {
        SetJournalAside(document_, site_, JournalOf(found.Redo->Record, document_));
        MoveAside(state_, found.Name, FileNotice::Kind::RecordKept, document_.Base);
        Tidy([&] { state_.Sync(); });
    }

    void Remove(const FoundRedo& found) {
        Tidy([&] {
            // The record outlives the journal.
            if (site_ != nullptr) site_->Folder.Sync();
            state_.Remove(found.Name);
            // A record that came back would speak of a journal that is written now.
            if (purpose_ == RecoveryPurpose::Write) state_.Sync();
        });
    }

    template <class Action>
    void Tidy(Action action) const {
        if (purpose_ == RecoveryPurpose::Write) return action();
        try {
            action();
        } catch (const SystemError&) {
            // The record is found again the next time.
        }
    }

    const Folder& state_;
    LocatedFile& document_;
    const JournalSite* site_;
    RecoveryPurpose purpose_;
};

}  // namespace

void EndProtectedWrites(LocatedFile& document, const JournalSite* site, RecoveryPurpose purpose) {
    const auto state = FindStateFolder(document.Folder.Context());
    if (!state) return;
    ForEachRecord(*state, document, [&](FoundRedo& found) {
        // Whoever took the document away may bring it back.
        if (found.Redo && !document.IsRegular() && purpose == RecoveryPurpose::Load) return;
        RedoRecovery(*state, document, site, purpose).End(found);
    });
}

std::optional<WriteProgress> FindProtectedWrite(const LocatedFile& document) {
    std::optional<WriteProgress> progress;
    const auto state = FindStateFolder(document.Folder.Context());
    if (!state) return progress;
    ForEachRecord(*state, document, [&](FoundRedo& found) {
        if (found.Redo) progress = ProgressBy(found, document);
    });
    return progress;
}

bool FinishProtectedWrite(const LocatedFile& document, const JournalSite* site) {
    const auto state = FindStateFolder(document.Folder.Context());
    bool finished = false;
    if (!state) return finished;
    ForEachRecord(*state, document, [&](FoundRedo& found) {
        if (!found.Redo) return;
        RemoveSpent(document, site, JournalOf(found.Redo->Record, document), false);
        finished = true;
        try {
            if (site != nullptr) site->Folder.Sync();
            state->Remove(found.Name);
            state->Sync();
        } catch (const SystemError&) {
            // With the record still there, the next load goes on here.
        }
    });
    return finished;
}

}  // namespace quorvale
