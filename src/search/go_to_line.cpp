#include "search/go_to_line.h"

#include "base/errors.h"
#include "base/numbers_in_text.h"

namespace quorvale {

void GoToLine::Go() {
    try {
        peers_.SetRow(Line{ToLong(std::u16string_view(surface_.txtLn.Text()))});
    } catch (const ControlError&) {
        // The caret stays, and nobody is told.
    }
}

void GoToLine::BoxGotFocus() {
    surface_.tmrImage.SetEnabled(true);
    peers_.BoxFocusChanged(FocusChild::LineBox, true);
}

void GoToLine::BoxLostFocus() { peers_.BoxFocusChanged(FocusChild::LineBox, false); }

}  // namespace quorvale
