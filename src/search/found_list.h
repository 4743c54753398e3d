#pragma once

#include "platform/surface.h"

namespace quorvale {

/// The results list over the text. It keeps its rows while it is hidden, so that the recent search
/// list is this list, shown again.
class FoundList {
public:
    explicit FoundList(Surface& surface) : surface_(surface) {}

    /// In front of everything, with the keyboard.
    void Show() {
        surface_.lvFound.SetVisible(true);
        surface_.lvFound.BringToFront();
        surface_.Focus.Request(FocusChild::FoundList);
    }

    /// The text has the keyboard again.
    void Hide() {
        surface_.lvFound.SetVisible(false);
        surface_.Focus.Request(FocusChild::TextArea);
    }

private:
    Surface& surface_;
};

}  // namespace quorvale
