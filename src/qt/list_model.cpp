#include "qt/list_model.h"

#include <QFont>
#include <algorithm>
#include <limits>

#include "qt/conversions.h"

namespace quorvale {

namespace {

/// More characters than this are seen in no column.
constexpr std::size_t longestSeen = 1024;

}  // namespace

int ListModel::countOf(const ListRows* rows) const {
    if (rows == nullptr) return 0;
    return static_cast<int>(std::min<std::size_t>(rows->Count(), std::numeric_limits<int>::max()));
}

void ListModel::mirror(const Surface& surface) {
    const ListView& list = surface.lvFound;
    for (std::size_t column = 0; column < ListView::Columns; ++column) {
        const QString header = toQString(list.Headers()[column]);
        if (headers_[column] == header) continue;
        headers_[column] = header;
        emit headerDataChanged(Qt::Horizontal, static_cast<int>(column), static_cast<int>(column));
    }
    const int count = countOf(list.Rows().get());
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

QVariant ListModel::data(const QModelIndex& index, int role) const {
    if (rows_ == nullptr || !index.isValid() || index.row() >= shown_) return {};
    const auto row = static_cast<std::size_t>(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    if (role == Qt::DisplayRole) return toQString(rows_->Cell(row, column, longestSeen));
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
