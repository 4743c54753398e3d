#pragma once

#include "platform/case_rules.h"

namespace quorvale {

/// Unicode's simple case folding, the same in every language: "ß" is not "ss", and the dotless "ı"
/// is no "i". Surrogates fold to themselves.
class UnicodeCase final : public CaseRules {
public:
    char16_t Fold(char16_t unit) const override;
    /// A capital that would not fold to the same unit does not count: "ı" stays "ı".
    char16_t Upper(char16_t unit) const override;
};

}  // namespace quorvale
