#include "control/persistence.h"

#include <string_view>

#include "base/errors.h"
#include "control/control_parts.h"

namespace quorvale {

namespace {

constexpr Colour defaultGround = system_colour::ButtonFace;
constexpr Colour defaultText = system_colour::ButtonText;
constexpr float defaultBorderWidth = 240;
constexpr bool defaultEnabled = false;
constexpr std::int16_t defaultBorderStyle = 1;
constexpr bool defaultGrid = false;

bool IsNumber(const Variant& value) {
    return std::holds_alternative<std::int16_t>(value) ||
           std::holds_alternative<std::int32_t>(value) || std::holds_alternative<float>(value) ||
           std::holds_alternative<double>(value);
}

/// Reads a number of any type with a conversion: in a settings file the types of numbers look
/// alike. Anything else, and a number that does not fit, counts as absent.
template <class T, class Convert>
T ReadNumber(PropertyBag& bag, std::u16string_view key, T absent, Convert convert) {
    const Variant value = bag.Read(key);
    if (!IsNumber(value)) return absent;
    try {
        return convert(value);
    } catch (const ControlError&) {
        return absent;
    }
}

Colour ReadColour(PropertyBag& bag, std::u16string_view key, Colour absent) {
    return ReadNumber(bag, key, absent, [](const Variant& value) { return ToColour(value); });
}

/// A number is no Boolean, whatever members make of one.
bool ReadBoolean(PropertyBag& bag, std::u16string_view key, bool absent) {
    const Variant value = bag.Read(key);
    const bool* stored = std::get_if<bool>(&value);
    return stored != nullptr ? *stored : absent;
}

/// A size that no font has, from a file that somebody has edited, counts as absent.
Font ReadFont(PropertyBag& bag, const Font& absent) {
    constexpr double largest = 2000;
    const Variant value = bag.Read(u"Font");
    const Font* font = std::get_if<Font>(&value);
    return font != nullptr && font->Size > 0 && font->Size <= largest ? *font : absent;
}

/// So does a width beyond all screens.
float ReadBorderWidth(PropertyBag& bag) {
    constexpr float widest = 1'000'000;
    const float width = ReadNumber(bag, u"LeftBorderWidth", defaultBorderWidth,
                                   [](const Variant& value) { return ToSingle(value); });
    return width <= widest ? width : defaultBorderWidth;
}

/// The font of the surroundings as the control takes it: elements keep their own weight and slant.
Font AmbientFace(const Container& site, const Font& own) {
    Font face = site.Font();
    face.Bold = own.Bold;
    face.Italic = own.Italic;
    return face;
}

Variant Stored(Colour colour) { return static_cast<std::int32_t>(colour); }

}  // namespace

void Persistence::Read(PropertyBag& bag) {
    Appearance& appearance = parts_.Appearance;
    appearance.SetBackColor(ReadColour(bag, u"BackColor", defaultGround));
    appearance.SetForeColor(ReadColour(bag, u"ForeColor", defaultText));
    appearance.SetBorderColor(ReadColour(bag, u"BorderColor", defaultGround));
    float width = ReadBorderWidth(bag);
    appearance.SetLeftBorderWidth(width);
    parts_.ToolbarCommands.SetShowGrid(ReadBoolean(bag, u"ShowGrid", defaultGrid));
    parts_.Looks.EnabledFlag = ReadBoolean(bag, u"Enabled", defaultEnabled);
    const std::int16_t style = ReadNumber(bag, u"BorderStyle", defaultBorderStyle,
                                          [](const Variant& value) { return ToShort(value); });
    if (style == 0 || style == 1) parts_.Elements.UserControl.SetBorderStyle(style);
    appearance.SetFont(ReadFont(bag, parts_.Services.Site->Font()));
}

void Persistence::Write(PropertyBag& bag) const {
    const Surface& surface = parts_.Elements;
    const Box& control = surface.UserControl;
    bag.Write(u"BackColor", Stored(control.BackColor()), Stored(defaultGround));
    bag.Write(u"ForeColor", Stored(control.ForeColor()), Stored(defaultText));
    bag.Write(u"BorderColor", Stored(surface.picBorder.BackColor()), Stored(defaultGround));
    bag.Write(u"LeftBorderWidth", static_cast<float>(surface.picBorder.Width()),
              defaultBorderWidth);
    bag.Write(u"Enabled", parts_.Looks.EnabledFlag, defaultEnabled);
    bag.Write(u"Font", control.Font(), AmbientFace(*parts_.Services.Site, control.Font()));
    bag.Write(u"BorderStyle", static_cast<std::int16_t>(control.BorderStyle()), defaultBorderStyle);
    bag.Write(u"ShowGrid", surface.tbMore.Button(u"Grid").Pressed, defaultGrid);
}

}  // namespace quorvale
