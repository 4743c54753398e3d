#pragma once

#include <QMouseEvent>

#include "qt/control_link.h"
#include "qt/row_hits.h"

namespace quorvale {

/// Hands the mouse to the rows and their companions as they expect it: from a press to the release
/// of the last button everything goes to the part that was pressed.
class MouseRouting {
public:
    explicit MouseRouting(ControlLinkPtr link) : link_(std::move(link)) {}

    /// A mouse event with its place on the control, in twips. The widget that forwarded it may be
    /// gone afterwards.
    void press(const QMouseEvent& event, Twips x, Twips y);
    void doubleClick(const QMouseEvent& event, Twips x, Twips y);
    void move(const QMouseEvent& event, Twips x, Twips y);
    void release(const QMouseEvent& event, Twips x, Twips y);

private:
    /// Where a press took hold.
    struct Capture {
        Hit Part;
        bool Held = false;
    };

    MouseEvent relative(const Surface& surface, const Hit& hit, std::int16_t button,
                        const QMouseEvent& event, Twips x, Twips y) const;
    void capture(const Hit& hit);

    ControlLinkPtr link_;
    Capture capture_;
};

}  // namespace quorvale
