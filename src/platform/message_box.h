#pragma once

#include <string_view>

namespace quorvale {

enum class MessageStyle {
    Exclamation = 48,          ///< an OK button only
    ExclamationOkCancel = 49,  ///< OK, the default, and Cancel
};

enum class MessageAnswer { Ok = 1, Cancel = 2 };

/// Shows a message that the user must answer. Closing the box means Cancel where that is offered.
class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    virtual MessageAnswer Show(std::u16string_view text, MessageStyle style) = 0;
};

}  // namespace quorvale
