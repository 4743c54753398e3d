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
    std::u16string Key;      ///< what it is found by; empty for a separator
    std::u16string Caption;  ///< what the user reads
    bool Enabled = true;     ///< whether it can be picked

    /// Whether it is a line between others, which nobody can pick.
    bool IsSeparator() const { return Caption == u"-"; }
    /// Equal in all parts.
    bool operator==(const MenuItem&) const = default;
};

/// A button that is clicked, stays down, or has a menu; a line between others; room for a box.
enum class ButtonKind { Normal, Check, DropDown, Separator, Placeholder };

/// One button of a toolbar, or the gap that holds a box.
struct ToolbarButton {
    std::u16string Key;                    ///< what it is found by, in any case of letters
    ButtonKind Kind = ButtonKind::Normal;  ///< how it answers a click
    std::u16string ToolTip;                ///< what the mouse over it shows
    std::u16string PictureKey;             ///< of its picture in the toolbar's list
    std::u16string Tag;                    ///< what the core keeps with it
    bool Enabled = true;                   ///< whether it answers
    bool Pressed = false;                  ///< whether a check button is down
    Twips Width = 0;                       ///< of a placeholder
    std::vector<MenuItem> Menu;            ///< of a button that drops one down
    PicturePtr Shown;                      ///< its picture; null for none

    /// Equal in all parts; pictures and pointers are the same ones.
    bool operator==(const ToolbarButton&) const = default;
};

/// A row of buttons, some with a menu. Buttons are found by key or by their 1-based place.
class QUORVALE_CORE_EXPORT Toolbar : public Element {
public:
    using Element::Element;

    /// The button of that key was clicked.
    std::function<void(const std::u16string& key)> OnClick;
    /// An entry of a button's menu was picked; both by their keys.
    std::function<void(const std::u16string& button, const std::u16string& item)> OnMenuClick;

    /// From left to right, gaps and separators among them.
    const std::vector<ToolbarButton>& Buttons() const { return buttons_; }

    /// False, and nothing happens, when the key is taken. Empty keys are free.
    bool Add(ToolbarButton button);

    /// Index error where there is no such button.
    const ToolbarButton& Button(std::u16string_view key) const;
    /// By its place from 1; Index error where there is no such button.
    const ToolbarButton& Button(int place) const;

    /// Lets a button answer or not; Index error where there is no such button.
    void SetButtonEnabled(std::u16string_view key, bool enabled);
    /// Sets the state of a check button; runs no handler.
    void SetPressed(std::u16string_view key, bool pressed);
    /// By the place from 1; Index error where there is no such button.
    void SetToolTip(int place, std::u16string text);
    /// By the place from 1 and the entry from 0; Index error where there is no such button,
    /// std::out_of_range where it has no such entry.
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
