#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>

#include "base/export.h"
#include "platform/font.h"
#include "platform/picture.h"

namespace quorvale {

/// A tagged value: what members and events carry when they are reached by id.
/// Empty; Integer (16 bit); Long (32 bit); Single; Double; Boolean; String; Font; object reference
/// (may be null: "nothing").
using Variant =
    std::variant<std::monostate, std::int16_t, std::int32_t, float, double, bool, std::u16string,
                 Font, std::shared_ptr<Object>, std::shared_ptr<const Picture>>;

/// True for an empty value and for every number that is zero. A string is never zero, whatever it
/// reads, so a picture key "0" stays a key. False counts as zero.
QUORVALE_CORE_EXPORT bool IsZero(const Variant& value);

/// Conversions to what a member asks for. TypeMismatch when the value has no such reading,
/// Overflow when it is out of range; fractions are rounded to nearest, ties to even.
QUORVALE_CORE_EXPORT std::int16_t ToShort(const Variant& value);
QUORVALE_CORE_EXPORT std::int32_t ToLong(const Variant& value);
QUORVALE_CORE_EXPORT float ToSingle(const Variant& value);
QUORVALE_CORE_EXPORT bool ToBoolean(const Variant& value);
QUORVALE_CORE_EXPORT std::u16string ToString(const Variant& value);

/// A colour: the 32 bits of a Long, so that 0x8000000F may arrive as a negative number.
QUORVALE_CORE_EXPORT Colour ToColour(const Variant& value);

}  // namespace quorvale
