#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/encoding.h"

namespace quorvale {

enum class Command { List, Check, Apply, Drop, Help, Version };

/// What the command line asks for.
struct Request {
    Command What = Command::Help;
    bool Json = false;
    bool DryRun = false;
    bool Force = false;
    bool Delete = false;
    bool KeepLineFormat = true;
    quorvale::Encoding Encoding = quorvale::Encoding::Automatic;
    /// Bytes, as the system has them.
    std::vector<std::string> Files;
};

/// A command line that makes no sense; says why.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads the arguments behind the program's name. Options may stand anywhere in front of `--`; what
/// is behind it is files. Throws UsageError.
Request ReadCommandLine(std::span<const std::string_view> arguments);

/// How the command is used: for people, several lines.
std::string_view HelpText();

}  // namespace quorvale
