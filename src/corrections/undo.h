#pragma once

#include "corrections/journal.h"
#include "corrections/marks.h"
#include "corrections/recording.h"
#include "platform/host_options.h"
#include "platform/message_box.h"
#include "resources/string_table.h"
#include "state/corrections_state.h"

namespace quorvale {

/// Takes corrections back, unless the host wants them only shown. The file is not touched.
class CorrectionUndo {
public:
    CorrectionUndo(CorrectionsState& corrections, Journal& journal, EditRecording& recording,
                   CorrectionMarks& marks, MessageBoxes& messages, Language texts,
                   const HostOptions& options)
        : corrections_(corrections),
          journal_(journal),
          recording_(recording),
          marks_(marks),
          messages_(messages),
          texts_(texts),
          options_(options) {}

    /// Removes the picked correction, wherever the caret is; what is in an open editor is dropped.
    /// It stays picked, so that the walk to its neighbours goes on from there.
    void Undo();

    /// Asks, then removes all corrections; what is in an open editor is dropped.
    void UndoAll();

    /// The language of the messages from now on.
    void Speak(Language texts) { texts_ = texts; }

private:
    CorrectionsState& corrections_;
    Journal& journal_;
    EditRecording& recording_;
    CorrectionMarks& marks_;
    MessageBoxes& messages_;
    Language texts_;
    const HostOptions& options_;
};

}  // namespace quorvale
