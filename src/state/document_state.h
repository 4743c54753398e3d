#pragma once

#include <cstdint>
#include <string>

#include "base/column.h"
#include "base/line_starts.h"
#include "base/ordinals.h"
#include "base/text_store.h"
#include "base/units.h"
#include "platform/encoding.h"
#include "platform/variant.h"

namespace quorvale {

/// What is kept per line, in entries 1 to `LineSlots`; the last one is a sentinel for the place
/// just past the last line.
struct LineTable {
    /// Position of the line's first character; the sentinel's is the text's length + 1.
    LineStarts Starts;
    Column<Colour> ForeColors;
    Column<Colour> BackColors;
    /// Key or number of the line's picture; the 16-bit 0 for none.
    Column<Variant> Images;
    /// How many folded ranges hide the line; it is shown at 0.
    Column<std::int16_t> HiddenDepth;
};

/// The one document: its whole text, which always ends with the CR LF that the control appends,
/// and its lines. Replaced whole, never changed in place.
struct DocumentState {
    TextStore Text;
    LineTable Table;
    /// Name of the loaded file; empty for a text that was set and before any load.
    std::u16string FileName;
    /// How the file was read in the end; never `Automatic`.
    Encoding ReadAs = Encoding::SingleByte;
    /// Number of line feeds plus one; 0 before any document.
    std::int32_t LineSlots = 0;
    /// Lines per step of the vertical scroll bar, so that its 16 bits reach every line.
    std::int16_t ScrollScale = 1;
    /// The widest row measured so far, in twips; it only grows until the next document.
    std::int64_t WidestLineWidth = 0;
    /// Rises whenever the document is replaced: what was computed from an older one is void.
    std::uint64_t Generation = 0;

    /// A line number that names a line of the document.
    bool IsLine(Line line) const { return line >= Line{1} && line < Sentinel(); }
    Line Sentinel() const { return Line{LineSlots}; }
    /// The last real line; 0 when there is none.
    Line LastLine() const { return Line{LineSlots > 0 ? LineSlots - 1 : 0}; }

    /// 0 outside the table, so that nobody can read past it.
    std::int16_t HiddenDepth(Line line) const { return Table.HiddenDepth.Get(line.Number()); }
    bool IsHidden(Line line) const { return HiddenDepth(line) != 0; }
};

}  // namespace quorvale
