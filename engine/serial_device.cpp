#include "serial_device.h"

#include "errors.h"
#include "numeric.h"

#include <QStringList>

namespace quellpad {

namespace {

struct LineSettings {
    qint32 baud;
    QSerialPort::Parity parity;
    QSerialPort::DataBits dataBits;
    QSerialPort::StopBits stopBits;
};

bool ParseLineSettings(const QString& text, LineSettings& out) {
    const QStringList parts = text.split(u',');
    if (parts.size() != 4) {
        return false;
    }
    bool ok = false;
    const int baud = parts[0].trimmed().toInt(&ok);
    if (!ok || baud <= 0) {
        return false;
    }
    out.baud = baud;
    const QString parity = parts[1].trimmed().toLower();
    if (parity == u"n") {
        out.parity = QSerialPort::NoParity;
    } else if (parity == u"e") {
        out.parity = QSerialPort::EvenParity;
    } else if (parity == u"o") {
        out.parity = QSerialPort::OddParity;
    } else if (parity == u"m") {
        out.parity = QSerialPort::MarkParity;
    } else if (parity == u"s") {
        out.parity = QSerialPort::SpaceParity;
    } else {
        return false;
    }
    const int bits = parts[2].trimmed().toInt(&ok);
    if (!ok || bits < 5 || bits > 8) {
        return false;
    }
    out.dataBits = static_cast<QSerialPort::DataBits>(bits);
    const QString stop = parts[3].trimmed();
    if (stop == u"1") {
        out.stopBits = QSerialPort::OneStop;
    } else if (stop == u"1.5") {
        out.stopBits = QSerialPort::OneAndHalfStop;
    } else if (stop == u"2") {
        out.stopBits = QSerialPort::TwoStop;
    } else {
        return false;
    }
    return true;
}

PortFailure FailureOf(QSerialPort::SerialPortError error) {
    switch (error) {
    case QSerialPort::DeviceNotFoundError:
        return PortFailure::NoSuchPort;
    case QSerialPort::PermissionError:
        // Qt reports a lock held by another program, and a device opened exclusively,
        // as a permission error: to the keyboard both mean the port exists but is taken.
        return PortFailure::InUse;
    case QSerialPort::UnsupportedOperationError:
        return PortFailure::NotSerial;
    case QSerialPort::WriteError:
        return PortFailure::WriteFailed;
    case QSerialPort::ResourceError:
    case QSerialPort::ReadError:
        return PortFailure::Vanished;
    default:
        return PortFailure::Other;
    }
}

QString DefaultDevice(int portNumber) {
#ifdef Q_OS_WIN
    return QStringLiteral("COM%1").arg(portNumber);
#else
    return QStringLiteral("/dev/ttyS%1").arg(portNumber - 1);
#endif
}

} // namespace

QString DeviceForPort(int portNumber) {
    const QByteArray variable = QByteArray("QUELLPAD_COM") + QByteArray::number(portNumber);
    const QString bound = qEnvironmentVariable(variable.constData()).trimmed();
    return bound.isEmpty() ? DefaultDevice(portNumber) : bound;
}

SerialDevice::SerialDevice(int portNumber, const QString& device, QObject* parent)
    : SerialLine(parent), portNumber_(portNumber), device_(device) {
    port_.setPortName(device_);
    connect(&port_, &QSerialPort::readyRead, this, &SerialDevice::OnReadyRead);
    connect(&port_, &QSerialPort::errorOccurred, this, &SerialDevice::OnError);
}

void SerialDevice::SetSettings(const QString& settings) {
    LineSettings line{};
    if (!ParseLineSettings(settings, line)) {
        throw PortError(portNumber_, device_, PortFailure::BadSettings,
                        QStringLiteral("the line settings \"%1\" are not valid").arg(settings));
    }
    const bool applied = port_.setBaudRate(line.baud) && port_.setParity(line.parity) &&
                         port_.setDataBits(line.dataBits) && port_.setStopBits(line.stopBits);
    if (!applied) {
        const QString reason = port_.errorString();
        port_.clearError();
        throw PortError(portNumber_, device_, PortFailure::BadSettings,
                        QStringLiteral("the device refused the line settings \"%1\" (%2)")
                            .arg(settings, reason));
    }
}

void SerialDevice::SetRtsEnable(bool enable) {
    rts_ = enable;
    ApplyRts();
}

void SerialDevice::ApplyRts() {
    if (!port_.isOpen()) {
        return;
    }
    // A device without modem lines (a pseudo-terminal, some USB adapters) refuses RTS;
    // the port still carries data, so the refusal is not an error for the keyboard.
    if (!port_.setRequestToSend(rts_)) {
        port_.clearError();
    }
}

void SerialDevice::SetBufferSizes(int /*inputBytes*/, int /*outputBytes*/) {
    // Every byte is handed to the driver as it is written, and received bytes wait in
    // QSerialPort's own buffer until the receive events have taken them. That buffer is
    // left unbounded on purpose: once a bounded one fills, QSerialPort stops reading the
    // device for good, and the replies would stall.
}

void SerialDevice::SetInputLength(int bytes) {
    inputLength_ = bytes;
}

void SerialDevice::Open() {
    if (port_.isOpen()) {
        return;
    }
    if (!port_.open(QIODevice::ReadWrite)) {
        const QSerialPort::SerialPortError error = port_.error();
        const QString reason = port_.errorString();
        port_.clearError();
        throw PortError(portNumber_, device_, FailureOf(error), reason);
    }
    port_.setFlowControl(QSerialPort::NoFlowControl);
    ApplyRts();
}

void SerialDevice::Close() {
    if (port_.isOpen()) {
        port_.close();
    }
    port_.clearError();
}

bool SerialDevice::IsOpen() const {
    return port_.isOpen();
}

void SerialDevice::Output(std::uint8_t byte) {
    const char data = static_cast<char>(byte);
    // flush() hands the byte to the driver now rather than at the next return to the
    // event loop, so each byte is its own write and leaves in the order it was given.
    if (port_.write(&data, 1) != 1 || !port_.flush() || port_.error() != QSerialPort::NoError) {
        const QSerialPort::SerialPortError error = port_.error();
        const QString reason =
            port_.isOpen() ? port_.errorString() : QStringLiteral("the port is not open");
        port_.clearError();
        throw PortError(portNumber_, device_,
                        error == QSerialPort::ResourceError ? PortFailure::Vanished
                                                            : PortFailure::WriteFailed,
                        reason);
    }
}

QByteArray SerialDevice::Input() {
    return inputLength_ > 0 ? port_.read(inputLength_) : port_.readAll();
}

void SerialDevice::OnReadyRead() {
    if (reportingData_) {
        return;
    }
    reportingData_ = true;
    // One event per input length: the handler reads at most that many bytes, and what it
    // leaves must not wait for the next arrival to be shown.
    qint64 waiting = port_.bytesAvailable();
    while (waiting > 0 && port_.isOpen()) {
        emit CommEvent(kDataReceived);
        const qint64 left = port_.isOpen() ? port_.bytesAvailable() : 0;
        if (left >= waiting) {
            break; // the handler took nothing (a mode that ignores replies)
        }
        waiting = left;
    }
    reportingData_ = false;
}

void SerialDevice::OnError(QSerialPort::SerialPortError error) {
    if ((error != QSerialPort::ResourceError && error != QSerialPort::ReadError) ||
        !port_.isOpen()) {
        return;
    }
    // A device that went away (a pulled USB adapter, a hung-up line) fails every read, and
    // the driver repeats the error for as long as the port stays open; closing here
    // reports it once and stops the repetition.
    const QString reason = port_.errorString();
    port_.close();
    port_.clearError();
    emit LineFailed(PortError(portNumber_, device_, PortFailure::Vanished, reason).Message());
}

std::unique_ptr<SerialLine> MakeDeviceLine(int portNumber) {
    return std::make_unique<SerialDevice>(portNumber, DeviceForPort(portNumber));
}

} // namespace quellpad
