#pragma once

#include "platform/clock.h"

namespace quorvale {

/// A clock that stands still until somebody lets time pass.
class HandClock final : public Clock {
public:
    std::chrono::nanoseconds Now() const override { return now_; }
    /// Lets that much time pass at once.
    void Pass(std::chrono::nanoseconds time) { now_ += time; }

private:
    std::chrono::nanoseconds now_{0};
};

}  // namespace quorvale
