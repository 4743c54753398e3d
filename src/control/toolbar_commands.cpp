#include "control/toolbar_commands.h"

#include <utility>

#include "control/control_parts.h"

namespace quorvale {

void ToolbarCommands::ToolbarClicked(const std::u16string& key) {
    if (key == u"Find") {
        parts_.Find.FindNext();
    } else if (key == u"Ln") {
        parts_.GoToLine.Go();
    } else if (key == u"Grid") {
        GridClicked();
    } else if (key == u"Collapsed") {
        parts_.Elements.mnuCollapse.PopUp(0, parts_.Elements.tbMore.Height());
    } else if (key == u"Edit") {
        parts_.Elements.mnuPopup.PopUp(0, parts_.Elements.tbMore.Height());
    } else if (!key.empty() && key.front() == u'.') {
        RaiseButtonClick(key.substr(1));
    }
}

void ToolbarCommands::ToolbarMenuClicked(const std::u16string& button, const std::u16string& item) {
    if (button != u"Find") return;
    if (item == u"Next") {
        parts_.Find.FindNext();
    } else if (item == u"All") {
        parts_.FindAll.Run(LineQuery::Kind::Plain);
    } else if (item == u"WildAll") {
        parts_.FindAll.Run(LineQuery::Kind::Wildcard);
    } else if (item == u"Recent") {
        parts_.FoundList.Show();
    }
}

void ToolbarCommands::ToggleToolbar() {
    Surface& surface = parts_.Elements;
    const bool shown = !surface.tbMore.Visible();
    surface.tbMore.SetVisible(shown);
    // From the row's own place, not by steps: a hundred clicks must not move a row by a twip.
    for (int slot = 0; slot <= surface.lblLine.UpperBound(); ++slot) {
        surface.lblLine[slot].SetTop(parts_.Slots.LabelTop(slot));
    }
    parts_.Layout.LayoutView();
    surface.txtSearch.Select(0, surface.txtSearch.Text().size());
    surface.cmdMore.SetPicture(surface.ilMore.Find(std::u16string(shown ? u"right" : u"left")));
    // Where the focus cannot go it stays.
    surface.Focus.Request(shown ? FocusChild::SearchBox : FocusChild::TextArea);
}

bool ToolbarCommands::AddButton(const std::u16string& name, PicturePtr picture,
                                const std::u16string& toolTip) {
    ToolbarButton button;
    button.Key = u"." + name;
    button.PictureKey = button.Key;
    button.Tag = name;
    button.ToolTip = toolTip;
    button.Shown = picture;
    if (!parts_.Elements.ilMore.Add(button.Key, std::move(picture))) return false;
    return parts_.Elements.tbMore.Add(std::move(button));
}

void ToolbarCommands::SetShowGrid(bool show) {
    parts_.Elements.tbMore.SetPressed(u"Grid", show);
    GridClicked();
}

void ToolbarCommands::GridClicked() {
    Surface& surface = parts_.Elements;
    const bool shown = surface.tbMore.Button(u"Grid").Pressed;
    for (LineShape& boundary : surface.lnGrid) boundary.SetVisible(shown);
    RaiseButtonClick(u"Grid");
}

void ToolbarCommands::RaiseButtonClick(const std::u16string& name) {
    parts_.Events.Raise([&](QuorvaleBoxEvents& events) { events.ButtonClick(name); });
}

}  // namespace quorvale
