#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <memory>

#include "platform/surface.h"

namespace quorvale {

/// The rows of a list element as a model: nothing is copied, a cell is asked for when it is seen.
class ListModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Where the match begins among the characters of a result's line, counted from 0; -1 for a way
    /// back.
    static constexpr int MatchRole = Qt::UserRole;

    /// Follows the element: other rows, or more of them.
    void mirror(const Surface& surface);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    int countOf(const ListRows* rows) const;
    int matchOf(std::size_t row) const;
    std::size_t longest(std::size_t row, std::size_t column) const;

    std::shared_ptr<const ListRows> rows_;
    std::array<QString, ListView::Columns> headers_;
    /// Marks the ways back.
    QIcon back_;
    int shown_ = 0;
};

}  // namespace quorvale
