#pragma once

#include <string_view>

#include "base/export.h"

namespace quorvale {

/// The buttons of a message, by their conventional numbers.
enum class MessageStyle {
    Exclamation = 48,          ///< an OK button only
    ExclamationOkCancel = 49,  ///< OK, the default, and Cancel
};

/// What the user picked.
enum class MessageAnswer { Ok = 1, Cancel = 2 };

/// Shows a message that the user must answer. Closing the box means Cancel where that is offered.
class QUORVALE_CORE_EXPORT MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    /// Returns when the user has answered; the text is in the language of the control. May run an
    /// event loop, in which the host may do anything to the control.
    virtual MessageAnswer Show(std::u16string_view text, MessageStyle style) = 0;
};

}  // namespace quorvale
