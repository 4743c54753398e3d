#include "corrections/commands.h"

namespace quorvale {

void CorrectionCommands::MenuPicked(const std::u16string& key) {
    if (key == u"mnuPopupEdit") editor_.Open();
    if (key == u"mnuPopupUndo") undo_.Undo();
    if (key == u"mnuUndoAll") undo_.UndoAll();
    if (key == u"mnuPopupPrev") walk_.GoToCorrection(WalkDirection::Previous);
    if (key == u"mnuPopupNext") walk_.GoToCorrection(WalkDirection::Next);
    if (key == u"mnuPopupCommit") commit_.CommitUpdates();
}

}  // namespace quorvale
