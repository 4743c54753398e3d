#pragma once

#include <cstdint>

#include "platform/surface.h"
#include "state/collapse_state.h"
#include "state/document_state.h"

namespace quorvale {

/// Takes note of a range that the user may fold: nothing is folded and nothing repainted, its glyph
/// appears with the next fill. A range that does not start at a line of the document, whose first
/// line heads a folded range, or that is not at least two lines long is silently left out. Its end
/// is not checked: folding a range that runs past the document fails later.
class RangeRegister {
public:
    RangeRegister(CollapseState& collapse, Surface& surface, const DocumentState& document)
        : collapse_(collapse), surface_(surface), document_(document) {}

    void CollapseLines(std::int32_t fromRow, std::int32_t toRow);

    /// No range is registered any more. What is folded stays folded.
    void ForgetAll();

private:
    CollapseState& collapse_;
    Surface& surface_;
    const DocumentState& document_;
};

}  // namespace quorvale
