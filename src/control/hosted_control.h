#pragma once

#include <memory>
#include <string_view>

#include "base/export.h"
#include "control/quorvale_box_events.h"
#include "platform/event_sink.h"
#include "platform/host_options.h"
#include "platform/host_services.h"
#include "platform/property_bag.h"
#include "platform/surface.h"

namespace quorvale {

class ControlParts;
class HostCorrections;
class HostExtras;

/// What a host does with the control around its members: it creates it, brings it to life, listens,
/// shows its elements and ends it. Everything runs on one thread, the one that created the control.
class QUORVALE_CORE_EXPORT HostedControl {
public:
    HostedControl(const HostedControl&) = delete;
    HostedControl& operator=(const HostedControl&) = delete;

    // What the container delivers, in this order.

    /// The control is new: its rows are created and placed, the first one shows its name.
    void InitProperties();
    /// Or it was stored: its properties come back with all their effects. What the bag does not
    /// hold, or holds as something else, gets its default.
    void ReadProperties(PropertyBag& bag);
    /// The form is shown: ends a suspension of painting, as `AutoRedraw(true)` does.
    void Show();
    /// The form is hidden: suspends painting until it is shown again.
    void Hide();
    /// The surroundings changed; only "DisplayName" matters.
    void AmbientChanged(std::u16string_view name);
    /// Saves the corrections or removes their file; File error when they cannot be saved.
    void Terminate();
    /// Stores the properties that differ from their defaults.
    void WriteProperties(PropertyBag& bag) const;

    /// Who hears the events: null for nobody, a widget for itself. Outlives this or is taken back.
    void SetEvents(QuorvaleBoxEvents* events);
    /// Who hears the events by number, after the other listener; the same rules hold for it.
    void SetEventSink(EventSink* sink);

    /// The elements that a surface shows. They live as long as the control.
    Surface& Elements();

    /// What the host has switched on.
    const HostOptions& Options() const;
    /// Holds from the next load or layout on, `OfferEditing` at once: to be set before a document.
    void SetOptions(HostOptions options);

    /// What a host may ask and do about corrections beyond the members.
    HostCorrections& Corrections() const;
    /// What it may ask and do besides.
    HostExtras& Extras() const;

protected:
    /// Creates the control; see QuorvaleBox.
    HostedControl(HostServices services, HostOptions options);
    /// Terminates the control, whether or not the corrections can be saved.
    ~HostedControl();

    /// All that the control is made of; a frame of a member holds it until it returns.
    std::shared_ptr<ControlParts> parts_;
};

}  // namespace quorvale
