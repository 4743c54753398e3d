#pragma once

#include "platform/property_bag.h"

namespace quorvale {

class ControlParts;

/// Stores the properties that a form keeps of its control, and brings them back.
class Persistence {
public:
    explicit Persistence(ControlParts& parts) : parts_(parts) {}

    /// Sets every stored property, in the order that forms rely on, with all its effects; `Enabled`
    /// and `BorderStyle` are put in place without a word to the container.
    void Read(PropertyBag& bag);

    void Write(PropertyBag& bag) const;

private:
    ControlParts& parts_;
};

}  // namespace quorvale
