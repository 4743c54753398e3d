#pragma once

#include <cstdint>
#include <span>

#include "base/export.h"
#include "platform/variant.h"

namespace quorvale {

/// Receives every event by its id, with the arguments in the order of the event's description.
/// A handler may write into an argument that the description marks as by reference; only
/// `BeforeFileChange` reads one back. Called on the user-interface thread; a handler may call any
/// member of the control, or destroy it.
class QUORVALE_CORE_EXPORT EventSink {
public:
    virtual ~EventSink() = default;
    /// An event by its id (see event_id), raised in the middle of what caused it.
    virtual void OnEvent(std::int32_t id, std::span<Variant> arguments) = 0;
};

}  // namespace quorvale
