// Measures a commit of ten thousand corrections into a file of 100 MiB against writing the same
// bytes with sync, and scrolling with twenty thousand corrections against scrolling with none.
// Usage: corrections_bench [DIRECTORY]; the file is written there anew each time.

#include <fcntl.h>
#include <unistd.h>

#include <cstdint>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

#include "adapters/huge_pages.h"
#include "adapters/posix_files.h"
#include "adapters/pugi_xml.h"
#include "control/host_corrections.h"
#include "control/quorvale_box.h"
#include "headless/fixed_metrics.h"
#include "headless/headless_host.h"
#include "log_file.h"
#include "timing.h"

namespace {

using namespace quorvale;
using namespace quorvale::bench;

constexpr std::int32_t lines = 1'000'000;
constexpr std::uint64_t fileBytes = 100 << 20;

/// A control over real files, as a viewer has one.
class Control {
public:
    explicit Control(const std::string& file) : box_(Services(), Options()) {
        box_.InitProperties();
        box_.Elements().Resize(12000, 7560);
        box_.Show();
        box_.LoadFile(std::u16string(file.begin(), file.end()));
        if (box_.LineCount() < lines) throw std::runtime_error("the file was not loaded");
    }

    QuorvaleBox& Box() { return box_; }

    /// Looks, as the viewer does, whether somebody has written the file since it was loaded.
    void RequireUnchanged() const {
        const HostCorrections& corrections = box_.Corrections();
        PosixFiles files;
        if (!Holds(files, corrections.FilePath(), corrections.LoadedDigest())) {
            throw std::runtime_error("the file was changed");
        }
    }

    void Commit() {
        box_.Elements().mnuPopup.UserPick(u"mnuPopupCommit");
        if (box_.Corrections().Pending() != 0) throw std::runtime_error("nothing was committed");
    }

private:
    static HostServices Services() {
        HostServices services;
        services.Metrics = std::make_shared<FixedMetrics>();
        services.Files = std::make_shared<PosixFiles>();
        services.Memory = std::make_shared<HugePageMemory>();
        services.Site = std::make_shared<HeadlessContainer>();
        services.Messages = std::make_shared<HeadlessMessages>();
        services.Xml = std::make_shared<PugiXml>();
        return services;
    }
    static HostOptions Options() {
        HostOptions options;
        options.WideScrollBars = true;
        options.OfferEditing = true;
        options.KeepLineFormat = true;
        options.Encoding = Encoding::Automatic;
        return options;
    }

    QuorvaleBox box_;
};

void WriteJournal(const std::string& file, std::int32_t corrections) {
    std::ofstream out(file + "!.xml");
    out << "<corrections>";
    const std::int32_t step = lines / (corrections + 1);
    for (std::int32_t k = 1; k <= corrections; ++k) {
        out << "<update start=\"" << k * step << "\" loc=\"1\">correction " << k
            << " of a line\n</update>";
    }
    out << "</corrections>";
    if (!out.flush()) throw std::runtime_error("the journal cannot be written");
}

std::string BytesOf(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// What any careful program does: a new file beside the old one, sync, rename, sync of the folder.
void WriteWithSync(const std::string& file, const std::string& bytes) {
    const std::string fresh = file + ".new";
    const int out = open(fresh.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    std::size_t at = 0;
    while (out >= 0 && at < bytes.size()) {
        const ssize_t written = write(out, bytes.data() + at, bytes.size() - at);
        if (written <= 0) break;
        at += static_cast<std::size_t>(written);
    }
    if (at < bytes.size() || fsync(out) != 0) throw std::runtime_error("writing failed");
    close(out);
    std::filesystem::rename(fresh, file);
    const std::string folder = std::filesystem::path(file).parent_path();
    const int held = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (held >= 0) fsync(held);
    close(held);
}

void CompareCommits(const std::string& file, const std::string& fileBeside) {
    constexpr std::int32_t corrections = 10'000;
    const std::string bytes = BytesOf(file);
    std::unique_ptr<Control> control;
    const auto prepare = [&] {
        control.reset();
        WriteJournal(file, corrections);
        control = std::make_unique<Control>(file);
    };
    std::vector<Timing> timings = {
        {"write the same bytes, with sync", [&] { WriteWithSync(fileBeside, bytes); }},
        {"commit 10,000 corrections into 100 MiB", [&] { control->Commit(); }, prepare},
        {"the same, having looked for changes as the viewer does",
         [&] {
             control->RequireUnchanged();
             control->Commit();
         },
         prepare},
        {"load the file, which a commit ends with", [&] {
             control.reset();
             control = std::make_unique<Control>(file);
         }}};
    Measure(timings);
    Print(timings[0]);
    Print(timings[1], Ratio(timings[1].Middle(), timings[0].Middle(), "the writing, 2 wanted"));
    Print(timings[2], Ratio(timings[2].Middle(), timings[0].Middle(), "the writing"));
    Print(timings[3]);
}

void Page(QuorvaleBox& box) {
    constexpr std::int32_t pages = 1000;
    for (std::int32_t page = 1; page <= pages; ++page) box.TopLine(page * (lines / (pages + 1)));
}

void CompareScrolling(const std::string& file) {
    constexpr std::int32_t corrections = 20'000;
    std::unique_ptr<Control> plain;
    std::unique_ptr<Control> corrected;
    std::filesystem::remove(file + "!.xml");
    plain = std::make_unique<Control>(file);
    WriteJournal(file, corrections);
    corrected = std::make_unique<Control>(file);
    if (corrected->Box().Corrections().Pending() != corrections) {
        throw std::runtime_error("the corrections were not read");
    }
    std::vector<Timing> timings = {
        {"1,000 pages without a correction", [&] { Page(plain->Box()); }},
        {"1,000 pages with 20,000 corrections", [&] { Page(corrected->Box()); }}};
    Measure(timings);
    Print(timings[0]);
    Print(timings[1], Ratio(timings[1].Middle(), timings[0].Middle(), "of none, 1.2 wanted"));
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const std::filesystem::path folder =
            argc > 1 ? std::filesystem::path(argv[1])
                     : std::filesystem::temp_directory_path() / "corrections_bench";
        std::filesystem::create_directories(folder);
        const std::string file = std::filesystem::absolute(folder / "corrected.log");
        LogShape shape;
        shape.Bytes = fileBytes;
        shape.Lines = lines;
        WriteLog(file, shape);
        CompareCommits(file, std::filesystem::absolute(folder / "beside.log"));
        CompareScrolling(file);
        std::filesystem::remove(file + "!.xml");
    } catch (const std::exception& failure) {
        std::cerr << "corrections_bench: " << failure.what() << '\n';
        return 1;
    }
}
