#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <linux/fs.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <string>

#include "support/without_privileges.h"
#include "workshop.h"

namespace quorvale {
namespace {

constexpr uid_t nobody = 65534;

/// The exit codes of the processes that the tests below run in.
enum Outcome { AsItShouldBe = 0, NotPossibleHere = 1, Wrong = 2 };

/// The real thing, in a process of its own: limits, mounts and users are not undone.
class OutsideWorld : public testing::Test {
protected:
    OutsideWorld() {
        shop_.Reset();
        fs::permissions(shop_.Place.Path(), fs::perms::all);
        mayGiveAway_ = MayGiveAway(shop_.Named(), nobody, nobody);
    }

    template <class Action>
    Outcome InAProcess(Action action) {
        const pid_t child = fork();
        if (child == 0) _exit(action());
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status)) << "ended by signal " << WTERMSIG(status);
        return WIFEXITED(status) ? static_cast<Outcome>(WEXITSTATUS(status)) : Wrong;
    }

    /// A user who has no say over the files of others: whom files can be given to, else ourselves.
    bool DropRights() {
        if (!mayGiveAway_) return DropPrivileges();
        return setgroups(0, nullptr) == 0 && setgid(nobody) == 0 && setuid(nobody) == 0;
    }

    void GiveTo(const fs::path& path) {
        if (mayGiveAway_) {
            ASSERT_EQ(chown(path.c_str(), nobody, nobody), 0);
        }
    }

    /// A mount in a namespace of this process alone, with root's rights or without.
    static bool EnterPrivateMounts() {
        const uid_t user = geteuid();
        const gid_t group = getegid();
        if (user != 0) {
            if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
            WriteBytes("/proc/self/setgroups", "deny");
            WriteBytes("/proc/self/uid_map", "0 " + std::to_string(user) + " 1");
            WriteBytes("/proc/self/gid_map", "0 " + std::to_string(group) + " 1");
        } else if (unshare(CLONE_NEWNS) != 0) {
            return false;
        }
        return mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    }

