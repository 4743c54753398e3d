#include "adapters/posix_files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

namespace quorvale {
namespace {

using namespace std::string_literals;

void Write(const std::string& name, const std::string& bytes) {
    std::ofstream(name, std::ios::binary) << bytes;
}

std::string Contents(std::u16string_view name) {
    auto stream = PosixFiles().OpenForReading(name);
    if (!stream) return "<" + stream.Failure().Reason + ">";
    std::string bytes((*stream)->Size() + 10, '?');
    auto got = (*stream)->Read(reinterpret_cast<std::byte*>(bytes.data()), bytes.size());
    return got ? bytes.substr(0, *got) : "<" + got.Failure().Reason + ">";
}

FileFailure FailureOf(std::u16string_view name) {
    auto stream = PosixFiles().OpenForReading(name);
    if (stream) {
        ADD_FAILURE() << "the file opened";
        return {};
    }
    return stream.Failure();
}

TEST(PosixFiles, ReadsTheBytesOfAFileInTheCurrentDirectory) {
    Write("a.txt", "one\r\n\0\xFF\x1Atwo"s);
    EXPECT_EQ(Contents(u"a.txt"), "one\r\n\0\xFF\x1Atwo"s);
    EXPECT_EQ(Contents(u"./a.txt"), "one\r\n\0\xFF\x1Atwo"s);
    EXPECT_EQ(Contents(std::filesystem::absolute("a.txt").u16string()), "one\r\n\0\xFF\x1Atwo"s);
}

TEST(PosixFiles, TellsTheSizeAndReadsInPieces) {
    Write("a.txt", "abcdefg");
    auto stream = PosixFiles().OpenForReading(u"a.txt");
    ASSERT_TRUE(stream);
    EXPECT_EQ((*stream)->Size(), 7U);
    char bytes[4] = {};
    EXPECT_EQ(*(*stream)->Read(reinterpret_cast<std::byte*>(bytes), 4), 4U);
    EXPECT_EQ(std::string(bytes, 4), "abcd");
    EXPECT_EQ(*(*stream)->Read(reinterpret_cast<std::byte*>(bytes), 4), 3U);
    EXPECT_EQ(std::string(bytes, 3), "efg");
    EXPECT_EQ(*(*stream)->Read(reinterpret_cast<std::byte*>(bytes), 4), 0U);
}

TEST(PosixFiles, AnEmptyFileIsRead) {
    Write("empty", "");
    EXPECT_EQ(Contents(u"empty"), "");
}

TEST(PosixFiles, AMissingFileSaysSo) {
    const FileFailure failure = FailureOf(u"no such file");
    EXPECT_EQ(failure.Operation, "open");
    EXPECT_EQ(failure.Name, u"no such file");
    EXPECT_EQ(failure.Reason, "No such file or directory");
    EXPECT_EQ(FailureOf(u"").Reason, "No such file or directory");
}

TEST(PosixFiles, ADirectoryIsRefused) {
    std::filesystem::create_directory("folder");
    EXPECT_EQ(FailureOf(u"folder").Reason, "Is a directory");
    EXPECT_EQ(FailureOf(u"/").Reason, "Is a directory");
}

TEST(PosixFiles, APipeWithoutAWriterIsRefusedAtOnce) {
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    EXPECT_EQ(FailureOf(u"pipe").Reason, "Is a pipe, not a file");
}

TEST(PosixFiles, DevicesAndSocketsAreRefused) {
    EXPECT_EQ(FailureOf(u"/dev/null").Reason, "Is a device, not a file");
    EXPECT_EQ(FailureOf(u"/dev/zero").Reason, "Is a device, not a file");
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strcpy(address.sun_path, "socket");
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    EXPECT_FALSE(FailureOf(u"socket").Reason.empty());
    close(listener);
}

TEST(PosixFiles, WithoutPermissionTheReasonIsThat) {
    Write("secret", "x");
    ASSERT_EQ(chmod("secret", 0), 0);
    const bool asksNoPermission = access("secret", R_OK) == 0;  // the superuser, as a rule
    if (asksNoPermission) {
        EXPECT_EQ(Contents(u"secret"), "x");
    } else {
        EXPECT_EQ(FailureOf(u"secret").Reason, "Permission denied");
    }
}

TEST(PosixFiles, ANameIsUtf8) {
    Write("\xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x98\x80.txt", "ja");
    EXPECT_EQ(Contents(u"\u65E5\u672C \U0001F600.txt"), "ja");
}

TEST(PosixFiles, ANameThatIsNotUtf8IsReachedThroughLoneSurrogates) {
    Write("caf\xE9.txt", "latin");
    const std::u16string name = {u'c', u'a', u'f', 0xDCE9, u'.', u't', u'x', u't'};
    EXPECT_EQ(Contents(name), "latin");
    EXPECT_EQ(FailureOf(std::u16string(u"caf\u00E9.txt")).Reason, "No such file or directory");
}

TEST(PosixFiles, ANameWithANulIsRefusedAndNotCutOff) {
    Write("a", "x");
    const FileFailure failure = FailureOf(u"a\0b"s);
    EXPECT_EQ(failure.Reason, "The name holds a NUL character");
    EXPECT_EQ(failure.Name, u"a\0b"s);
}

TEST(PosixFiles, NamesAreLiteral) {
    Write("a1", "x");
    EXPECT_EQ(FailureOf(u"a*").Reason, "No such file or directory");
    EXPECT_EQ(FailureOf(u"~").Reason, "No such file or directory");
    Write("*", "star");
    EXPECT_EQ(Contents(u"*"), "star");
}

TEST(PosixFiles, ALinkLeadsToItsFile) {
    Write("target", "x");
    std::filesystem::create_symlink("target", "link");
    std::filesystem::create_symlink("nowhere", "broken");
    EXPECT_EQ(Contents(u"link"), "x");
    EXPECT_EQ(FailureOf(u"broken").Reason, "No such file or directory");
}

TEST(PosixFiles, AFileThatWasOpenedCanBeReadAfterItsNameIsGone) {
    Write("a", "text");
    auto stream = PosixFiles().OpenForReading(u"a");
    std::filesystem::remove("a");
    char bytes[8] = {};
    EXPECT_EQ(*(*stream)->Read(reinterpret_cast<std::byte*>(bytes), 8), 4U);
}

TEST(PosixFiles, TheFileIsClosedWithTheStream) {
    Write("a", "x");
    const auto openFiles = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                             std::filesystem::directory_iterator());
    };
    const auto before = openFiles();
    {
        auto stream = PosixFiles().OpenForReading(u"a");
        EXPECT_EQ(openFiles(), before + 1);
    }
    FailureOf(u".");
    EXPECT_EQ(openFiles(), before);
}

TEST(PosixFiles, BytesFromManyPlacesBecomeOneFile) {
    Write("a.txt", "old");
    const std::string large(3 << 20, 'a');
    const std::string larger(9 << 20, 'b');
    ByteSpans bytes;
    for (const std::string_view span : {std::string_view(large), std::string_view("small"),
                                        std::string_view(larger), std::string_view("end")}) {
        bytes.Add(span);
    }
    PosixFiles files;
    ASSERT_TRUE(files.ReplaceDocument({u"a.txt", u"", DigestOf("old"), bytes}));
    EXPECT_TRUE(Holds(files, u"a.txt", DigestOf(large + "small" + larger + "end")));
    ASSERT_TRUE(files.ReplaceDocument({u"a.txt", u"", bytes.Digest(), ByteSpans()}));
    EXPECT_EQ(Contents(u"a.txt"), "");
}

}  // namespace
}  // namespace quorvale
