#pragma once

#include "bus/address_table.h"
#include "bus/detector.h"
#include "bus/diagnosis.h"
#include "bus/listen_line.h"
#include "ui/error_boundary.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>

class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace quellpad::traffic_window {

// The Traffic window's third line: a bus the keyboard does not drive, heard without a byte
// written to it. It names the language, the line settings (on a serial device) and the
// addresses spoken to, and keeps a row per address. The line and its detector are made
// only when the operator starts listening.
class ListenPanel : public QWidget {
    Q_OBJECT
public:
    // `heard` takes every byte heard, with the mode of the language named so far.
    ListenPanel(std::function<void(const QByteArray&, const QString&)> heard,
                ui::ErrorBoundary& boundary, QWidget* parent = nullptr);
    ~ListenPanel() override;

    // Fails with PortError when the line will not open.
    void Start(const QString& binding);
    void Stop();
    bool Listening() const { return line_ != nullptr; }
    // The line last listened on, as the operator named it; empty before any.
    const QString& Binding() const { return binding_; }
    QString Verdict() const;
    // What is wrong on the bus, as far as listening can tell so far.
    bus::BusVerdict Diagnosis() const { return diagnosis_.Current(); }
    const bus::AddressTable& Addresses() const { return table_; }
    // Every byte fed to the panel, as the line hands them over; public for the tests'
    // sake of feeding a recorded capture.
    void Hear(const QByteArray& bytes);

private:
    void Open();
    void ShowAddresses();
    // Feeds one byte to the language detector and the diagnosis; true when the settings
    // are to change.
    bool HearOne(std::span<const std::uint8_t> byte);

    std::function<void(const QByteArray&, const QString&)> heard_;
    ui::ErrorBoundary& boundary_;
    QString binding_;
    bool serialDevice_ = false;
    std::unique_ptr<bus::ListenLine> line_;
    std::unique_ptr<bus::SettingsSearch> search_;
    std::unique_ptr<bus::Detector> detector_;
    bus::AddressTable table_;
    std::vector<bus::Heard> scratch_;
    std::vector<bus::Heard> oneScratch_;
    bus::BusDiagnosis diagnosis_;
    // Tells the diagnosis the time that passes, so that a silent line is called silent.
    QTimer tick_;

    QLineEdit* ListenDeviceBox = nullptr;
    QPushButton* ListenButton = nullptr;
    QPushButton* CopyAddressesButton = nullptr;
    QLabel* ListenVerdictLabel = nullptr;
    QLabel* ListenDiagnosisLabel = nullptr;
    QTableWidget* AddressTableWidget = nullptr;
};

} // namespace quellpad::traffic_window
