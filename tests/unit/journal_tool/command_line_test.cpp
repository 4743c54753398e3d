#include "journal_tool/command_line.h"

#include <gmock/gmock.h>

namespace quorvale {
namespace {

using Words = std::vector<std::string_view>;
using Names = std::vector<std::string>;

Request Read(const Words& words) { return ReadCommandLine(words); }

std::string ComplaintAbout(const Words& words) {
    try {
        ReadCommandLine(words);
    } catch (const UsageError& error) {
        return error.what();
    }
    return {};
}

TEST(ReadCommandLine, WithoutOptionsACommitLooksAsInTheViewer) {
    const Request request = Read({"apply", "a.log"});
    EXPECT_EQ(request.What, Command::Apply);
    EXPECT_TRUE(request.KeepLineFormat);
    EXPECT_EQ(request.Encoding, Encoding::Automatic);
    EXPECT_FALSE(request.Force);
    EXPECT_FALSE(request.DryRun);
    EXPECT_EQ(request.Files, Names{"a.log"});
}

TEST(ReadCommandLine, OptionsMayStandAnywhere) {
    const Request request = Read({"-n", "apply", "a", "--line-format=crlf", "b", "-f"});
    EXPECT_TRUE(request.DryRun && request.Force);
    EXPECT_FALSE(request.KeepLineFormat);
    EXPECT_EQ(request.Files, (Names{"a", "b"}));
}

TEST(ReadCommandLine, AValueMayStandBehindItsOption) {
    EXPECT_EQ(Read({"list", "--encoding", "utf-8", "a"}).Encoding, Encoding::Utf8);
    EXPECT_EQ(Read({"list", "--encoding=windows-1252", "a"}).Encoding, Encoding::Windows1252);
}

TEST(ReadCommandLine, BehindTwoDashesEverythingIsAFile) {
    EXPECT_EQ(Read({"list", "--", "--json", "-", "--"}).Files, (Names{"--json", "-", "--"}));
}

TEST(ReadCommandLine, HelpIsGivenWhateverElseIsAsked) {
    EXPECT_EQ(Read({"--help"}).What, Command::Help);
    EXPECT_EQ(Read({"apply", "-h"}).What, Command::Help);
    EXPECT_EQ(Read({"--version", "nonsense"}).What, Command::Version);
}

TEST(ReadCommandLine, SaysWhatMakesNoSense) {
    EXPECT_EQ(ComplaintAbout({}), "a command is missing");
    EXPECT_EQ(ComplaintAbout({"list"}), "a file is missing");
    EXPECT_EQ(ComplaintAbout({"show", "a"}), "there is no command 'show'");
    EXPECT_EQ(ComplaintAbout({"list", "--jso", "a"}), "there is no option '--jso'");
    EXPECT_EQ(ComplaintAbout({"list", "a", "--encoding"}), "--encoding needs a value");
    EXPECT_EQ(ComplaintAbout({"list", "-\x1B", "a"}), "there is no option '-\\u001B'");
}

TEST(ReadCommandLine, AnOptionOfAnotherCommandIsAMistake) {
    for (const Words& words : {Words{"list", "-n", "a"},
                               {"check", "--force", "a"},
                               {"apply", "--json", "a"},
                               {"apply", "--delete", "a"},
                               {"drop", "--line-format=keep", "a"}}) {
        EXPECT_THAT(ComplaintAbout(words), testing::EndsWith("is no option of this command"));
    }
}

}  // namespace
}  // namespace quorvale
