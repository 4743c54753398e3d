#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "base/export.h"

namespace quorvale {

/// A text that is shared, not copied: a caption may be the display form of a line of a hundred
/// million characters. Immutable; compares by content.
class QUORVALE_CORE_EXPORT SharedText {
public:
    SharedText() = default;
    /// Takes a text over, to be shared from now on.
    explicit SharedText(std::u16string text)
        : text_(text.empty() ? nullptr : std::make_shared<const std::u16string>(std::move(text))) {}

    /// The text, as long as somebody shares it.
    std::u16string_view View() const {
        return text_ ? std::u16string_view(*text_) : std::u16string_view();
    }

    /// The text itself, null when it is empty: for those who keep something they worked out of it.
    const std::shared_ptr<const std::u16string>& Owner() const { return text_; }

    /// By content; the same text is not compared.
    bool operator==(const SharedText& other) const {
        return text_ == other.text_ || View() == other.View();
    }

private:
    std::shared_ptr<const std::u16string> text_;
};

}  // namespace quorvale
