#include "control/control_parts.h"

#include <utility>

#include "control/creation.h"
#include "control/wiring.h"

namespace quorvale {

ControlParts::ControlParts(HostServices services, HostOptions options)
    : Services(std::move(services)),
      Options(std::move(options)),
      Texts(LanguageFromId(Services.LanguageId)),
      Elements(*Services.Metrics),
      Peers(*this),
      Lines(Document, View, Elements, *Services.Metrics, Options),
      Attributes(Document, View, Elements, Looks),
      DocumentPath(*Services.Files),
      Loading(Document, Elements, DocumentPath, *Services.Memory, Options, Peers),
      Slots(View, Elements, Collapse),
      Layout(View, Elements, Document, Navigation, Slots, *Services.Metrics, Options, Peers),
      Fill(View, Collapse, Elements, Document, Navigation, Looks, Lines, Peers),
      Colours(View, Elements, Document, Navigation, Attributes),
      EditorPlace(View, Elements, Editing, Peers),
      FreshView(View, Elements, Document, Lines, Peers),
      Redraw(View, Elements, Peers),
      Scrolling(Navigation, Elements, Document, View, Peers),
      ScrollTip(Elements, Document, Texts),
      RowShift(View, Elements, *Services.Metrics, Options, Peers),
      Reveal(Elements, Document, View, Navigation, Lines, Peers),
      Caret(Navigation, Elements, Document, View, Lines, *Services.Metrics, Options, Peers),
      RowMouse(Navigation, Elements, Document, View, Caret, Peers),
      Keyboard(Navigation, Elements, Document, View, Lines, Caret, Peers),
      MarkerBlink(Elements, Document, Peers),
      Ranges(Collapse, Elements, Document),
      Folding(Document, Navigation, Collapse, View, Peers),
      Glyphs(Elements, Collapse, Folding),
      Journal(Corrections),
      JournalIndex(Corrections),
      CorrectedText(Document, Corrections, JournalIndex, *Services.Memory),
      Marks(Corrections, JournalIndex, Navigation, Elements, Document, View, Peers),
      Recording(Editing, Elements, Lines, Journal, JournalIndex, Marks),
      JournalFile(Document, Corrections, Journal, Recording, Marks, DocumentPath, *Services.Files,
                  *Services.Xml, Options),
      Editor(Editing, Elements, Document, Navigation, View, Options, JournalIndex, CorrectedText,
             Journal, Recording, Peers),
      Undo(Corrections, Journal, Recording, Marks, *Services.Messages, Texts, Options),
      Walk(Corrections, JournalIndex, *Services.Messages, Texts, Peers),
      Commit(Document, Corrections, Navigation, Journal, CorrectedText, Recording, Marks,
             *Services.Files, Options, *Services.Messages, Texts, Peers),
      Commands(Editor, Undo, Walk, Commit),
      Cases(CaseTableOf(Services.Case.get())),
      FoundList(Elements),
      Find(Search, Elements, Document, Navigation, Cases, Services.Progress, Peers),
      FindAll({Search, Document, Navigation, Lines, *Services.Files, Options, Texts, Cases,
               Services.Progress},
              Elements, FoundList, Peers),
      Picking(Search, Elements, Document, FoundList, Peers),
      GoToLine(Elements, Peers),
      Appearance(*this),
      ToolbarCommands(*this),
      Persistence(*this),
      Extras(*this),
      HostCorrections(*this),
      SearchExtras(*this) {
    CreateElements(Elements, Texts, Options);
    Appearance.StartWithAmbientFont();
    WireHandlers(*this);
}

}  // namespace quorvale
