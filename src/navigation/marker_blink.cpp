#include "navigation/marker_blink.h"

namespace quorvale {

namespace {

/// While the control is being left it must not pull the keyboard back.
class FocusBlocked {
public:
    explicit FocusBlocked(Focus& focus) : focus_(focus) { focus_.SetBlocked(true); }
    ~FocusBlocked() { focus_.SetBlocked(false); }
    FocusBlocked(const FocusBlocked&) = delete;
    FocusBlocked& operator=(const FocusBlocked&) = delete;

private:
    Focus& focus_;
};

/// The length of a document that is nothing but its line break.
constexpr std::int32_t emptyLength = 2;

}  // namespace

bool MarkerBlink::HasText() const { return document_.Text.Length() != emptyLength; }

void MarkerBlink::Ticked() {
    surface_.imgMarker.SetVisible(HasText() && !surface_.imgMarker.Visible());
}

void MarkerBlink::Entered() {
    surface_.tmrImage.SetEnabled(true);
    surface_.imgMarker.SetVisible(HasText());
}

void MarkerBlink::Exited() {
    const FocusBlocked blocked(surface_.Focus);
    surface_.tmrImage.SetEnabled(false);
    surface_.imgMarker.SetVisible(HasText());
    peers_.CloseEdit();
}

void MarkerBlink::ChildGotFocus(FocusChild child) {
    if (child == FocusChild::TextArea) surface_.tmrImage.SetEnabled(true);
}

void MarkerBlink::ChildLostFocus(FocusChild child) {
    if (child != FocusChild::TextArea) return;
    surface_.tmrImage.SetEnabled(false);
    surface_.imgMarker.SetVisible(true);
}

}  // namespace quorvale
