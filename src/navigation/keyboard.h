#pragma once

#include <cstdint>

#include "document/line_access.h"
#include "navigation/caret.h"
#include "platform/surface.h"
#include "state/document_state.h"
#include "state/navigation_state.h"
#include "state/view_state.h"

namespace quorvale {

class KeyboardPeers {
public:
    virtual ~KeyboardPeers() = default;
    virtual void PaintRowColours() = 0;
    /// Opens the editor over the selected rows, where the host offers that.
    virtual void OpenEditor() = 0;
    virtual void RaiseKeyDown(std::int16_t keyCode, std::int16_t shift) = 0;
    virtual void RaiseKeyUp(std::int16_t keyCode, std::int16_t shift) = 0;
};

/// The keys of the text area: moves the caret, with Shift extending the selection. Keys it has no
/// use for go to the host. Keys typed in any other element are theirs.
class Keyboard {
public:
    Keyboard(NavigationState& navigation, Surface& surface, const DocumentState& document,
             const ViewState& view, LineAccess& lines, Caret& caret, KeyboardPeers& peers)
        : navigation_(navigation),
          surface_(surface),
          document_(document),
          view_(view),
          lines_(lines),
          caret_(caret),
          peers_(peers) {}

    void KeyDown(std::int16_t keyCode, std::int16_t shift);
    /// Reported once after every key that went down in the text, the handled ones too.
    void KeyUp(std::int16_t keyCode, std::int16_t shift);

private:
    bool Handle(std::int16_t keyCode, bool ctrl);
    void Home(bool ctrl);
    void End(bool ctrl);
    void Page(bool down, bool ctrl);
    void StepLeft();
    void SelectAll();
    Line LineBelow(Line row) const;

    NavigationState& navigation_;
    Surface& surface_;
    const DocumentState& document_;
    const ViewState& view_;
    LineAccess& lines_;
    Caret& caret_;
    KeyboardPeers& peers_;
};

}  // namespace quorvale
