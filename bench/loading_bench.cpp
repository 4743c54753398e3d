// Measures reading and indexing of large logs against `wc -l` and against plain reading, in one
// process and with the page cache warm. Usage: loading_bench [DIRECTORY [MEBIBYTES ...]]; the logs
// are written once and stay in DIRECTORY.

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "adapters/huge_pages.h"
#include "adapters/posix_files.h"
#include "document/text_loading.h"

extern char** environ;

namespace {

using namespace quorvale;
using Advice = HugePageMemory::Advice;

constexpr int rounds = 5;
constexpr double mebibyte = 1024.0 * 1024.0;

[[noreturn]] void Fail(const std::string& what) { throw std::runtime_error(what); }

/// Writes log lines until the file has the size; with `last` behind them.
void WriteLog(const std::filesystem::path& path, std::size_t size, const std::string& last) {
    static const std::vector<std::string> levels = {"INFO ", "DEBUG", "WARN ", "ERROR"};
    static const std::vector<std::string> parts = {"scheduler", "storage", "network", "session"};
    static const std::vector<std::string> deeds = {
        "request finished", "connection accepted from client", "cache entry evicted, will be read",
        "retry after timeout", "checkpoint written and verified"};
    std::mt19937 random(20240229);
    const auto any = [&](const std::vector<std::string>& of) { return of[random() % of.size()]; };
    std::ofstream out(path, std::ios::binary);
    std::string lines;
    std::size_t written = 0;
    for (std::size_t number = 0; written + lines.size() + last.size() < size; ++number) {
        lines += "2024-02-29 12:" + std::to_string(10 + number / 60 % 50) + ":" +
                 std::to_string(10 + number % 50) + "." + std::to_string(100 + random() % 900) +
                 " " + any(levels) + " [worker-" + std::to_string(random() % 32) + "] " +
                 any(parts) + ": " + any(deeds) + " id=" + std::to_string(random()) + " took " +
                 std::to_string(random() % 100000) + " us\n";
        if (lines.size() < (1 << 20)) continue;
        out.write(lines.data(), static_cast<std::streamsize>(lines.size()));
        written += lines.size();
        lines.clear();
    }
    lines += last;
    out.write(lines.data(), static_cast<std::streamsize>(lines.size()));
    if (!out.flush()) Fail("cannot write " + path.string());
}

std::string CachedLog(const std::filesystem::path& directory, std::size_t mebibytes,
                      const std::string& kind, const std::string& last) {
    const auto path = directory / ("log-" + std::to_string(mebibytes) + kind + ".txt");
    const std::size_t size = mebibytes << 20;
    std::error_code none;
    if (std::filesystem::file_size(path, none) + 1024 < size || none) {
        std::filesystem::create_directories(directory);
        WriteLog(path, size, last);
    }
    return path.string();
}

/// A number that the system tells about this process, in KiB; 0 if it does not tell.
double OwnMemory(const char* file, const std::string& name) {
    std::ifstream in(file);
    for (std::string word; in >> word;) {
        double value = 0;
        if (word == name && in >> value) return value;
    }
    return 0;
}

bool ResetPeak() {
    return static_cast<bool>(std::ofstream("/proc/self/clear_refs") << 5 << std::flush);
}

struct Timing {
    std::string Name;
    std::function<void()> Work;
    std::vector<double> Times;

