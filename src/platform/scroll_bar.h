#pragma once

#include <cstdint>
#include <functional>

#include "base/export.h"
#include "platform/element.h"

namespace quorvale {

/// A scroll bar as a form control behaves: it refuses a value outside its range, moves its value
/// when its range moves, and runs `OnChange` whenever the value moved, whoever moved it. `Max` may
/// lie below `Min`: such a bar cannot be moved by the user.
class QUORVALE_CORE_EXPORT ScrollBar : public Element {
public:
    using Element::Element;

    /// The value has moved. Also after every drag of the thumb, even one that ends where it began.
    std::function<void()> OnChange;
    /// The thumb is being dragged; the value follows it.
    std::function<void()> OnScroll;
    /// The user clicked the bar.
    std::function<void()> OnGotFocus;

    /// The value at the upper or left end; 0 at first.
    std::int32_t Min() const { return min_; }
    /// The value at the lower or right end; 32767 at first.
    std::int32_t Max() const { return max_; }
    /// Between the two, whichever is the greater; 0 at first.
    std::int32_t Value() const { return value_; }
    /// How far an arrow goes; 1 at first.
    std::int32_t SmallChange() const { return smallChange_; }
    /// How far a click into the trough goes, and the size of the thumb; 1 at first.
    std::int32_t LargeChange() const { return largeChange_; }

    /// All of these: Overflow for a number of more than 16 bits unless the bar is wide.
    void SetMin(std::int32_t min);
    /// A value that is left outside moves to the end, and `OnChange` runs; as with `SetMin`.
    void SetMax(std::int32_t max);
    /// InvalidValue outside the range.
    void SetValue(std::int32_t value);
    /// InvalidValue below 1.
    void SetSmallChange(std::int32_t change);
    /// InvalidValue below 1, as with the small one.
    void SetLargeChange(std::int32_t change);

    /// A wide bar takes 32-bit numbers.
    bool Wide() const { return wide_; }
    /// Says which numbers are taken from now on; those it has stay.
    void SetWide(bool wide) { wide_ = wide; }

    // What users do. A hidden or disabled bar does not answer.

    /// A click on an arrow: -1 up or left, 1 down or right.
    void UserArrow(int direction);
    /// A click into the trough.
    void UserPage(int direction);
    /// A step of the wheel or of a touch pad, in units of the bar.
    void UserStepBy(std::int64_t steps);
    /// The thumb, held down, reaches `value`; it is kept within the range.
    void UserDrag(std::int32_t value);
    /// The thumb is let go.
    void UserRelease();
    /// A press anywhere on the bar: runs `OnGotFocus`.
    void UserClickInto();

private:
    bool Answers() const { return Visible() && Enabled() && min_ <= max_; }
    void CheckWidth(std::int32_t value) const;
    void KeepWithinRange();
    std::int32_t Clamped(std::int64_t value) const;

    std::int32_t min_ = 0;
    std::int32_t max_ = 32767;
    std::int32_t value_ = 0;
    std::int32_t smallChange_ = 1;
    std::int32_t largeChange_ = 1;
    bool wide_ = false;
    bool dragged_ = false;
};

}  // namespace quorvale
