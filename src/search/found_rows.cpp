#include "search/found_rows.h"

#include <algorithm>

#include "base/numbers_in_text.h"
#include "resources/message_format.h"
#include "resources/text_ids.h"
#include "search/file_list.h"
#include "search/line_text.h"

namespace quorvale {

namespace {

constexpr std::size_t lineNumberWidth = 7;

std::u16string Padded(std::u16string number) {
    const std::size_t missing = lineNumberWidth - std::min(number.size(), lineNumberWidth);
    return number.insert(0, missing, u' ');
}

}  // namespace

void FoundRows::Finish(std::size_t entries) {
    finished_ = true;
    entriesSearched_ = entries;
}

std::u16string FoundRows::Summary() const {
    if (!finished_) return {};
    const std::size_t count = results_.Count();
    if (count == 0) return std::u16string(LoadText(text_id::NoMatchFound, texts_));
    return FormatMessage(LoadText(text_id::MatchesFound, texts_),
                         DecimalText(static_cast<std::int64_t>(count)));
}

std::size_t FoundRows::Count() const {
    const std::size_t results = results_.Count();
    return 1 + results + (finished_ && results > 0 ? 1 : 0);
}

std::u16string FoundRows::Cell(std::size_t row, std::size_t column, std::size_t most) const {
    if (column == 2 && !IsReturn(row)) {
        const ResultStore::Result result = results_[row - 1];
        return StartOfLine(result.Text, result.Form, most);
    }
    std::u16string text = WholeCell(row, column);
    text.resize(std::min(text.size(), most));
    return text;
}

std::u16string FoundRows::WholeCell(std::size_t row, std::size_t column) const {
    if (IsReturn(row)) {
        if (column == 0) return std::u16string(LoadText(text_id::Return, texts_));
        return column == 2 && row == 0 ? Summary() : std::u16string();
    }
    const ResultStore::Result result = results_[row - 1];
    if (column == 1) return Padded(DecimalText(result.Line.Number()));
    return result.Source == InMemory ? std::u16string() : FileNamePart(result.Source);
}

std::u16string FoundRows::Tag(std::size_t row) const {
    if (IsReturn(row)) return {};
    const ResultStore::Result result = results_[row - 1];
    return result.Source + u'\r' + DecimalText(std::int64_t{result.Column} + 1);
}

std::u16string FoundRows::SmallIcon(std::size_t row) const {
    return IsReturn(row) ? std::u16string(BackIcon) : std::u16string();
}

}  // namespace quorvale
