#include "support/random_user.h"

#include <algorithm>
#include <string>

namespace quorvale {

namespace {

constexpr std::int16_t otherKeys[] = {8, 13, 16, 17, 27, 46, 66, 112, 114};
constexpr std::int16_t handledKeys[] = {
    key_code::Up,  key_code::Down,   key_code::Left,     key_code::Right, key_code::Home,
    key_code::End, key_code::PageUp, key_code::PageDown, key_code::A,     key_code::F2};
constexpr FocusChild children[] = {
    FocusChild::None,      FocusChild::TextArea, FocusChild::TextArea, FocusChild::LineBox,
    FocusChild::SearchBox, FocusChild::Editor,   FocusChild::FoundList};

}  // namespace

void RandomUser::Act() {
    const int choice = chance_.Number(0, 99);
    if (choice < 42) {
        UseMouse();
    } else if (choice < 68) {
        UseKeys();
    } else if (choice < 78) {
        UseVerticalBar();
    } else if (choice < 82) {
        UseHorizontalBar();
    } else if (choice < 88) {
        MoveFocus();
    } else if (choice < 92) {
        UseToolbar();
    } else if (choice < 95) {
        TypeIntoBoxes();
    } else if (choice < 97) {
        Resize();
    } else {
        box_.User("tick", [&] { box_.Box().TickTimer(); });
    }
}

// A slot in view mostly, blank ones among them; sometimes any that exists.
int RandomUser::AnySlot() {
    const int slots = box_.Elements().lblLine.UpperBound();
    return chance_.OneIn(20) ? chance_.Number(0, slots) : chance_.Number(0, std::min(slots, 31));
}

std::int16_t RandomUser::AnyButton() {
    static constexpr std::int16_t buttons[] = {1, 1, 1, 1, 2, 4, 3};
    return chance_.OneOf(buttons);
}

MouseEvent RandomUser::AnyPlace(std::int16_t button) {
    static constexpr double edges[] = {-50, 0, 1, 119, 120, 40000};
    const double x = chance_.OneIn(6) ? chance_.OneOf(edges) : chance_.Number(1, 6000);
    const auto height = static_cast<int>(box_.Elements().RowHeight());
    const auto shift = static_cast<std::int16_t>(chance_.OneIn(3) ? chance_.Number(0, 7) : 0);
    return {button, shift, x, static_cast<double>(chance_.Number(0, height - 1))};
}

/// Over another row, or far above or below all of them.
MouseEvent RandomUser::FarPlace(std::int16_t button) {
    MouseEvent event = AnyPlace(button);
    const bool veryFar = chance_.OneIn(9);
    const bool above = chance_.OneIn(2);
    event.Y = veryFar ? 200000 : chance_.Number(0, 36000) / 4.0;
    if (above) event.Y = -event.Y;
    return event;
}

void RandomUser::Tell(const char* name, int slot, const MouseEvent& event, bool extends) {
    box_.RowPointedAt(extends);
    HeadlessBox& box = box_.Box();
    box_.User(
        name,
        [&](auto...) {
            if (*name == 'p') return box.MousePress(slot, event);
            if (*name == 'm') return box.MouseMove(slot, event);
            box.MouseRelease(slot, event);
        },
        slot, event.Button, event.Shift, event.X, event.Y);
}

void RandomUser::UseMouse() {
    const int choice = chance_.Number(0, 99);
    if (held_ >= 0 && choice < 60) return choice < 45 ? Move() : Release();
    if (choice < 40) {
        Press();
    } else if (choice < 48) {
        PressMarker();
    } else if (choice < 60) {
        Move();
    } else if (choice < 64) {
        Release();
    } else if (choice < 72) {
        DoubleClick();
    } else if (choice < 74) {
        RightDoubleClick();
    } else if (choice < 92) {
        ClickGlyph();
    } else if (choice < 96) {
        OpenGlyphMenu();
    } else {
        ClickLineImage();
    }
}

void RandomUser::Press() {
    held_ = AnySlot();
    button_ = AnyButton();
    const MouseEvent event = AnyPlace(button_);
    Tell("press", held_, event, button_ == mouse_button::Left && event.Shift == shift_mask::Shift);
}

// The row under the marker then has the mouse.
void RandomUser::PressMarker() {
    Surface& surface = box_.Elements();
    button_ = AnyButton();
    MouseEvent event = AnyPlace(button_);
    event.X = chance_.Number(0, 239);
    const Twips below = surface.imgMarker.Top() + event.Y - surface.ToolbarHeight();
    const int slot = static_cast<int>(below / surface.RowHeight());
    held_ = surface.lblLine.Has(slot) ? slot : -1;
    const int kind = chance_.Number(0, 5);
    box_.RowPointedAt(kind == 0 || event.Shift == shift_mask::Shift);
    box_.User(
        "marker",
        [&](auto...) {
            if (kind == 0) return surface.OnMarkerMouseMove(event);
            if (kind == 1) return surface.OnMarkerMouseUp(event);
            surface.OnMarkerMouseDown(event);
        },
        kind, event.Button, event.Shift, event.X, event.Y);
}

void RandomUser::Move() {
    // A release that went to another window.
    if (chance_.OneIn(8)) held_ = -1;
    const bool drags = held_ >= 0 || chance_.OneIn(8);
    const int slot = held_ >= 0 ? held_ : AnySlot();
    Tell("move", slot, FarPlace(drags ? button_ : std::int16_t{0}), drags);
}

void RandomUser::Release() {
    const int slot = held_ >= 0 ? held_ : AnySlot();
    Tell("release", slot, FarPlace(AnyButton()), false);
    held_ = -1;
}

void RandomUser::DoubleClick() {
    const int slot = AnySlot();
    const MouseEvent event = AnyPlace(mouse_button::Left);
    box_.RowPointedAt(event.Shift == shift_mask::Shift);
    held_ = -1;
    box_.User(
        "double click", [&](auto...) { box_.Box().DoubleClick(slot, event); }, slot, event.Shift,
        event.X);
    box_.MarkerStaysBehind();
}

// The right button keeps caret and selection; the double click moves the caret's row all the same.
void RandomUser::RightDoubleClick() {
    const int slot = AnySlot();
    const MouseEvent event = AnyPlace(mouse_button::Right);
    held_ = -1;
    box_.RowPointedAt(false);
    box_.User(
        "right double click", [&](auto...) { box_.Box().DoubleClick(slot, event); }, slot, event.X);
    box_.MarkerStaysBehind();
}

void RandomUser::ClickGlyph() {
    const Surface& surface = box_.Elements();
    int slot = AnySlot();
    // Most rows have no glyph: look for one that has.
    for (int tries = 0; tries < 40 && !surface.imgExpand[slot].Visible(); ++tries) slot = AnySlot();
    box_.GlyphClickComes(slot);
    box_.User(
        "glyph", [&](int glyph) { box_.Elements().OnGlyphClick(glyph); }, slot);
}

void RandomUser::OpenGlyphMenu() {
    const MouseEvent event = AnyPlace(AnyButton());
    const int slot = AnySlot();
    box_.User(
        "press on a glyph", [&](auto...) { box_.Elements().OnGlyphMouseDown(slot, event); }, slot,
        event.Button);
    if (!box_.Elements().mnuCollapse.PoppedUpAt()) return;
    const int choice = chance_.Number(0, 2);
    if (choice == 0) return PickFromMenu(u"mnuCollapseCollapseAll", true);
    if (choice == 1) return PickFromMenu(u"mnuCollapseExpandAll", false);
    box_.User("leave the menu", [&] { box_.Elements().mnuCollapse.UserCancel(); });
}

void RandomUser::PickFromMenu(const char16_t* key, bool collapses) {
    if (collapses) {
        box_.CollapseAllComes();
    } else if (box_.Extends()) {
        box_.FoldsAreUnknown();
    } else {
        box_.Folds().ExpandAll();
    }
    box_.User(collapses ? "pick Collapse All" : "pick Expand All",
              [&] { box_.Elements().mnuCollapse.UserPick(key); });
}

void RandomUser::ClickLineImage() {
    box_.User(
        "line image", [&](int slot) { box_.Elements().OnLineImageClick(slot); }, AnySlot());
}

void RandomUser::UseKeys() {
    const int choice = chance_.Number(0, 19);
    Surface& surface = box_.Elements();
    const auto key = chance_.OneOf(otherKeys);
    if (choice < 16) {
        PressKey();
    } else if (choice < 18) {
        // Some find on, or go to a line.
        box_.FoldsAreUnknown();
        box_.User(
            "other key", [&](auto k) { box_.Box().Press(k, 1); }, key);
    } else {
        box_.User(
            "key up", [&](auto k) { surface.OnKeyUp(k, 0); }, key);
    }
}

void RandomUser::PressKey() {
    const auto key = chance_.OneOf(handledKeys);
    const auto shift = static_cast<std::int16_t>(chance_.OneIn(2) ? chance_.Number(0, 7) : 0);
    const bool held = chance_.OneIn(5);
    ForeseeKey(key, shift);
    box_.User(
        "key",
        [&](auto k, auto s) {
            box_.Elements().OnKeyDown(k, s);
            if (!held) box_.Elements().OnKeyUp(k, s);
        },
        key, shift);
}

void RandomUser::ForeseeKey(std::int16_t key, std::int16_t shift) {
    if (box_.Elements().Focus.Active() != FocusChild::TextArea) return;
    const bool ctrl = (shift & shift_mask::Ctrl) != 0;
    const bool toTheEnd =
        ctrl && (key == key_code::End || key == key_code::PageDown || key == key_code::A);
    // While painting is suspended the caret may stand on a hidden line, which a key opens.
    if ((shift & shift_mask::Shift) != 0 || box_.Suspended() > 0) {
        box_.FoldsAreUnknown();
    } else if (toTheEnd && box_.Entries() > 0) {
        box_.Folds().Reveal(box_.Entries());
    }
}

void RandomUser::UseVerticalBar() {
    ScrollBar& bar = box_.Elements().scrVert;
    const int by = chance_.OneIn(2) ? -1 : 1;
    const int from = chance_.Number(0, box_.Entries());
    switch (chance_.Number(0, 5)) {
        case 0:
            return box_.User(
                "line", [&](int step) { bar.UserArrow(step); }, by);
        case 1:
            return box_.User(
                "page", [&](int step) { bar.UserPage(step); }, by);
        case 2:
            return box_.User(
                "wheel", [&](int rows) { box_.Box().TurnWheel(rows); }, 3 * by);
        case 3:
            return box_.User("click into the bar", [&] { bar.UserClickInto(); });
        default:
            return box_.User(
                "drag",
                [&](int over, int to) {
                    box_.Box().DragThumb({over, to});
                },
                from, chance_.Number(0, box_.Entries()));
    }
}

void RandomUser::UseHorizontalBar() {
    ScrollBar& bar = box_.Elements().scrHorz;
    const int by = chance_.OneIn(2) ? -1 : 1;
    switch (chance_.Number(0, 3)) {
        case 0:
            return box_.User(
                "step along", [&](int step) { bar.UserArrow(step); }, by);
        case 1:
            return box_.User(
                "page along", [&](int step) { bar.UserPage(step); }, by);
        case 2:
            return box_.User("click into the lower bar", [&] { bar.UserClickInto(); });
        default:
            return box_.User(
                "drag along",
                [&](int place) {
                    bar.UserDrag(place);
                    bar.UserRelease();
                },
                chance_.Number(0, 40000));
    }
}

void RandomUser::MoveFocus() {
    Surface& surface = box_.Elements();
    switch (chance_.Number(0, 5)) {
        case 0:
            return box_.User("enter", [&] { surface.OnEnter(); });
        case 1:
            return box_.User("exit", [&] { surface.OnExit(); });
        case 2: {
            const bool granted = !chance_.OneIn(3);
            return box_.User(granted ? "the focus can be had" : "the focus cannot be had", [&] {
                surface.Focus.OnRequest = [granted](FocusChild) { return granted; };
            });
        }
        default: {
            const FocusChild child = chance_.OneOf(children);
            return box_.User(
                "focus", [&](int) { surface.Focus.UserMovesTo(child); }, static_cast<int>(child));
        }
    }
}

void RandomUser::UseToolbar() {
    static constexpr const char16_t* keys[] = {u"Find", u"Ln",    u"Collapsed", u"Edit",
                                               u"Grid", u"Print", u".Mine"};
    Surface& surface = box_.Elements();
    const std::u16string key = chance_.OneOf(keys);
    // What is found, or gone to, may lie in a fold.
    box_.FoldsAreUnknown();
    switch (chance_.Number(0, 3)) {
        case 0:
            return box_.User("toolbar's switch", [&] { surface.cmdMore.UserClick(); });
        case 1:
            return box_.User(
                "menu of Find",
                [&](int item) {
                    surface.tbMore.UserMenuClick(u"Find", static_cast<std::size_t>(item));
                },
                chance_.Number(0, 4));
        default:
            return box_.User("toolbar", [&] { surface.tbMore.UserClick(key); });
    }
}

void RandomUser::TypeIntoBoxes() {
    static constexpr const char16_t* typed[] = {u"",  u"7", u"0", u"-3", u"99999999999",
                                                u"x", u" 4"};
    Surface& surface = box_.Elements();
    const std::u16string text = chance_.OneOf(typed);
    TextBox& into = chance_.OneIn(2) ? surface.txtLn : surface.txtSearch;
    const std::int16_t key = chance_.OneIn(2) ? key_code::Return : key_code::Backspace;
    // What is typed into the search box is looked for at once, and found inside folds too.
    box_.FoldsAreUnknown();
    box_.User("type", [&] {
        into.SetText(text);
        into.UserKey(key, 0);
    });
}

void RandomUser::Resize() {
    static constexpr int heights[] = {0,    100,  620,  900,  1500,  3000, 3000,
                                      5000, 7560, 7560, 7560, 12000, 32400};
    const int width = chance_.Number(0, 20000);
    box_.User(
        "resize", [&](int w, int h) { box_.Box().Resize(w, h); }, width, chance_.OneOf(heights));
}

}  // namespace quorvale
