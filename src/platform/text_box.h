#pragma once

#include <algorithm>
#include <functional>
#include <string>

#include "base/export.h"
#include "platform/keys.h"
#include "platform/simple_elements.h"

namespace quorvale {

/// A box in which the user types. `OnChange` runs whenever the text becomes a different one, by
/// typing or by code.
class QUORVALE_CORE_EXPORT TextBox : public PaintedElement {
public:
    using PaintedElement::PaintedElement;

    /// The text has become another one; the handler may end the control.
    std::function<void()> OnChange;
    /// A key goes down in the box; setting the code to 0 swallows it.
    std::function<void(std::int16_t& keyCode, std::int16_t shift)> OnKeyDown;
    /// The surface's: a character that is still being composed is to become text now.
    std::function<void()> OnFinishTyping;

    /// What stands in the box.
    const std::u16string& Text() const { return text_; }
    /// What is selected stays as far as the new text reaches.
    void SetText(std::u16string text) {
        if (!Assign(text_, std::move(text), "Text")) return;
        KeepSelectionWithinText(selStart_, selLength_);
        // It may end the control, and this box with it.
        const auto changed = OnChange;
        if (changed) changed();
    }

    /// Before the text is taken for good: what an input method is composing is meant too.
    void FinishTyping() {
        const auto finish = OnFinishTyping;
        if (finish) finish();
    }

    /// Where the insertion point stands and how much is selected from there, in UTF-16 units.
    std::size_t SelStart() const { return selStart_; }
    /// How much is selected; 0 for nothing.
    std::size_t SelLength() const { return selLength_; }
    /// Puts the insertion point and the selection there, as far as the text reaches.
    void Select(std::size_t start, std::size_t length) {
        KeepSelectionWithinText(start, length);
        Touch("Selection");
    }

    /// The user's key. Returns the code as the handlers left it: 0 means "do not type it".
    std::int16_t UserKey(std::int16_t keyCode, std::int16_t shift) {
        if (OnKeyDown) OnKeyDown(keyCode, shift);
        return keyCode;
    }

private:
    void KeepSelectionWithinText(std::size_t start, std::size_t length) {
        selStart_ = std::min(start, text_.size());
        selLength_ = std::min(length, text_.size() - selStart_);
    }

    std::u16string text_;
    std::size_t selStart_ = 0;
    std::size_t selLength_ = 0;
};

}  // namespace quorvale
