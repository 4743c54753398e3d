#pragma once

#include <string>

#include "journal_tool/command_line.h"
#include "journal_tool/exit_code.h"
#include "journal_tool/line_diff.h"
#include "journal_tool/survey.h"

namespace quorvale {

/// Where a command's words go.
struct Voices {
    /// What was asked for.
    Sink Output;
    /// What went wrong, and what happened besides, in whole lines.
    Sink Errors;
    /// The output is read by a person: nothing in it may drive their terminal.
    bool ToPeople = false;
};

/// Carries out what a command line asks for, one file after the other.
class Commands {
public:
    Commands(const Request& request, PosixFiles& files, XmlService& xml, const Voices& voices);

    /// The file is named by bytes, as the system has them. Failures are told, none is thrown but
    /// those of memory.
    ExitCode Run(const std::string& file);

private:
    /// The document of which the name is the journal; empty for any other name.
    std::u16string DocumentOf(const std::u16string& name);
    ExitCode Look(const std::u16string& name);
    ExitCode Apply(const std::u16string& name);
    ExitCode ApplyLocked(const std::u16string& name);
    ExitCode Write(const Survey& survey);
    ExitCode Replace(const Survey& survey, const std::string& bytes);
    ExitCode DryRun(const Survey& survey);
    void WriteDiff(const Survey& survey, const std::string& bytes);
    ExitCode Drop(const std::u16string& name);
    ExitCode TellWhatCannotBeDropped(const std::u16string& name);
    ExitCode DropLocked(const std::u16string& name);

    bool Recover(const std::u16string& name);
    ExitCode TellWhatIsWrong(const Survey& survey);
    std::string CorrectedBytes(const Survey& survey) const;
    void Tell(const std::u16string& name, const std::string& what);
    void TellNotice(const FileNotice& notice);

    const Request& request_;
    PosixFiles& files_;
    XmlService& xml_;
    const Voices& voices_;
};

}  // namespace quorvale
