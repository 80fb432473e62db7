#include "traffic_model.h"

#include <QFontDatabase>

#include <algorithm>

namespace quellpad::traffic_window {

using traffic::TrafficRow;

TrafficModel::TrafficModel(QObject* parent, std::size_t kept)
    : QAbstractTableModel(parent), rows_(kept),
      fixed_(QFontDatabase::systemFont(QFontDatabase::FixedFont)) {}

int TrafficModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.Size());
}

int TrafficModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : traffic::kColumns;
}

QVariant TrafficModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) {
        return traffic::Field(Row(index.row()), index.column());
    }
    if (role == Qt::TextAlignmentRole && index.column() == traffic::kSince) {
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    }
    if (role == Qt::FontRole &&
        (index.column() == traffic::kHex || index.column() == traffic::kText)) {
        return fixed_;
    }
    return {};
}

QVariant TrafficModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole) {
        return traffic::ColumnTitle(section);
    }
    return QAbstractTableModel::headerData(section, orientation, role);
}

void TrafficModel::Append(std::vector<TrafficRow>&& batch) {
    if (!paused_) {
        Show(std::move(batch));
        return;
    }
    for (TrafficRow& row : batch) {
        waiting_.push_back(std::move(row));
    }
    if (waiting_.size() > rows_.Kept()) {
        const std::size_t over = waiting_.size() - rows_.Kept();
        waiting_.erase(waiting_.begin(), waiting_.begin() + static_cast<std::ptrdiff_t>(over));
        waitingDropped_ += over;
    }
}

void TrafficModel::Show(std::vector<TrafficRow>&& batch) {
    const std::size_t adding = std::min(batch.size(), rows_.Kept());
    if (adding == 0) {
        return;
    }
    if (const std::size_t over = rows_.Overflow(adding); over > 0) {
        beginRemoveRows({}, 0, static_cast<int>(over) - 1);
        rows_.DropOldest(over);
        endRemoveRows();
    }
    const int first = static_cast<int>(rows_.Size());
    beginInsertRows({}, first, first + static_cast<int>(adding) - 1);
    rows_.Append(std::move(batch));
    endInsertRows();
}

void TrafficModel::SetPaused(bool paused) {
    paused_ = paused;
    if (!paused_ && !waiting_.empty()) {
        std::vector<TrafficRow> batch(std::make_move_iterator(waiting_.begin()),
                                      std::make_move_iterator(waiting_.end()));
        waiting_.clear();
        Show(std::move(batch));
    }
}

void TrafficModel::Clear() {
    beginResetModel();
    rows_.Clear();
    waiting_.clear();
    waitingDropped_ = 0;
    endResetModel();
}

TrafficFilter::TrafficFilter(TrafficModel& model, QObject* parent)
    : QSortFilterProxyModel(parent), model_(model) {
    setSourceModel(&model);
}

void TrafficFilter::SetPortShown(int port, bool shown) {
    ports_[static_cast<std::size_t>(port - 1)] = shown;
    invalidateRowsFilter();
}

void TrafficFilter::SetWayShown(traffic::Way way, bool shown) {
    ways_[static_cast<std::size_t>(way)] = shown;
    invalidateRowsFilter();
}

bool TrafficFilter::filterAcceptsRow(int sourceRow, const QModelIndex& /*sourceParent*/) const {
    const TrafficRow& row = model_.Row(sourceRow);
    return ports_[static_cast<std::size_t>(row.port - 1)] &&
           ways_[static_cast<std::size_t>(row.way)];
}

std::vector<const TrafficRow*> TrafficFilter::ShownRows(const QModelIndexList& rows) const {
    std::vector<int> numbers;
    if (rows.isEmpty()) {
        for (int i = 0; i < rowCount(); ++i) {
            numbers.push_back(i);
        }
    } else {
        for (const QModelIndex& index : rows) {
            numbers.push_back(index.row());
        }
        std::sort(numbers.begin(), numbers.end());
        numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    }
    std::vector<const TrafficRow*> out;
    out.reserve(numbers.size());
    for (const int row : numbers) {
        out.push_back(&model_.Row(mapToSource(index(row, 0)).row()));
    }
    return out;
}

} // namespace quellpad::traffic_window
