#include "corrections/undo.h"

#include "resources/message_format.h"
#include "resources/text_ids.h"

namespace quorvale {

void CorrectionUndo::Undo() {
    const XmlNodePtr picked = corrections_.Current;
    if (picked == nullptr || options_.ReadOnly) return;
    recording_.RecordEdit(false);
    journal_.Remove(*picked);
    marks_.RefreshCorrectionMarks();
}

void CorrectionUndo::UndoAll() {
    if (options_.ReadOnly) return;
    const XmlNodePtr asked = corrections_.JournalRoot;
    const std::u16string question =
        FormatMessage(LoadText(text_id::ConfirmUndoAll, texts_), u"\r\n");
    if (messages_.Show(question, MessageStyle::ExclamationOkCancel) == MessageAnswer::Cancel) {
        return;
    }
    // While the box was up, or when the keyboard goes back, another document may come: its
    // corrections were not meant.
    if (asked == nullptr || asked != corrections_.JournalRoot) return;
    recording_.RecordEdit(false);
    if (asked != corrections_.JournalRoot) return;
    journal_.RemoveAll();
    corrections_.Current = nullptr;
    marks_.RefreshCorrectionMarks();
}

}  // namespace quorvale
