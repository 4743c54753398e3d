#include "platform/toolbar.h"

#include <utility>

#include "base/errors.h"
#include "base/text.h"
#include "platform/keyed_pictures.h"

namespace quorvale {

ToolbarButton* Toolbar::Find(std::u16string_view key) {
    for (ToolbarButton& button : buttons_) {
        if (!button.Key.empty() && SameKey(button.Key, key)) return &button;
    }
    return nullptr;
}

ToolbarButton& Toolbar::Existing(std::u16string_view key) {
    if (ToolbarButton* button = Find(key)) return *button;
    throw ControlError(ErrorKind::Index, "No button has the key " + ToUtf8(key));
}

ToolbarButton& Toolbar::At(int place) {
    if (place < 1 || static_cast<std::size_t>(place) > buttons_.size()) {
        throw ControlError(ErrorKind::Index, "There is no button " + std::to_string(place));
    }
    return buttons_[static_cast<std::size_t>(place - 1)];
}

bool Toolbar::Add(ToolbarButton button) {
    if (Find(button.Key) != nullptr) return false;
    Touch("Buttons");
    buttons_.push_back(std::move(button));
    return true;
}

const ToolbarButton& Toolbar::Button(std::u16string_view key) const {
    return const_cast<Toolbar*>(this)->Existing(key);
}

const ToolbarButton& Toolbar::Button(int place) const {
    return const_cast<Toolbar*>(this)->At(place);
}

void Toolbar::SetButtonEnabled(std::u16string_view key, bool enabled) {
    Assign(Existing(key).Enabled, enabled, "ButtonEnabled");
}

void Toolbar::SetPressed(std::u16string_view key, bool pressed) {
    Assign(Existing(key).Pressed, pressed, "Pressed");
}

void Toolbar::SetToolTip(int place, std::u16string text) {
    Assign(At(place).ToolTip, std::move(text), "ToolTip");
}

void Toolbar::SetMenuCaption(int place, std::size_t item, std::u16string caption) {
    Assign(At(place).Menu.at(item).Caption, std::move(caption), "MenuCaption");
}

void Toolbar::UserClick(std::u16string_view key) {
    ToolbarButton* button = Find(key);
    if (button == nullptr || !button->Enabled || !Visible() || !Enabled()) return;
    if (button->Kind == ButtonKind::Check) SetPressed(key, !button->Pressed);
    // The handler may add buttons, so it gets a copy of the key.
    const std::u16string clicked = button->Key;
    if (OnClick) OnClick(clicked);
}

void Toolbar::UserMenuClick(std::u16string_view key, std::size_t item) {
    const ToolbarButton* button = Find(key);
    if (button == nullptr || !button->Enabled || !Visible() || !Enabled()) return;
    if (item >= button->Menu.size()) return;
    const MenuItem picked = button->Menu[item];
    const std::u16string clicked = button->Key;
    if (picked.Enabled && !picked.IsSeparator() && OnMenuClick) OnMenuClick(clicked, picked.Key);
}

}  // namespace quorvale
