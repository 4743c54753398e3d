#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "adapters/interruption.h"
#include "adapters/journal_status.h"
#include "base/export.h"
#include "platform/file_notice.h"
#include "platform/files.h"

namespace quorvale {

class PosixCalls;
struct PosixContext;

/// The files of a POSIX system. Names are UTF-8 there; a lone surrogate U+DC80 to U+DCFF in a name
/// stands for the byte 0x80 to 0xFF, so that every file can be named. A name with a NUL is refused.
///
/// A document is replaced by a file that is written, synchronised and announced beside it and then
/// changes places with it. Where that is impossible (hard links, a folder that cannot be written,
/// an owner that would be lost) its bytes are overwritten, after old and new ones were recorded in
/// $XDG_STATE_HOME/quorvale. Helping files are called ".qbx-..." and go with the next load at the
/// latest; only what belongs to another program stays, as ".qbx-displaced-...".
class QUORVALE_CORE_EXPORT PosixFiles final : public FileSystem {
public:
    PosixFiles();
    /// With other system calls, which outlive this object, and another folder for records.
    PosixFiles(PosixCalls& calls, std::string stateFolder);
    ~PosixFiles() override;

    /// Hears what happened besides, after each call that it happened in.
    void SetNoticeHandler(std::function<void(const FileNotice&)> handler);

    /// What `Recover` would have to end. Nothing is changed. Fails when it cannot be known, and
    /// while another program is writing the document.
    FileResult<Interruption> FindInterruption(std::u16string_view document);
    /// What lies at a journal's name; none for nothing.
    FileResult<std::optional<JournalStatus>> FindJournal(std::u16string_view journal);
    /// Gives a journal a name under which it is kept and never read. The notice handler hears the
    /// name. Fails when there is no journal.
    FileResult<Done> MoveJournalAside(std::u16string_view journal);
    /// The same with a copy of it; the journal stays in force.
    FileResult<Done> CopyJournalAside(std::u16string_view journal);

    FileResult<std::unique_ptr<ReadStream>> OpenForReading(std::u16string_view name) override;
    FileResult<bool> Exists(std::u16string_view name) override;
    std::u16string AbsoluteName(std::u16string_view name) override;
    FileResult<std::unique_ptr<ReadStream>> OpenJournalForReading(
        std::u16string_view name) override;
    FileResult<Done> SaveJournal(const JournalPlace& journal, std::string_view bytes) override;
    FileResult<Done> DeleteJournal(const JournalPlace& journal, bool force) override;
    FileResult<Done> ReplaceDocument(const Replacement& replacement) override;
    FileResult<Done> RemoveSpentJournal(const Replacement& replacement) override;
    FileResult<JournalStanding> Recover(std::u16string_view document,
                                        std::u16string_view journal) override;

private:
    template <class Action>
    auto Guarded(std::u16string_view name, Action action) -> FileResult<decltype(action())>;
    template <class Action>
    auto GuardedWriting(std::u16string_view name, Action action) -> FileResult<decltype(action())>;
    void Replace(const Replacement& replacement);
    JournalStanding RecoverDocument(std::u16string_view document, std::u16string_view journal);

    std::unique_ptr<PosixContext> context_;
    std::function<void(const FileNotice&)> handler_;
};

}  // namespace quorvale
