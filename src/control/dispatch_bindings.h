#pragma once

#include <cstdint>

#include "platform/variant.h"

namespace quorvale {

class DispatchCall;

/// Runs one kind of one member with the arguments of a call, whose number has been checked.
using DispatchBinding = Variant (*)(DispatchCall& call);

/// The binding of a single kind of a member. MemberNotFound when there is none.
DispatchBinding BindingOf(std::int32_t id, unsigned kind);

}  // namespace quorvale
