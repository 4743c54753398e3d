#pragma once

#include <cstdint>

#include "platform/keys.h"
#include "support/chance.h"
#include "support/watched_box.h"

namespace quorvale {

/// A user who does anything a window lets through: mouse, keys, bars, boxes, toolbar and menus,
/// also what makes little sense, like releases without a press.
class RandomUser {
public:
    RandomUser(WatchedBox& box, Chance& chance) : box_(box), chance_(chance) {}

    void Act();

private:
    void UseMouse();
    void Press();
    void PressMarker();
    void Move();
    void Release();
    void DoubleClick();
    void RightDoubleClick();
    void ClickGlyph();
    void OpenGlyphMenu();
    void ClickLineImage();

    void UseKeys();
    void PressKey();
    void ForeseeKey(std::int16_t key, std::int16_t shift);

    void UseVerticalBar();
    void UseHorizontalBar();
    void MoveFocus();
    void UseToolbar();
    void PickFromMenu(const char16_t* key, bool collapses);
    void TypeIntoBoxes();
    void Resize();

    int AnySlot();
    std::int16_t AnyButton();
    MouseEvent AnyPlace(std::int16_t button);
    MouseEvent FarPlace(std::int16_t button);
    void Tell(const char* name, int slot, const MouseEvent& event, bool extends);

    WatchedBox& box_;
    Chance& chance_;
    /// The row that has the mouse since a press; negative while none has.
    int held_ = -1;
    std::int16_t button_ = 0;
};

}  // namespace quorvale
