#pragma once

#include <cstdint>
#include <string_view>

#include "base/units.h"
#include "platform/font.h"
#include "platform/picture.h"

namespace quorvale {

class ControlParts;

/// The appearance properties with their effects. Setting one reports it to the container.
class Appearance {
public:
    explicit Appearance(ControlParts& parts) : parts_(parts) {}

    void SetBackColor(Colour colour);
    void SetForeColor(Colour colour);
    void SetBorderColor(Colour colour);
    /// A negative width becomes 0, for the caller too. The present width changes nothing.
    void SetLeftBorderWidth(float& width);
    void SetEnabled(bool enabled);
    /// Name, size and character set go to every element that shows text; the rows take the new
    /// text height and the view goes back to the first line.
    void SetFont(const Font& font);
    void SetBorderStyle(std::int16_t style);
    /// Null brings the control's own marker back.
    void SetIcon(PicturePtr picture);

    /// A control that is being created has the font of its surroundings.
    void StartWithAmbientFont();

    /// The rows' places are made anew, for a new control or a new font.
    void InitSurface();
    /// The first row shows the control's name, as long as there is no document.
    void ShowName();

private:
    void TakeFont(const Font& font);
    void Report(std::u16string_view property);

    ControlParts& parts_;
};

}  // namespace quorvale
