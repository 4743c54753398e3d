#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "headless/headless_box.h"

namespace quorvale {

struct Place {
    std::int32_t Row;
    std::int32_t Col;

    bool operator==(const Place&) const = default;
};

inline void PrintTo(const Place& place, std::ostream* out) {
    *out << '(' << place.Row << ", " << place.Col << ')';
}

/// A control with a text, its caret and what the user does in the search box.
class FindScenario : public testing::Test {
protected:
    void Start(const std::u16string& text, std::int32_t row = 1, std::int32_t col = 1) {
        box_->text(text);
        box_->MoveTo(row, col);
        box_.Log().Clear();
    }

    void EnterSearchBox() {
        box_.FocusOn(FocusChild::TextArea);
        box_.FocusOn(FocusChild::SearchBox);
    }

    /// The user empties the box and types; every character searches.
    void TypeAnew(std::u16string_view text) {
        box_.Elements().txtSearch.SetText(u"");
        box_.Type(text);
    }

    Place Caret() { return {box_->row(), box_->col()}; }
    bool CanFind() { return box_.Elements().tbMore.Button(u"Find").Enabled; }
    FocusChild Focused() { return box_.Elements().Focus.Active(); }

    std::vector<Place> FindNext(int times) {
        std::vector<Place> places;
        for (int i = 0; i < times; ++i) {
            box_.Elements().tbMore.UserClick(u"Find");
            places.push_back(Caret());
        }
        return places;
    }

    HeadlessBox box_;
};

}  // namespace quorvale
