#include "collapse/glyphs.h"

#include "base/errors.h"
#include "base/numbers_in_text.h"
#include "state/slot_lines.h"

namespace quorvale {

void Glyphs::Clicked(int slot) {
    const Image& glyph = surface_.imgExpand[slot];
    if (!glyph.Visible()) return;
    const Line line = SlotLine(surface_, slot);
    if (folding_.HasHiddenBelow(line)) return folding_.ExpandAt(line, false);
    const std::int32_t number = ToLong(std::u16string_view(glyph.Tag()));
    if (number < 1 || static_cast<std::size_t>(number) > collapse_.Ranges.size()) {
        throw ControlError(ErrorKind::Index, "There is no range " + std::to_string(number));
    }
    const CollapseRange range = collapse_.Ranges[static_cast<std::size_t>(number - 1)];
    folding_.CollapseRangeAt(Line{range.FromRow}, Line{range.ToRow});
}

void Glyphs::Pressed(int slot, const MouseEvent& event) {
    if (event.Button != mouse_button::Right) return;
    const Image& glyph = surface_.imgExpand[slot];
    surface_.mnuCollapse.PopUp(surface_.picExpand.Left() + glyph.Left() + event.X,
                               surface_.picExpand.Top() + glyph.Top() + event.Y);
}

void Glyphs::MenuPicked(const std::u16string& key) {
    if (key == u"mnuCollapseCollapseAll") folding_.CollapseAll();
    if (key == u"mnuCollapseExpandAll") folding_.ExpandAll();
}

}  // namespace quorvale
