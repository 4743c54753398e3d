#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "base/export.h"
#include "platform/simple_elements.h"

namespace quorvale {

/// What a list shows. A row is asked for only when it is seen or used, so ten million rows need not
/// be ten million texts. Rows and columns count from 0; rows never change, but more may come.
class QUORVALE_CORE_EXPORT ListRows {
public:
    virtual ~ListRows() = default;

    /// How many rows there are by now.
    virtual std::size_t Count() const = 0;

    /// The text of one of the three columns, no more than its first `most` units.
    virtual std::u16string Cell(std::size_t row, std::size_t column, std::size_t most) const = 0;

    /// What the core keeps with the row.
    virtual std::u16string Tag(std::size_t) const { return {}; }

    /// Key of the small picture in front of the row; empty for none.
    virtual std::u16string SmallIcon(std::size_t) const { return {}; }

    /// Whether the row is drawn bold.
    virtual bool IsBold(std::size_t) const { return false; }
};

/// A list in report mode: three columns with headers, and rows of which at most one is selected.
/// Nothing is selected by itself. A list that is hidden or disabled refuses what a user does.
class QUORVALE_CORE_EXPORT ListView : public PaintedElement {
public:
    using PaintedElement::PaintedElement;

    /// How many columns every row has.
    static constexpr std::size_t Columns = 3;
    /// For `Cell`: all of its text.
    static constexpr std::size_t WholeText = static_cast<std::size_t>(-1);

    /// The user has picked the selected row by a double click on it.
    std::function<void()> OnActivate;
    /// A key that does not move the selection goes down; setting the code to 0 swallows it.
    std::function<void(std::int16_t& keyCode, std::int16_t shift)> OnKeyDown;

    /// Above the columns, from left to right.
    const std::array<std::u16string, Columns>& Headers() const { return headers_; }
    /// Names a column, counted from 0; std::out_of_range beyond the third.
    void SetHeader(std::size_t column, std::u16string text) {
        Assign(headers_.at(column), std::move(text), "Header");
    }

    /// Replaces all rows; null for none. Nothing is selected then.
    void SetRows(std::shared_ptr<const ListRows> rows);
    /// No rows.
    void Clear() { SetRows(nullptr); }
    /// The rows have become more.
    void NoteMoreRows() { Touch("Rows"); }

    /// What it shows; null for nothing.
    const std::shared_ptr<const ListRows>& Rows() const { return rows_; }
    /// How many rows there are.
    std::size_t RowCount() const { return rows_ ? rows_->Count() : 0; }

    /// What a row shows and keeps; empty where there is no such row.
    std::u16string Cell(std::size_t row, std::size_t column, std::size_t most = WholeText) const;
    /// What the core keeps with the row; empty where there is no such row.
    std::u16string RowTag(std::size_t row) const;
    /// Key of the picture in front of it; empty for none and where there is no such row.
    std::u16string SmallIcon(std::size_t row) const;
    /// False where there is no such row.
    bool IsBold(std::size_t row) const;

    /// The selected row, if one is.
    const std::optional<std::size_t>& Selected() const { return selected_; }
    /// Nothing happens where there is no such row.
    void Select(std::size_t row);

    /// Asks for the list to be scrolled until the row is seen.
    void EnsureVisible(std::size_t row);
    /// The row that was asked for last; none since the rows were replaced.
    const std::optional<std::size_t>& EnsuredRow() const { return ensured_; }

    /// Lays the list over the control's other elements.
    void BringToFront() { Touch("Order"); }

    // What a user does.

    /// Selects the row.
    void UserClick(std::size_t row);
    /// Selects the row and runs `OnActivate`; nothing where there is no such row.
    void UserDoubleClick(std::size_t row);
    /// Where no row is.
    void UserDoubleClickBeside() {}
    /// The keys up, down, Home and End move the selection. Returns the code as the handler left it.
    std::int16_t UserKey(std::int16_t keyCode, std::int16_t shift);

private:
    bool Answers() const { return Visible() && Enabled(); }
    bool MoveSelection(std::int16_t keyCode);

    std::array<std::u16string, Columns> headers_;
    std::shared_ptr<const ListRows> rows_;
    std::optional<std::size_t> selected_;
    std::optional<std::size_t> ensured_;
};

}  // namespace quorvale
