#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <cerrno>
#include <cstdint>
#include <string>
#include <vector>

#include "workshop.h"

namespace quorvale {
namespace {

struct ListEntry {
    std::uint16_t Tag;
    std::uint16_t Permissions;
    std::uint32_t Id;
};

/// An access control list as the system stores it: owner rw, user 65534 r, group nothing, limit r,
/// others nothing.
std::string AccessList() {
    const ListEntry entries[] = {{1, 6, 0xFFFFFFFF},
                                 {2, 4, 65534},
                                 {4, 0, 0xFFFFFFFF},
                                 {0x10, 4, 0xFFFFFFFF},
                                 {0x20, 0, 0xFFFFFFFF}};
    const std::uint32_t version = 2;
    std::string bytes(reinterpret_cast<const char*>(&version), sizeof version);
    bytes.append(reinterpret_cast<const char*>(entries), sizeof entries);
    return bytes;
}

constexpr const char* accessList = "system.posix_acl_access";
constexpr const char* defaultList = "system.posix_acl_default";

std::string Attribute(const fs::path& path, const char* name) {
    std::string value(4096, '\0');
    const ssize_t size = getxattr(path.c_str(), name, value.data(), value.size());
    if (size < 0) return "<" + std::to_string(errno) + ">";
    value.resize(static_cast<std::size_t>(size));
    return value;
}

/// False where the file system knows no such attributes.
bool SetAttribute(const fs::path& path, const char* name, const std::string& value) {
    return setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0;
}

FileStatus StatusOf(const fs::path& path) {
    FileStatus status{};
    EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
    return status;
}

mode_t ModeOf(const fs::path& path) { return StatusOf(path).st_mode & 07777; }

class KeptByACommit : public testing::Test {
protected:
    KeptByACommit() {
        // On the disk: a file system in memory has not all that a file can have.
        shop_.Root = fs::absolute("root");
        shop_.Reset();
    }

    void Commit() {
        auto committed = shop_.Commit(*shop_.NewProcess(), shop_.Job());
        ASSERT_TRUE(committed) << committed.Failure().Operation << committed.Failure().Reason;
        ASSERT_EQ(shop_.Document(), shop_.New);
        ASSERT_EQ(shop_.Helpers(), std::vector<std::string>());
    }

