#pragma once

#include <cstdint>
#include <span>

#include "base/export.h"
#include "platform/variant.h"

namespace quorvale {

class QuorvaleBox;

/// Calls a member by its id, as a host does that binds by number.
///
/// `kinds` is a sum of member_kind values. Callers that cannot tell a method from a property ask
/// for several at once; then Method is preferred to Get, Get to Let and Let to Set. The arguments
/// stand in the order of the member's description; trailing optional ones may be left out, and for
/// Let and Set the new value comes last. Afterwards the arguments that are described as written
/// back hold what the member left in them, in the type they came with (an empty one in the type of
/// the parameter). The result is empty for a method without one, for Let and for Set.
///
/// Fails, with the control unchanged: MemberNotFound for an unknown id or a kind that the member
/// does not have; WriteOnly for reading a property without Get; ReadOnly for writing one that has
/// nothing but Get; ArgumentCount; TypeMismatch or Overflow, naming the argument, for one that
/// cannot be read as the described type. Also fails as the member itself does.
QUORVALE_CORE_EXPORT Variant Invoke(QuorvaleBox& box, std::int32_t id, unsigned kinds,
                                    std::span<Variant> arguments);

}  // namespace quorvale
