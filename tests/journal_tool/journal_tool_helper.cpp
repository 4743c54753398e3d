// What the tests of quorvale-journal need of the code itself:
//   commit keep|crlf FILE...   opens each file in a control without a window and commits
//   lock FILE                  holds the file's lock until standard input ends
//   interrupt N FILE           replaces the file by its lines in capitals, and ends at the N-th
//   call
#include <algorithm>
#include <cstdio>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/document_lock.h"
#include "adapters/posix_files.h"
#include "adapters/posix_names.h"
#include "adapters/pugi_xml.h"
#include "adapters/state_folder.h"
#include "base/text.h"
#include "faults/faulty_calls.h"
#include "headless/headless_box.h"

namespace {

using namespace quorvale;

/// What the control told the user, if anything.
void CommitByControl(const std::string& file, bool keepFormat) {
    HeadlessSetup setup;
    setup.Options.Encoding = Encoding::Automatic;
    setup.Options.KeepLineFormat = keepFormat;
    setup.Options.WideScrollBars = true;
    setup.Files = std::make_shared<PosixFiles>();
    setup.Xml = std::make_shared<PugiXml>();
    HeadlessBox box(setup);
    box->LoadFile(NameOf(file));
    box.PickCorrections(u"mnuPopupCommit");
    for (const auto& shown : box.Messages().Log) std::puts(ToUtf8(shown.Text).c_str());
}

int HoldLock(const std::string& file) {
    const DocumentLock lock(NameOf(file));
    std::puts(lock.IsOurs() ? "ours" : "taken");
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
    return 0;
}

std::string ReadAll(PosixFiles& files, const std::u16string& name) {
    auto stream = files.OpenForReading(name);
    if (!stream) return {};
    std::string bytes((*stream)->Size(), '\0');
    auto got = (*stream)->Read(reinterpret_cast<std::byte*>(bytes.data()), bytes.size());
    return got ? bytes.substr(0, *got) : std::string();
}

int Interrupt(int at, const std::string& file) {
    PosixFiles sound;
    const std::u16string name = NameOf(file);
    const std::u16string path = sound.AbsoluteName(name);
    const std::string bytes = ReadAll(sound, path);
    std::string capitals = bytes;
    std::transform(capitals.begin(), capitals.end(), capitals.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    FaultyCalls calls;
    calls.KillBefore = at;
    // Writing stops in the middle too.
    calls.Short = true;
    PosixFiles files(calls, DefaultStateFolder());
    // As a program does that has read the journal: it is its own.
    const std::string journal = ReadAll(sound, path + u"!.xml");
    std::vector<FileDigest> known;
    if (!journal.empty()) known.push_back(DigestOf(journal));
    const Replacement replacement{path, path + u"!.xml", DigestOf(bytes), capitals, known};
    auto replaced = files.ReplaceDocument(replacement);
    if (replaced) replaced = files.RemoveSpentJournal(replacement);
    return replaced ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string_view what = argc > 2 ? argv[1] : "";
    if (what == "lock") return HoldLock(argv[2]);
    if (what == "interrupt" && argc == 4) return Interrupt(std::stoi(argv[2]), argv[3]);
    if (what != "commit") return 2;
    for (int i = 3; i < argc; ++i) {
        CommitByControl(argv[i], std::string_view(argv[2]) == "keep");
    }
    return 0;
}
