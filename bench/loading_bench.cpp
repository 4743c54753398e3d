// Measures reading and indexing of large logs against `wc -l` and against plain reading, in one
// process and with the page cache warm. Usage: loading_bench [DIRECTORY [MEBIBYTES ...]]; the logs
// are written once and stay in DIRECTORY.

#include <fcntl.h>
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
#include <vector>

#include "adapters/huge_pages.h"
#include "adapters/posix_files.h"
#include "document/text_loading.h"
#include "log_file.h"
#include "timing.h"

extern char** environ;

namespace {

using namespace quorvale;
using bench::Median;
using bench::ProcessorTime;
using Advice = HugePageMemory::Advice;

constexpr int rounds = 5;
constexpr double mebibyte = 1024.0 * 1024.0;
constexpr std::uint64_t linesPerMebibyte = 9500;

[[noreturn]] void Fail(const std::string& what) { throw std::runtime_error(what); }

/// The log of that size in the directory, written there if it is not there yet.
std::string CachedLog(const std::filesystem::path& directory, std::uint64_t mebibytes,
                      const std::string& kind, const std::string& last) {
    const auto path = directory / ("log-" + std::to_string(mebibytes) + kind + ".txt");
    const bench::LogShape shape{mebibytes << 20, mebibytes * linesPerMebibyte, 1, last};
    std::error_code none;
    if (std::filesystem::file_size(path, none) != shape.Bytes || none) {
        std::filesystem::create_directories(directory);
        bench::WriteLog(path, shape);
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

/// Memory that was used before and is handed out again and again: what is left of reading without
/// the first touch of each page.
class MemoryAtHand final : public BlockMemory {
public:
    explicit MemoryAtHand(std::size_t size) : all_(HugePageMemory().Allocate(size)) {
        if (all_ == nullptr) Fail("not enough memory");
        std::memset(all_->Data(), 1, all_->Size());
    }

    void TakeBack() { used_ = 0; }

    std::unique_ptr<MemoryBlock> Allocate(std::size_t size) override {
        if (size > all_->Size() - used_) return nullptr;
        auto block = std::make_unique<Piece>(all_->Data() + used_, size);
        used_ += (size + 63) / 64 * 64;
        return block;
    }

private:
    class Piece final : public MemoryBlock {
    public:
        Piece(std::byte* data, std::size_t size) : data_(data), size_(size) {}
        std::byte* Data() override { return data_; }
        std::size_t Size() const override { return size_; }
        void Trim(std::size_t) override {}
        void Discard(std::size_t, std::size_t) override {}

    private:
        std::byte* data_;
        std::size_t size_;
    };

    std::unique_ptr<MemoryBlock> all_;
    std::size_t used_ = 0;
};

struct Timing {
    std::string Name;
    std::function<void()> Work;
    std::function<void()> Prepare = [] {};
    std::vector<double> Times{};
    std::vector<double> ProcessorTimes{};

    void Measure() {
        Prepare();
        const double processorBefore = ProcessorTime();
        const auto begin = std::chrono::steady_clock::now();
        Work();
        const std::chrono::duration<double, std::milli> time =
            std::chrono::steady_clock::now() - begin;
        Times.push_back(time.count());
        ProcessorTimes.push_back(ProcessorTime() - processorBefore);
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

void ReadOnly(const std::string& path, BlockMemory& memory) {
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

LoadedText Load(const std::string& path, BlockMemory& memory, LineKernel kernel) {
    return ReadText(*Open(path), Encoding::Automatic, memory, kernel);
}

/// The host of a virtual machine may take free memory away, and giving it back can take longer than
/// everything else here: so the memory for the next measurement is used once before.
void UseOnce(std::size_t size, Advice advice) {
    const auto block = HugePageMemory(advice).Allocate(size);
    if (block == nullptr) Fail("not enough memory");
    for (std::size_t at = 0; at < size; at += 4096) block->Data()[at] = std::byte{1};
}

void Measure(std::vector<Timing>& timings) {
    for (Timing& timing : timings) {  // warms the page cache
        timing.Prepare();
        timing.Work();
    }
    for (int round = 0; round < rounds; ++round) {
        for (Timing& timing : timings) timing.Measure();
    }
}

void PrintTimes(const std::vector<Timing>& timings) {
    const double yardstick = Median(timings.front().Times);
    for (const Timing& timing : timings) {
        const auto [least, most] = std::minmax_element(timing.Times.begin(), timing.Times.end());
        const double median = Median(timing.Times);
        std::printf("  %-48s %7.1f ms %6.2f x wc -l  (%.0f to %.0f, processor %.0f)\n",
                    timing.Name.c_str(), median, median / yardstick, *least, *most,
                    Median(timing.ProcessorTimes));
    }
}

double Ratio(const Timing& one, const Timing& other) {
    return Median(one.Times) / Median(other.Times);
}

void PrintMemory(const std::string& path, const char* what) {
    const bool reset = ResetPeak();
    const double before = OwnMemory("/proc/self/status", "VmRSS:");
    HugePageMemory memory;
    const LoadedText loaded = Load(path, memory, BestLineKernel());
    const double peak = (OwnMemory("/proc/self/status", "VmHWM:") - before) * 1024;
    const double huge = OwnMemory("/proc/self/smaps_rollup", "AnonHugePages:") / 1024;
    const auto bytes = static_cast<double>(std::filesystem::file_size(path));
    std::printf(
        "  %s: %d lines, peak %.1f MiB%s = file + %.2f bytes a line; %.0f MiB on huge pages%s\n",
        what, loaded.Starts.Count() - 1, peak / mebibyte, reset ? "" : " (of the whole run)",
        (peak - bytes) / loaded.Starts.Count(), huge,
        loaded.Text.IsNarrow() ? "" : "; not all narrow");
}

/// What is measured with fresh pages of one kind.
void AddFreshPages(std::vector<Timing>& timings, const std::string& plain,
                   const std::string& japanese, Advice advice) {
    const std::string pages =
        advice == Advice::AskForHugePages ? ", fresh huge pages" : ", fresh plain pages";
    const std::size_t size = std::filesystem::file_size(plain) / 100 * 105;
    const auto add = [&](const std::string& name, std::function<void(BlockMemory&)> work) {
        const auto onMemory = [=] {
            HugePageMemory memory(advice);
            work(memory);
        };
        timings.push_back({name + pages, onMemory, [=] { UseOnce(size, advice); }});
    };
    const LineKernel best = BestLineKernel();
    add("read()", [=](BlockMemory& memory) { ReadOnly(plain, memory); });
    add("load", [=](BlockMemory& memory) { Load(plain, memory, best); });
    add("load with a Japanese line", [=](BlockMemory& memory) { Load(japanese, memory, best); });
    add("load, portable", [=](BlockMemory& memory) { Load(plain, memory, LineKernel::Portable); });
}

void AddMemoryAtHand(std::vector<Timing>& timings, const std::string& plain, MemoryAtHand& memory) {
    const auto add = [&](const std::string& name, std::function<void()> work) {
        timings.push_back({name + ", memory at hand", work, [&] { memory.TakeBack(); }});
    };
    add("read()", [&] { ReadOnly(plain, memory); });
    add("load", [&] { Load(plain, memory, BestLineKernel()); });
    add("load, portable", [&] { Load(plain, memory, LineKernel::Portable); });
}

void MeasureSize(const std::filesystem::path& directory, std::uint64_t mebibytes) {
    const std::string plain = CachedLog(directory, mebibytes, "", "");
    const std::string japanese =
        CachedLog(directory, mebibytes, "-ja", "最後の行です。ログはここで終わります。");
    std::printf("%ju MiB, medians of %d\n", std::uintmax_t{mebibytes}, rounds);
    std::vector<Timing> timings = {{"wc -l", [&] { CountLines(plain); }}};
    AddFreshPages(timings, plain, japanese, Advice::AskForHugePages);
    AddFreshPages(timings, plain, japanese, Advice::PlainPages);
    Measure(timings);
    {
        MemoryAtHand memory((mebibytes << 20) / 10 * 11);
        std::vector<Timing> atHand;
        AddMemoryAtHand(atHand, plain, memory);
        Measure(atHand);
        timings.insert(timings.end(), atHand.begin(), atHand.end());
    }
    PrintTimes(timings);
    std::printf("  load is %.2f x read() on huge pages, one Japanese line costs %.2f x\n",
                Ratio(timings[2], timings[1]), Ratio(timings[3], timings[2]));
    PrintMemory(plain, "log");
    PrintMemory(japanese, "log with a Japanese line");
}

int Run(const std::vector<std::string>& arguments) {
    const auto directory = arguments.empty()
                               ? std::filesystem::temp_directory_path() / "quorvale-bench"
                               : std::filesystem::path(arguments[0]);
    std::vector<std::uint64_t> sizes;
    for (std::size_t i = 1; i < arguments.size(); ++i) sizes.push_back(std::stoul(arguments[i]));
    if (sizes.empty()) sizes = {100, 1024};
    std::printf("scan: %s\n", BestLineKernel() == LineKernel::Avx2 ? "AVX2" : "portable");
    for (const std::uint64_t mebibytes : sizes) MeasureSize(directory, mebibytes);
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
