#include "headless/event_log.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "base/text.h"

namespace quorvale {

namespace {

template <class First, class... Rest>
std::string Call(const char* name, const First& first, const Rest&... rest) {
    std::ostringstream text;
    text << name << '(' << first;
    ((text << ", " << rest), ...);
    text << ')';
    return text.str();
}

}  // namespace

void EventLog::Write(std::string event) {
    entries_.push_back(std::move(event));
    // The host may destroy the log's owner or clear the log: nothing is touched afterwards.
    const auto host = OnEvent;
    if (host) host(std::string(entries_.back()));
}

std::size_t EventLog::Count(const std::string& event) const {
    return static_cast<std::size_t>(std::count(entries_.begin(), entries_.end(), event));
}

void EventLog::MouseDown(std::int16_t button, std::int16_t shift, float x, float y) {
    Write(Call("MouseDown", button, shift, x, y));
}

void EventLog::MouseUp(std::int16_t button, std::int16_t shift, float x, float y) {
    Write(Call("MouseUp", button, shift, x, y));
}

void EventLog::SelChanged() { Write("SelChanged"); }

void EventLog::DblClick() { Write("DblClick"); }

void EventLog::ImageClick(std::int32_t row) { Write(Call("ImageClick", row)); }

void EventLog::KeyDown(std::int16_t keyCode, std::int16_t shift) {
    Write(Call("KeyDown", keyCode, shift));
}

void EventLog::KeyUp(std::int16_t keyCode, std::int16_t shift) {
    Write(Call("KeyUp", keyCode, shift));
}

void EventLog::Scrolled() { Write("Scrolled"); }

void EventLog::ButtonClick(const std::u16string& buttonName) {
    Write(Call("ButtonClick", ToUtf8(buttonName)));
}

void EventLog::BeforeFileChange(const std::u16string& fileName, bool& changed) {
    changed = HostChangesFile;
    Write(Call("BeforeFileChange", ToUtf8(fileName)));
}

}  // namespace quorvale
