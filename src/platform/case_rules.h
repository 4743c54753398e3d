#pragma once

#include "base/export.h"

namespace quorvale {

/// Which characters are the same when the search does not look at case. A unit always becomes one
/// unit, so that places in a text stay where they are. Every unit is asked for once, before the
/// first search.
class QUORVALE_CORE_EXPORT CaseRules {
public:
    virtual ~CaseRules() = default;

    /// Units that fold to the same unit are found for one another.
    virtual char16_t Fold(char16_t unit) const = 0;

    /// The capital of the unit, or the unit itself: wildcard patterns are compared in capitals.
    virtual char16_t Upper(char16_t unit) const = 0;
};

}  // namespace quorvale
