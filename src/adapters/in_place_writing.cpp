#include <fcntl.h>

#include <utility>

#include "adapters/displacing.h"
#include "adapters/helping_names.h"
#include "adapters/redo_record.h"
#include "adapters/replacing.h"
#include "adapters/state_folder.h"
#include "adapters/system_error.h"
#include "adapters/temporary_file.h"

namespace quorvale {

namespace {

/// The steps of one protected write, in their order.
class InPlaceWriting {
public:
    explicit InPlaceWriting(const ReplacementJob& job)
        : job_(job),
          context_(job.Document.Folder.Context()),
          state_(CreateStateFolder(context_)),
          record_(state_, RedoRecordName(context_), 0600) {}

    void Run() {
        const PosixFile old = job_.Document.Folder.OpenFile(job_.Document.Base, O_RDONLY);
        const FileStatus seen = old.Status();
        if (!S_ISREG(seen.st_mode) || !SameFile(seen, *job_.Document.Status)) Changed();
        Record(old, seen);
        if (!job_.IsOurs(redo_.Record.Old, redo_.Record.New)) {
            CopyAside(job_.Document.Folder, old, job_.Document.Base);
        }
        PosixFile document = job_.Document.Folder.OpenFile(job_.Document.Base, O_WRONLY);
        if (!SameUntouched(document.Status(), seen)) Changed();
        if (redo_.Record.New.Size > redo_.Record.Old.Size) document.Reserve(redo_.Record.New.Size);
        // From here on the record is what can make the document whole.
        record_.Keep();
        auto& unconfirmed = context_.Unconfirmed;
        const auto before = unconfirmed.extract(job_.Identity);
        unconfirmed[job_.Identity] = redo_.Record.New;
        try {
            Put(document);
        } catch (const SystemError&) {
            if (TakeBack(document)) {
                record_.Discard();
                unconfirmed.erase(job_.Identity);
                if (before) unconfirmed[job_.Identity] = before.mapped();
            }
            throw;
        }
        document.Close();
        job_.Confirm(redo_.Record.Journal);
    }

private:
    [[noreturn]] static void Changed() {
        throw SystemError("replace", "The file was changed just now");
    }

    void Record(const PosixFile& old, const FileStatus& seen) {
        RedoRecord record;
        record.Path = job_.Document.Path();
        record.Device = seen.st_dev;
        record.Inode = seen.st_ino;
        record.New = job_.NewBytes.Digest();
        record.Journal = RecordJournal(job_.Document, job_.Site, job_.KnownJournals);
        const auto size = static_cast<std::uint64_t>(seen.st_size);
        redo_ = WriteRedo(record_, std::move(record), old, size, job_.NewBytes);
        state_.Sync();
    }

    /// The size comes last: until then every byte of the old content that is not overwritten stays.
    void Put(const PosixFile& document) const {
        document.WriteSpans(job_.NewBytes, 0);
        document.Truncate(job_.NewBytes.Size());
        document.Sync();
    }

    /// Puts the old bytes back. Where that fails too, recovery finds the record.
    bool TakeBack(const PosixFile& document) const {
        try {
            std::uint64_t at = 0;
            record_.File().ReadPieces(redo_.OldAt, redo_.Record.Old.Size,
                                      [&](std::string_view piece) {
                                          document.Write(piece, at);
                                          at += piece.size();
                                      });
            document.Truncate(redo_.Record.Old.Size);
            document.Sync();
            return true;
        } catch (const SystemError&) {
            return false;
        }
    }

    const ReplacementJob& job_;
    PosixContext& context_;
    Folder state_;
    TemporaryFile record_;
    StoredRedo redo_;
};

}  // namespace

void ReplaceInPlace(const ReplacementJob& job) { InPlaceWriting(job).Run(); }

}  // namespace quorvale
