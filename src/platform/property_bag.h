#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/variant.h"

namespace quorvale {

/// Where a host keeps the settings of one control, with the form that the control lies on.
class PropertyBag {
public:
    virtual ~PropertyBag() = default;

    /// The stored value; an empty one when there is none.
    virtual Variant Read(std::u16string_view key) = 0;

    /// Stores a value. One that equals its default is not kept: what was stored under the key goes.
    virtual void Write(std::u16string_view key, const Variant& value,
                       const Variant& defaultValue) = 0;
};

/// A bag in memory: for tests, and for hosts that store it in their own way.
class MemoryBag final : public PropertyBag {
public:
    std::map<std::u16string, Variant, std::less<>> Values;

    Variant Read(std::u16string_view key) override;
    void Write(std::u16string_view key, const Variant& value, const Variant& defaultValue) override;
};

/// A value as text that a person can read in a settings file; "" for what cannot be stored: an
/// empty value, an object or a picture. A number comes back as a Long where it is whole and fits,
/// else as a Double.
std::u16string TextOfValue(const Variant& value);

/// The value that such a text stands for; a String where it has no other reading.
Variant ValueOfText(std::u16string_view text);

}  // namespace quorvale
