// Measures searching against ripgrep, on one processor, in one process and with the page cache
// warm: the next match that does not exist in a loaded document, all matches of a text and of a
// wildcard pattern in a large file, and in many small ones. Every ratio is printed only after what
// was found was compared with what the tool finds: lines, and columns but those of patterns.
// Without `rg` only the control's own times are shown. Usage: search_bench [DIRECTORY [MEBIBYTES]];
// the files are written once and stay there.

#include <fcntl.h>
#include <sched.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include "adapters/huge_pages.h"
#include "adapters/posix_files.h"
#include "base/numbers_in_text.h"
#include "base/text.h"
#include "document/text_loading.h"
#include "headless/headless_box.h"
#include "log_file.h"
#include "search/file_scan.h"
#include "search/text_search.h"
#include "timing.h"

extern char** environ;

namespace {

using namespace quorvale;
using bench::Median;
using bench::ProcessorTime;
using Arguments = std::vector<std::string>;

constexpr int rounds = 7;
constexpr std::uint64_t linesPerMebibyte = 9500;
constexpr int smallFiles = 2000;
constexpr std::uint64_t smallFileBytes = (std::uint64_t{100} << 20) / smallFiles;

[[noreturn]] void Fail(const std::string& what) { throw std::runtime_error(what); }

/// What is measured, and what has to be ready before each time.
struct Timing {
    std::string Name;
    std::function<void()> Work;
    std::vector<double> Times{};
    std::vector<double> ProcessorTimes{};

    void Measure() {
        const double processorBefore = ProcessorTime();
        const auto begin = std::chrono::steady_clock::now();
        Work();
        const std::chrono::duration<double, std::milli> time =
            std::chrono::steady_clock::now() - begin;
        Times.push_back(time.count());
        ProcessorTimes.push_back(ProcessorTime() - processorBefore);
    }
};

/// Runs a program with its output in a file; its exit code, or -1 when it cannot be run.
int RunTool(const Arguments& command, const std::string& output) {
    Arguments copies = command;
    std::vector<char*> arguments;
    for (std::string& argument : copies) arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const int failed =
        posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    if (failed != 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status)) return -1;
    return WEXITSTATUS(status) == 127 ? -1 : WEXITSTATUS(status);
}

/// A matching line: file, number, column of the first match; the column is 0 where it is not told.
using FoundLine = std::tuple<std::string, std::int32_t, std::int32_t>;
using FoundLines = std::vector<FoundLine>;

class Bench {
public:
    explicit Bench(std::filesystem::path directory, std::uint64_t mebibytes)
        : directory_(std::move(directory)),
          output_(directory_ / "tool-output"),
          log_(WriteLargeLog(mebibytes)),
          many_(WriteManyLogs()) {
        hasTool_ = RunTool({"rg", "--version"}, output_) == 0;
        HeadlessSetup setup;
        setup.Files = std::make_shared<PosixFiles>();
        setup.Memory = std::make_shared<HugePageMemory>();
        box_ = std::make_unique<HeadlessBox>(setup);
    }

    void Run() {
        if (!hasTool_) std::printf("rg is not installed: no ratios\n");
        FindNothing();
        FindAllInLog("Find All, a match per 1,200 lines", u"000 info", entryAll,
                     {"-F", "000 info"});
        FindAllInLog("Find All, dense", u"worker-07", entryAll, {"-F", "worker-07"});
        FindAllInLog("Wildcard Find All, *thread*marker*", u"thread*marker", entryWildAll,
                     {"thread.*marker"});
        FindInManyFiles();
        ManyStars();
    }

private:
    static constexpr std::size_t entryAll = 1;
    static constexpr std::size_t entryWildAll = 2;

    std::string WriteLargeLog(std::uint64_t mebibytes) {
        std::filesystem::create_directories(directory_);
        const auto path = directory_ / ("log-" + std::to_string(mebibytes) + ".txt");
        const bench::LogShape shape{mebibytes << 20, mebibytes * linesPerMebibyte, 1, {}};
        std::error_code none;
        if (std::filesystem::file_size(path, none) != shape.Bytes || none) {
            bench::WriteLog(path, shape);
        }
        return path.string();
    }

    std::vector<std::string> WriteManyLogs() {
        const auto folder = directory_ / "many";
        std::filesystem::create_directories(folder);
        std::vector<std::string> paths;
        for (int number = 0; number < smallFiles; ++number) {
            const auto path = folder / ("log-" + std::to_string(number) + ".txt");
            const bench::LogShape shape{smallFileBytes,
                                        smallFileBytes * linesPerMebibyte >> 20,
                                        static_cast<std::uint64_t>(number) + 1,
                                        {}};
            std::error_code none;
            if (std::filesystem::file_size(path, none) != shape.Bytes || none) {
                bench::WriteLog(path, shape);
            }
            paths.push_back(path.string());
        }
        return paths;
    }

