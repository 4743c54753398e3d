#include "control/hosted_control.h"

#include <utility>

#include "control/creation.h"
#include "control/frame.h"

namespace quorvale {

HostedControl::HostedControl(HostServices services, HostOptions options)
    : parts_(std::make_shared<ControlParts>(std::move(services), std::move(options))) {}

HostedControl::~HostedControl() {
    parts_->Events.Silence();
    parts_->Ended = true;
    // What shows the elements may be gone already.
    parts_->Elements.Focus.SetBlocked(true);
    try {
        Terminate();
    } catch (...) {
        // There is nobody left to tell.
    }
}

void HostedControl::Terminate() {
    const Frame frame(parts_);
    frame->JournalFile.CloseJournal();
}

void HostedControl::InitProperties() {
    const Frame frame(parts_);
    frame->Looks.EnabledFlag = false;
    frame->Slots.CreateRowSlots();
    frame->Appearance.InitSurface();
    frame->Appearance.ShowName();
}

void HostedControl::ReadProperties(PropertyBag& bag) {
    const Frame frame(parts_);
    frame->Slots.CreateRowSlots();
    frame->Persistence.Read(bag);
    frame->Appearance.InitSurface();
    // The control may be on the screen already.
    frame->Layout.LayoutView();
    frame->Fill.FillRows();
    if (!frame->Services.Site->UserMode()) frame->Appearance.ShowName();
}

void HostedControl::Show() {
    const Frame frame(parts_);
    frame->Redraw.SetAutoRedraw(true);
}

void HostedControl::Hide() {
    const Frame frame(parts_);
    frame->Redraw.SetAutoRedraw(false);
}

void HostedControl::AmbientChanged(std::u16string_view name) {
    const Frame frame(parts_);
    if (name == u"DisplayName") frame->Appearance.ShowName();
}

void HostedControl::WriteProperties(PropertyBag& bag) const { parts_->Persistence.Write(bag); }

void HostedControl::SetEvents(QuorvaleBoxEvents* events) { parts_->Events.Listener = events; }

void HostedControl::SetEventSink(EventSink* sink) { parts_->Events.SetSink(sink); }

Surface& HostedControl::Elements() { return parts_->Elements; }

const HostOptions& HostedControl::Options() const { return parts_->Options; }

void HostedControl::SetOptions(HostOptions options) {
    parts_->Options = std::move(options);
    CreateBoundaries(parts_->Elements, parts_->Options);
}

HostCorrections& HostedControl::Corrections() const { return parts_->HostCorrections; }

HostExtras& HostedControl::Extras() const { return parts_->Extras; }

}  // namespace quorvale
