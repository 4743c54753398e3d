#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "control/member_table.h"
#include "platform/variant.h"

namespace quorvale {

class QuorvaleBox;

/// One call by id on its way to the member: reads the arguments as the types that the member
/// takes, and writes back what it left in them. Arguments count from 0. All reads raise
/// TypeMismatch or Overflow with a description that names the argument; a member's binding does
/// them all before it calls the member.
class DispatchCall {
public:
    DispatchCall(QuorvaleBox& box, const MemberDescription& member, std::span<Variant> arguments)
        : Box(box), member_(member), arguments_(arguments) {}

    QuorvaleBox& Box;

    bool Has(std::size_t index) const { return index < arguments_.size(); }

    std::int32_t Long(std::size_t index) const;
    std::int16_t Integer(std::size_t index) const;
    float Single(std::size_t index) const;
    bool Boolean(std::size_t index) const;
    std::u16string String(std::size_t index) const;
    quorvale::Colour Colour(std::size_t index) const;
    quorvale::Font Font(std::size_t index) const;
    /// Null for a null reference.
    PicturePtr Picture(std::size_t index) const;
    /// Null for a null reference.
    std::shared_ptr<Object> ObjectReference(std::size_t index) const;
    const Variant& Any(std::size_t index) const { return arguments_[index]; }

    /// Leaves the value in the caller's variable, in the variable's own type. Overflow when that
    /// is too small for it.
    void WriteBack(std::size_t index, std::int32_t value);
    void WriteBack(std::size_t index, float value);

private:
    template <class Read>
    auto Reading(std::size_t index, Read read) const;

    template <class Number>
    void Write(std::size_t index, Number value);

    const MemberDescription& member_;
    std::span<Variant> arguments_;
};

}  // namespace quorvale
