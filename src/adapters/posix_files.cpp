#include "adapters/posix_files.h"

#include <fcntl.h>

#include <array>
#include <cerrno>
#include <optional>
#include <utility>

#include "adapters/file_size_signal.h"
#include "adapters/helping_names.h"
#include "adapters/journal_files.h"
#include "adapters/kept_properties.h"
#include "adapters/located_file.h"
#include "adapters/posix_names.h"
#include "adapters/recovery.h"
#include "adapters/replacing.h"
#include "adapters/state_folder.h"
#include "adapters/system_error.h"

namespace quorvale {

namespace {

/// Why this is not a file whose bytes can be read from the first to the last; empty if it is.
std::string ReasonAgainst(mode_t mode) {
    if (S_ISREG(mode)) return {};
    if (S_ISDIR(mode)) return "Is a directory";
    if (S_ISFIFO(mode)) return "Is a pipe, not a file";
    if (S_ISCHR(mode) || S_ISBLK(mode)) return "Is a device, not a file";
    return "Is not a regular file";
}

class PosixStream final : public ReadStream {
public:
    PosixStream(PosixFile file, std::u16string name)
        : file_(std::move(file)), name_(std::move(name)), status_(file_.Status()) {
        const std::string reason = ReasonAgainst(status_.st_mode);
        if (!reason.empty()) throw SystemError("open", reason);
    }

    std::uint64_t Size() const override { return static_cast<std::uint64_t>(status_.st_size); }

