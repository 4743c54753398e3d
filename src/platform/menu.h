#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/export.h"
#include "platform/toolbar.h"

namespace quorvale {

/// A context menu. Popping it up returns at once: the surface shows it, and what the user picks
/// comes back later through `UserPick`.
class QUORVALE_CORE_EXPORT Menu : public Element {
public:
    using Element::Element;

    /// The menu's own.
    std::u16string Caption;
    /// From top to bottom; they are found by their keys.
    std::vector<MenuItem> Items;

    /// The user has picked the entry of that key.
    std::function<void(const std::u16string& key)> OnPick;
    /// Set by a surface that shows menus: where the menu is wanted, in twips on the control.
    std::function<void(Twips x, Twips y)> OnPopUp;

    /// A point on the control, in twips.
    struct Place {
        Twips X;  ///< from the left
        Twips Y;  ///< from the top
    };

    /// Where the menu stands since it was last popped up; none while it is closed.
    const std::optional<Place>& PoppedUpAt() const { return poppedUpAt_; }

    /// Opens the menu with its upper left corner there, in twips on the control.
    void PopUp(Twips x, Twips y) {
        poppedUpAt_ = Place{x, y};
        Touch("PopUp");
        if (OnPopUp) OnPopUp(x, y);
    }

    /// The user leaves the menu without picking anything.
    void UserCancel() { poppedUpAt_.reset(); }

    /// The user picks an entry; separators and disabled entries do not answer.
    void UserPick(std::u16string_view key) {
        poppedUpAt_.reset();
        for (const MenuItem& item : Items) {
            if (item.Key != key || item.Key.empty() || !item.Enabled) continue;
            const std::u16string picked = item.Key;
            if (OnPick) OnPick(picked);
            return;
        }
    }

private:
    std::optional<Place> poppedUpAt_;
};

}  // namespace quorvale
