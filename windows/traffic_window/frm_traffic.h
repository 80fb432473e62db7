#pragma once

#include "listen_panel.h"
#include "timeline_view.h"
#include "traffic_model.h"

#include "engine/keyboard_state.h"
#include "traffic/traffic_log.h"
#include "traffic/traffic_recorder.h"
#include "ui/error_boundary.h"

#include <QWidget>

#include <memory>

class QCheckBox;
class QLabel;
class QPushButton;
class QTableView;
class QTimer;

namespace quellpad::traffic_window {

// "Traffic": sits beside the keyboard (not modal) and shows every frame and text the
// keyboard writes to COM 1 and COM 2 and every reply read from them, decoded, as a line
// analyser does. Made when the operator first asks for it; from then on it listens to
// the wire, shown or not, so that its rows and its log miss nothing.
class FrmTraffic : public QWidget {
    Q_OBJECT
public:
    explicit FrmTraffic(Quellpad_Support_Func& keyboard, QWidget* parent = nullptr);
    ~FrmTraffic() override;

    // Turns what the wire carried since the last tick into rows, shows and logs them.
    void TrafficTimer_Timer();
    // Logs all traffic to the file from now on; fails with TrafficFileError.
    void StartLog(const QString& path);
    void StopLog();

    TrafficModel& Model() { return model_; }
    TrafficFilter& Filter() { return filter_; }
    ListenPanel& Listener() { return *Listen; }

    // Milliseconds between two batches of rows.
    static constexpr int kBatchMs = 100;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void CopyButton_Click();
    void SaveButton_Click();
    void LogToFileButton_Click();
    void ClearButton_Click();
    void ShowStatus();

    Quellpad_Support_Func& keyboard_;
    ui::ErrorBoundary boundary_;
    traffic::TrafficRecorder recorder_;
    std::unique_ptr<traffic::TrafficLogFile> log_;
    TrafficModel model_;
    TrafficFilter filter_;

    QTableView* TrafficTableView = nullptr;
    QCheckBox* Com1FilterCheckBox = nullptr;
    QCheckBox* Com2FilterCheckBox = nullptr;
    QCheckBox* ListenFilterCheckBox = nullptr;
    ListenPanel* Listen = nullptr;
    TimelineView* Timeline = nullptr;
    QCheckBox* SentFilterCheckBox = nullptr;
    QCheckBox* ReceivedFilterCheckBox = nullptr;
    QPushButton* PauseButton = nullptr;
    QPushButton* LogToFileButton = nullptr;
    QLabel* TrafficStatusLabel = nullptr;
    QLabel* LogFileLabel = nullptr;
    QTimer* TrafficTimer = nullptr;
};

} // namespace quellpad::traffic_window
