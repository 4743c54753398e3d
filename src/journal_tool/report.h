#pragma once

#include "journal_tool/exit_code.h"
#include "journal_tool/line_diff.h"
#include "journal_tool/survey.h"

namespace quorvale {

/// What the state of a file and its journal means to the one who asked.
ExitCode Judgement(const Survey& survey);

/// Every correction with the lines that it takes away and puts in their place, for people.
void WriteList(const Survey& survey, const Sink& put);

/// In one line whether all is well, then a line for each correction that does not fit.
void WriteCheck(const Survey& survey, const Sink& put);

/// What an interrupted commit has left, and what the next load does about it; empty for `None`.
const char* SentenceOn(Interruption interrupted);

/// One JSON object in one line, in ASCII: what `WriteList` and `WriteCheck` say, for programs.
void WriteJson(const Survey& survey, const Sink& put);

/// Which correction does not fit, and why: a line for each, with `prefix` in front.
void WriteProblems(const Survey& survey, const std::string& prefix, const Sink& put);

}  // namespace quorvale
