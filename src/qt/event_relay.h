#pragma once

#include "control/quorvale_box_events.h"

namespace quorvale {

class ControlWidget;

/// Hands the control's events on as signals of its widget. A slot may destroy the widget and this
/// with it: nothing is touched after a signal.
class EventRelay final : public QuorvaleBoxEvents {
public:
    explicit EventRelay(ControlWidget& widget) : widget_(widget) {}

    void MouseDown(std::int16_t button, std::int16_t shift, float x, float y) override;
    void MouseUp(std::int16_t button, std::int16_t shift, float x, float y) override;
    void SelChanged() override;
    void DblClick() override;
    void ImageClick(std::int32_t row) override;
    void KeyDown(std::int16_t keyCode, std::int16_t shift) override;
    void KeyUp(std::int16_t keyCode, std::int16_t shift) override;
    void Scrolled() override;
    void ButtonClick(const std::u16string& buttonName) override;
    void BeforeFileChange(const std::u16string& fileName, bool& changed) override;

private:
    ControlWidget& widget_;
};

}  // namespace quorvale