    double Median() const {
        std::vector<double> sorted = Times;
        std::sort(sorted.begin(), sorted.end());
        return sorted[sorted.size() / 2];
    }
};

void CountLines(const std::string& path) {
    std::string program = "wc", option = "-l", file = path;
    char* arguments[] = {program.data(), option.data(), file.data(), nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const int failed = posix_spawnp(&child, "wc", &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    if (failed != 0 || waitpid(child, &status, 0) != child || status != 0) Fail("wc -l failed");
}

std::unique_ptr<ReadStream> Open(const std::string& path) {
    auto stream = PosixFiles().OpenForReading(std::u16string(path.begin(), path.end()));
    if (!stream) RaiseFileFailure(stream.Failure());
    return std::move(*stream);
}

void ReadOnly(const std::string& path, Advice advice) {
    HugePageMemory memory(advice);
    const auto stream = Open(path);
    const auto block = memory.Allocate(stream->Size());
    if (block == nullptr) Fail("not enough memory");
    std::size_t done = 0;
    while (done < stream->Size()) {
        auto got = stream->Read(block->Data() + done,
                                std::min<std::size_t>(1 << 20, stream->Size() - done));
        if (!got || *got == 0) Fail("cannot read " + path);
        done += *got;
    }
}

LoadedText Load(const std::string& path, Advice advice, LineKernel kernel) {
    HugePageMemory memory(advice);
    return ReadText(*Open(path), Encoding::Automatic, memory, kernel);
}

void Measure(std::vector<Timing>& timings) {
    for (Timing& timing : timings) timing.Work();  // warms the page cache
    for (int round = 0; round < rounds; ++round) {
        for (Timing& timing : timings) {
            const auto begin = std::chrono::steady_clock::now();
            timing.Work();
            const std::chrono::duration<double, std::milli> time =
                std::chrono::steady_clock::now() - begin;
            timing.Times.push_back(time.count());
        }
    }
}

void PrintTimes(const std::vector<Timing>& timings) {
    const double yardstick = timings.front().Median();
    for (const Timing& timing : timings) {
        const auto [least, most] = std::minmax_element(timing.Times.begin(), timing.Times.end());
        std::printf("  %-52s %8.1f ms (%.1f to %.1f)  %5.2f x wc -l\n", timing.Name.c_str(),
                    timing.Median(), *least, *most, timing.Median() / yardstick);
    }
}

void PrintMemory(const std::string& path, const char* what) {
    const bool reset = ResetPeak();
    const double before = OwnMemory("/proc/self/status", "VmRSS:");
    const LoadedText loaded = Load(path, Advice::AskForHugePages, BestLineKernel());
    const double peak = (OwnMemory("/proc/self/status", "VmHWM:") - before) * 1024;
    const double huge = OwnMemory("/proc/self/smaps_rollup", "AnonHugePages:") / 1024;
    const auto bytes = static_cast<double>(std::filesystem::file_size(path));
    std::printf(
        "  %s: %d lines, peak %.1f MiB%s = file + %.2f bytes a line; %.0f MiB on huge pages%s\n",
        what, loaded.Starts.Count() - 1, peak / mebibyte, reset ? "" : " (of the whole run)",
        (peak - bytes) / loaded.Starts.Count(), huge,
        loaded.Text.IsNarrow() ? "" : "; not all narrow");
}

void MeasureSize(const std::filesystem::path& directory, std::size_t mebibytes) {
    const std::string plain = CachedLog(directory, mebibytes, "", "");
    const std::string japanese =
        CachedLog(directory, mebibytes, "-ja", "最後の行です。ログはここで終わります。\n");
    const auto load = [&](std::string name, const std::string& path, Advice advice,
                          LineKernel kernel) {
        return Timing{std::move(name), [=] { Load(path, advice, kernel); }, {}};
    };
    const LineKernel best = BestLineKernel();
    std::vector<Timing> timings = {
        {"wc -l", [&] { CountLines(plain); }, {}},
        {"read(), huge pages", [&] { ReadOnly(plain, Advice::AskForHugePages); }, {}},
        load("load, huge pages", plain, Advice::AskForHugePages, best),
        load("load, huge pages, one Japanese line at the end", japanese, Advice::AskForHugePages,
             best),
        load("load, huge pages, portable scan", plain, Advice::AskForHugePages,
             LineKernel::Portable),
        {"read(), plain pages", [&] { ReadOnly(plain, Advice::PlainPages); }, {}},
        load("load, plain pages", plain, Advice::PlainPages, best),
        load("load, plain pages, portable scan", plain, Advice::PlainPages, LineKernel::Portable),
    };
    std::printf("%zu MiB, medians of %d\n", mebibytes, rounds);
    Measure(timings);
    PrintTimes(timings);
    std::printf("  one Japanese line costs %.2f x\n", timings[3].Median() / timings[2].Median());
    std::printf("  load is %.2f x read() on huge pages, %.2f x on plain ones\n",
                timings[2].Median() / timings[1].Median(),
                timings[6].Median() / timings[5].Median());
    PrintMemory(plain, "log");
    PrintMemory(japanese, "log with a Japanese line");
}

int Run(const std::vector<std::string>& arguments) {
    const auto directory = arguments.empty()
                               ? std::filesystem::temp_directory_path() / "quorvale-bench"
                               : std::filesystem::path(arguments[0]);
    std::vector<std::size_t> sizes;
    for (std::size_t i = 1; i < arguments.size(); ++i) sizes.push_back(std::stoul(arguments[i]));
    if (sizes.empty()) sizes = {100, 1024};
    std::printf("scan: %s\n", BestLineKernel() == LineKernel::Avx2 ? "AVX2" : "portable");
    for (const std::size_t mebibytes : sizes) MeasureSize(directory, mebibytes);
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
