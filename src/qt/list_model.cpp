#include "qt/list_model.h"

#include <QFont>
#include <algorithm>
#include <limits>

#include "base/numbers_in_text.h"
#include "qt/conversions.h"
#include "qt/qt_picture.h"
#include "search/found_rows.h"

namespace quorvale {

namespace {

/// More characters than this are seen in no column.
constexpr std::size_t longestSeen = 1024;
/// A match further behind in its line than this is not led to.
constexpr std::size_t furthestMatch = 100'000;

}  // namespace

int ListModel::countOf(const ListRows* rows) const {
    if (rows == nullptr) return 0;
    return static_cast<int>(std::min<std::size_t>(rows->Count(), std::numeric_limits<int>::max()));
}

void ListModel::mirror(const Surface& surface) {
    const ListView& list = surface.lvFound;
    if (back_.isNull()) back_ = toIcon(surface.ilMore.Find(BackIcon));
    for (std::size_t column = 0; column < ListView::Columns; ++column) {
        const QString header = toQString(list.Headers()[column]);
        if (headers_[column] == header) continue;
        headers_[column] = header;
        emit headerDataChanged(Qt::Horizontal, static_cast<int>(column), static_cast<int>(column));
    }
    const int count = countOf(list.Rows().get());
    if (list.Rows() == rows_ && shown_ > 0 && count >= shown_) {
        // The rows that are no results say more than before, or say it in another language.
        for (const int row : {0, shown_ - 1}) emit dataChanged(index(row, 0), index(row, 2));
    }
    if (list.Rows() != rows_ || count < shown_) {
        beginResetModel();
        rows_ = list.Rows();
        shown_ = count;
        endResetModel();
    } else if (count > shown_) {
        beginInsertRows({}, shown_, count - 1);
        shown_ = count;
        endInsertRows();
    }
}

int ListModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : shown_; }

int ListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(ListView::Columns);
}

// The tag names the column behind the first character of the match.
int ListModel::matchOf(std::size_t row) const {
    const std::u16string tag = rows_->Tag(row);
    const std::size_t end = tag.rfind(u'\r');
    if (end == std::u16string::npos) return -1;
    return ToLong(std::u16string_view(tag).substr(end + 1)) - 2;
}

std::size_t ListModel::longest(std::size_t row, std::size_t column) const {
    const int match = column == 2 ? matchOf(row) : -1;
    if (match <= 0 || static_cast<std::size_t>(match) > furthestMatch) return longestSeen;
    return static_cast<std::size_t>(match) + longestSeen;
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    if (rows_ == nullptr || !index.isValid() || index.row() >= shown_) return {};
    const auto row = static_cast<std::size_t>(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    if (role == Qt::DisplayRole) return toQString(rows_->Cell(row, column, longest(row, column)));
    if (role == MatchRole) return matchOf(row);
    if (role == Qt::DecorationRole && column == 0 && rows_->SmallIcon(row) == BackIcon) {
        return back_;
    }
    // Line numbers stand under one another.
    if (role == Qt::TextAlignmentRole && column == 1) {
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    }
    if (role == Qt::FontRole && rows_->IsBold(row)) {
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    return {};
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const bool isHeader = orientation == Qt::Horizontal && role == Qt::DisplayRole;
    if (!isHeader || section < 0 || section >= static_cast<int>(headers_.size())) return {};
    return headers_[static_cast<std::size_t>(section)];
}

}  // namespace quorvale