    Workshop shop_;
};

TEST_F(KeptByACommit, TheMode) {
    for (const mode_t mode : {0600U, 0644U, 0666U, 0755U, 01700U, 0620U}) {
        shop_.Reset();
        ASSERT_EQ(chmod(shop_.Named().c_str(), mode), 0);
        const ino_t before = StatusOf(shop_.Named()).st_ino;
        Commit();
        EXPECT_EQ(ModeOf(shop_.Named()), mode);
        EXPECT_NE(StatusOf(shop_.Named()).st_ino, before);
    }
}

TEST_F(KeptByACommit, TheOwnerAndTheGroup) {
    const bool mayGiveAway = MayGiveAway(shop_.Named(), 65534, 65533);
    if (mayGiveAway) {
        ASSERT_EQ(chown(shop_.Named().c_str(), 65534, 65533), 0);
    }
    ASSERT_EQ(chmod(shop_.Named().c_str(), 06755), 0);
    const FileStatus before = StatusOf(shop_.Named());
    Commit();
    const FileStatus after = StatusOf(shop_.Named());
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
    // Nobody lends a program that he wrote the rights of its owner, but the owner himself.
    EXPECT_EQ(ModeOf(shop_.Named()), mayGiveAway ? 0755U : 06755U);
}

TEST_F(KeptByACommit, TheUsersAttributesAndTheAccessList) {
    const bool attributes = SetAttribute(shop_.Named(), "user.origin", std::string("a\0b", 3));
    const bool lists = SetAttribute(shop_.Named(), accessList, AccessList());
    const mode_t mode = ModeOf(shop_.Named());
    const std::string origin = Attribute(shop_.Named(), "user.origin");
    const std::string list = Attribute(shop_.Named(), accessList);
    EXPECT_EQ(origin == std::string("a\0b", 3), attributes);
    Commit();
    EXPECT_EQ(Attribute(shop_.Named(), "user.origin"), origin);
    EXPECT_EQ(Attribute(shop_.Named(), accessList), list);
    EXPECT_EQ(ModeOf(shop_.Named()), mode);
    std::printf("[     NOTE ] attributes: %s, access lists: %s\n", attributes ? "yes" : "no",
                lists ? "yes" : "no");
}

TEST_F(KeptByACommit, WhatAFolderHandsDownToNewFilesIsNotAdded) {
    SetAttribute(shop_.Root / "here", defaultList, AccessList());
    ASSERT_EQ(chmod(shop_.Named().c_str(), 0640), 0);
    const std::string before = Attribute(shop_.Named(), accessList);
    Commit();
    EXPECT_EQ(Attribute(shop_.Named(), accessList), before);
    EXPECT_EQ(ModeOf(shop_.Named()), 0640U);
}

TEST_F(KeptByACommit, ANewFileGetsWhatTheProcessGivesToNewFiles) {
    for (const mode_t mask : {022U, 077U, 0U}) {
        shop_.HasDocument = false;
        shop_.Reset();
        const mode_t before = umask(mask);
        Commit();
        umask(before);
        EXPECT_EQ(ModeOf(shop_.Named()), 0666U & ~mask);
    }
}

TEST_F(KeptByACommit, AllOfAFileWithTwoNames) {
    shop_.HardLink = true;
    shop_.Reset();
    ASSERT_EQ(chmod(shop_.Named().c_str(), 0640), 0);
    const FileStatus before = StatusOf(shop_.Named());
    Commit();
    const FileStatus after = StatusOf(shop_.Named());
    EXPECT_EQ(after.st_ino, before.st_ino);
    EXPECT_EQ(after.st_nlink, 2U);
    EXPECT_EQ(ModeOf(shop_.Named()), 0640U);
    EXPECT_EQ(BytesOf(shop_.Root / "there" / "other name"), shop_.New);
}

TEST_F(KeptByACommit, WhatCannotBeKeptByRenamingIsKeptByWritingInPlace) {
    struct Case {
        const char* Call;
        int Error;
    };
    for (const Case& each : {Case{"setxattr", EPERM}, Case{"removexattr", EPERM},
                             Case{"listxattr", EACCES}, Case{"chmod", EPERM}}) {
        shop_.Reset();
        ASSERT_EQ(chmod(shop_.Named().c_str(), 0641), 0);
        SetAttribute(shop_.Named(), "user.origin", "x");
        const std::string origin = Attribute(shop_.Named(), "user.origin");
        const ino_t before = StatusOf(shop_.Named()).st_ino;
        shop_.Calls.Refuse = [&each](std::string_view call, std::string_view, unsigned) {
            return call == each.Call ? each.Error : 0;
        };
        const auto files = shop_.Process(shop_.Calls);
        ASSERT_TRUE(shop_.Commit(*files, shop_.Job())) << each.Call;
        EXPECT_EQ(shop_.Document(), shop_.New);
        EXPECT_EQ(Attribute(shop_.Named(), "user.origin"), origin);
        EXPECT_EQ(ModeOf(shop_.Named()), 0641U);
        const bool inPlace = StatusOf(shop_.Named()).st_ino == before;
        EXPECT_TRUE(inPlace || (std::string(each.Call) == "setxattr" && origin[0] == '<'));
        EXPECT_EQ(shop_.Helpers(), std::vector<std::string>());
    }
}

TEST_F(KeptByACommit, LinksOfAnyLength) {
    shop_.HasDocument = false;
    shop_.Reset();
    const fs::path there = shop_.Root / "there";
    fs::create_directory(there / "deep");
    WriteBytes(there / "deep" / "real", shop_.Old);
    fs::create_symlink("deep/real", there / "second");
    fs::create_symlink(there / "second", there / "first");
    fs::create_symlink("../there/first", shop_.Named());
    Commit();
    fs::remove(shop_.Root / "x");
    EXPECT_TRUE(fs::is_symlink(shop_.Named()));
    EXPECT_TRUE(fs::is_symlink(there / "first"));
    EXPECT_TRUE(fs::is_symlink(there / "second"));
    EXPECT_FALSE(fs::is_symlink(there / "deep" / "real"));
    EXPECT_EQ(BytesOf(there / "deep" / "real"), shop_.New);
}

TEST_F(KeptByACommit, ALinkToNothingIsGivenItsFile) {
    shop_.HasDocument = false;
    shop_.Reset();
    fs::create_symlink("../there/new", shop_.Named());
    Commit();
    EXPECT_TRUE(fs::is_symlink(shop_.Named()));
    EXPECT_EQ(BytesOf(shop_.Root / "there" / "new"), shop_.New);
}

TEST_F(KeptByACommit, ALinkToItselfFails) {
    fs::remove(shop_.Named());
    fs::create_symlink(shop_.Base, shop_.Named());
    auto committed = shop_.Commit(*shop_.NewProcess(), shop_.Job());
    ASSERT_FALSE(committed);
    EXPECT_EQ(committed.Failure().Reason, "Too many levels of symbolic links");
    EXPECT_EQ(shop_.JournalBytes(), shop_.Journal);
}

TEST_F(KeptByACommit, NamesAreLiteral) {
    const std::string bases[] = {"*",
                                 "?",
                                 "a#b",
                                 "100%1.txt",
                                 "two words",
                                 "[a-z]",
                                 "~",
                                 "$HOME",
                                 "-rf",
                                 "tab\tline\nend",
                                 "\xE6\x97\xA5\xE6\x9C\xAC",
                                 "caf\xE9",
                                 "back\\slash",
                                 "'\"",
                                 std::string(245, 'x')};
    for (const std::string& base : bases) {
        shop_.Base = base;
        shop_.Reset();
        // Everything that a pattern could mean.
        for (const std::string neighbour : {"a", "b!.xml", "ab", "1!.xml"}) {
            WriteBytes(shop_.Root / "here" / neighbour, "untouched");
        }
        Commit();
        EXPECT_EQ(shop_.JournalBytes(), std::nullopt);
        const auto files = shop_.NewProcess();
        ASSERT_TRUE(shop_.Save(*files, shop_.NextJournal)) << base;
        EXPECT_EQ(shop_.JournalBytes(), shop_.NextJournal);
        ASSERT_TRUE(files->DeleteJournal(shop_.KnownJournal(), true));
        EXPECT_EQ(shop_.JournalBytes(), std::nullopt);
        for (const std::string neighbour : {"a", "b!.xml", "ab", "1!.xml"}) {
            EXPECT_EQ(BytesOf(shop_.Root / "here" / neighbour), "untouched") << base;
        }
    }
}

// A name of which the journal's would be too long can be committed, but has no journal.
TEST_F(KeptByACommit, ANameTooLongForAJournal) {
    shop_.Base = std::string(253, 'x');
    shop_.HasJournal = false;
    shop_.Reset();
    const auto files = shop_.NewProcess();
    const std::u16string journal = NameOf(shop_.JournalPath().string());
    EXPECT_FALSE(*files->Exists(journal));
    EXPECT_EQ(*files->OpenJournalForReading(journal), nullptr);
    ASSERT_TRUE(shop_.Recover(*files));
    auto saved = shop_.Save(*files, shop_.NextJournal);
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.Failure().Reason, "File name too long");
    EXPECT_EQ(saved.Failure().Name, journal);
    EXPECT_EQ(shop_.Helpers(), std::vector<std::string>());
    Commit();
}

class ProtectedJournal : public KeptByACommit {
protected:
    mode_t Saved() {
        EXPECT_TRUE(shop_.Save(*shop_.NewProcess(), shop_.NextJournal));
        EXPECT_EQ(shop_.JournalBytes(), shop_.NextJournal);
        return ModeOf(shop_.JournalPath());
    }
};

TEST_F(ProtectedJournal, IsNoMoreReadableThanItsDocument) {
    for (const mode_t mode : {0600U, 0640U, 0644U, 0666U, 04755U}) {
        ASSERT_EQ(chmod(shop_.Named().c_str(), mode), 0);
        EXPECT_EQ(Saved(), (mode & 0666) | 0600);
    }
    // But its owner must be able to read and to replace it.
    ASSERT_EQ(chmod(shop_.Named().c_str(), 0444), 0);
    EXPECT_EQ(Saved(), 0644U);
}

TEST_F(ProtectedJournal, FollowsTheDocumentThatALinkLeadsTo) {
    shop_.SymbolicLink = true;
    shop_.Reset();
    ASSERT_EQ(chmod(shop_.Real().c_str(), 0600), 0);
    EXPECT_EQ(Saved(), 0600U);
    EXPECT_FALSE(fs::exists(shop_.Real().string() + "!.xml"));
}

TEST_F(ProtectedJournal, GetsTheDocumentsGroupOrNoRightsForAnyGroup) {
    ASSERT_EQ(chmod(shop_.Named().c_str(), 0640), 0);
    const bool mayGiveAway = MayGiveAway(shop_.Named(), 65534, 65533);
    if (mayGiveAway) {
        ASSERT_EQ(chown(shop_.Named().c_str(), 65534, 65533), 0);
    }
    EXPECT_EQ(Saved(), 0640U);
    EXPECT_EQ(StatusOf(shop_.JournalPath()).st_gid, StatusOf(shop_.Named()).st_gid);
    // The system does not let us: then the group is one that could not read the document.
    ASSERT_EQ(chmod(shop_.Named().c_str(), 0664), 0);
    shop_.Calls.Refuse = [](std::string_view call, std::string_view, unsigned) {
        return call == "chown" ? EPERM : 0;
    };
    ASSERT_TRUE(shop_.Save(*shop_.Process(shop_.Calls), shop_.Journal));
    EXPECT_EQ(ModeOf(shop_.JournalPath()), mayGiveAway ? 0644U : 0664U);
}

TEST_F(ProtectedJournal, TakesNoNoticeOfTheLimitThatStandsForAGroup) {
    // With an access list, 0640 means that the limit is "read", and the group may nothing.
    const bool lists = SetAttribute(shop_.Named(), accessList, AccessList());
    SetAttribute(shop_.Root / "here", defaultList, AccessList());
    const mode_t mode = Saved();
    EXPECT_EQ(mode, lists ? 0600U : (ModeOf(shop_.Named()) & 0666) | 0600);
    EXPECT_EQ(Attribute(shop_.JournalPath(), accessList).substr(0, 1), "<");
}

TEST_F(ProtectedJournal, WithoutADocumentIsForItsOwnerOnly) {
    const fs::path path = shop_.Root / "here" / "!.xml";
    ASSERT_TRUE(shop_.NewProcess()->SaveJournal({NameOf(path.string()), u"", {}}, "x"));
    EXPECT_EQ(ModeOf(path), 0600U);
    fs::remove(shop_.Named());
    EXPECT_EQ(Saved(), 0600U);
}

TEST_F(ProtectedJournal, TakesThePlaceOfALinkAndOfAPipe) {
    WriteBytes(shop_.Root / "there" / "secret", "secret");
    fs::remove(shop_.JournalPath());
    fs::create_symlink("../there/secret", shop_.JournalPath());
    Saved();
    EXPECT_FALSE(fs::is_symlink(shop_.JournalPath()));
    EXPECT_EQ(BytesOf(shop_.Root / "there" / "secret"), "secret");

    fs::remove(shop_.JournalPath());
    ASSERT_EQ(mkfifo(shop_.JournalPath().c_str(), 0600), 0);
    Saved();
    EXPECT_TRUE(fs::is_regular_file(shop_.JournalPath()));

    fs::remove(shop_.JournalPath());
    fs::create_directory(shop_.JournalPath());
    EXPECT_FALSE(shop_.Save(*shop_.NewProcess(), "x"));
    EXPECT_TRUE(fs::is_directory(shop_.JournalPath()));
    EXPECT_EQ(shop_.Helpers(), std::vector<std::string>());
}

}  // namespace
}  // namespace quorvale
