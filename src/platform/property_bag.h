#pragma once

#include <map>
#include <string>
#include <string_view>

#include "base/export.h"
#include "platform/variant.h"

namespace quorvale {

/// Where a host keeps the settings of one control, with the form that the control lies on.
class QUORVALE_CORE_EXPORT PropertyBag {
public:
    virtual ~PropertyBag() = default;

    /// The stored value; an empty one when there is none.
    virtual Variant Read(std::u16string_view key) = 0;

    /// Stores a value. One that equals its default is not kept: what was stored under the key goes.
    virtual void Write(std::u16string_view key, const Variant& value,
                       const Variant& defaultValue) = 0;
};

/// A bag in memory: for tests, and for hosts that store it in their own way.
class QUORVALE_CORE_EXPORT MemoryBag final : public PropertyBag {
public:
    /// What is stored, by key; a host may fill it.
    std::map<std::u16string, Variant, std::less<>> Values;

    Variant Read(std::u16string_view key) override;
    void Write(std::u16string_view key, const Variant& value, const Variant& defaultValue) override;
};

/// A value as text that a person can read in a settings file and that stands for the same value of
/// the same type again; "" for what cannot be stored: an empty value, an object or a picture.
QUORVALE_CORE_EXPORT std::u16string TextOfValue(const Variant& value);

/// The value that such a text stands for: the type that it names ("Single:240"), a Boolean, a Long
/// where it is a whole number that fits, a Double where it is another one, else a String.
QUORVALE_CORE_EXPORT Variant ValueOfText(std::u16string_view text);

}  // namespace quorvale