    /// Nothing has changed but that the caller was told so, and it works when there is room again.
    Outcome CommitAndSaveFail(const std::function<void()>& makeRoom) {
        const auto files = shop_.NewProcess();
        auto committed = shop_.Commit(*files, shop_.Job());
        auto saved = shop_.Save(*files, std::string(200'000, 'x'));
        if (committed || saved || committed.Failure().Reason.empty()) return Wrong;
        if (shop_.Document() != shop_.Old || shop_.JournalBytes() != shop_.Journal) return Wrong;
        if (!shop_.Helpers().empty()) return Wrong;
        makeRoom();
        if (!shop_.Commit(*files, shop_.Job()) || shop_.Document() != shop_.New) return Wrong;
        return shop_.Helpers().empty() && !shop_.JournalBytes() ? AsItShouldBe : Wrong;
    }

    Workshop shop_;
    bool mayGiveAway_ = false;
};

TEST_F(OutsideWorld, AFullDisk) {
    shop_.New = NumberedLines(1, 40'000);
    const Outcome outcome = InAProcess([this] {
        if (!EnterPrivateMounts()) return NotPossibleHere;
        const fs::path here = shop_.Root / "here";
        if (mount("full", here.c_str(), "tmpfs", 0, "size=64k") != 0) return NotPossibleHere;
        WriteBytes(shop_.Named(), shop_.Old);
        WriteBytes(shop_.JournalPath(), shop_.Journal);
        return CommitAndSaveFail(
            [&] { mount("full", here.c_str(), "tmpfs", MS_REMOUNT, "size=64m"); });
    });
    std::printf("[     NOTE ] a full disk: %s\n", outcome == NotPossibleHere
                                                      ? "no mount allowed, see the file-size limit"
                                                      : "a small file system of our own");
    EXPECT_NE(outcome, Wrong);
}

TEST_F(OutsideWorld, AFullDiskWhileWritingInPlace) {
    shop_.HardLink = true;
    shop_.New = NumberedLines(1, 40'000);
    shop_.Reset();
    const Outcome outcome = InAProcess([this] {
        if (!EnterPrivateMounts()) return NotPossibleHere;
        fs::create_directories(shop_.State());
        if (mount("full", shop_.State().c_str(), "tmpfs", 0, "size=64k,mode=700") != 0) {
            return NotPossibleHere;
        }
        const auto files = shop_.NewProcess();
        if (shop_.Commit(*files, shop_.Job()) || shop_.Document() != shop_.Old) return Wrong;
        if (!shop_.Helpers().empty()) return Wrong;
        mount("full", shop_.State().c_str(), "tmpfs", MS_REMOUNT, "size=64m,mode=700");
        return shop_.Commit(*files, shop_.Job()) && shop_.Document() == shop_.New ? AsItShouldBe
                                                                                  : Wrong;
    });
    EXPECT_NE(outcome, Wrong);
}

TEST_F(OutsideWorld, ALimitForTheSizeOfFilesEndsNoProcess) {
    shop_.New = NumberedLines(1, 40'000);
    const Outcome outcome = InAProcess([this] {
        // What such a signal would do to us.
        std::signal(SIGXFSZ, SIG_DFL);
        rlimit before{};
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit small{100'000, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
        const Outcome result = CommitAndSaveFail([&] { setrlimit(RLIMIT_FSIZE, &before); });
        sigset_t pending{};
        sigpending(&pending);
        return sigismember(&pending, SIGXFSZ) == 1 ? Wrong : result;
    });
    EXPECT_EQ(outcome, AsItShouldBe);
}

TEST_F(OutsideWorld, AReadOnlyMedium) {
    const Outcome outcome = InAProcess([this] {
        const fs::path here = shop_.Root / "here";
        if (!EnterPrivateMounts()) return NotPossibleHere;
        if (mount(here.c_str(), here.c_str(), nullptr, MS_BIND, nullptr) != 0 ||
            mount(nullptr, here.c_str(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) != 0) {
            return NotPossibleHere;
        }
        return CommitAndSaveFail(
            [&] { mount(nullptr, here.c_str(), nullptr, MS_REMOUNT | MS_BIND, nullptr); });
    });
    std::printf("[     NOTE ] a read-only medium: %s\n",
                outcome == NotPossibleHere ? "no mount allowed, see the read-only folder"
                                           : "a mount of our own");
    EXPECT_NE(outcome, Wrong);
}

// Flags that stand above all permissions.
TEST_F(OutsideWorld, AFileThatIsFrozenOrTakesNothingButMoreIsLeftAlone) {
    shop_.Root = fs::absolute("root");
    shop_.Reset();
    int possible = 0;
    for (const int flag : {FS_IMMUTABLE_FL, FS_APPEND_FL}) {
        const int file = open(shop_.Named().c_str(), O_RDONLY | O_CLOEXEC);
        int flags = 0;
        ASSERT_GE(file, 0);
        if (ioctl(file, FS_IOC_GETFLAGS, &flags) == 0) {
            int frozen = flags | flag;
            if (ioctl(file, FS_IOC_SETFLAGS, &frozen) == 0) {
                ++possible;
                auto committed = shop_.Commit(*shop_.NewProcess(), shop_.Job());
                EXPECT_FALSE(committed);
                EXPECT_EQ(ioctl(file, FS_IOC_SETFLAGS, &flags), 0);
                EXPECT_EQ(shop_.Document(), shop_.Old);
                EXPECT_EQ(shop_.JournalBytes(), shop_.Journal);
                EXPECT_EQ(shop_.Helpers(), std::vector<std::string>());
            }
        }
        close(file);
    }
    std::printf("[     NOTE ] files with such flags: %d\n", possible);
    EXPECT_TRUE(shop_.Commit(*shop_.NewProcess(), shop_.Job()));
    EXPECT_EQ(shop_.Document(), shop_.New);
}

// A single file mounted from elsewhere can be written, but not replaced.
TEST_F(OutsideWorld, AFileThatIsAMountPoint) {
    const Outcome outcome = InAProcess([this] {
        const fs::path source = shop_.Root / "there" / "mounted";
        WriteBytes(source, shop_.Old);
        if (!EnterPrivateMounts()) return NotPossibleHere;
        if (mount(source.c_str(), shop_.Named().c_str(), nullptr, MS_BIND, nullptr) != 0) {
            return NotPossibleHere;
        }
        if (!shop_.Commit(*shop_.NewProcess(), shop_.Job())) return Wrong;
        if (BytesOf(source) != shop_.New || shop_.JournalBytes()) return Wrong;
        return shop_.Helpers().empty() ? AsItShouldBe : Wrong;
    });
    EXPECT_NE(outcome, Wrong);
}

TEST_F(OutsideWorld, AFolderThatTakesNoFilesHasItsDocumentWrittenInPlace) {
    fs::remove(shop_.JournalPath());
    GiveTo(shop_.Named());
    fs::create_directories(shop_.State());
    GiveTo(shop_.State());
    fs::permissions(shop_.State(), fs::perms::owner_all);
    fs::permissions(shop_.Root / "here", fs::perms(0555));
    EXPECT_EQ(InAProcess([this] {
                  if (!DropRights()) return Wrong;
                  FileStatus before{};
                  FileStatus after{};
                  stat(shop_.Named().c_str(), &before);
                  if (!shop_.Commit(*shop_.NewProcess(), shop_.Job())) return Wrong;
                  stat(shop_.Named().c_str(), &after);
                  if (shop_.Document() != shop_.New || !SameFile(before, after)) return Wrong;
                  auto saved = shop_.Save(*shop_.NewProcess(), "x");
                  if (saved || saved.Failure().Reason != "Permission denied") return Wrong;
                  return shop_.Helpers().empty() ? AsItShouldBe : Wrong;
              }),
              AsItShouldBe);
    fs::permissions(shop_.Root / "here", fs::perms(0755));
}

// The journal lies in a folder where nothing can be deleted.
TEST_F(OutsideWorld, AJournalThatStaysIsKnownToBeSpent) {
    GiveTo(shop_.Named());
    fs::create_directories(shop_.State());
    GiveTo(shop_.State());
    fs::permissions(shop_.State(), fs::perms::owner_all);
    fs::permissions(shop_.Root / "here", fs::perms(0555));
    EXPECT_EQ(InAProcess([this] {
                  if (!DropRights()) return Wrong;
                  const auto files = shop_.NewProcess();
                  if (!files->ReplaceDocument(shop_.Job())) return Wrong;
                  if (files->RemoveSpentJournal(shop_.Job())) return Wrong;
                  if (shop_.Document() != shop_.New || !shop_.JournalBytes()) return Wrong;
                  for (int load = 0; load < 2; ++load) {
                      auto standing = shop_.Recover(*shop_.NewProcess());
                      if (!standing || *standing != JournalStanding::Spent) return Wrong;
                  }
                  if (shop_.Document() != shop_.New) return Wrong;
                  // Somebody lets us.
                  return shop_.Helpers().size() == 1 ? AsItShouldBe : Wrong;
              }),
              AsItShouldBe);
    fs::permissions(shop_.Root / "here", fs::perms(0777));
    GiveTo(shop_.Root / "here");
    EXPECT_EQ(InAProcess([this] {
                  if (!DropRights()) return Wrong;
                  auto standing = shop_.Recover(*shop_.NewProcess());
                  if (!standing || *standing != JournalStanding::InForce) return Wrong;
                  return !shop_.JournalBytes() && shop_.Helpers().empty() ? AsItShouldBe : Wrong;
              }),
              AsItShouldBe);
}

TEST_F(OutsideWorld, AFileThatMayNotBeWrittenIsNotReplaced) {
    GiveTo(shop_.Root / "here");
    GiveTo(shop_.Named());
    fs::permissions(shop_.Named(), fs::perms(0444));
    EXPECT_EQ(InAProcess([this] {
                  if (!DropRights()) return Wrong;
                  auto committed = shop_.Commit(*shop_.NewProcess(), shop_.Job());
                  if (committed || committed.Failure().Reason != "Permission denied") return Wrong;
                  return shop_.Helpers().empty() ? AsItShouldBe : Wrong;
              }),
              AsItShouldBe);
    EXPECT_EQ(shop_.Document(), shop_.Old);
    EXPECT_EQ(shop_.JournalBytes(), shop_.Journal);
}

TEST_F(OutsideWorld, AnotherOwnersFileInASharedFolderKeepsItsOwner) {
    if (mayGiveAway_) {
        fs::permissions(shop_.Named(), fs::perms(0666));
        fs::permissions(shop_.Root / "here", fs::perms(01777));
        fs::remove(shop_.JournalPath());
        fs::create_directories(shop_.State());
        GiveTo(shop_.State());
        fs::permissions(shop_.State(), fs::perms::owner_all);
    }
    FileStatus before{};
    stat(shop_.Named().c_str(), &before);
    EXPECT_EQ(InAProcess([this] {
                  if (!DropRights()) return Wrong;
                  return shop_.Commit(*shop_.NewProcess(), shop_.Job()) ? AsItShouldBe : Wrong;
              }),
              AsItShouldBe);
    FileStatus after{};
    stat(shop_.Named().c_str(), &after);
    EXPECT_EQ(shop_.Document(), shop_.New);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
    EXPECT_EQ(after.st_mode, before.st_mode);
    EXPECT_EQ(shop_.Helpers(), std::vector<std::string>());
}

TEST_F(OutsideWorld, NoDescriptorIsLeftOpenOrHandedDown) {
    const auto openFiles = [] {
        return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
    };
    const auto before = openFiles();
    int inherited = 0;
    shop_.HardLink = true;
    for (const bool hardLink : {true, false}) {
        shop_.HardLink = hardLink;
        shop_.Reset();
        shop_.Calls.Before = [&](std::string_view, std::string_view) {
            for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
                const int file = std::stoi(entry.path().filename().string());
                const std::string target =
                    fs::exists(entry.path()) ? fs::read_symlink(entry.path()).string() : "";
                if (!target.starts_with(shop_.Root.string())) continue;
                if ((fcntl(file, F_GETFD) & FD_CLOEXEC) == 0) ++inherited;
            }
        };
        const auto files = shop_.Process(shop_.Calls);
        EXPECT_TRUE(shop_.Commit(*files, shop_.Job()));
        EXPECT_TRUE(shop_.Save(*files, shop_.NextJournal));
        EXPECT_TRUE(shop_.Recover(*files));
    }
    EXPECT_EQ(inherited, 0);
    EXPECT_EQ(openFiles(), before);
}

}  // namespace
}  // namespace quorvale
