#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "adapters/posix_file.h"
#include "adapters/posix_files.h"
#include "adapters/posix_names.h"
#include "faulty_calls.h"

namespace quorvale {

namespace fs = std::filesystem;

inline void WriteBytes(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

/// None when there is no such file.
inline std::optional<std::string> BytesOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), {});
}

/// Whether this process may make files those of others. Not every root may: one in a container may
/// have lost that right, or know no other users.
inline bool MayGiveAway(const fs::path& file, uid_t user, gid_t group) {
    FileStatus before{};
    if (stat(file.c_str(), &before) != 0) return false;
    return chown(file.c_str(), user, group) == 0 &&
           chown(file.c_str(), before.st_uid, before.st_gid) == 0;
}

/// Lines of a number each, from `first` on.
inline std::string NumberedLines(int first, int count) {
    std::string bytes;
    for (int i = 0; i < count; ++i) bytes += "line " + std::to_string(first + i) + "\n";
    return bytes;
}

/// A folder that goes with this object, in memory where the system has such a place: thousands of
/// files come and go in it.
class PrivateFolder {
public:
    PrivateFolder() {
        std::string name = "/dev/shm/quorvale-XXXXXX";
        if (access("/dev/shm", W_OK) != 0 || mkdtemp(name.data()) == nullptr) {
            name = fs::absolute("workshop").string();
            fs::create_directory(name);
        }
        path_ = name;
    }
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;
    ~PrivateFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }

    const fs::path& Path() const { return path_; }

private:
    fs::path path_;
};

/// A document and its journal in a folder of their own, what is to be done to them, and what must
/// hold afterwards.
class Workshop {
public:
    std::string Base = "log.txt";
    std::string Old = NumberedLines(1, 300);
    std::string New = NumberedLines(1000, 310);
    std::string Journal = "<corrections><update start=\"1\" loc=\"1\">a\n</update></corrections>";
    std::string NextJournal =
        "<corrections><update start=\"9\" loc=\"1\">b\n</update></corrections>";
    bool HasDocument = true;
    bool HasJournal = true;
    bool HardLink = false;
    /// So that its time does not tell whether it is written once more.
    bool WrittenJustNow = false;
    /// The document's name is a link into another folder.
    bool SymbolicLink = false;
    /// What the folder holds when the document is replaced, if another program wrote it meanwhile.
    std::optional<std::string> Foreign;
    FaultyCalls Calls;
    std::vector<FileNotice> Notices;
    /// The last commit came as far as that.
    bool Replaced = false;

    PrivateFolder Place;
    fs::path Root = Place.Path() / "root";
    fs::path Named() const { return Root / "here" / Base; }
    fs::path Real() const { return SymbolicLink ? Root / "there" / "real.txt" : Named(); }
    fs::path JournalPath() const { return Named().string() + "!.xml"; }
    fs::path State() const { return Root / "state" / "quorvale"; }

    void Reset() {
        fs::remove_all(Root);
        fs::create_directories(Root / "here");
        fs::create_directories(Root / "there");
        if (HasDocument) WriteBytes(Real(), Foreign ? *Foreign : Old);
        if (HasDocument && !WrittenJustNow) {
            fs::last_write_time(Real(), fs::file_time_type::clock::now() - std::chrono::hours(1));
        }
        if (HardLink) fs::create_hard_link(Real(), Root / "there" / "other name");
        if (SymbolicLink) fs::create_symlink("../there/real.txt", Named());
        if (HasJournal) WriteBytes(JournalPath(), Journal);
        Notices.clear();
    }

    Replacement Job() const { return JobFrom(Old, New); }
    Replacement JobFrom(const std::string& loaded, const std::string& bytes) const {
        return {NameOf(Named().string()), NameOf(JournalPath().string()), DigestOf(loaded), bytes,
                KnownJournal().Known};
    }
    /// The journal, for a holder of both versions of it.
    JournalPlace KnownJournal() const {
        return {NameOf(JournalPath().string()),
                NameOf(Named().string()),
                {DigestOf(Journal), DigestOf(NextJournal)}};
    }

