#pragma once

namespace quorvale {

/// What the command tells the one that called it. Of several files the largest counts.
enum class ExitCode {
    Done = 0,         ///< nothing is pending, or what was asked for is done
    Pending = 1,      ///< there are corrections, and all of them fit
    Usage = 2,        ///< the command line makes no sense
    DoesNotFit = 3,   ///< corrections do not fit the file, or the journal is none
    Failed = 4,       ///< something cannot be read or written
    InUse = 5,        ///< another program works on the file
    Interrupted = 6,  ///< a commit was interrupted, and apply or the next load will end it
};

constexpr ExitCode Worse(ExitCode a, ExitCode b) { return a < b ? b : a; }

}  // namespace quorvale
