#include "timeline_view.h"

#include "capture/capture_writer.h"
#include "capture/traffic_capture.h"
#include "engine/plain_file.h"
#include "ui/controls.h"
#include "ui/window_memory.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace quellpad::traffic_window {

namespace {

const QString kMemoryKey = QStringLiteral("Traffic");

} // namespace

TimelineView::TimelineView(QWidget* parent) : QWidget(parent, Qt::Window), boundary_(this) {
    setObjectName(QStringLiteral("TimelineView"));
    setWindowTitle(tr("Camera Timeline"));
    auto* layout = new QVBoxLayout(this);
    auto* controls = new QHBoxLayout;
    QLabel* label = ui::MakeLabel(this, "ReceiverCurveLabel", tr("&Receivers:"));
    ReceiverCurveBox = new QComboBox(this);
    ReceiverCurveBox->setObjectName(QStringLiteral("ReceiverCurveBox"));
    ReceiverCurveBox->addItem(tr("Square law, 100 °/s at 64 (the simulated site's)"));
    ReceiverCurveBox->addItem(tr("Linear, 100 °/s at 64"));
    ui::SetBuddy(label, ReceiverCurveBox);
    connect(ReceiverCurveBox, &QComboBox::currentIndexChanged, this, &TimelineView::Rebuild);
    QPushButton* save = ui::MakeButton(this, "SaveTimelineButton", tr("&Save CSV..."));
    save->setAutoDefault(false);
    connect(save, &QPushButton::clicked, this,
            [this] { boundary_.Run("SaveTimelineButton_Click", [&] { Save(); }); });
    controls->addWidget(label);
    controls->addWidget(ReceiverCurveBox);
    controls->addStretch(1);
    controls->addWidget(save);
    layout->addLayout(controls);
    TimelineTable = new QTableWidget(0, 6, this);
    TimelineTable->setObjectName(QStringLiteral("TimelineTable"));
    TimelineTable->setAccessibleName(tr("Camera positions"));
    TimelineTable->setHorizontalHeaderLabels(
        {tr("Camera"), tr("Time"), tr("Pan °"), tr("Tilt °"), tr("Zoom"), tr("From")});
    TimelineTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    TimelineTable->verticalHeader()->hide();
    TimelineTable->setTabKeyNavigation(false);
    layout->addWidget(TimelineTable);
    resize(560, 420);
}

void TimelineView::Show(const std::vector<const traffic::TrafficRow*>& rows) {
    rows_.clear();
    rows_.reserve(rows.size());
    for (const traffic::TrafficRow* row : rows) {
        rows_.push_back(*row);
    }
    Rebuild();
    show();
    raise();
}

void TimelineView::Rebuild() {
    capture::ReceiverModel model;
    if (ReceiverCurveBox->currentIndex() == 1) {
        model.curve = capture::ReceiverModel::Curve::Linear;
    }
    std::vector<const traffic::TrafficRow*> rows;
    for (const traffic::TrafficRow& row : rows_) {
        rows.push_back(&row);
    }
    points_ = capture::RowsTimeline(rows, model);
    const std::size_t first =
        points_.size() > static_cast<std::size_t>(kShown) ? points_.size() - kShown : 0;
    TimelineTable->setRowCount(static_cast<int>(points_.size() - first));
    for (std::size_t i = first; i < points_.size(); ++i) {
        const capture::CameraPoint& point = points_[i];
        const QStringList cells = {
            QString::number(point.address),      traffic::FormatTime(point.atUs),
            QString::number(point.pan, 'f', 2),  QString::number(point.tilt, 'f', 2),
            QString::number(point.zoom, 'f', 3), point.answered ? tr("answer") : tr("commands"),
        };
        for (int column = 0; column < cells.size(); ++column) {
            TimelineTable->setItem(static_cast<int>(i - first), column,
                                   new QTableWidgetItem(cells[column]));
        }
    }
}

void TimelineView::Save() {
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Save Camera Timeline"), ui::LastFolder(kMemoryKey), tr("CSV files (*.csv)"));
    if (path.isEmpty()) {
        return;
    }
    ui::KeepLastFolder(kMemoryKey, path);
    PlainFileWriter file;
    if (!file.Open(path) || !file.Append(capture::TimelineCsv(points_).toUtf8())) {
        throw capture::CaptureError(tr("The camera timeline \"%1\" cannot be written: %2.")
                                        .arg(QDir::toNativeSeparators(path), file.Reason()));
    }
}

} // namespace quellpad::traffic_window
