#pragma once

#include "serial_line.h"
#include "stable_device_names.h"

#include <QSerialPort>

#include <memory>
#include <optional>

namespace quellpad {

// A line settings text such as "9600,e,8,1" as the driver takes it.
struct LineSettings {
    qint32 baud;
    QSerialPort::Parity parity;
    QSerialPort::DataBits dataBits;
    QSerialPort::StopBits stopBits;
};
// Baud rate, parity letter (n, e, o, m, s), data bits 5..8 and stop bits 1, 1.5 or 2;
// nothing for any other text.
std::optional<LineSettings> ParseLineSettings(const QString& text);

// What the operator is to read when the device refused to be opened by this user: who
// owns it and how to get access. Empty when access is not the reason (the device is
// held by another program, or the platform has no such rights).
QString AccessRefusal(const QString& device);

// Who may open a device, as its permissions say: the mode bits (as stat gives them),
// its owner and its group.
struct DeviceAccess {
    unsigned mode = 0;
    QString owner;
    QString group;
    bool rootGroup = false; // the group is the administrator's own (gid 0)
};
// The refusal as the operator reads it. Joining the group is advised only where the
// group may read and write the device and is not the administrator's; otherwise only an
// administrator can grant access.
QString AccessRefusalText(const QString& device, const DeviceAccess& access);

// What a COM port number is bound to now: QUELLPAD_COM1 / QUELLPAD_COM2 when set, else
// the operator's choice in the bindings file, else the platform's first and second
// serial device (ResolvePortBinding).
QString DeviceForPort(int portNumber);

// A COM port on a local serial device, through QSerialPort. Its events arrive on the
// thread that owns it, which is the program's one user-interface thread.
class SerialDevice final : public SerialLine {
    Q_OBJECT
public:
    SerialDevice(int portNumber, const QString& device, QObject* parent = nullptr);

    int PortNumber() const override { return portNumber_; }
    QString Device() const override { return device_; }
    void SetSettings(const QString& settings) override;
    void SetRtsEnable(bool enable) override;
    void SetBufferSizes(int inputBytes, int outputBytes) override;
    void SetInputLength(int bytes) override;
    void Open() override;
    void Close() override;
    bool IsOpen() const override;
    bool SameDeviceThere() const override;
    void Output(std::uint8_t byte) override;
    QByteArray Input() override;
    void WaitUntilSent(QDeadlineTimer deadline) override;

    // Bytes received and not yet taken by Input().
    qsizetype BytesWaiting() const { return received_.size(); }
    // Bytes written and not yet taken by the driver.
    qint64 BytesToWrite() const { return port_.bytesToWrite(); }

private:
    void OnReadyRead();
    void ReportReceived();
    void OnError(QSerialPort::SerialPortError error);
    void OnWritten();
    void ApplyRts();

    int portNumber_;
    QString device_;
    QSerialPort port_;
    bool rts_ = false;
    int inputLength_ = 0;
    bool reportingData_ = false;
    bool reportPending_ = false;
    bool stalled_ = false;
    QByteArray received_;
    // What the port was last open on; nothing before its first opening.
    std::optional<DeviceIdentity> openedOn_;
};

// Makes the line for a COM port number; the keyboard asks it for COM 1 and COM 2.
using LineFactory = std::unique_ptr<SerialLine> (*)(int portNumber);
std::unique_ptr<SerialLine> MakeDeviceLine(int portNumber);

} // namespace quellpad
