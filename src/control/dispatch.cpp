#include "control/dispatch.h"

#include <string>

#include "base/errors.h"
#include "control/dispatch_bindings.h"
#include "control/dispatch_call.h"
#include "control/member_table.h"

namespace quorvale {

namespace {

using namespace member_kind;

[[noreturn]] void RefuseKind(const MemberDescription& member, unsigned kinds) {
    const std::string name(member.Name);
    const bool writable = (member.Kinds & (Let | Set)) != 0;
    if ((kinds & Get) != 0 && writable) {
        throw ControlError(ErrorKind::WriteOnly, name + " can only be written");
    }
    if ((kinds & (Let | Set)) != 0 && member.Kinds == Get) {
        throw ControlError(ErrorKind::ReadOnly, name + " can only be read");
    }
    throw ControlError(ErrorKind::MemberNotFound, name + " cannot be called that way");
}

/// The one kind to run; an error when the member has none of the asked kinds.
unsigned ChooseKind(const MemberDescription& member, unsigned kinds) {
    const unsigned offered = member.Kinds & kinds;
    for (const unsigned kind : {Method, Get, Let, Set}) {
        if ((offered & kind) != 0) return kind;
    }
    RefuseKind(member, kinds);
}

void CheckArgumentCount(const MemberDescription& member, unsigned kind, std::size_t given) {
    const bool takesValue = kind == Let || kind == Set;
    const std::size_t most = member.Parameters.size() + (takesValue ? 1 : 0);
    std::size_t least = most;
    if (!takesValue) {
        while (least > 0 && member.Parameters[least - 1].Optional) --least;
    }
    if (given >= least && given <= most) return;
    std::string wanted = std::to_string(least);
    if (least != most) wanted += " to " + std::to_string(most);
    throw ControlError(ErrorKind::ArgumentCount, std::string(member.Name) + " takes " + wanted +
                                                     " arguments, not " + std::to_string(given));
}

}  // namespace

Variant Invoke(QuorvaleBox& box, std::int32_t id, unsigned kinds, std::span<Variant> arguments) {
    const MemberDescription& member = DescribeMember(id);
    const unsigned kind = ChooseKind(member, kinds);
    CheckArgumentCount(member, kind, arguments.size());
    DispatchCall call(box, member, arguments);
    return BindingOf(id, kind)(call);
}

}  // namespace quorvale
