#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/text.h"
#include "headless/headless_box.h"

namespace quorvale {

/// The entries of the "Find" button's menu.
namespace find_menu {
inline constexpr std::size_t Next = 0;
inline constexpr std::size_t All = 1;
inline constexpr std::size_t WildAll = 2;
inline constexpr std::size_t Recent = 4;
}  // namespace find_menu

/// Searches for the text as a user does from the menu.
inline void FindAll(HeadlessBox& box, const std::u16string& text,
                    std::size_t entry = find_menu::All) {
    box->SearchText(text);
    // An empty box disables the button; its menu is tried all the same.
    box.Elements().tbMore.SetButtonEnabled(u"Find", true);
    box.Elements().tbMore.UserMenuClick(u"Find", entry);
}

/// The rows of the results list, each as its three columns and its tag, with ">" for its CR;
/// "Back:" stands in front of a way back, "Sel:" in front of the selected row.
inline std::vector<std::string> FoundRows(HeadlessBox& box) {
    const ListView& list = box.Elements().lvFound;
    std::vector<std::string> rows;
    for (std::size_t row = 0; row < list.RowCount(); ++row) {
        std::string text = list.Selected() == row ? "Sel:" : "";
        if (list.SmallIcon(row) == u"Back") text += list.IsBold(row) ? "Back:" : "Icon:";
        if (list.SmallIcon(row).empty() && list.IsBold(row)) text += "Bold:";
        for (std::size_t column = 0; column < 3; ++column) {
            text += ToUtf8(list.Cell(row, column)) + "|";
        }
        std::u16string tag = list.RowTag(row);
        for (char16_t& unit : tag) unit = unit == u'\r' ? u'>' : unit;
        rows.push_back(text + ToUtf8(tag));
    }
    return rows;
}

}  // namespace quorvale
