#include "search/case_table.h"

#include <algorithm>

#include "search/unicode_case.h"

namespace quorvale {

namespace {

template <class Key>
UnitKeys MakeKeys(Key key) {
    UnitKeys keys;
    for (std::size_t unit = 0; unit < keys.size(); ++unit) {
        keys[unit] = key(static_cast<char16_t>(unit));
    }
    return keys;
}

std::array<char16_t, 256> OfBytes(const UnitKeys& keys) {
    std::array<char16_t, 256> ofBytes;
    std::copy_n(keys.begin(), ofBytes.size(), ofBytes.begin());
    return ofBytes;
}

}  // namespace

CaseTable::CaseTable(const CaseRules& rules)
    : Folds(MakeKeys([&](char16_t unit) { return rules.Fold(unit); })),
      Capitals(MakeKeys([&](char16_t unit) { return rules.Upper(unit); })),
      FoldedBytes(OfBytes(Folds)) {}

CaseTablePtr CaseTableOf(const CaseRules* rules) {
    if (rules != nullptr) return std::make_shared<const CaseTable>(*rules);
    static const CaseTablePtr unicode = std::make_shared<const CaseTable>(UnicodeCase());
    return unicode;
}

std::u16string KeysOf(std::u16string_view text, const UnitKeys& keys) {
    std::u16string out(text);
    std::transform(out.begin(), out.end(), out.begin(), [&](char16_t unit) { return keys[unit]; });
    return out;
}

}  // namespace quorvale