    /// Takes turns, after once that warms the page cache.
    static void Measure(std::vector<Timing>& timings) {
        for (Timing& timing : timings) timing.Work();
        for (int round = 0; round < rounds; ++round) {
            for (Timing& timing : timings) timing.Measure();
        }
    }

    /// The last one is the yardstick.
    static void Print(const std::string& what, std::vector<Timing>& timings) {
        Measure(timings);
        std::printf("%s\n", what.c_str());
        const double yardstick = Median(timings.back().Times);
        const double processorYardstick = Median(timings.back().ProcessorTimes);
        for (const Timing& timing : timings) {
            const auto [least, most] =
                std::minmax_element(timing.Times.begin(), timing.Times.end());
            const double median = Median(timing.Times);
            const double processor = Median(timing.ProcessorTimes);
            std::printf(
                "  %-44s %7.1f ms, ratio %5.2f  (%.0f to %.0f; processor %.0f, ratio %.2f)\n",
                timing.Name.c_str(), median, median / yardstick, *least, *most, processor,
                processor / processorYardstick);
        }
    }

    Timing Tool(const std::string& name, Arguments command) {
        return {name, [this, command = std::move(command)] {
                    if (RunTool(command, output_) > 1) Fail("the tool failed");
                }};
    }

    void AddTool(std::vector<Timing>& timings, const std::string& name, Arguments command) {
        if (hasTool_) timings.push_back(Tool(name, std::move(command)));
    }

    QuorvaleBox& Box() { return box_->Box(); }

    void FindAll(const std::u16string& text, std::size_t entry) {
        Box().SearchText(text);
        box_->Elements().tbMore.UserMenuClick(u"Find", entry);
    }

    FoundLines Listed(bool columns) {
        const ListView& list = box_->Elements().lvFound;
        FoundLines found;
        for (std::size_t row = 1; row + 1 < list.RowCount(); ++row) {
            const std::u16string tag = list.RowTag(row);
            const std::size_t end = tag.find(u'\r');
            const std::int32_t behind = ToLong(std::u16string_view(tag).substr(end + 1));
            found.emplace_back(ToUtf8(tag.substr(0, end)),
                               ToLong(std::u16string_view(list.Cell(row, 1))),
                               columns ? behind - 1 : 0);
        }
        std::sort(found.begin(), found.end());
        return found;
    }

    /// The tool's `file:line:column:` in front of every line.
    FoundLines Told(bool columns) {
        FoundLines found;
        std::ifstream in(output_);
        for (std::string line; std::getline(in, line);) {
            const std::size_t file = line.find(':');
            const std::size_t number = line.find(':', file + 1);
            found.emplace_back(line.substr(0, file), std::stoi(line.substr(file + 1)),
                               columns ? std::stoi(line.substr(number + 1)) : 0);
        }
        std::sort(found.begin(), found.end());
        return found;
    }

    void Compare(Arguments command, const std::string& where, bool columns) {
        const FoundLines listed = Listed(columns);
        std::printf("  %zu matching lines", listed.size());
        if (hasTool_) {
            command.insert(command.begin(), {"rg", "-in", "--column", "--no-heading", "-H"});
            command.push_back(where);
            RunTool(command, output_);
            if (Told(columns) != listed) Fail("the tool finds something else");
            std::printf("%s", columns ? ", lines and columns as the tool's" : ", as the tool's");
        }
        std::printf("\n");
    }

    void FindNothing() {
        Box().LoadFile(FromUtf8(log_));
        Box().MoveTo(1, 0);
        const LoadedText text = LoadText();
        for (const auto* what : {"xyzzy quux", "session closedd"}) {
            const std::u16string wanted = FromUtf8(what);
            Box().SearchText(wanted);
            const auto findIn = [&text, wanted](SearchKernel kernel) {
                const TextSearch search(wanted, CaseTableOf(nullptr), kernel);
                if (FindText(text.Text, 1, search) != 0) Fail("found what is not there");
            };
            std::vector<Timing> timings;
            timings.push_back({"Find Next, no match", [this] {
                                   box_->Elements().tbMore.UserClick(u"Find");
                                   if (Box().col() != 0) Fail("found what is not there");
                               }});
            timings.push_back({"the search alone", [&] { findIn(BestSearchKernel()); }});
            timings.push_back({"portable", [&] { findIn(SearchKernel::Portable); }});
            timings.push_back({"memchr for an absent byte", [&] {
                                   text.Text.VisitSpans(1, text.Text.Length(), [](auto units) {
                                       if (std::memchr(units.data(), 1, units.size()) != nullptr) {
                                           Fail("the byte is there");
                                       }
                                   });
                               }});
            const Arguments command = {"rg", "-icF", "-j1", what, log_};
            // It counts what it finds, and says by 1 that there is nothing.
            if (hasTool_ && RunTool(command, output_) != 1) Fail("the tool finds something");
            AddTool(timings, "rg -ic -j1", command);
            Print(std::string("Find \"") + what + "\" in a loaded document", timings);
        }
        Box().text(u"");
    }

