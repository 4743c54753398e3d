#pragma once

#include <string>
#include <string_view>

#include "base/export.h"

namespace quorvale {

/// UTF-8 of UTF-16 text. A lone surrogate becomes U+FFFD: for messages and names, not for
/// documents.
QUORVALE_CORE_EXPORT std::string ToUtf8(std::u16string_view text);

/// UTF-16 of UTF-8 text. An invalid byte becomes U+FFFD: for messages, not for documents.
QUORVALE_CORE_EXPORT std::u16string FromUtf8(std::string_view text);

/// The text with every `what` (not empty) replaced, left to right, the replacement not searched
/// again.
QUORVALE_CORE_EXPORT std::u16string ReplaceAll(std::u16string_view text, std::u16string_view what,
                                               std::u16string_view by);

}  // namespace quorvale
