#pragma once

#include "platform/surface.h"
#include "resources/string_table.h"
#include "state/document_state.h"

namespace quorvale {

/// The line number beside the thumb while it is dragged.
class ScrollTip {
public:
    ScrollTip(Surface& surface, const DocumentState& document, Language language)
        : surface_(surface), document_(document), language_(language) {}

    /// The thumb moved: shows the line that it aims at, at the height where the drag began.
    void ThumbMoved();

    /// The language of the tip from now on.
    void Speak(Language language) { language_ = language; }

private:
    void ShowAtThumb();

    Surface& surface_;
    const DocumentState& document_;
    Language language_;
};

}  // namespace quorvale
