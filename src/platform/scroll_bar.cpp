#include "platform/scroll_bar.h"

#include <algorithm>
#include <limits>

#include "base/errors.h"
#include "base/integers.h"

namespace quorvale {

namespace {

[[noreturn]] void RaiseInvalid(const Element& bar, const char* property) {
    throw ControlError(ErrorKind::InvalidValue,
                       bar.Name() + " refuses this value as its " + property);
}

}  // namespace

void ScrollBar::CheckWidth(std::int32_t value) const {
    if (!wide_) CheckedCast<std::int16_t>(value);
}

std::int32_t ScrollBar::Clamped(std::int64_t value) const {
    const std::int64_t low = std::min(min_, max_);
    const std::int64_t high = std::max(min_, max_);
    return static_cast<std::int32_t>(std::clamp(value, low, high));
}

void ScrollBar::KeepWithinRange() {
    const std::int32_t kept = Clamped(value_);
    if (kept == value_) return;
    if (Assign(value_, kept, "Value") && OnChange) OnChange();
}

void ScrollBar::SetMin(std::int32_t min) {
    CheckWidth(min);
    Assign(min_, min, "Min");
    KeepWithinRange();
}

void ScrollBar::SetMax(std::int32_t max) {
    CheckWidth(max);
    Assign(max_, max, "Max");
    KeepWithinRange();
}

void ScrollBar::SetValue(std::int32_t value) {
    CheckWidth(value);
    if (Clamped(value) != value) RaiseInvalid(*this, "Value");
    if (Assign(value_, value, "Value") && OnChange) OnChange();
}

void ScrollBar::SetSmallChange(std::int32_t change) {
    CheckWidth(change);
    if (change < 1) RaiseInvalid(*this, "SmallChange");
    Assign(smallChange_, change, "SmallChange");
}

void ScrollBar::SetLargeChange(std::int32_t change) {
    CheckWidth(change);
    if (change < 1) RaiseInvalid(*this, "LargeChange");
    Assign(largeChange_, change, "LargeChange");
}

void ScrollBar::UserStepBy(std::int64_t steps) {
    if (!Answers()) return;
    // No bar is longer than this, and the sum stays within 64 bits.
    constexpr std::int64_t most = std::int64_t{1} << 33;
    SetValue(Clamped(value_ + std::clamp(steps, -most, most)));
}

void ScrollBar::UserArrow(int direction) { UserStepBy(std::int64_t{smallChange_} * direction); }

void ScrollBar::UserPage(int direction) { UserStepBy(std::int64_t{largeChange_} * direction); }

void ScrollBar::UserDrag(std::int32_t value) {
    if (!Answers()) return;
    Assign(value_, Clamped(value), "Value");
    dragged_ = true;
    if (OnScroll) OnScroll();
}

void ScrollBar::UserRelease() {
    if (!dragged_) return;
    dragged_ = false;
    if (OnChange) OnChange();
}

void ScrollBar::UserClickInto() {
    if (Answers() && OnGotFocus) OnGotFocus();
}

}  // namespace quorvale
