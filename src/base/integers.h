#pragma once

#include <concepts>
#include <cstdint>
#include <utility>

#include "base/errors.h"

namespace quorvale {

/// Nearest whole number, ties to the even one; independent of the process's rounding mode.
double RoundHalfEven(double value);

[[noreturn]] void RaiseOverflow(const char* what);

/// Rounds (ties to even) into a 16-bit integer. Overflow outside its range, for NaN and infinities.
std::int16_t ToInt16(double value);

/// Rounds (ties to even) into a 32-bit integer. Overflow outside its range, for NaN and infinities.
std::int32_t ToInt32(double value);

/// Rounds (ties to even) into a 64-bit integer. Overflow outside its range, for NaN and infinities.
std::int64_t ToInt64(double value);

/// Quotient of two whole numbers, truncated toward zero. DivideByZero for a zero divisor.
std::int32_t IntDivide(std::int32_t dividend, std::int32_t divisor);

template <std::signed_integral T>
T CheckedAdd(T a, T b) {
    T sum;
    if (__builtin_add_overflow(a, b, &sum)) RaiseOverflow("sum");
    return sum;
}

template <std::signed_integral T>
T CheckedSubtract(T a, T b) {
    T difference;
    if (__builtin_sub_overflow(a, b, &difference)) RaiseOverflow("difference");
    return difference;
}

template <std::signed_integral T>
T CheckedMultiply(T a, T b) {
    T product;
    if (__builtin_mul_overflow(a, b, &product)) RaiseOverflow("product");
    return product;
}

/// The value in another integer type; Overflow where it does not fit.
template <std::integral To, std::integral From>
To CheckedCast(From value) {
    if (!std::in_range<To>(value)) RaiseOverflow("conversion");
    return static_cast<To>(value);
}

}  // namespace quorvale
