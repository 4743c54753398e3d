#pragma once

#include <optional>

#include "base/errors.h"

namespace quorvale {

/// The kind of error that an action ends with; none when it succeeds.
template <class Action>
std::optional<ErrorKind> ErrorOf(Action action) {
    try {
        action();
        return std::nullopt;
    } catch (const ControlError& error) {
        return error.Kind();
    }
}

}  // namespace quorvale
