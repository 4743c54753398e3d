#pragma once

#include <cstdint>
#include <string>

#include "platform/encoding.h"

namespace quorvale {

class ControlParts;

/// What a host may ask and do beyond the control's members. Lines are 1-based. It lives as long as
/// its control.
class HostExtras {
public:
    explicit HostExtras(ControlParts& parts) : parts_(parts) {}

    /// How the bytes of the shown file became characters; never `Automatic`.
    Encoding FileEncoding() const;

    /// The line as it stands in the file, without its line break; "" for a bad number. Measures
    /// nothing, so that a host can walk over all lines of a large document.
    std::u16string RawLineText(std::int32_t i) const;

    /// The lines `first` to `last` as they stand in the file, with the line breaks between them.
    /// Numbers outside the document are clamped to it.
    std::u16string RawText(std::int32_t first, std::int32_t last) const;

    /// The lines of the row selection, or the caret's when nothing is selected; `First` is 0 before
    /// any document.
    struct LineRange {
        std::int32_t First = 0;
        std::int32_t Last = 0;
    };
    LineRange SelectedLines() const;

    /// Unfolds everything and forgets the registered ranges, as a new document does.
    void ForgetFolds();

private:
    ControlParts& parts_;
};

}  // namespace quorvale
