#pragma once

#include <string>
#include <string_view>

#include "base/export.h"
#include "platform/font.h"

namespace quorvale {

/// The place in the host that holds the control: what surrounds it and whom it tells of changes.
class QUORVALE_CORE_EXPORT Container {
public:
    virtual ~Container() = default;

    /// False while the host is being designed.
    virtual bool UserMode() const = 0;

    /// The control's name on the host's form.
    virtual std::u16string DisplayName() const = 0;

    /// The font that a new control starts with.
    virtual quorvale::Font Font() const = 0;

    /// A property changed under this name: the host may mark its form as modified.
    virtual void PropertyChanged(std::u16string_view name) = 0;
};

}  // namespace quorvale
