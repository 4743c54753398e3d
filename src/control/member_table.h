#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "base/export.h"
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

/// One parameter of a member or an event.
struct ParameterDescription {
    std::string_view Name;             ///< as hosts that bind by name write it
    ValueType Type = ValueType::None;  ///< what an argument is converted to
    bool Optional = false;             ///< may be left out, with all that follow it
    bool ByReference = true;           ///< declared so; most callees write nothing back
    bool WrittenBack = false;  ///< the callee may leave another value in the caller's variable
};

/// One entry of the control's interface.
struct MemberDescription {
    std::string_view Name;                             ///< found by GetIdOfName
    unsigned Kinds = 0;                                ///< a sum of member_kind values
    std::span<const ParameterDescription> Parameters;  ///< without the new value of a Let or Set
    ValueType Type = ValueType::None;                  ///< of a method's result, or of the property
    std::int32_t Id = 0;                               ///< see member_id
    std::string_view HelpText = {};                    ///< for property browsers; empty for many
    bool Hidden = false;            ///< left out by property browsers, yet fully callable
    bool ValueByReference = true;   ///< how Let and Set pass the new value
    bool ValueWrittenBack = false;  ///< the member may leave another value in the caller's variable
};

/// One event of the control.
struct EventDescription {
    std::string_view Name;                             ///< as in QuorvaleBoxEvents
    std::int32_t Id = 0;                               ///< see event_id
    std::span<const ParameterDescription> Parameters;  ///< in the order in which they come
    std::string_view HelpText = {};                    ///< for browsers; empty for most
};

/// Who the control and its two interfaces are.
struct ClassDescription {
    std::string_view Name;                ///< of the class
    std::string_view Description;         ///< what a list of controls shows of it
    std::string_view ClassId;             ///< unique, and never another one
    std::string_view InterfaceName;       ///< of the members
    std::string_view InterfaceId;         ///< as the class has one
    std::string_view EventInterfaceName;  ///< of the events
    std::string_view EventInterfaceId;    ///< as the class has one
};

QUORVALE_CORE_EXPORT const ClassDescription& DescribeClass();

/// All members in the interface's own order, which compiled hosts rely on.
QUORVALE_CORE_EXPORT std::span<const MemberDescription> DescribeMembers();

/// All events in the event interface's own order.
QUORVALE_CORE_EXPORT std::span<const EventDescription> DescribeEvents();

/// The member with that id. MemberNotFound when there is none.
QUORVALE_CORE_EXPORT const MemberDescription& DescribeMember(std::int32_t id);

/// The id of the member with that name; the case of the letters does not count. MemberNotFound when
/// there is none.
QUORVALE_CORE_EXPORT std::int32_t GetIdOfName(std::u16string_view name);

}  // namespace quorvale
