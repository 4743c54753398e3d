#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "adapters/posix_files.h"
#include "adapters/posix_names.h"
#include "adapters/state_folder.h"

namespace quorvale {
namespace {

void Write(const std::string& name, const std::string& bytes) {
    std::ofstream(name, std::ios::binary) << bytes;
}

std::string Contents(const std::string& name) {
    std::ifstream file(name, std::ios::binary);
    return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "<none>";
}

std::string Read(FileResult<std::unique_ptr<ReadStream>> journal) {
    if (!journal) return "<" + journal.Failure().Reason + ">";
    if (*journal == nullptr) return "<none>";
    std::string bytes((*journal)->Size(), '?');
    (*journal)->Read(reinterpret_cast<std::byte*>(bytes.data()), bytes.size());
    return bytes;
}

class PosixJournals : public testing::Test {
protected:
    /// The journal of a document, with what lies there known.
    static JournalPlace Place(const std::u16string& document) {
        const std::u16string name = document + u"!.xml";
        const bool there = std::filesystem::is_regular_file(PathOf(name));
        return {name, document, {DigestOf(there ? Contents(PathOf(name)) : "")}};
    }

    PosixFiles files_{};
};

TEST_F(PosixJournals, AMissingOneIsNoFailure) {
    EXPECT_EQ(Read(files_.OpenJournalForReading(u"a!.xml")), "<none>");
    EXPECT_EQ(Read(files_.OpenJournalForReading(u"no/such/folder/a!.xml")), "<none>");
    EXPECT_FALSE(*files_.Exists(u"a!.xml"));
    EXPECT_FALSE(*files_.Exists(u"no/such/folder/a!.xml"));
    EXPECT_TRUE(files_.DeleteJournal(Place(u"a"), false));
    Write("a!.xml", "<corrections/>");
    EXPECT_EQ(Read(files_.OpenJournalForReading(u"a!.xml")), "<corrections/>");
    EXPECT_TRUE(*files_.Exists(u"a!.xml"));
}

// Others may put anything there; opening a link or a pipe is what they would like.
TEST_F(PosixJournals, OnlyARegularFileIsRead) {
    Write("secret", "secret");
    std::filesystem::create_symlink("secret", "link!.xml");
    ASSERT_EQ(mkfifo("pipe!.xml", 0600), 0);
    std::filesystem::create_directory("folder!.xml");
    std::filesystem::create_symlink("/dev/zero", "device!.xml");
    for (const std::u16string name : {u"link!.xml", u"pipe!.xml", u"folder!.xml", u"device!.xml"}) {
        EXPECT_EQ(Read(files_.OpenJournalForReading(name)), "<none>");
    }
}

TEST_F(PosixJournals, IsSavedAndReplacedWhole) {
    Write("a", "text");
    ASSERT_TRUE(files_.SaveJournal(Place(u"a"), "first"));
    EXPECT_EQ(Contents("a!.xml"), "first");
    ASSERT_TRUE(files_.SaveJournal(Place(u"a"), ""));
    EXPECT_EQ(Contents("a!.xml"), "");
    auto saved = files_.SaveJournal(Place(u"no/such/folder/a"), "x");
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.Failure().Name, u"no/such/folder/a!.xml");
    EXPECT_EQ(saved.Failure().Reason, "No such file or directory");
}

TEST_F(PosixJournals, AReadOnlyOneGoesWithForceOnly) {
    Write("a!.xml", "x");
    ASSERT_EQ(chmod("a!.xml", 0444), 0);
    auto deleted = files_.DeleteJournal(Place(u"a"), false);
    ASSERT_FALSE(deleted);
    EXPECT_EQ(deleted.Failure().Operation, "delete");
    EXPECT_EQ(Contents("a!.xml"), "x");
    EXPECT_TRUE(files_.DeleteJournal(Place(u"a"), true));
    EXPECT_EQ(Contents("a!.xml"), "<none>");
}

TEST_F(PosixJournals, DeletingALinkLeavesItsFile) {
    Write("secret", "secret");
    std::filesystem::create_symlink("secret", "a!.xml");
    EXPECT_TRUE(files_.DeleteJournal(Place(u"a"), false));
    EXPECT_EQ(Contents("secret"), "secret");
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::symlink_status("a!.xml")));
    std::filesystem::create_directory("b!.xml");
    EXPECT_FALSE(files_.DeleteJournal(Place(u"b"), true));
    EXPECT_TRUE(std::filesystem::exists("b!.xml"));
}

