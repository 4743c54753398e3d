#include "qt/input_codes.h"

#include <array>
#include <string_view>
#include <utility>

#include "platform/keys.h"

namespace quorvale {

namespace {

using Pair = std::pair<int, std::int16_t>;

constexpr std::array keys{
    Pair{Qt::Key_Backspace, key_code::Backspace},
    Pair{Qt::Key_Tab, std::int16_t{9}},
    Pair{Qt::Key_Backtab, std::int16_t{9}},
    Pair{Qt::Key_Return, key_code::Return},
    Pair{Qt::Key_Enter, key_code::Return},
    Pair{Qt::Key_Shift, std::int16_t{16}},
    Pair{Qt::Key_Control, std::int16_t{17}},
    Pair{Qt::Key_Alt, std::int16_t{18}},
    Pair{Qt::Key_Pause, std::int16_t{19}},
    Pair{Qt::Key_CapsLock, std::int16_t{20}},
    Pair{Qt::Key_Escape, key_code::Escape},
    Pair{Qt::Key_Space, std::int16_t{32}},
    Pair{Qt::Key_PageUp, key_code::PageUp},
    Pair{Qt::Key_PageDown, key_code::PageDown},
    Pair{Qt::Key_End, key_code::End},
    Pair{Qt::Key_Home, key_code::Home},
    Pair{Qt::Key_Left, key_code::Left},
    Pair{Qt::Key_Up, key_code::Up},
    Pair{Qt::Key_Right, key_code::Right},
    Pair{Qt::Key_Down, key_code::Down},
    Pair{Qt::Key_Print, std::int16_t{44}},
    Pair{Qt::Key_Insert, std::int16_t{45}},
    Pair{Qt::Key_Delete, std::int16_t{46}},
    Pair{Qt::Key_Menu, std::int16_t{93}},
    Pair{Qt::Key_NumLock, std::int16_t{144}},
    Pair{Qt::Key_ScrollLock, std::int16_t{145}},
};

/// Signs, and what stands on their keys with Shift where keyboards are laid out as in America.
constexpr std::array signs{
    Pair{Qt::Key_ParenRight, std::int16_t{48}},
    Pair{Qt::Key_Exclam, std::int16_t{49}},
    Pair{Qt::Key_At, std::int16_t{50}},
    Pair{Qt::Key_NumberSign, std::int16_t{51}},
    Pair{Qt::Key_Dollar, std::int16_t{52}},
    Pair{Qt::Key_Percent, std::int16_t{53}},
    Pair{Qt::Key_AsciiCircum, std::int16_t{54}},
    Pair{Qt::Key_Ampersand, std::int16_t{55}},
    Pair{Qt::Key_Asterisk, std::int16_t{56}},
    Pair{Qt::Key_ParenLeft, std::int16_t{57}},
    Pair{Qt::Key_Semicolon, std::int16_t{186}},
    Pair{Qt::Key_Colon, std::int16_t{186}},
    Pair{Qt::Key_Equal, std::int16_t{187}},
    Pair{Qt::Key_Plus, std::int16_t{187}},
    Pair{Qt::Key_Comma, std::int16_t{188}},
    Pair{Qt::Key_Less, std::int16_t{188}},
    Pair{Qt::Key_Minus, std::int16_t{189}},
    Pair{Qt::Key_Underscore, std::int16_t{189}},
    Pair{Qt::Key_Period, std::int16_t{190}},
    Pair{Qt::Key_Greater, std::int16_t{190}},
    Pair{Qt::Key_Slash, std::int16_t{191}},
    Pair{Qt::Key_Question, std::int16_t{191}},
    Pair{Qt::Key_QuoteLeft, std::int16_t{192}},
    Pair{Qt::Key_AsciiTilde, std::int16_t{192}},
    Pair{Qt::Key_BracketLeft, std::int16_t{219}},
    Pair{Qt::Key_BraceLeft, std::int16_t{219}},
    Pair{Qt::Key_Backslash, std::int16_t{220}},
    Pair{Qt::Key_Bar, std::int16_t{220}},
    Pair{Qt::Key_BracketRight, std::int16_t{221}},
    Pair{Qt::Key_BraceRight, std::int16_t{221}},
    Pair{Qt::Key_Apostrophe, std::int16_t{222}},
    Pair{Qt::Key_QuoteDbl, std::int16_t{222}},
};

/// The keys of the number pad that have numbers of their own.
constexpr std::array padSigns{
    Pair{Qt::Key_Asterisk, std::int16_t{106}}, Pair{Qt::Key_Plus, std::int16_t{107}},
    Pair{Qt::Key_Minus, std::int16_t{109}},    Pair{Qt::Key_Period, std::int16_t{110}},
    Pair{Qt::Key_Comma, std::int16_t{110}},    Pair{Qt::Key_Slash, std::int16_t{111}},
};

/// Keyboards that do not write Latin letters: the key at its place, as it is named where it does.
/// The place is the number that X11 and Wayland give a key.
std::int16_t codeAtPlace(quint32 place) {
    struct Row {
        quint32 First;
        std::string_view Names;
    };
    constexpr std::array rows{Row{10, "1234567890"}, Row{24, "QWERTYUIOP"}, Row{38, "ASDFGHJKL"},
                              Row{52, "ZXCVBNM"}};
    for (const Row& row : rows) {
        if (place >= row.First && place - row.First < row.Names.size()) {
            return static_cast<std::int16_t>(row.Names[place - row.First]);
        }
    }
    constexpr std::array others{
        Pair{20, std::int16_t{189}}, Pair{21, std::int16_t{187}}, Pair{34, std::int16_t{219}},
        Pair{35, std::int16_t{221}}, Pair{47, std::int16_t{186}}, Pair{48, std::int16_t{222}},
        Pair{49, std::int16_t{192}}, Pair{51, std::int16_t{220}}, Pair{59, std::int16_t{188}},
        Pair{60, std::int16_t{190}}, Pair{61, std::int16_t{191}}};
    for (const Pair& other : others) {
        if (static_cast<quint32>(other.first) == place) return other.second;
    }
    return 0;
}

template <std::size_t size>
std::int16_t find(const std::array<Pair, size>& table, int key) {
    for (const Pair& pair : table) {
        if (pair.first == key) return pair.second;
    }
    return 0;
}

std::int16_t offsetFrom(int key, int first, std::int16_t code) {
    return static_cast<std::int16_t>(code + (key - first));
}

}  // namespace

std::int16_t keyCodeOf(const QKeyEvent& event) {
    const int key = event.key();
    if (event.modifiers() & Qt::KeypadModifier) {
        if (key >= Qt::Key_0 && key <= Qt::Key_9) return offsetFrom(key, Qt::Key_0, 96);
        if (const std::int16_t sign = find(padSigns, key)) return sign;
    }
    if (key >= Qt::Key_A && key <= Qt::Key_Z) return offsetFrom(key, Qt::Key_A, key_code::A);
    if (key >= Qt::Key_0 && key <= Qt::Key_9) return offsetFrom(key, Qt::Key_0, 48);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return offsetFrom(key, Qt::Key_F2, key_code::F2);
    if (const std::int16_t code = find(keys, key)) return code;
    if (const std::int16_t code = find(signs, key)) return code;
    // A letter of another script, or a sign that no table knows.
    const bool writes = key != Qt::Key_unknown && key < Qt::Key_Escape;
    return writes ? codeAtPlace(event.nativeScanCode()) : std::int16_t{0};
}

std::int16_t shiftMaskOf(Qt::KeyboardModifiers modifiers) {
    int mask = 0;
    if (modifiers & Qt::ShiftModifier) mask |= shift_mask::Shift;
    if (modifiers & Qt::ControlModifier) mask |= shift_mask::Ctrl;
    if (modifiers & Qt::AltModifier) mask |= shift_mask::Alt;
    return static_cast<std::int16_t>(mask);
}

std::int16_t buttonOf(Qt::MouseButton button) {
    switch (button) {
        case Qt::LeftButton:
            return mouse_button::Left;
        case Qt::RightButton:
            return mouse_button::Right;
        case Qt::MiddleButton:
            return mouse_button::Middle;
        default:
            return 0;
    }
}

std::int16_t buttonMaskOf(Qt::MouseButtons buttons) {
    int mask = 0;
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        if (buttons & button) mask |= buttonOf(button);
    }
    return static_cast<std::int16_t>(mask);
}

}  // namespace quorvale
