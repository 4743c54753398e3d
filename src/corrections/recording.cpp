#include "corrections/recording.h"

#include <optional>

#include "base/errors.h"
#include "corrections/edit_range.h"

namespace quorvale {

void EditRecording::RecordEdit(bool apply) {
    if (!journal_.IsOpen() || !surface_.rtbEdit.Visible()) return;
    if (apply) surface_.rtbEdit.FinishTyping();
    // All is worked out before anything changes: what was typed must outlive a failure.
    std::optional<Work> work;
    if (apply && editing_.EditChanged) work = WorkOut();
    surface_.rtbEdit.SetVisible(false);
    if (work) {
        for (const XmlNodePtr& node : work->Removed) journal_.Remove(*node);
        if (work->Added) journal_.Append(work->Added);
    }
    // Others hear of it, and may even open another file: the journal is finished by then.
    GiveFocusBack();
    if (work) marks_.RefreshCorrectionMarks();
}

EditRecording::Work EditRecording::WorkOut() const {
    const UpdateRange shown{editing_.EditStart.Number(), editing_.EditCount};
    const EditedLines edited = WithoutUnchanged(
        surface_.rtbEdit.Text(), shown,
        [this](std::int32_t line, std::u16string_view text) { return IsUnchanged(line, text); });
    Work work;
    if (!edited.IsNothing()) work.Added = CreateUpdate(edited.Range, edited.Text);
    for (const Update& update : index_.Updates()) {
        if (IsRemovedBy(shown, update.Range)) work.Removed.push_back(update.Node);
    }
    return work;
}

// A line that is displayed in another form than it has in the file, because of a tab for instance,
// never counts as unchanged: what was typed may be meant to replace just that.
bool EditRecording::IsUnchanged(std::int32_t line, std::u16string_view edited) const {
    return lines_.RawLineText(Line{line}) == edited && lines_.LineText(Line{line}) == edited;
}

void EditRecording::GiveFocusBack() {
    try {
        surface_.Focus.Request(FocusChild::TextArea);
    } catch (const ControlError&) {
        // Where the keyboard cannot go it stays.
    }
}

}  // namespace quorvale
