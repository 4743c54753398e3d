#include "qt/system_colours.h"

#include <array>

namespace quorvale {

namespace {

constexpr Colour systemMark = 0x80000000;
constexpr Colour markMask = 0xFF000000;

// In the order of the system indexes, from 0.
constexpr std::array<QPalette::ColorRole, 25> roles{
    QPalette::Mid,              // scroll bar's trough
    QPalette::Window,           // desktop
    QPalette::Highlight,        // title of the active window
    QPalette::Mid,              // title of another window
    QPalette::Window,           // menu
    QPalette::Base,             // window with text
    QPalette::Shadow,           // frame of a window
    QPalette::WindowText,       // text of a menu
    QPalette::Text,             // text in a window
    QPalette::HighlightedText,  // text of the active title
    QPalette::Mid,              // border of the active window
    QPalette::Mid,              // border of another window
    QPalette::Dark,             // ground behind many documents
    QPalette::Highlight,        // selection
    QPalette::HighlightedText,  // text of the selection
    QPalette::Button,           // face of a button
    QPalette::Dark,             // its shadow
    QPalette::Text,             // text of something disabled
    QPalette::ButtonText,       // text of a button
    QPalette::WindowText,       // text of another title
    QPalette::Light,            // lit edge
    QPalette::Shadow,           // darkest edge
    QPalette::Midlight,         // inner lit edge
    QPalette::ToolTipText,      // text of a tip
    QPalette::ToolTipBase,      // ground of a tip
};
constexpr Colour disabledText = 17;

}  // namespace

QColor resolvedColour(Colour colour, const QPalette& palette) {
    if ((colour & markMask) != systemMark) {
        return QColor(static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
                      static_cast<int>((colour >> 16) & 0xFF));
    }
    const Colour index = colour & ~markMask;
    if (index == disabledText) return palette.color(QPalette::Disabled, QPalette::Text);
    return palette.color(index < roles.size() ? roles[index] : QPalette::Text);
}

Colour toColour(const QColor& colour) {
    const auto part = [](int value, int shift) { return static_cast<Colour>(value) << shift; };
    return part(colour.red(), 0) | part(colour.green(), 8) | part(colour.blue(), 16);
}

QColor mixed(const QColor& ground, const QColor& text, double share) {
    const auto channel = [share](int below, int above) {
        return static_cast<int>(below + (above - below) * share + 0.5);
    };
    return QColor(channel(ground.red(), text.red()), channel(ground.green(), text.green()),
                  channel(ground.blue(), text.blue()));
}

}  // namespace quorvale
