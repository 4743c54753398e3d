#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "base/integers.h"

namespace quorvale {

/// The distance of tab stops, in columns.
inline constexpr int tabWidth = 8;

/// The column after a character that stands at `column`, both counted from 0. Overflow beyond 32
/// bits.
constexpr std::int32_t ColumnAfter(std::int32_t column, char16_t character) {
    if (column > std::numeric_limits<std::int32_t>::max() - tabWidth) RaiseOverflow("column");
    return character == u'\t' ? (column / tabWidth + 1) * tabWidth : column + 1;
}

/// The text with every CR shown as a pilcrow and every NUL as a middle dot: a row must not hide
/// what is in the file.
std::u16string MarkControlChars(std::u16string text);

/// The text with every tab as blanks up to the next tab stop, at least one.
std::u16string ExpandTabs(std::u16string_view text);

/// What a row shows of a line's raw text: tabs expanded, then control characters marked.
std::u16string DisplayForm(std::u16string raw);

}  // namespace quorvale
