#pragma once

#include <string>

#include "platform/picture.h"

namespace quorvale {

class ControlParts;

/// What the toolbar does: where its clicks lead, which of a host's buttons it takes and which it
/// refuses, the boundary lines, showing and hiding it.
class ToolbarCommands {
public:
    explicit ToolbarCommands(ControlParts& parts) : parts_(parts) {}

    /// Routes a click by the button's key; buttons that only open a box or print do nothing.
    void ToolbarClicked(const std::u16string& key);

    /// Routes an entry of the "Find" button's menu; other buttons have none.
    void ToolbarMenuClicked(const std::u16string& button, const std::u16string& item);

    /// Shows or hides the toolbar; the rows move with its edge.
    void ToggleToolbar();

    /// Adds a host's button, its key "." and the name. False when there is no picture or the name
    /// is taken; a picture that was added by then stays.
    bool AddButton(const std::u16string& name, PicturePtr picture, const std::u16string& toolTip);

    /// Presses or releases "Grid" and does what a click on it does.
    void SetShowGrid(bool show);

private:
    void GridClicked();
    void RaiseButtonClick(const std::u16string& name);

    ControlParts& parts_;
};

}  // namespace quorvale
