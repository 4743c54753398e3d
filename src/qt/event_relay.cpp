#include "qt/event_relay.h"

#include "qt/control_widget.h"
#include "qt/conversions.h"

namespace quorvale {

void EventRelay::MouseDown(std::int16_t button, std::int16_t shift, float x, float y) {
    emit widget_.mouseDown(button, shift, x, y);
}

void EventRelay::MouseUp(std::int16_t button, std::int16_t shift, float x, float y) {
    emit widget_.mouseUp(button, shift, x, y);
}

void EventRelay::SelChanged() { emit widget_.selectionChanged(); }

void EventRelay::DblClick() { emit widget_.doubleClicked(); }

void EventRelay::ImageClick(std::int32_t row) { emit widget_.imageClicked(row); }

void EventRelay::KeyDown(std::int16_t keyCode, std::int16_t shift) {
    emit widget_.keyDown(keyCode, shift);
}

void EventRelay::KeyUp(std::int16_t keyCode, std::int16_t shift) {
    emit widget_.keyUp(keyCode, shift);
}

void EventRelay::Scrolled() { emit widget_.scrolled(); }

void EventRelay::ButtonClick(const std::u16string& buttonName) {
    emit widget_.buttonClicked(toQString(buttonName));
}

void EventRelay::BeforeFileChange(const std::u16string& fileName, bool& changed) {
    emit widget_.beforeFileChange(toQString(fileName), &changed);
}

}  // namespace quorvale
