#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "control/member_ids.h"

namespace quorvale {

/// The types that members and events exchange. Colours travel in a Variant as the Long with the
/// same 32 bits.
enum class ValueType {
    None,
    Long,
    Integer,
    Single,
    Boolean,
    String,
    AnyValue,  ///< a Variant
    ColourValue,
    Font,
    Picture,
    Object,
};

struct ParameterDescription {
    std::string_view Name;
    ValueType Type = ValueType::None;
    bool Optional = false;
    bool ByReference = true;
    bool WrittenBack = false;  ///< the callee may leave another value in the caller's variable
};

/// One entry of the control's interface.
struct MemberDescription {
    std::string_view Name;
    unsigned Kinds = 0;  ///< a sum of member_kind values
    std::span<const ParameterDescription> Parameters;
    ValueType Type = ValueType::None;  ///< of a method's result, or of the property
    std::int32_t Id = 0;
    std::string_view HelpText = {};
    bool Hidden = false;           ///< left out by property browsers, yet fully callable
    bool ValueByReference = true;  ///< how Let and Set pass the new value
    bool ValueWrittenBack = false;
};

struct EventDescription {
    std::string_view Name;
    std::int32_t Id = 0;
    std::span<const ParameterDescription> Parameters;
    std::string_view HelpText = {};
};

/// Who the control and its two interfaces are.
struct ClassDescription {
    std::string_view Name;
    std::string_view Description;
    std::string_view ClassId;
    std::string_view InterfaceName;
    std::string_view InterfaceId;
    std::string_view EventInterfaceName;
    std::string_view EventInterfaceId;
};

const ClassDescription& DescribeClass();

/// All members in the interface's own order, which compiled hosts rely on.
std::span<const MemberDescription> DescribeMembers();

/// All events in the event interface's own order.
std::span<const EventDescription> DescribeEvents();

/// The member with that id. MemberNotFound when there is none.
const MemberDescription& DescribeMember(std::int32_t id);

/// The id of the member with that name; the case of the letters does not count. MemberNotFound when
/// there is none.
std::int32_t GetIdOfName(std::u16string_view name);

}  // namespace quorvale
