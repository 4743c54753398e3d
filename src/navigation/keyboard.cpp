#include "navigation/keyboard.h"

#include "base/integers.h"
#include "document/visible_lines.h"
#include "platform/keys.h"

namespace quorvale {

void Keyboard::KeyDown(std::int16_t keyCode, std::int16_t shift) {
    if (surface_.Focus.Active() != FocusChild::TextArea) return;
    surface_.imgMarker.SetVisible(true);
    navigation_.KeyUpPending = true;
    navigation_.ExtendSelection = (shift & shift_mask::Shift) != 0;
    if (Handle(keyCode, (shift & shift_mask::Ctrl) != 0)) return;
    navigation_.ExtendSelection = false;
    peers_.RaiseKeyDown(keyCode, shift);
}

void Keyboard::KeyUp(std::int16_t keyCode, std::int16_t shift) {
    if (!navigation_.KeyUpPending) return;
    navigation_.KeyUpPending = false;
    peers_.RaiseKeyUp(keyCode, shift);
}

bool Keyboard::Handle(std::int16_t keyCode, bool ctrl) {
    const Line row = navigation_.CaretRow;
    switch (keyCode) {
        case key_code::Up:
            caret_.SetRow(PreviousVisibleLine(document_, row));
            return true;
        case key_code::Down:
            caret_.SetRow(LineBelow(row));
            return true;
        case key_code::Left:
            StepLeft();
            return true;
        case key_code::Right:
            caret_.SetCol(CheckedAdd(navigation_.CaretCol, 1));
            return true;
        case key_code::Home:
            Home(ctrl);
            return true;
        case key_code::End:
            End(ctrl);
            return true;
        case key_code::PageUp:
            Page(false, ctrl);
            return true;
        case key_code::PageDown:
            Page(true, ctrl);
            return true;
        case key_code::A:
            if (ctrl) SelectAll();
            return true;
        // The editor's key is the control's own, whether or not editing is offered.
        case key_code::F2:
            peers_.OpenEditor();
            return true;
        default:
            return false;
    }
}

/// When the rest of the document is folded away there is nothing below to go to.
Line Keyboard::LineBelow(Line row) const {
    const Line below = NextVisibleLine(document_, row);
    const bool pastFold = below == document_.Sentinel() && document_.IsHidden(document_.LastLine());
    return pastFold ? row : below;
}

void Keyboard::StepLeft() {
    if (navigation_.CaretCol != 0) caret_.SetCol(CheckedSubtract(navigation_.CaretCol, 1));
}

void Keyboard::Home(bool ctrl) {
    if (ctrl) return caret_.SetRow(Line{1});
    caret_.SetCol(1);
}

void Keyboard::End(bool ctrl) {
    if (ctrl) return caret_.SetRow(document_.Sentinel());
    const std::size_t length = lines_.TextOf(navigation_.CaretRow).View().size();
    caret_.SetCol(CheckedCast<std::int32_t>(length + 1));
}

void Keyboard::Page(bool down, bool ctrl) {
    if (ctrl) return caret_.SetRow(down ? document_.Sentinel() : Line{1});
    Line row = navigation_.CaretRow;
    const std::int16_t steps = ToInt16(view_.RowsPerView - 2);
    for (int step = 0; step < steps; ++step) {
        row = down ? LineBelow(row) : PreviousVisibleLine(document_, row);
    }
    caret_.SetRow(row);
}

// One more than there are lines: the count reaches up past the first one, to the line 0.
void Keyboard::SelectAll() {
    const std::uint64_t meant = document_.Generation;
    caret_.SetRow(document_.Sentinel());
    if (document_.Generation != meant) return;
    navigation_.SelectedRowsCount = -document_.LineSlots;
    peers_.PaintRowColours();
}

}  // namespace quorvale
