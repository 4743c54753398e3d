#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/posix_files.h"
#include "adapters/pugi_xml.h"
#include "journal_tool/command_line.h"
#include "journal_tool/commands.h"

namespace {

using quorvale::ExitCode;

void Complain(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stderr); }

/// A file must never get the number of a standard stream that was closed, and what is written to
/// such a stream has to fail.
void OccupyStandardStreams() {
    int descriptor = 0;
    do {
        descriptor = open("/dev/null", O_RDONLY | O_CLOEXEC);
    } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    if (descriptor > STDERR_FILENO) close(descriptor);
}

/// Whoever reads the output must not take half of it for the whole.
bool FinishOutput() {
    const bool complete = std::ferror(stdout) == 0;
    return std::fflush(stdout) == 0 && complete;
}

ExitCode RunFiles(const quorvale::Request& request) {
    const quorvale::Voices voices{
        [](std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }, Complain,
        isatty(STDOUT_FILENO) != 0};
    quorvale::PosixFiles files;
    quorvale::PugiXml xml;
    quorvale::Commands commands(request, files, xml, voices);
    ExitCode worst = ExitCode::Done;
    for (const std::string& file : request.Files) {
        worst = quorvale::Worse(worst, commands.Run(file));
    }
    return worst;
}

ExitCode Run(const std::vector<std::string_view>& arguments) {
    const quorvale::Request request = quorvale::ReadCommandLine(arguments);
    if (request.What == quorvale::Command::Help) {
        const std::string_view help = quorvale::HelpText();
        std::fwrite(help.data(), 1, help.size(), stdout);
        return ExitCode::Done;
    }
    if (request.What == quorvale::Command::Version) {
        std::fputs("quorvale-journal " QUORVALE_VERSION "\n", stdout);
        return ExitCode::Done;
    }
    return RunFiles(request);
}

ExitCode RunGuarded(int argc, char** argv) {
    try {
        return Run(std::vector<std::string_view>(argc > 0 ? argv + 1 : argv, argv + argc));
    } catch (const quorvale::UsageError& error) {
        Complain(std::string("quorvale-journal: ") + error.what() +
                 "\nTry 'quorvale-journal --help'.\n");
        return ExitCode::Usage;
    } catch (const std::bad_alloc&) {
        Complain("quorvale-journal: not enough memory\n");
    } catch (const std::exception& error) {
        Complain(std::string("quorvale-journal: ") + error.what() + "\n");
    }
    return ExitCode::Failed;
}

}  // namespace

int main(int argc, char** argv) {
    OccupyStandardStreams();
    ExitCode code = RunGuarded(argc, argv);
    if (!FinishOutput()) {
        Complain(std::string("quorvale-journal: the output cannot be written: ") +
                 std::strerror(errno) + "\n");
        code = quorvale::Worse(code, ExitCode::Failed);
    }
    return static_cast<int>(code);
}
