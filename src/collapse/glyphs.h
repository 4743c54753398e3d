#pragma once

#include <string>

#include "collapse/folding.h"
#include "platform/keys.h"
#include "platform/surface.h"
#include "state/collapse_state.h"

namespace quorvale {

/// What the user does with the glyph column: a click folds or unfolds the row's range, the right
/// button offers to fold or unfold everything.
class Glyphs {
public:
    Glyphs(Surface& surface, const CollapseState& collapse, Folding& folding)
        : surface_(surface), collapse_(collapse), folding_(folding) {}

    /// Index error when the glyph's range is not registered any more.
    void Clicked(int slot);
    void Pressed(int slot, const MouseEvent& event);
    /// An entry of the context menu is picked.
    void MenuPicked(const std::u16string& key);

private:
    Surface& surface_;
    const CollapseState& collapse_;
    Folding& folding_;
};

}  // namespace quorvale
