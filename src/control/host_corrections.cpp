#include "control/host_corrections.h"

#include <algorithm>

#include "base/integers.h"
#include "control/control_parts.h"
#include "control/frame.h"
#include "corrections/fitting.h"

namespace quorvale {

std::int32_t HostCorrections::Pending() const {
    return CheckedCast<std::int32_t>(parts_.JournalIndex.CountOfAll());
}

std::int32_t HostCorrections::WithoutPlace() const {
    const auto pending = FindPending(parts_.Corrections, &parts_.Document);
    return CheckedCast<std::int32_t>(
        std::count_if(pending.begin(), pending.end(),
                      [](const PendingCorrection& one) { return !one.HasPlace(); }));
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

void HostCorrections::SaveRecorded() {
    const Frame frame(parts_.shared_from_this());
    frame->JournalFile.SaveRecorded();
}

std::optional<FileFailure> HostCorrections::Unreadable() const {
    return parts_.Corrections.Unreadable;
}

std::u16string HostCorrections::FilePath() const {
    return parts_.Document.FileName.empty() ? std::u16string() : parts_.Corrections.DocumentPath;
}

FileDigest HostCorrections::LoadedDigest() const {
    if (parts_.Document.FileName.empty()) return {};
    return parts_.Commit.LoadedDigest();
}

bool HostCorrections::MayCommit() const {
    // It may set another one while it runs.
    const auto ask = BeforeCommit;
    return !ask || ask();
}

// In what follows the host may destroy the control, and this with it: the parts are held.

bool HostCorrections::Edit() {
    const auto held = parts_.shared_from_this();
    RunUserAction(*held, [&] { held->Editor.Open(); });
    return !held->Ended && held->Elements.rtbEdit.Visible();
}

bool HostCorrections::Undo(std::int32_t line) {
    const auto held = parts_.shared_from_this();
    const Update* update = held->JournalIndex.FindCorrection(Line{line});
    if (update == nullptr) return false;
    held->Corrections.Current = update->Node;
    RunUserAction(*held, [&] { held->Undo.Undo(); });
    return true;
}

bool HostCorrections::UndoAll() {
    const auto held = parts_.shared_from_this();
    RunUserAction(*held, [&] { held->Undo.UndoAll(); });
    return held->HostCorrections.HasNone();
}

bool HostCorrections::Commit() {
    const auto held = parts_.shared_from_this();
    RunUserAction(*held, [&] { held->Commit.CommitUpdates(); });
    return held->HostCorrections.HasNone();
}

bool HostCorrections::HasNone() const { return !parts_.Ended && Pending() == 0; }

bool HostCorrections::Next() { return Walk(1); }

bool HostCorrections::Previous() { return Walk(-1); }

bool HostCorrections::Walk(std::int32_t direction) {
    const auto held = parts_.shared_from_this();
    const std::int64_t sign = direction;
    // One that begins outside the document is shown at its end.
    const std::int32_t last = std::max(held->Document.LastLine().Number(), 1);
    std::optional<std::int32_t> best;
    for (const Update& update : held->JournalIndex.Updates()) {
        const std::int32_t start = std::clamp(update.Range.Start, 1, last);
        if (sign * start <= sign * held->Navigation.CaretRow.Number()) continue;
        if (!best || sign * start < sign * *best) best = start;
    }
    if (!best) return false;
    RunUserAction(*held, [&] { held->Caret.SetRow(Line{*best}); });
    return true;
}

void HostCorrections::TellTooMuchToEdit() const {
    const auto tell = TooMuchToEdit;
    if (tell) tell();
}

}  // namespace quorvale
