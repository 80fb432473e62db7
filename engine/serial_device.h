#pragma once

#include "serial_line.h"

#include <QSerialPort>

#include <memory>

namespace quellpad {

// The device path a COM port number is bound to: QUELLPAD_COM1 / QUELLPAD_COM2 when
// set, otherwise the platform's first and second serial device.
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
    void Output(std::uint8_t byte) override;
    QByteArray Input() override;

private:
    void OnReadyRead();
    void OnError(QSerialPort::SerialPortError error);
    void ApplyRts();

    int portNumber_;
    QString device_;
    QSerialPort port_;
    bool rts_ = false;
    int inputLength_ = 0;
    bool reportingData_ = false;
};

// Makes the line for a COM port number; the keyboard asks it for COM 1 and COM 2.
using LineFactory = std::unique_ptr<SerialLine> (*)(int portNumber);
std::unique_ptr<SerialLine> MakeDeviceLine(int portNumber);

} // namespace quellpad
