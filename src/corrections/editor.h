#pragma once

#include <cstdint>
#include <string>

#include "base/ordinals.h"
#include "corrections/corrected_text.h"
#include "corrections/recording.h"
#include "platform/host_options.h"
#include "platform/surface.h"
#include "state/document_state.h"
#include "state/editing_state.h"
#include "state/navigation_state.h"
#include "state/view_state.h"

namespace quorvale {

/// What opening the editor asks of the others.
class LineEditorPeers {
public:
    virtual ~LineEditorPeers() = default;
    /// Opens the folds around the line and scrolls line and column into view.
    virtual void RevealLine(Line line, std::int32_t col) = 0;
    /// Moves the open editor over its rows.
    virtual void PlaceEditor() = 0;
    /// The host is told that the lines are more than it wants in an editor. It may do anything.
    virtual void TellTooMuchToEdit() = 0;
};

/// The box in which lines are corrected: opens it over the selected rows and answers its keys.
class LineEditor {
public:
    LineEditor(EditingState& editing, Surface& surface, const DocumentState& document,
               const NavigationState& navigation, const ViewState& view, const HostOptions& options,
               const JournalIndex& index, const CorrectedText& corrected, Journal& journal,
               EditRecording& recording, LineEditorPeers& peers)
        : editing_(editing),
          surface_(surface),
          document_(document),
          navigation_(navigation),
          view_(view),
          options_(options),
          index_(index),
          corrected_(corrected),
          journal_(journal),
          recording_(recording),
          peers_(peers) {}

    /// Shows the selected lines, or the caret's line, with every correction that editing them will
    /// replace, and puts the keyboard there; an open editor is recorded first. Does nothing where
    /// the host does not offer editing, without a journal and while painting is suspended. Lines
    /// that are more than the host allows stay closed, and it is told.
    void Open();

    /// The editor's text has become another one.
    void TextChanged() { editing_.EditChanged = true; }

    /// A key goes down in the editor: Esc drops the edit, Ctrl+Enter records it and is swallowed.
    void KeyDown(std::int16_t& keyCode, std::int16_t shift);

private:
    bool MayOpen(std::uint64_t generation) const;
    UpdateRange WantedLines() const;
    bool IsTooMuch(const UpdateRange& lines) const;
    bool IsOnScreen(const UpdateRange& lines) const;
    std::u16string TextOf(const UpdateRange& lines) const;

    EditingState& editing_;
    Surface& surface_;
    const DocumentState& document_;
    const NavigationState& navigation_;
    const ViewState& view_;
    const HostOptions& options_;
    const JournalIndex& index_;
    const CorrectedText& corrected_;
    Journal& journal_;
    EditRecording& recording_;
    LineEditorPeers& peers_;
};

}  // namespace quorvale
