#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/export.h"
#include "platform/element.h"
#include "platform/picture.h"

namespace quorvale {

/// An entry of a button's menu or of a context menu. A caption of "-" is a separator; "&" marks
/// the access key.
struct MenuItem {
    std::u16string Key;
    std::u16string Caption;
    bool Enabled = true;

    bool IsSeparator() const { return Caption == u"-"; }
    bool operator==(const MenuItem&) const = default;
};

enum class ButtonKind { Normal, Check, DropDown, Separator, Placeholder };

/// One button of a toolbar, or the gap that holds a box.
struct ToolbarButton {
    std::u16string Key;
    ButtonKind Kind = ButtonKind::Normal;
    std::u16string ToolTip;
    std::u16string PictureKey;
    std::u16string Tag;
    bool Enabled = true;
    bool Pressed = false;
    Twips Width = 0;  ///< of a placeholder
    std::vector<MenuItem> Menu;
    PicturePtr Shown;

    bool operator==(const ToolbarButton&) const = default;
};

/// A row of buttons, some with a menu. Buttons are found by key or by their 1-based place.
class QUORVALE_CORE_EXPORT Toolbar : public Element {
public:
    using Element::Element;

    std::function<void(const std::u16string& key)> OnClick;
    std::function<void(const std::u16string& button, const std::u16string& item)> OnMenuClick;

    const std::vector<ToolbarButton>& Buttons() const { return buttons_; }

    /// False, and nothing happens, when the key is taken. Empty keys are free.
    bool Add(ToolbarButton button);

    /// Index error where there is no such button.
    const ToolbarButton& Button(std::u16string_view key) const;
    const ToolbarButton& Button(int place) const;

    void SetButtonEnabled(std::u16string_view key, bool enabled);
    /// Sets the state of a check button; runs no handler.
    void SetPressed(std::u16string_view key, bool pressed);
    void SetToolTip(int place, std::u16string text);
    void SetMenuCaption(int place, std::size_t item, std::u16string caption);

    /// The user clicks a button: nothing when it is disabled or the toolbar hidden. A check button
    /// changes its state before `OnClick` runs.
    void UserClick(std::u16string_view key);
    /// The user picks an entry of a button's menu.
    void UserMenuClick(std::u16string_view button, std::size_t item);

private:
    ToolbarButton* Find(std::u16string_view key);
    ToolbarButton& Existing(std::u16string_view key);
    ToolbarButton& At(int place);

    std::vector<ToolbarButton> buttons_;
};

}  // namespace quorvale
