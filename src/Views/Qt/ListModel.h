#pragma once

#include <QAbstractListModel>
#include <QVariant>

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace orvelle {

/// Rows for QML's views and repeaters, one role `entry` that holds the whole record. A record has a
/// member `id` and `operator==`. A new list becomes the least steps from the old one, so that a row
/// that stays keeps its delegate.
template <class Record>
class ListModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    const std::vector<Record>& rows() const { return rows_; }

    /// Ids need not be unique: of rows that share one, the first keeps its delegate.
    void show(const std::vector<Record>& next) {
        removeIf([&](std::size_t row) { return !contains(next, rows_[row]); });
        for (std::size_t position = 0; position < next.size(); ++position)
            place(next[position], position);
        removeIf([&](std::size_t row) { return row >= next.size(); });
    }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(rows_.size());
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::UserRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
            return {};
        return QVariant::fromValue(rows_[static_cast<std::size_t>(index.row())]);
    }
    QHash<int, QByteArray> roleNames() const override { return {{Qt::UserRole, "entry"}}; }

private:
    static bool contains(const std::vector<Record>& records, const Record& record) {
        return std::any_of(records.begin(), records.end(),
                           [&](const Record& other) { return other.id == record.id; });
    }

    template <class Condition>
    void removeIf(Condition condition) {
        for (std::size_t row = rows_.size(); row-- > 0;) {
            if (!condition(row))
                continue;
            beginRemoveRows({}, static_cast<int>(row), static_cast<int>(row));
            rows_.erase(std::next(rows_.begin(), static_cast<std::ptrdiff_t>(row)));
            endRemoveRows();
        }
    }

    /// Rows before `position` are in place already.
    void place(const Record& record, std::size_t position) {
        const int row = static_cast<int>(position);
        const auto target = std::next(rows_.begin(), row);
        const auto found = std::find_if(target, rows_.end(),
                                        [&](const Record& other) { return other.id == record.id; });
        if (found == rows_.end()) {
            beginInsertRows({}, row, row);
            rows_.insert(target, record);
            endInsertRows();
            return;
        }
        if (found != target) {
            const int from = static_cast<int>(std::distance(rows_.begin(), found));
            beginMoveRows({}, from, from, {}, row);
            std::rotate(target, found, std::next(found));
            endMoveRows();
        }
        if (rows_[position] == record)
            return;
        rows_[position] = record;
        Q_EMIT dataChanged(index(row), index(row));
    }

    std::vector<Record> rows_;
};

} // namespace orvelle
