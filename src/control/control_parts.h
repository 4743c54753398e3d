#pragma once

#include <memory>

#include "collapse/folding.h"
#include "collapse/glyphs.h"
#include "collapse/ranges.h"
#include "control/appearance.h"
#include "control/event_hub.h"
#include "control/host_corrections.h"
#include "control/host_extras.h"
#include "control/persistence.h"
#include "control/search_extras.h"
#include "control/switchboard.h"
#include "control/toolbar_commands.h"
#include "corrections/commands.h"
#include "corrections/commit.h"
#include "corrections/corrected_text.h"
#include "corrections/document_path.h"
#include "corrections/editor.h"
#include "corrections/journal.h"
#include "corrections/journal_file.h"
#include "corrections/journal_index.h"
#include "corrections/marks.h"
#include "corrections/recording.h"
#include "corrections/undo.h"
#include "corrections/walk.h"
#include "document/line_access.h"
#include "document/line_attributes.h"
#include "document/loading.h"
#include "navigation/caret.h"
#include "navigation/keyboard.h"
#include "navigation/marker_blink.h"
#include "navigation/reveal.h"
#include "navigation/row_mouse.h"
#include "navigation/row_shift.h"
#include "navigation/scroll_tip.h"
#include "navigation/scrolling.h"
#include "platform/host_services.h"
#include "resources/string_table.h"
#include "search/find.h"
#include "search/find_all.h"
#include "search/found_list.h"
#include "search/go_to_line.h"
#include "search/picking.h"
#include "state/corrections_state.h"
#include "state/editing_state.h"
#include "state/search_state.h"
#include "view/editor_place.h"
#include "view/fresh_view.h"
#include "view/layout.h"
#include "view/redraw.h"
#include "view/row_colours.h"
#include "view/row_fill.h"
#include "view/row_slots.h"

namespace quorvale {

/// Everything that one control is made of: its surroundings, its data, its elements and the
/// behaviours that work on them. Whoever works on it holds it alive: a host may destroy the control
/// from within any event.
class ControlParts : public std::enable_shared_from_this<ControlParts> {
public:
    ControlParts(HostServices services, HostOptions options);

    const HostServices Services;
    HostOptions Options;
    Language Texts;

    DocumentState Document;
    ViewState View;
    NavigationState Navigation;
    CollapseState Collapse;
    EditingState Editing;
    CorrectionsState Corrections;
    SearchState Search;
    AppearanceState Looks;
    Surface Elements;

    EventHub Events;
    Switchboard Peers;

    LineAccess Lines;
    LineAttributes Attributes;
    quorvale::DocumentPath DocumentPath;
    DocumentLoading Loading;

    RowSlots Slots;
    quorvale::Layout Layout;
    RowFill Fill;
    RowColours Colours;
    quorvale::EditorPlace EditorPlace;
    quorvale::FreshView FreshView;
    quorvale::Redraw Redraw;

    quorvale::Scrolling Scrolling;
    quorvale::ScrollTip ScrollTip;
    quorvale::RowShift RowShift;
    quorvale::Reveal Reveal;
    quorvale::Caret Caret;
    quorvale::RowMouse RowMouse;
    quorvale::Keyboard Keyboard;
    quorvale::MarkerBlink MarkerBlink;

    RangeRegister Ranges;
    quorvale::Folding Folding;
    quorvale::Glyphs Glyphs;

    quorvale::Journal Journal;
    quorvale::JournalIndex JournalIndex;
    quorvale::CorrectedText CorrectedText;
    CorrectionMarks Marks;
    EditRecording Recording;
    quorvale::JournalFile JournalFile;
    LineEditor Editor;
    CorrectionUndo Undo;
    CorrectionWalk Walk;
    quorvale::Commit Commit;
    CorrectionCommands Commands;
    const CaseTablePtr Cases;
    quorvale::FoundList FoundList;
    quorvale::Find Find;
    quorvale::FindAll FindAll;
    quorvale::Picking Picking;
    quorvale::GoToLine GoToLine;

    quorvale::Appearance Appearance;
    quorvale::ToolbarCommands ToolbarCommands;
    quorvale::Persistence Persistence;
    HostExtras Extras;
    quorvale::HostCorrections HostCorrections;
    quorvale::SearchExtras SearchExtras;

    /// How many members and handlers of this control are running inside one another.
    int Depth = 0;
    /// The host has destroyed the control: what still runs gives up.
    bool Ended = false;
};

}  // namespace quorvale