TEST_F(PosixJournals, OfNoDocumentLiesInTheCurrentFolder) {
    ASSERT_TRUE(files_.SaveJournal(Place(u""), "x"));
    EXPECT_EQ(Contents("!.xml"), "x");
    ASSERT_TRUE(files_.DeleteJournal(Place(u""), true));
    EXPECT_EQ(Contents("!.xml"), "<none>");
}

TEST_F(PosixJournals, ANameWithANulIsRefusedByEveryCall) {
    const std::u16string name(u"a\0b", 3);
    EXPECT_FALSE(files_.Exists(name));
    EXPECT_FALSE(files_.OpenJournalForReading(name));
    EXPECT_FALSE(files_.SaveJournal({name, u"a", {}}, "x"));
    EXPECT_FALSE(files_.DeleteJournal({name, u"a", {}}, true));
    EXPECT_FALSE(files_.Recover(name, u"a!.xml"));
    EXPECT_FALSE(files_.ReplaceDocument({name, u"a!.xml", {}, "x"}));
    EXPECT_FALSE(std::filesystem::exists("a"));
}

TEST_F(PosixJournals, ANameIsMadeAbsoluteOnce) {
    const std::string here = std::filesystem::current_path().string();
    EXPECT_EQ(PathOf(files_.AbsoluteName(u"a b")), here + "/a b");
    EXPECT_EQ(PathOf(files_.AbsoluteName(u"../x/a")), here + "/../x/a");
    EXPECT_EQ(files_.AbsoluteName(u"/a"), u"/a");
    EXPECT_EQ(files_.AbsoluteName(u""), u"");
}

TEST_F(PosixJournals, NothingToRecoverIsNoFailure) {
    EXPECT_EQ(*files_.Recover(u"a", u"a!.xml"), JournalStanding::InForce);
    EXPECT_EQ(*files_.Recover(u"no/such/folder/a", u"no/such/folder/a!.xml"),
              JournalStanding::InForce);
    EXPECT_EQ(*files_.Recover(u"", u"!.xml"), JournalStanding::InForce);
    EXPECT_EQ(*files_.Recover(u"/", u"/!.xml"), JournalStanding::InForce);
    Write("a", "text");
    EXPECT_EQ(*files_.Recover(u"a", u"a!.xml"), JournalStanding::InForce);
    EXPECT_EQ(*files_.Recover(u"a", u""), JournalStanding::InForce);
    EXPECT_EQ(*files_.Recover(u"a/b", u"a/b!.xml"), JournalStanding::InForce);
}

TEST_F(PosixJournals, ADocumentIsReplacedWithoutAJournal) {
    Write("a", "old");
    ASSERT_TRUE(files_.ReplaceDocument({u"a", u"", DigestOf("old"), "new"}));
    ASSERT_TRUE(files_.RemoveSpentJournal({u"a", u"", DigestOf("old"), "new"}));
    EXPECT_EQ(Contents("a"), "new");
    // One that is there all the same is none of our business.
    Write("a!.xml", "x");
    ASSERT_TRUE(files_.ReplaceDocument({u"a", u"", DigestOf("new"), "newer"}));
    ASSERT_TRUE(files_.RemoveSpentJournal({u"a", u"", DigestOf("new"), "newer"}));
    EXPECT_EQ(*files_.Recover(u"a", u"a!.xml"), JournalStanding::InForce);
    EXPECT_EQ(Contents("a"), "newer");
    EXPECT_EQ(Contents("a!.xml"), "x");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator("."),
                            std::filesystem::directory_iterator()),
              2);
}

/// Puts a variable of the environment back.
class Variable {
public:
    Variable(const char* name, const char* value) : name_(name) {
        const char* const before = std::getenv(name);
        had_ = before != nullptr;
        if (had_) before_ = before;
        value != nullptr ? setenv(name, value, 1) : unsetenv(name);
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    ~Variable() { had_ ? setenv(name_, before_.c_str(), 1) : unsetenv(name_); }

private:
    const char* name_;
    bool had_ = false;
    std::string before_;
};

TEST(StateFolder, IsWhereTheEnvironmentSays) {
    const Variable home("HOME", "/home/somebody");
    {
        const Variable state("XDG_STATE_HOME", "/var/state");
        EXPECT_EQ(DefaultStateFolder(), "/var/state/quorvale");
    }
    for (const char* unusable : {static_cast<const char*>(nullptr), "", "relative/path"}) {
        const Variable state("XDG_STATE_HOME", unusable);
        EXPECT_EQ(DefaultStateFolder(), "/home/somebody/.local/state/quorvale");
        const Variable noHome("HOME", nullptr);
        EXPECT_EQ(DefaultStateFolder(), "");
    }
}

}  // namespace
}  // namespace quorvale
