#pragma once

#include <chrono>

#include "base/export.h"

namespace quorvale {

/// Where it is known from how much time has passed.
class QUORVALE_CORE_EXPORT Clock {
public:
    virtual ~Clock() = default;

    /// The time since some moment of the past; it never goes back.
    virtual std::chrono::nanoseconds Now() const = 0;
};

/// The machine's own.
class SteadyClock final : public Clock {
public:
    std::chrono::nanoseconds Now() const override {
        return std::chrono::steady_clock::now().time_since_epoch();
    }
};

}  // namespace quorvale
