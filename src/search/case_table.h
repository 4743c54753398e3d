#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "platform/case_rules.h"
#include "search/byte_needle.h"

namespace quorvale {

/// What every unit becomes before it is compared.
using UnitKeys = std::array<char16_t, 0x10000>;

/// The rules of case, written out for every unit once, so that no search asks anybody.
struct CaseTable {
    explicit CaseTable(const CaseRules& rules);

    UnitKeys Folds;
    UnitKeys Capitals;
    /// Which of the units U+0000 to U+00FF fold to a unit.
    ByteSets FoldedBytes;
};

using CaseTablePtr = std::shared_ptr<const CaseTable>;

/// The table of the rules; of Unicode's when there are none. That one is made once.
CaseTablePtr CaseTableOf(const CaseRules* rules);

/// Every unit of the text as `keys` has it.
std::u16string KeysOf(std::u16string_view text, const UnitKeys& keys);

}  // namespace quorvale
