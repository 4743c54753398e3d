#include "adapters/replacing.h"

#include <fcntl.h>

#include <cstdio>
#include <ctime>
#include <optional>
#include <utility>

#include "adapters/commit_record.h"
#include "adapters/displacing.h"
#include "adapters/helping_names.h"
#include "adapters/kept_properties.h"
#include "adapters/system_error.h"
#include "adapters/temporary_file.h"

namespace quorvale {

namespace {

constexpr const char* operation = "replace";

/// A file that nobody could want to see before it is complete is for our eyes only; one that comes
/// where none was gets what the process gives to new files.
constexpr mode_t privateMode = 0600;
constexpr mode_t ordinaryMode = 0666;

/// The steps of one replacement by renaming, in their order.
class Renaming {
public:
    explicit Renaming(const ReplacementJob& job)
        : job_(job), folder_(job.Document.Folder), tag_(NameTag(job.Document.Base)) {}

    void Run() {
        // Without a synchronised folder there is no order that a power cut would respect.
        if (folder_.IsPathOnly()) throw CannotBeReplaced(SystemError(operation, EACCES));
        CreateTemporary();
        WriteTemporary();
        WriteRecord();
        PutInPlace();
        LookAtReplaced();
        folder_.Sync();
        job_.Confirm(journal_);
    }

private:
    void CreateTemporary() {
        const mode_t mode = job_.Document.Status ? privateMode : ordinaryMode;
        try {
            temporary_.emplace(folder_, TemporaryName(folder_.Context(), tag_), mode);
        } catch (const SystemError& error) {
            if (error.Code() != EACCES && error.Code() != EROFS && error.Code() != EPERM) throw;
            throw CannotBeReplaced(error);
        }
    }

    /// What takes the processor's time is done while the disk is busy with the new bytes.
    void WriteTemporary() {
        temporary_->Fill(job_.NewBytes);
        if (job_.Document.Status) {
            const PosixFile old = folder_.OpenFile(job_.Document.Base, O_RDONLY);
            if (!SameFile(old.Status(), *job_.Document.Status)) {
                throw SystemError(operation, "The file was changed just now");
            }
            KeptProperties(old).ApplyTo(temporary_->File());
            LookAtOld(old);
        }
        new_ = job_.NewBytes.Digest();
        loaded_ = job_.Loaded;
        temporary_->Finish(job_.NewBytes.Size());
        written_ = temporary_->File().Status();
    }

    /// Of a document that was written a moment ago the time does not tell whether it is written
    /// once more.
    void LookAtOld(const PosixFile& old) {
        const FileStatus status = old.Status();
        if (std::time(nullptr) - status.st_mtim.tv_sec < 2) return;
        try {
            seen_ = Seen{status, old.Digest()};
        } catch (const SystemError&) {
            // Then it is looked at when it has been replaced, and kept if it cannot be read.
        }
    }

    FileDigest DigestOfReplaced(const PosixFile& replaced) const {
        const bool known = seen_ && SameUntouched(replaced.Status(), seen_->Status);
        return known ? seen_->Digest : replaced.Digest();
    }

    /// On the disk before the document can change, or a power cut would leave a changed document
    /// beside a journal that nobody knows to be spent.
    void WriteRecord() {
        CommitRecord record;
        record.Old = loaded_;
        record.New = new_;
        record.OldIsMissing = !job_.Document.Status;
        record.Temporary = temporary_->Name();
        record.Journal = journal_ = RecordJournal(job_.Document, job_.Site, job_.KnownJournals);
        const std::string bytes = EncodeCommitRecord(record, job_.Document.Base);
        record_.emplace(folder_, CommitRecordName(tag_), privateMode);
        record_->Fill(bytes);
        record_->Finish(bytes.size());
        folder_.Sync();
    }

