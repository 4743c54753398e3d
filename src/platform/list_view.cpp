#include "platform/list_view.h"

#include <algorithm>

#include "platform/keys.h"

namespace quorvale {

void ListView::SetRows(std::shared_ptr<const ListRows> rows) {
    Touch("Rows");
    rows_ = std::move(rows);
    selected_.reset();
    ensured_.reset();
}

std::u16string ListView::Cell(std::size_t row, std::size_t column, std::size_t most) const {
    if (row >= RowCount() || column >= Columns) return {};
    return rows_->Cell(row, column, most);
}

std::u16string ListView::RowTag(std::size_t row) const {
    return row < RowCount() ? rows_->Tag(row) : std::u16string();
}

std::u16string ListView::SmallIcon(std::size_t row) const {
    return row < RowCount() ? rows_->SmallIcon(row) : std::u16string();
}

bool ListView::IsBold(std::size_t row) const { return row < RowCount() && rows_->IsBold(row); }

void ListView::Select(std::size_t row) {
    if (row < RowCount()) Assign(selected_, std::optional(row), "Selected");
}

void ListView::EnsureVisible(std::size_t row) {
    if (row >= RowCount()) return;
    Touch("EnsureVisible");
    ensured_ = row;
}

void ListView::UserClick(std::size_t row) {
    if (Answers()) Select(row);
}

// The handlers may end the control, and this list with it: they are called last, through a copy.

void ListView::UserDoubleClick(std::size_t row) {
    if (!Answers() || row >= RowCount()) return;
    Select(row);
    const auto activate = OnActivate;
    if (activate) activate();
}

std::int16_t ListView::UserKey(std::int16_t keyCode, std::int16_t shift) {
    if (!Answers() || MoveSelection(keyCode)) return keyCode;
    const auto keyDown = OnKeyDown;
    if (keyDown) keyDown(keyCode, shift);
    return keyCode;
}

bool ListView::MoveSelection(std::int16_t keyCode) {
    const std::size_t count = RowCount();
    const std::size_t last = count > 0 ? count - 1 : 0;
    std::size_t row = 0;
    switch (keyCode) {
        case key_code::Up:
            row = selected_ && *selected_ > 0 ? *selected_ - 1 : 0;
            break;
        case key_code::Down:
            row = selected_ ? std::min(*selected_ + 1, last) : 0;
            break;
        case key_code::Home:
            break;
        case key_code::End:
            row = last;
            break;
        default:
            return false;
    }
    Select(row);
    EnsureVisible(row);
    return true;
}

}  // namespace quorvale
