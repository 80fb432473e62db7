#pragma once

#include "bus/scanner.h"
#include "engine/keyboard_state.h"
#include "ui/error_boundary.h"

#include <QWidget>

#include <array>
#include <functional>
#include <memory>

class QCheckBox;
class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QSpinBox;
class QTableWidget;

namespace quellpad::scan_window {

// "Scan for Receivers": sends a query that moves nothing to each address of a range on
// one of the keyboard's ports, at each baud chosen, and lists who answered. Made when the
// operator first asks for it.
class FrmScan : public QWidget {
    Q_OBJECT
public:
    // `pause` is called with the port's number before the scan and with 0 after it, to
    // keep the dispatcher, retransmission and the reply box off the line meanwhile.
    FrmScan(Quellpad_Support_Func& keyboard, std::function<void(int)> pause,
            QWidget* parent = nullptr);
    ~FrmScan() override;

    void ScanButton_Click();
    void CancelButton_Click();
    bool Scanning() const { return scanner_ && scanner_->Running(); }

private:
    void ShowWarning();
    void OnFinished(bool cancelled, const QString& failure);
    void AddResult(const bus::ScanResult& result);

    Quellpad_Support_Func& keyboard_;
    std::function<void(int)> pause_;
    ui::ErrorBoundary boundary_;
    std::unique_ptr<bus::Scanner> scanner_;

    QComboBox* PortBox = nullptr;
    QComboBox* LanguageBox = nullptr;
    std::array<QCheckBox*, 4> BaudBoxes{};
    QSpinBox* FirstAddressBox = nullptr;
    QSpinBox* LastAddressBox = nullptr;
    QSpinBox* WaitBox = nullptr;
    QLabel* WarningLabel = nullptr;
    QPushButton* ScanButton = nullptr;
    QPushButton* CancelButton = nullptr;
    QProgressBar* ScanProgressBar = nullptr;
    QLabel* TimeLeftLabel = nullptr;
    QTableWidget* ResultsTable = nullptr;
};

} // namespace quellpad::scan_window