    void PutInPlace() {
        // The document may come or go meanwhile, but not for ever.
        for (int attempt = 0; attempt < 4; ++attempt) {
            const int exchanged = Rename(RENAME_EXCHANGE);
            if (exchanged == 0) return Placed(true);
            if (exchanged == EINVAL || exchanged == ENOSYS) return PutWithoutExchange();
            if (exchanged != ENOENT) Fail(exchanged);
            const int created = Rename(RENAME_NOREPLACE);
            if (created == 0) return Placed(false);
            if (created == EINVAL || created == ENOSYS) return PutWithoutExchange();
            if (created != EEXIST) Fail(created);
        }
        Fail(EBUSY);
    }

    /// The old file is overwritten: what is in it that is not ours is saved before.
    void PutWithoutExchange() {
        if (const auto current = folder_.OpenRegular(job_.Document.Base)) {
            const FileStatus seen = current->Status();
            if (!job_.IsOurs(current->Digest(), new_))
                CopyAside(folder_, *current, job_.Document.Base);
            const auto now = folder_.Find(job_.Document.Base);
            if (!now || !SameUntouched(*now, seen)) Fail(EAGAIN);
        } else if (folder_.Find(job_.Document.Base)) {
            Fail(EEXIST);
        }
        const int renamed = Rename(0);
        if (renamed != 0) Fail(renamed);
        Placed(false);
    }

    /// 0 or the system's error. A network may report a failure for what was done.
    int Rename(unsigned flags) {
        const int folder = folder_.Handle().Descriptor();
        const char* const from = temporary_->Name().c_str();
        const char* const to = job_.Document.Base.c_str();
        for (int attempt = 0;; ++attempt) {
            if (folder_.Context().Calls.Rename(folder, from, folder, to, flags) == 0) return 0;
            const int error = errno;
            if (IsInPlace()) return 0;
            if (error != EINTR || attempt == 1000) return error;
        }
    }

    bool IsInPlace() {
        try {
            const auto now = folder_.Find(job_.Document.Base);
            return now && SameFile(*now, written_);
        } catch (const SystemError&) {
            // Nobody knows: everything stays for recovery to find out.
            Placed(false);
            throw;
        }
    }

    [[noreturn]] static void Fail(int code) {
        const SystemError error(operation, code);
        if (IsRefusal(code)) throw CannotBeReplaced(error);
        throw error;
    }

    void Placed(bool exchanged) {
        temporary_->Keep();
        record_->Keep();
        exchanged_ = exchanged;
        folder_.Context().Unconfirmed[job_.Identity] = new_;
    }

    /// The temporary name leads to what was the document: of no more use, unless another program
    /// wrote it.
    void LookAtReplaced() {
        if (!exchanged_) return;
        try {
            const auto replaced = folder_.OpenRegular(temporary_->Name());
            if (replaced && job_.IsOurs(DigestOfReplaced(*replaced), new_)) {
                folder_.Remove(temporary_->Name());
            } else {
                MoveAside(folder_, temporary_->Name(), FileNotice::Kind::DocumentKept,
                          job_.Document.Base);
            }
        } catch (const SystemError&) {
            // It keeps its temporary name, and is looked at again before that goes.
        }
    }

    struct Seen {
        FileStatus Status;
        FileDigest Digest;
    };

    const ReplacementJob& job_;
    const Folder& folder_;
    std::string tag_;
    std::optional<TemporaryFile> temporary_;
    std::optional<TemporaryFile> record_;
    FileDigest new_;
    FileDigest loaded_;
    RecordedJournal journal_;
    std::optional<Seen> seen_;
    FileStatus written_{};
    bool exchanged_ = false;
};

}  // namespace

bool ReplacementJob::IsOurs(const FileDigest& found, const FileDigest& fresh) const {
    const auto& unconfirmed = Document.Folder.Context().Unconfirmed;
    const auto placed = unconfirmed.find(Identity);
    return found == Loaded || found == fresh ||
           (placed != unconfirmed.end() && found == placed->second);
}

void ReplacementJob::Confirm(const RecordedJournal& journal) const {
    PosixContext& context = Document.Folder.Context();
    context.Unconfirmed.erase(Identity);
    context.Spent.erase(Identity);
    if (journal.Digest) context.Spent[Identity] = *journal.Digest;
}

void ReplaceByRenaming(const ReplacementJob& job) { Renaming(job).Run(); }

}  // namespace quorvale