    LoadedText LoadText() {
        PosixFiles files;
        auto stream = files.OpenForReading(FromUtf8(log_));
        if (!stream) RaiseFileFailure(stream.Failure());
        HugePageMemory memory;
        return ReadText(**stream, Encoding::SingleByte, memory);
    }

    void FindAllInLog(const std::string& what, const std::u16string& typed, std::size_t entry,
                      const Arguments& pattern) {
        Box().SearchFiles(FromUtf8(log_));
        const bool wild = entry == entryWildAll;
        const auto kind = wild ? LineQuery::Kind::Wildcard : LineQuery::Kind::Plain;
        std::vector<Timing> timings;
        timings.push_back({"until the list is shown", [&] { FindAll(typed, entry); }});
        timings.push_back({"portable", [&] { ScanPortably(typed, kind); }});
        Arguments command = {"rg", wild ? "-ic" : "-in", "-j1"};
        command.insert(command.end(), pattern.begin(), pattern.end());
        command.push_back(log_);
        AddTool(timings, wild ? "rg -ic -j1" : "rg -in -j1", command);
        FindAll(typed, entry);
        Compare(pattern, log_, !wild);
        Print(what, timings);
    }

    void ScanPortably(const std::u16string& typed, LineQuery::Kind kind) {
        PosixFiles files;
        ResultStore store;
        const LineQuery query(typed, kind, CaseTableOf(nullptr), SearchKernel::Portable);
        FileScan scan(files, Encoding::SingleByte, query, store, SearchKernel::Portable);
        scan.Search(FromUtf8(log_), [](auto, auto) { return true; });
    }

    void FindInManyFiles() {
        std::u16string names;
        for (const std::string& path : many_) names += FromUtf8(path) + u"\r";
        Box().SearchFiles(names);
        const std::string folder = (directory_ / "many").string();
        for (const auto* what : {"error [worker-3", "xyzzy quux"}) {
            const std::u16string wanted = FromUtf8(what);
            std::vector<Timing> timings;
            timings.push_back({"until the list is shown", [&] { FindAll(wanted, entryAll); }});
            timings.push_back({"open, read and close", [&] { ReadAll(); }});
            AddTool(timings, "rg -in -j1", {"rg", "-inF", "-j1", what, folder});
            FindAll(wanted, entryAll);
            Compare({"-F", what}, folder, true);
            Print("Find All in 2,000 files of 100 MiB, \"" + std::string(what) + "\"", timings);
        }
    }

    void ReadAll() {
        std::vector<std::byte> buffer(FileScan::UsualCapacity);
        PosixFiles files;
        for (const std::string& path : many_) {
            auto stream = files.OpenForReading(FromUtf8(path));
            if (!stream) RaiseFileFailure(stream.Failure());
            if (!(*stream)->Read(buffer.data(), smallFileBytes)) Fail("cannot read " + path);
        }
    }

    void ManyStars() {
        const auto path = (directory_ / "stars.txt").string();
        // With the last letter in front, or the line would be passed over for want of it.
        std::ofstream(path) << 'b' << std::string(100'000, 'a') << '\n';
        Box().SearchFiles(FromUtf8(path));
        std::vector<Timing> timings;
        timings.push_back({"until the list is shown", [&] { FindAll(u"*a*a*a*b", entryWildAll); }});
        Print("*a*a*a*b over a line of b and 100,000 a", timings);
    }

    std::filesystem::path directory_;
    std::string output_;
    std::string log_;
    std::vector<std::string> many_;
    bool hasTool_ = false;
    std::unique_ptr<HeadlessBox> box_;
};

/// For this process and those it starts.
void StayOnOneProcessor() {
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(static_cast<std::size_t>(std::max(sched_getcpu(), 0)), &one);
    sched_setaffinity(0, sizeof one, &one);
}

int Run(const Arguments& arguments) {
    const auto directory = arguments.empty()
                               ? std::filesystem::temp_directory_path() / "quorvale-bench"
                               : std::filesystem::path(arguments[0]);
    const std::uint64_t mebibytes = arguments.size() > 1 ? std::stoul(arguments[1]) : 1024;
    StayOnOneProcessor();
    const bool avx2 = BestSearchKernel() == SearchKernel::Avx2;
    std::printf("search: %s; %ju MiB; medians of %d\n", avx2 ? "AVX2" : "portable",
                std::uintmax_t{mebibytes}, rounds);
    Bench(directory, mebibytes).Run();
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return Run({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