    /// The file layer of a process.
    std::unique_ptr<PosixFiles> Process(PosixCalls& calls) {
        auto files = std::make_unique<PosixFiles>(calls, State().string());
        files->SetNoticeHandler([this](const FileNotice& notice) { Notices.push_back(notice); });
        return files;
    }
    std::unique_ptr<PosixFiles> NewProcess() { return Process(sound_); }

    FileResult<JournalStanding> Recover(PosixFiles& files) const {
        return files.Recover(NameOf(Named().string()), NameOf(JournalPath().string()));
    }
    FileResult<Done> Save(PosixFiles& files, const std::string& bytes) const {
        return files.SaveJournal(KnownJournal(), bytes);
    }
    FileResult<Done> Commit(PosixFiles& files, const Replacement& job) {
        auto replaced = files.ReplaceDocument(job);
        Replaced = bool(replaced);
        return replaced ? files.RemoveSpentJournal(job) : replaced;
    }

    std::optional<std::string> Document() const { return BytesOf(Real()); }
    std::optional<std::string> JournalBytes() const { return BytesOf(JournalPath()); }

    /// Our helping files, in all folders.
    std::vector<std::string> Helpers(bool displaced = false) const {
        std::vector<std::string> found;
        for (const auto& entry : fs::recursive_directory_iterator(Root)) {
            const std::string name = entry.path().filename().string();
            if (entry.is_directory()) continue;
            const bool aside = name.starts_with(".qbx-displaced-");
            const bool ours = name.starts_with(".qbx-") || name.ends_with(".redo");
            if (ours && aside == displaced) found.push_back(entry.path().string());
        }
        return found;
    }

    /// Runs something in a process of its own, which may be killed on the way. True when it was.
    template <class Action>
    bool Killed(Action action) {
        const pid_t child = fork();
        if (child == 0) {
            action();
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status)) << "the process crashed";
        return WIFEXITED(status) && WEXITSTATUS(status) == FaultyCalls::killed;
    }

    /// A document is the old or the new one, its journal is in force exactly when it is the old
    /// one, and nothing of ours is left. `journal` is what it must be while it is in force.
    void ExpectSound(const std::string& journal) {
        const auto files = NewProcess();
        auto standing = Recover(*files);
        ASSERT_TRUE(standing) << standing.Failure().Operation << ": " << standing.Failure().Reason;
        const auto document = Document();
        const bool isNew = document == New;
        if (!isNew) {
            ASSERT_EQ(document, HasDocument ? std::optional(Old) : std::nullopt);
            ASSERT_EQ(JournalBytes(), journal.empty() ? std::nullopt : std::optional(journal));
        } else {
            ASSERT_EQ(JournalBytes(), std::nullopt) << "the corrections would come in twice";
        }
        ASSERT_EQ(*standing, JournalStanding::InForce);
        ASSERT_EQ(Helpers(), std::vector<std::string>());
        if (HardLink) {
            ASSERT_EQ(BytesOf(Root / "there" / "other name"), document);
        }
        ASSERT_EQ(fs::is_symlink(Named()), SymbolicLink);
    }

    /// The next commit goes through, whatever happened before.
    void ExpectNextCommit() {
        const auto files = NewProcess();
        const auto document = Document();
        const std::string next = NumberedLines(5000, 200);
        const auto job = JobFrom(document.value_or(Old), next);
        auto committed = Commit(*files, job);
        ASSERT_TRUE(committed) << committed.Failure().Operation << ": "
                               << committed.Failure().Reason;
        ASSERT_EQ(Document(), next);
        ASSERT_EQ(JournalBytes(), std::nullopt);
        ASSERT_EQ(Helpers(), std::vector<std::string>());
    }

private:
    FaultyCalls sound_;
};

/// The ways a system call fails in.
inline const std::vector<int>& TheErrors() {
    static const std::vector<int> errors = {ENOSPC, EIO, EACCES, EROFS, EINTR};
    return errors;
}

}  // namespace quorvale
