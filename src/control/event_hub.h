#pragma once

#include <memory>

#include "control/event_forwarding.h"
#include "control/quorvale_box_events.h"

namespace quorvale {

/// Tells the host of every event: first the listener, then the sink. Either may be missing, and
/// either may destroy the control; the hub is then silent.
class EventHub {
public:
    QuorvaleBoxEvents* Listener = nullptr;

    void SetSink(EventSink* sink) {
        forwarding_.reset();
        if (sink != nullptr) forwarding_ = std::make_shared<EventForwarding>(*sink);
    }

    /// Nobody is told anything from now on.
    void Silence() {
        Listener = nullptr;
        forwarding_.reset();
    }

    template <class Event>
    void Raise(Event event) {
        if (Listener != nullptr) event(*Listener);
        // The sink may be taken back while it is being told.
        if (const auto forwarding = forwarding_) event(*forwarding);
    }

private:
    std::shared_ptr<EventForwarding> forwarding_;
};

}  // namespace quorvale
