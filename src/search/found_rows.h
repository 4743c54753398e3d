#pragma once

#include <string>

#include "platform/list_view.h"
#include "resources/string_table.h"
#include "search/result_store.h"

namespace quorvale {

/// The rows of the results list: a way back to the text, the results, and a second way back behind
/// them. A result shows the file's name, the line's number, filled up with blanks to seven
/// characters, and the line as it was when it was found; its tag holds the file's full name, a CR
/// and the number of the column behind the match's first character.
class FoundRows final : public ListRows {
public:
    explicit FoundRows(Language texts) : texts_(texts) {}

    ResultStore& Results() { return results_; }
    const ResultStore& Results() const { return results_; }

    /// No more results come: the first row says how many there are. `entries` of the list of files
    /// have been looked at.
    void Finish(std::size_t entries = 0);

    /// The language of the ways back and of the summary from now on.
    void Speak(Language texts) { texts_ = texts; }

    std::size_t EntriesSearched() const { return entriesSearched_; }

    /// The row of a result.
    static std::size_t RowOf(std::size_t result) { return result + 1; }

    std::size_t Count() const override;
    std::u16string Cell(std::size_t row, std::size_t column, std::size_t most) const override;
    std::u16string Tag(std::size_t row) const override;
    std::u16string SmallIcon(std::size_t row) const override;
    bool IsBold(std::size_t row) const override { return IsReturn(row); }

private:
    bool IsReturn(std::size_t row) const { return row == 0 || row > results_.Count(); }
    std::u16string WholeCell(std::size_t row, std::size_t column) const;
    std::u16string Summary() const;

    Language texts_;
    ResultStore results_;
    bool finished_ = false;
    std::size_t entriesSearched_ = 0;
};

/// The key of the picture that marks the ways back.
inline constexpr const char16_t* BackIcon = u"Back";

}  // namespace quorvale
