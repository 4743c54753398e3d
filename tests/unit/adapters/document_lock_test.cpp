#include "adapters/document_lock.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

namespace quorvale {
namespace {

namespace fs = std::filesystem;

/// Locks lie in a place of the test's own.
class DocumentLockTest : public testing::Test {
protected:
    DocumentLockTest() {
        const char* const given = std::getenv("TMPDIR");
        if (given != nullptr) before_ = given;
        fs::create_directory("tmp");
        setenv("TMPDIR", fs::absolute("tmp").c_str(), 1);
        unsetenv("XDG_RUNTIME_DIR");
        std::ofstream("a.log") << "text";
    }
    ~DocumentLockTest() override {
        if (before_) {
            setenv("TMPDIR", before_->c_str(), 1);
        } else {
            unsetenv("TMPDIR");
        }
    }

    std::size_t LocksLeft() const {
        std::size_t left = 0;
        for (const auto& entry : fs::recursive_directory_iterator("tmp")) {
            if (entry.is_regular_file()) ++left;
        }
        return left;
    }

private:
    std::optional<std::string> before_;
};

TEST_F(DocumentLockTest, OneAtATimeHasIt) {
    const DocumentLock first(u"a.log");
    EXPECT_TRUE(first.IsOurs());
    const DocumentLock second(u"a.log");
    EXPECT_FALSE(second.IsOurs());
    EXPECT_TRUE(second.IsTaken());
    EXPECT_FALSE(second.WhyNot().empty());
}

TEST_F(DocumentLockTest, ItIsOneFilesUnderAllItsNames) {
    fs::create_directory("folder");
    fs::create_symlink("../a.log", "folder/link");
    const DocumentLock first(u"folder/link");
    EXPECT_FALSE(DocumentLock(u"./folder/.././a.log").IsOurs());
    EXPECT_TRUE(DocumentLock(u"b.log").IsOurs());
}

TEST_F(DocumentLockTest, LettingGoLeavesNothingBehind) {
    { const DocumentLock lock(u"a.log"); }
    EXPECT_EQ(LocksLeft(), 0U);
    EXPECT_TRUE(DocumentLock(u"a.log").IsOurs());
}

TEST_F(DocumentLockTest, SomebodyWhoFindsItTakenDoesNotRemoveIt) {
    const DocumentLock first(u"a.log");
    { const DocumentLock second(u"a.log"); }
    EXPECT_EQ(LocksLeft(), 1U);
    EXPECT_FALSE(DocumentLock(u"a.log").IsOurs());
}

TEST_F(DocumentLockTest, TheLockOfAProgramThatWasKilledCountsForNothing) {
    const pid_t child = fork();
    if (child == 0) {
        const DocumentLock lock(u"a.log");
        kill(getpid(), SIGKILL);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(LocksLeft(), 1U);
    EXPECT_TRUE(DocumentLock(u"a.log").IsOurs());
}

TEST_F(DocumentLockTest, TheFileNeedNotBeThere) {
    const DocumentLock first(u"gone.log");
    EXPECT_TRUE(first.IsOurs());
    EXPECT_FALSE(DocumentLock(u"gone.log").IsOurs());
}

TEST_F(DocumentLockTest, WithoutAFolderThereIsNoLockAndNobodyHasIt) {
    const DocumentLock lock(u"no such folder/a.log");
    EXPECT_FALSE(lock.IsOurs());
    EXPECT_FALSE(lock.IsTaken());
    EXPECT_EQ(lock.WhyNot(), "No such file or directory");
}

TEST_F(DocumentLockTest, APlaceThatOthersCanWriteIsNotTrusted) {
    const fs::path place = fs::path("tmp") / ("quorvale-" + std::to_string(geteuid()));
    fs::create_directory(place);
    chmod(place.c_str(), 0777);
    const DocumentLock lock(u"a.log");
    EXPECT_FALSE(lock.IsOurs());
    EXPECT_FALSE(lock.IsTaken());
}

TEST_F(DocumentLockTest, LocksLieInTheSessionsFolderWhereThereIsOne) {
    fs::create_directory("session");
    setenv("XDG_RUNTIME_DIR", fs::absolute("session").c_str(), 1);
    {
        const DocumentLock lock(u"a.log");
        EXPECT_TRUE(lock.IsOurs());
        EXPECT_FALSE(fs::is_empty("session/quorvale"));
    }
    for (const char* other : {"session", "/nowhere at all"}) {
        setenv("XDG_RUNTIME_DIR", other, 1);
        const DocumentLock lock(u"a.log");
        EXPECT_TRUE(lock.IsOurs());
        EXPECT_EQ(LocksLeft(), 1U);
    }
}

}  // namespace
}  // namespace quorvale
