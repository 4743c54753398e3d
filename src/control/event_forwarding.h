#pragma once

#include "control/quorvale_box_events.h"
#include "platform/event_sink.h"

namespace quorvale {

/// Hands every event on to a sink by its id. A sink may destroy the control, and this object with
/// it, from within any event.
class EventForwarding final : public QuorvaleBoxEvents {
public:
    /// The sink must outlive this object.
    explicit EventForwarding(EventSink& sink) : sink_(sink) {}

    void MouseDown(std::int16_t button, std::int16_t shift, float x, float y) override;
    void MouseUp(std::int16_t button, std::int16_t shift, float x, float y) override;
    void SelChanged() override;
    void DblClick() override;
    void ImageClick(std::int32_t row) override;
    void KeyDown(std::int16_t keyCode, std::int16_t shift) override;
    void KeyUp(std::int16_t keyCode, std::int16_t shift) override;
    void Scrolled() override;
    void ButtonClick(const std::u16string& buttonName) override;
    /// `changed` takes what the sink leaves in the argument, in whatever type. TypeMismatch when
    /// that cannot be read as a Boolean.
    void BeforeFileChange(const std::u16string& fileName, bool& changed) override;

private:
    EventSink& sink_;
};

}  // namespace quorvale
