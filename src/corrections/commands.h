#pragma once

#include <string>

#include "corrections/commit.h"
#include "corrections/editor.h"
#include "corrections/undo.h"
#include "corrections/walk.h"

namespace quorvale {

/// The commands of the corrections menu.
class CorrectionCommands {
public:
    CorrectionCommands(LineEditor& editor, CorrectionUndo& undo, CorrectionWalk& walk,
                       Commit& commit)
        : editor_(editor), undo_(undo), walk_(walk), commit_(commit) {}

    /// An entry of the menu is picked.
    void MenuPicked(const std::u16string& key);

private:
    LineEditor& editor_;
    CorrectionUndo& undo_;
    CorrectionWalk& walk_;
    Commit& commit_;
};

}  // namespace quorvale