    FileResult<std::size_t> Read(std::byte* into, std::size_t count) override {
        try {
            const std::size_t got = file_.Read(reinterpret_cast<char*>(into), count, at_);
            at_ += got;
            return got;
        } catch (const SystemError& error) {
            return error.Failure(name_);
        }
    }

private:
    PosixFile file_;
    std::u16string name_;
    FileStatus status_;
    std::uint64_t at_ = 0;
};

std::unique_ptr<ReadStream> Stream(PosixFile file, std::u16string_view name) {
    return std::make_unique<PosixStream>(std::move(file), std::u16string(name));
}

std::optional<JournalSite> FindSite(PosixContext& context, std::u16string_view journal) {
    if (journal.empty()) return std::nullopt;
    try {
        return SiteOf(context, PathOf(journal));
    } catch (const SystemError& error) {
        if (!IsAbsence(error.Code())) throw;
        return std::nullopt;
    }
}

const JournalSite* PointerTo(const std::optional<JournalSite>& site) {
    return site ? &*site : nullptr;
}

/// Renaming would get around a file's own protection.
void RequireWritable(const LocatedFile& document) {
    if (!document.Status) return;
    const std::string reason = ReasonAgainst(document.Status->st_mode);
    if (!reason.empty()) throw SystemError("open", reason);
    const int allowed = Uninterrupted([&] {
        return document.Folder.Context().Calls.MayWrite(document.Folder.Handle().Descriptor(),
                                                        document.Base.c_str());
    });
    if (allowed != 0) throw SystemError("open", errno);
}

}  // namespace

PosixFiles::PosixFiles() : PosixFiles(SystemCalls(), DefaultStateFolder()) {}

PosixFiles::PosixFiles(PosixCalls& calls, std::string stateFolder)
    : context_(new PosixContext{calls, std::move(stateFolder), {}, {}, {}, {}}) {}

PosixFiles::~PosixFiles() = default;

void PosixFiles::SetNoticeHandler(std::function<void(const FileNotice&)> handler) {
    handler_ = std::move(handler);
}

template <class Action>
auto PosixFiles::Guarded(std::u16string_view name, Action action)
    -> FileResult<decltype(action())> {
    using Result = FileResult<decltype(action())>;
    if (name.find(u'\0') != name.npos) {
        return FileFailure{"open", std::u16string(name), "The name holds a NUL character"};
    }
    const auto attempt = [&]() -> Result {
        try {
            return action();
        } catch (const SystemError& error) {
            return error.Failure(std::u16string(name));
        }
    };
    Result result = attempt();
    // The host may do anything in its handler, even let go of this object.
    const auto notices = std::exchange(context_->Notices, {});
    const auto handler = handler_;
    for (const FileNotice& notice : notices) {
        if (handler) handler(notice);
    }
    return result;
}

template <class Action>
auto PosixFiles::GuardedWriting(std::u16string_view name, Action action)
    -> FileResult<decltype(action())> {
    return Guarded(name, [&] {
        const FileSizeSignalBlocked blocked;
        return action();
    });
}

FileResult<std::unique_ptr<ReadStream>> PosixFiles::OpenForReading(std::u16string_view name) {
    return Guarded(name, [&] {
        // Not blocking, because opening a pipe would wait for someone to write into it.
        const int flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
        const std::string path = PathOf(name);
        const int descriptor =
            Uninterrupted([&] { return context_->Calls.Open(AT_FDCWD, path.c_str(), flags, 0); });
        if (descriptor < 0) throw SystemError("open", errno);
        return Stream(PosixFile(context_->Calls, descriptor), name);
    });
}

FileResult<bool> PosixFiles::Exists(std::u16string_view name) {
    return Guarded(name, [&] {
        FileStatus status{};
        const std::string path = PathOf(name);
        const int found = Uninterrupted(
            [&] { return context_->Calls.StatusAt(AT_FDCWD, path.c_str(), status, 0); });
        if (found != 0 && !IsAbsence(errno)) throw SystemError("look for", errno);
        return found == 0;
    });
}

std::u16string PosixFiles::AbsoluteName(std::u16string_view name) {
    if (name.empty() || name.starts_with(u'/')) return std::u16string(name);
    std::array<char, 4096> folder{};
    const int found =
        Uninterrupted([&] { return context_->Calls.CurrentFolder(folder.data(), folder.size()); });
    if (found != 0) return std::u16string(name);
    std::u16string absolute = NameOf(folder.data());
    if (!absolute.ends_with(u'/')) absolute += u'/';
    return absolute.append(name);
}

FileResult<std::unique_ptr<ReadStream>> PosixFiles::OpenJournalForReading(
    std::u16string_view name) {
    return Guarded(name, [&]() -> std::unique_ptr<ReadStream> {
        const auto site = FindSite(*context_, name);
        if (!site) return nullptr;
        auto file = site->Folder.OpenRegular(site->Name);
        if (!file) return nullptr;
        return Stream(std::move(*file), name);
    });
}

FileResult<Done> PosixFiles::SaveJournal(const JournalPlace& journal, std::string_view bytes) {
    return GuardedWriting(journal.Name, [&] {
        SaveJournalFile(*context_, journal, bytes);
        return Done{};
    });
}

FileResult<Done> PosixFiles::DeleteJournal(const JournalPlace& journal, bool force) {
    return GuardedWriting(journal.Name, [&] {
        DeleteJournalFile(*context_, journal, force);
        return Done{};
    });
}

FileResult<Done> PosixFiles::ReplaceDocument(const Replacement& replacement) {
    return GuardedWriting(replacement.Document, [&] {
        Replace(replacement);
        return Done{};
    });
}

void PosixFiles::Replace(const Replacement& replacement) {
    LocatedFile document = Locate(*context_, PathOf(replacement.Document));
    const auto site = FindSite(*context_, replacement.Journal);
    RequireWritable(document);
    RecoverReplacement(document, PointerTo(site), RecoveryPurpose::Write);
    const ReplacementJob job{document,           document.Identity(),
                             PointerTo(site),    replacement.KnownJournals,
                             replacement.Loaded, replacement.NewBytes};
    if (!document.Status || document.Status->st_nlink <= 1) {
        try {
            return ReplaceByRenaming(job);
        } catch (const CannotBeReplaced&) {
            if (!document.Status) throw;
        }
    }
    // Through every other name the file must show its new content too.
    ReplaceInPlace(job);
}

FileResult<Done> PosixFiles::RemoveSpentJournal(const Replacement& replacement) {
    return GuardedWriting(replacement.Document, [&] {
        const LocatedFile document = Locate(*context_, PathOf(replacement.Document));
        const auto site = FindSite(*context_, replacement.Journal);
        FinishReplacement(document, PointerTo(site));
        return Done{};
    });
}

FileResult<JournalStanding> PosixFiles::Recover(std::u16string_view document,
                                                std::u16string_view journal) {
    return GuardedWriting(document, [&] { return RecoverDocument(document, journal); });
}

FileResult<Interruption> PosixFiles::FindInterruption(std::u16string_view document) {
    return Guarded(document, [&] {
        const auto located = FindFile(*context_, PathOf(document));
        return located ? quorvale::FindInterruption(*located) : Interruption::None;
    });
}

FileResult<std::optional<JournalStatus>> PosixFiles::FindJournal(std::u16string_view journal) {
    return Guarded(journal, [&]() -> std::optional<JournalStatus> {
        const auto site = FindSite(*context_, journal);
        return site ? FindJournalFile(*site) : std::nullopt;
    });
}

FileResult<Done> PosixFiles::MoveJournalAside(std::u16string_view journal) {
    return GuardedWriting(journal, [&] {
        MoveJournalFileAside(SiteOf(*context_, PathOf(journal)));
        return Done{};
    });
}

FileResult<Done> PosixFiles::CopyJournalAside(std::u16string_view journal) {
    return GuardedWriting(journal, [&] {
        CopyJournalFileAside(SiteOf(*context_, PathOf(journal)));
        return Done{};
    });
}

JournalStanding PosixFiles::RecoverDocument(std::u16string_view document,
                                            std::u16string_view journal) {
    auto located = FindFile(*context_, PathOf(document));
    if (!located) return JournalStanding::InForce;
    const auto site = FindSite(*context_, journal);
    const JournalStanding standing =
        RecoverReplacement(*located, PointerTo(site), RecoveryPurpose::Load);
    context_->Unconfirmed.erase(located->Identity());
    // A file that a record names may hold somebody's bytes; without a record there are only ours.
    const std::string tag = NameTag(located->Base);
    if (located->Folder.Find(CommitRecordName(tag))) return standing;
    RemoveStrays(located->Folder, tag, &*located);
    if (site) {
        const std::string journalTag = TagOfJournal(site->Name);
        if (journalTag != tag || !site->Folder.SameAs(located->Folder)) {
            RemoveStrays(site->Folder, journalTag, nullptr);
        }
    }
    return standing;
}

}  // namespace quorvale
