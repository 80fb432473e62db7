#pragma once

#include "traffic/traffic_rows.h"

#include <QAbstractTableModel>
#include <QFont>
#include <QSortFilterProxyModel>

#include <array>
#include <deque>

namespace quellpad::traffic_window {

// The rows of the traffic window, appended a batch at a time (one insertion per batch, the
// oldest removed from the front beyond the limit). While paused, batches wait, within the
// same limit, and are shown together when the operator goes on.
class TrafficModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit TrafficModel(QObject* parent = nullptr,
                          std::size_t kept = traffic::TrafficRows::kKept);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    void Append(std::vector<traffic::TrafficRow>&& batch);
    void SetPaused(bool paused);
    bool Paused() const { return paused_; }
    void Clear();

    const traffic::TrafficRow& Row(int row) const { return rows_[static_cast<std::size_t>(row)]; }
    // Rows dropped for the limit, shown or waiting, since the last Clear.
    std::size_t Dropped() const { return rows_.Dropped() + waitingDropped_; }

private:
    void Show(std::vector<traffic::TrafficRow>&& batch);

    traffic::TrafficRows rows_;
    bool paused_ = false;
    std::deque<traffic::TrafficRow> waiting_;
    std::size_t waitingDropped_ = 0;
    QFont fixed_;
};

// Shows the rows of the ports and directions the operator has ticked.
class TrafficFilter : public QSortFilterProxyModel {
    Q_OBJECT
public:
    explicit TrafficFilter(TrafficModel& model, QObject* parent = nullptr);

    void SetPortShown(int port, bool shown);
    void SetWayShown(traffic::Way way, bool shown);
    // The rows shown, top to bottom; only those of `rows` when it is not empty.
    std::vector<const traffic::TrafficRow*> ShownRows(const QModelIndexList& rows = {}) const;

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    TrafficModel& model_;
    std::array<bool, traffic::kPorts> ports_{true, true, true};
    std::array<bool, 2> ways_{true, true};
};

} // namespace quellpad::traffic_window
