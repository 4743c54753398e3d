#include "base/integers.h"

#include <cmath>
#include <limits>
#include <string>

namespace quorvale {

namespace {

template <class Integer>
Integer RoundInto(double value, const char* what) {
    const double rounded = RoundHalfEven(value);
    // Both bounds are exact in a double: -2^n, and 2^n as the first value that does not fit.
    constexpr double lowest = static_cast<double>(std::numeric_limits<Integer>::min());
    if (!(rounded >= lowest && rounded < -lowest)) RaiseOverflow(what);
    return static_cast<Integer>(rounded);
}

}  // namespace

double RoundHalfEven(double value) {
    const double below = std::floor(value);
    const double rest = value - below;
    if (rest < 0.5) return below;
    if (rest > 0.5) return below + 1;
    return std::fmod(below, 2) == 0 ? below : below + 1;
}

void RaiseOverflow(const char* what) {
    throw ControlError(ErrorKind::Overflow, std::string("Overflow in a ") + what);
}

std::int16_t ToInt16(double value) { return RoundInto<std::int16_t>(value, "16-bit number"); }

std::int32_t ToInt32(double value) { return RoundInto<std::int32_t>(value, "32-bit number"); }

std::int64_t ToInt64(double value) { return RoundInto<std::int64_t>(value, "64-bit number"); }

std::int32_t IntDivide(std::int32_t dividend, std::int32_t divisor) {
    if (divisor == 0) throw ControlError(ErrorKind::DivideByZero, "Division by zero");
    if (divisor == -1) return CheckedSubtract(0, dividend);
    return dividend / divisor;
}

}  // namespace quorvale
