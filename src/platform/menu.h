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

    /// The menu's own caption and its entries; entries are found by their key.
    std::u16string Caption;
    std::vector<MenuItem> Items;

    std::function<void(const std::u16string& key)> OnPick;
    /// Set by a surface that shows menus: where the menu is wanted, in twips on the control.
    std::function<void(Twips x, Twips y)> OnPopUp;

    struct Place {
        Twips X;
        Twips Y;
    };

    /// Where the menu stands since it was last popped up; none while it is closed.
    const std::optional<Place>& PoppedUpAt() const { return poppedUpAt_; }

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
