#include "control/event_forwarding.h"

#include <array>
#include <cstddef>

#include "control/member_ids.h"
#include "platform/variant.h"

namespace quorvale {

namespace {

template <class... Values>
void Raise(EventSink& sink, std::int32_t id, const Values&... values) {
    std::array<Variant, sizeof...(values)> arguments{Variant(values)...};
    sink.OnEvent(id, arguments);
}

}  // namespace

void EventForwarding::MouseDown(std::int16_t button, std::int16_t shift, float x, float y) {
    Raise(sink_, event_id::MouseDown, button, shift, x, y);
}

void EventForwarding::MouseUp(std::int16_t button, std::int16_t shift, float x, float y) {
    Raise(sink_, event_id::MouseUp, button, shift, x, y);
}

void EventForwarding::SelChanged() { Raise(sink_, event_id::SelChanged); }

void EventForwarding::DblClick() { Raise(sink_, event_id::DblClick); }

void EventForwarding::ImageClick(std::int32_t row) { Raise(sink_, event_id::ImageClick, row); }

void EventForwarding::KeyDown(std::int16_t keyCode, std::int16_t shift) {
    Raise(sink_, event_id::KeyDown, keyCode, shift);
}

void EventForwarding::KeyUp(std::int16_t keyCode, std::int16_t shift) {
    Raise(sink_, event_id::KeyUp, keyCode, shift);
}

void EventForwarding::Scrolled() { Raise(sink_, event_id::Scrolled); }

void EventForwarding::ButtonClick(const std::u16string& buttonName) {
    Raise(sink_, event_id::ButtonClick, buttonName);
}

void EventForwarding::BeforeFileChange(const std::u16string& fileName, bool& changed) {
    std::array<Variant, 2> arguments{Variant(fileName), Variant(changed)};
    sink_.OnEvent(event_id::BeforeFileChange, arguments);
    changed = ToBoolean(arguments[1]);
}

}  // namespace quorvale
