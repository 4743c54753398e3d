#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/xml_document.h"

namespace quorvale {

/// The lines of the loaded file that a correction replaces; a count of 0 inserts before `Start`.
struct UpdateRange {
    std::int32_t Start = 0;
    std::int32_t Count = 0;

    /// The line behind the last one; a usable range ends within 32 bits.
    std::int32_t End() const { return Start + Count; }

    bool operator==(const UpdateRange&) const = default;
};

/// A correction of the journal that can be used.
struct Update {
    XmlNodePtr Node;
    UpdateRange Range;
    /// Its place among all elements `update`, the useless ones too, from 0.
    std::size_t Number = 0;
};

/// A new element `update`. A text that XML cannot carry is written escaped and marked so.
XmlNodePtr CreateUpdate(UpdateRange range, std::u16string_view text);

/// None when an attribute is missing or no number, the count is negative or the end is past 32
/// bits: such an element stays in the journal, and nobody uses it.
std::optional<UpdateRange> RangeOf(const XmlNode& update);

/// Whether the correction says no more than its text: it has one piece of text, or none.
bool HoldsOneText(const XmlNode& update);

/// The replacement: lines, each followed by LF. Anything but text as the first child counts as
/// none.
std::u16string UpdateText(const XmlNode& update);

/// The lines of a replacement text; a last one without LF counts too.
std::vector<std::u16string> LinesOfUpdate(std::u16string_view text);

}  // namespace quorvale
