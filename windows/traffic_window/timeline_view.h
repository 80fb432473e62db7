#pragma once

#include "capture/camera_timeline.h"
#include "traffic/traffic_row.h"
#include "ui/error_boundary.h"

#include <QWidget>

#include <vector>

class QComboBox;
class QTableWidget;

namespace quellpad::traffic_window {

// "Camera Timeline": where each camera pointed over the rows the Traffic window shows, a
// line per change, rebuilt at the receivers' speed curve the operator chooses, and saved
// as CSV.
class TimelineView final : public QWidget {
    Q_OBJECT
public:
    explicit TimelineView(QWidget* parent = nullptr);
    void Show(const std::vector<const traffic::TrafficRow*>& rows);
    const std::vector<capture::CameraPoint>& Points() const { return points_; }

    // Lines shown at most: the newest; a save holds them all.
    static constexpr int kShown = 10'000;

private:
    void Rebuild();
    void Save();

    ui::ErrorBoundary boundary_;
    std::vector<traffic::TrafficRow> rows_;
    std::vector<capture::CameraPoint> points_;
    QComboBox* ReceiverCurveBox = nullptr;
    QTableWidget* TimelineTable = nullptr;
};

} // namespace quellpad::traffic_window
