#include "control/host_corrections.h"

#include <algorithm>

#include "base/integers.h"
#include "control/control_parts.h"
#include "control/frame.h"
#include "corrections/edit_script.h"
#include "corrections/loaded_digest.h"

namespace quorvale {

std::int32_t HostCorrections::Pending() const {
    return CheckedCast<std::int32_t>(parts_.JournalIndex.CountOfAll());
}

std::int32_t HostCorrections::WithoutPlace() const {
    const EditScript script =
        MakeEditScript(1, parts_.Document.LineSlots, parts_.JournalIndex.Updates());
    const auto placed = std::count_if(script.begin(), script.end(), [](const ScriptStep& step) {
        return step.Insert != nullptr;
    });
    return Pending() - CheckedCast<std::int32_t>(placed);
}

std::uint64_t HostCorrections::Changes() const { return parts_.Corrections.Changes; }

std::optional<HostCorrections::Correction> HostCorrections::Of(std::int32_t line) const {
    const Update* update = parts_.JournalIndex.FindCorrection(Line{line});
    if (update == nullptr) return std::nullopt;
    return Correction{update->Range.Start, update->Range.Count,
                      LinesOfUpdate(UpdateText(*update->Node))};
}

void HostCorrections::Save() {
    const Frame frame(parts_.shared_from_this());
    frame->JournalFile.SaveNow();
}

std::optional<FileFailure> HostCorrections::Unreadable() const {
    return parts_.Corrections.Unreadable;
}

std::u16string HostCorrections::FilePath() const {
    return parts_.Document.FileName.empty() ? std::u16string() : parts_.Corrections.DocumentPath;
}

FileDigest HostCorrections::LoadedDigest() const {
    if (parts_.Document.FileName.empty()) return {};
    return quorvale::LoadedDigest(parts_.Document);
}

bool HostCorrections::MayCommit() const {
    // It may set another one while it runs.
    const auto ask = BeforeCommit;
    return !ask || ask();
}

}  // namespace quorvale
