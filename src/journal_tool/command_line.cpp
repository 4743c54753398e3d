#include "journal_tool/command_line.h"

#include <algorithm>
#include <array>
#include <optional>

#include "adapters/posix_names.h"
#include "journal_tool/printable.h"

namespace quorvale {

namespace {

struct NamedCommand {
    std::string_view Name;
    Command What;
};

constexpr std::array commands = {
    NamedCommand{"list", Command::List},
    NamedCommand{"check", Command::Check},
    NamedCommand{"apply", Command::Apply},
    NamedCommand{"drop", Command::Drop},
};

struct NamedEncoding {
    std::string_view Name;
    quorvale::Encoding Value;
};

constexpr std::array encodings = {
    NamedEncoding{"automatic", Encoding::Automatic},
    NamedEncoding{"utf-8", Encoding::Utf8},
    NamedEncoding{"single-byte", Encoding::SingleByte},
    NamedEncoding{"windows-1252", Encoding::Windows1252},
};

std::string Quoted(std::string_view argument) { return "'" + Printable(NameOf(argument)) + "'"; }

/// The arguments, read one after the other.
class Reader {
public:
    explicit Reader(std::span<const std::string_view> arguments) : rest_(arguments) {}

    Request Run() {
        while (!rest_.empty() && !asked_) ReadOne();
        if (asked_) {
            request_.What = *asked_;
            return request_;
        }
        if (!command_) throw UsageError("a command is missing");
        request_.What = *command_;
        RequireFitting();
        if (request_.Files.empty()) throw UsageError("a file is missing");
        return request_;
    }

private:
    std::string_view Next() {
        const std::string_view argument = rest_.front();
        rest_ = rest_.subspan(1);
        return argument;
    }

    void ReadOne() {
        const std::string_view argument = Next();
        if (onlyFiles_ || !argument.starts_with('-') || argument == "-") return ReadWord(argument);
        if (argument == "--") {
            onlyFiles_ = true;
            return;
        }
        ReadOption(argument);
    }

    void ReadWord(std::string_view word) {
        if (command_) {
            if (word.empty()) throw UsageError("a file's name is empty");
            request_.Files.emplace_back(word);
            return;
        }
        const auto found = std::find_if(commands.begin(), commands.end(),
                                        [&](const auto& known) { return known.Name == word; });
        if (found == commands.end()) throw UsageError("there is no command " + Quoted(word));
        command_ = found->What;
    }

    void ReadOption(std::string_view argument) {
        if (argument == "--help" || argument == "-h") {
            asked_ = Command::Help;
        } else if (argument == "--version") {
            asked_ = Command::Version;
        } else if (argument == "--json") {
            request_.Json = true;
        } else if (argument == "--dry-run" || argument == "-n") {
            request_.DryRun = true;
        } else if (argument == "--force" || argument == "-f") {
            request_.Force = true;
        } else if (argument == "--delete") {
            request_.Delete = true;
        } else if (const auto format = ValueOf("--line-format", argument)) {
            ReadLineFormat(*format);
        } else if (const auto encoding = ValueOf("--encoding", argument)) {
            ReadEncoding(*encoding);
        } else {
            throw UsageError("there is no option " + Quoted(argument));
        }
    }

    std::optional<std::string_view> ValueOf(std::string_view option, std::string_view argument) {
        if (!argument.starts_with(option)) return std::nullopt;
        argument.remove_prefix(option.size());
        if (argument.starts_with('=')) return argument.substr(1);
        if (!argument.empty()) return std::nullopt;
        if (rest_.empty()) throw UsageError(std::string(option) + " needs a value");
        return Next();
    }

    void ReadLineFormat(std::string_view value) {
        if (value != "keep" && value != "crlf") {
            throw UsageError(Quoted(value) + " is no line format: keep, crlf");
        }
        lineFormat_ = true;
        request_.KeepLineFormat = value == "keep";
    }

    void ReadEncoding(std::string_view value) {
        const auto found = std::find_if(encodings.begin(), encodings.end(),
                                        [&](const auto& known) { return known.Name == value; });
        if (found == encodings.end()) {
            throw UsageError(Quoted(value) +
                             " is no encoding: automatic, utf-8, single-byte, windows-1252");
        }
        encoding_ = true;
        request_.Encoding = found->Value;
    }

    /// An option that its command would not heed is a mistake of whoever gave it.
    void RequireFitting() const {
        const bool looks = command_ == Command::List || command_ == Command::Check;
        const bool applies = command_ == Command::Apply;
        Require(!request_.Json || looks, "--json");
        Require(!request_.DryRun || applies, "--dry-run");
        Require(!request_.Force || applies, "--force");
        Require(!lineFormat_ || applies, "--line-format");
        Require(!encoding_ || applies || looks, "--encoding");
        Require(!request_.Delete || command_ == Command::Drop, "--delete");
    }

    static void Require(bool fits, const char* option) {
        if (!fits) throw UsageError(std::string(option) + " is no option of this command");
    }

    std::span<const std::string_view> rest_;
    Request request_;
    std::optional<Command> command_;
    /// Help or version: nothing else matters then.
    std::optional<Command> asked_;
    bool onlyFiles_ = false;
    bool lineFormat_ = false;
    bool encoding_ = false;
};

}  // namespace

Request ReadCommandLine(std::span<const std::string_view> arguments) {
    return Reader(arguments).Run();
}

std::string_view HelpText() {
    return R"(Usage: quorvale-journal COMMAND [OPTION]... [--] FILE...

Looks after the corrections that lie in a journal (FILE!.xml) beside a file.

  list    show what is pending
  check   say whether the corrections still fit the file, and whether a commit
          was interrupted
  apply   write the corrections into the file and remove the journal
  drop    give the corrections up: the journal is moved aside

Options:
  --json                  list, check: one JSON object for each file
  -n, --dry-run           apply: show what would change, as a unified diff
  -f, --force             apply: also when some corrections do not fit; those
                          without a place are left out, and a copy of the
                          journal is kept
  --line-format=keep      apply: change corrected lines only (the default)
  --line-format=crlf      apply: end every line with CR LF, blanks for tabs
  --encoding=NAME         how the file is read: automatic (the default), utf-8,
                          single-byte, windows-1252
  --delete                drop: delete the journal instead
  -h, --help              show this
  --version               show the version

list, check and --dry-run change nothing on the disk.

Exit code: 0 nothing is pending, or it is done; 1 corrections are pending;
2 usage; 3 they do not fit, or the journal is none; 4 something cannot be read
or written; 5 another program works on the file; 6 a commit was interrupted.
)";
}

}  // namespace quorvale
