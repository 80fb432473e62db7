#include "serial_device.h"

#include "errors.h"
#include "numeric.h"
#include "port_binding.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>
#include <QThread>
#include <QTimer>

#include <cerrno>

#ifndef Q_OS_WIN
#include <grp.h>
#include <pwd.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace quellpad {

std::optional<LineSettings> ParseLineSettings(const QString& text) {
    const QStringList parts = text.split(u',');
    if (parts.size() != 4) {
        return std::nullopt;
    }
    LineSettings out{};
    bool ok = false;
    const int baud = parts[0].trimmed().toInt(&ok);
    if (!ok || baud <= 0) {
        return std::nullopt;
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
        return std::nullopt;
    }
    const int bits = parts[2].trimmed().toInt(&ok);
    if (!ok || bits < 5 || bits > 8) {
        return std::nullopt;
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
        return std::nullopt;
    }
    return out;
}

namespace {

PortFailure FailureOf(QSerialPort::SerialPortError error) {
    switch (error) {
    case QSerialPort::DeviceNotFoundError:
        return PortFailure::NoSuchPort;
    case QSerialPort::PermissionError:
        // Qt reports a lock held by another program, a device opened exclusively and a
        // device this user may not open all alike; Open() tells the last one apart.
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

} // namespace

QString DeviceForPort(int portNumber) {
    return ResolvePortBinding(portNumber).binding;
}

SerialDevice::SerialDevice(int portNumber, const QString& device, QObject* parent)
    : SerialLine(parent), portNumber_(portNumber), device_(device) {
    port_.setPortName(device_);
    connect(&port_, &QSerialPort::readyRead, this, &SerialDevice::OnReadyRead);
    connect(&port_, &QSerialPort::errorOccurred, this, &SerialDevice::OnError);
    connect(&port_, &QSerialPort::bytesWritten, this, &SerialDevice::OnWritten);
}

void SerialDevice::SetSettings(const QString& settings) {
    const std::optional<LineSettings> line = ParseLineSettings(settings);
    if (!line) {
        throw PortError(
            portNumber_, device_, PortFailure::BadSettings,
            QCoreApplication::translate("PortErrors", "the line settings \"%1\" are not valid")
                .arg(QuoteValue(settings)));
    }
    const bool applied = port_.setBaudRate(line->baud) && port_.setParity(line->parity) &&
                         port_.setDataBits(line->dataBits) && port_.setStopBits(line->stopBits);
    if (!applied) {
        const QString reason = port_.errorString();
        port_.clearError();
        throw PortError(portNumber_, device_, PortFailure::BadSettings,
                        QCoreApplication::translate(
                            "PortErrors", "the device refused the line settings \"%1\" (%2)")
                            .arg(QuoteValue(settings), reason));
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
    // Every byte is handed to the driver as it is written. Received bytes are bounded by
    // kReceiveLimit rather than by QSerialPort's read buffer, which must stay unbounded:
    // once a bounded one fills, QSerialPort stops reading the device for good.
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
        if (error == QSerialPort::PermissionError) {
            const QString refusal = AccessRefusal(device_);
            if (!refusal.isEmpty()) {
                throw PortError(portNumber_, device_, PortFailure::AccessRefused, refusal);
            }
        }
        throw PortError(portNumber_, device_, FailureOf(error), reason);
    }
    received_.clear();
    port_.setFlowControl(QSerialPort::NoFlowControl);
    ApplyRts();
    openedOn_ = IdentifyDevice(device_);
}

bool SerialDevice::SameDeviceThere() const {
    const DeviceIdentity now = IdentifyDevice(device_);
    // A pseudo-terminal that was not there at the start had no program serving it for the
    // keyboard: the next one to appear under its number is another program's terminal.
    return openedOn_ ? SameDevice(*openedOn_, now) : !now.pseudoTerminal;
}

void SerialDevice::Close() {
    if (port_.isOpen()) {
        port_.close();
    }
    stalled_ = false;
    port_.clearError();
    received_.clear();
}

bool SerialDevice::IsOpen() const {
    return port_.isOpen();
}

void SerialDevice::Output(std::uint8_t byte) {
    if (port_.isOpen() && (stalled_ || port_.bytesToWrite() >= kSendLimit)) {
        // Nothing takes the bytes (a wire held by flow control, a far end that never
        // reads): they are lost, as on a wire with no listener, rather than kept.
        if (!stalled_) {
            stalled_ = true;
            const QString message =
                QCoreApplication::translate(
                    "PortErrors", "COM %1 (%2): the device does not take what is sent to it; %3 "
                                  "bytes wait for it, and what the keyboard sends is dropped until "
                                  "it takes them.")
                    .arg(portNumber_)
                    .arg(device_)
                    .arg(port_.bytesToWrite());
            QTimer::singleShot(0, this, [this, message] { emit LineStalled(message); });
        }
        return;
    }
    const char data = static_cast<char>(byte);
    // flush() hands the byte to the driver now rather than at the next return to the
    // event loop, so each byte is its own write and leaves in the order it was given.
    // A driver with no room for it yet is no failure: the byte waits, and leaves when
    // the driver says it can take more.
    const bool handed = port_.write(&data, 1) == 1 && port_.flush();
    const bool noRoom = !handed && port_.isOpen() && port_.error() == QSerialPort::NoError &&
                        (errno == EAGAIN || errno == EWOULDBLOCK);
    if ((!handed && !noRoom) || port_.error() != QSerialPort::NoError) {
        const QSerialPort::SerialPortError error = port_.error();
        const QString reason =
            port_.isOpen() ? port_.errorString()
                           : QCoreApplication::translate("PortErrors", "the port is not open");
        port_.clearError();
        throw PortError(portNumber_, device_,
                        error == QSerialPort::ResourceError ? PortFailure::Vanished
                                                            : PortFailure::WriteFailed,
                        reason);
    }
}

void SerialDevice::WaitUntilSent(QDeadlineTimer deadline) {
    // First out of the port's own buffer into the driver, then out of the driver's
    // buffer onto the wire, which at a slow rate takes a noticeable time.
    while (port_.isOpen() && port_.bytesToWrite() > 0 && !deadline.hasExpired()) {
        if (!port_.waitForBytesWritten(static_cast<int>(deadline.remainingTime()))) {
            return;
        }
    }
#ifdef TIOCOUTQ
    int left = 0;
    while (port_.isOpen() && ioctl(static_cast<int>(port_.handle()), TIOCOUTQ, &left) == 0 &&
           left > 0 && !deadline.hasExpired()) {
        QThread::msleep(5);
    }
#endif
}

void SerialDevice::OnWritten() {
    // Half the limit, so that a slow wire does not flip between dropping and sending.
    if (!stalled_ || port_.bytesToWrite() > kSendLimit / 2) {
        return;
    }
    stalled_ = false;
    emit LineFlowing(QCoreApplication::translate(
                         "PortErrors", "COM %1 (%2): the device takes what is sent again.")
                         .arg(portNumber_)
                         .arg(device_));
}

QByteArray SerialDevice::Input() {
    const qsizetype count =
        inputLength_ > 0 ? qMin<qsizetype>(inputLength_, received_.size()) : received_.size();
    QByteArray taken = received_.left(count);
    received_.remove(0, count);
    return taken;
}

void SerialDevice::OnReadyRead() {
    // Everything the driver delivered is taken at once, so that QSerialPort's own buffer
    // never fills (a bounded one that fills stops reading the device for good); what
    // waits for Input() is bounded here instead.
    received_ += port_.readAll();
    if (received_.size() > kReceiveLimit) {
        received_.remove(0, received_.size() - kReceiveLimit);
    }
    if (!reportPending_) {
        ReportReceived();
    }
}

void SerialDevice::ReportReceived() {
    reportPending_ = false;
    if (reportingData_ || received_.isEmpty() || !port_.isOpen()) {
        return;
    }
    reportingData_ = true;
    const qsizetype waiting = received_.size();
    emit CommEvent(kDataReceived);
    reportingData_ = false;
    // One event per input length. What the handler left is reported at the next turn of
    // the event loop rather than at once, so that under a flood the timers between (the
    // dispatcher, retransmission) still keep their periods. A handler that took nothing
    // (a mode that shows no replies) waits for the next arrival.
    if (port_.isOpen() && !received_.isEmpty() && received_.size() < waiting) {
        reportPending_ = true;
        QMetaObject::invokeMethod(this, &SerialDevice::ReportReceived, Qt::QueuedConnection);
    }
}

void SerialDevice::OnError(QSerialPort::SerialPortError error) {
    // The driver reports a write it has no room for yet as a lost resource; the byte
    // waits in the port and leaves when there is room, so the device is still there.
    // Only a write can be short of room: with nothing waiting to be written, errno may be
    // left over from an earlier call while the read that failed found the device gone.
    const bool noRoom = port_.bytesToWrite() > 0 && (errno == EAGAIN || errno == EWOULDBLOCK);
    if (error == QSerialPort::ResourceError && noRoom) {
        port_.clearError();
        return;
    }
    if ((error != QSerialPort::ResourceError && error != QSerialPort::ReadError) ||
        !port_.isOpen()) {
        return;
    }
    // A device that went away (a pulled USB adapter, a hung-up line) fails every read, and
    // the driver repeats the error for as long as the port stays open; closing here
    // reports it once and stops the repetition. The driver's own text is left out: it
    // quotes whatever system error came last, which is seldom this one.
    port_.close();
    port_.clearError();
    received_.clear();
    // The operator is told that a pseudo-terminal waits for them, since the port watch
    // will not open it again.
    const bool terminal =
        openedOn_ && openedOn_->pseudoTerminal && openedOn_->stableNames.isEmpty();
    const QString reason =
        terminal ? QCoreApplication::translate(
                       "PortErrors", "the program at its far end closed it. A pseudo-terminal is "
                                     "not opened again by itself: choose Options > COM %1 once a "
                                     "program serves it again")
                       .arg(portNumber_)
                 : QCoreApplication::translate("PortErrors", "the device was unplugged or hung up");
    emit LineFailed(PortError(portNumber_, device_, PortFailure::Vanished, reason).Message());
}

QString AccessRefusalText(const QString& device, const DeviceAccess& access) {
    const QString refusal =
        QCoreApplication::translate("PortErrors", "Access to %1 was refused.").arg(device);
    constexpr unsigned kGroupReadWrite = 060;
    if ((access.mode & kGroupReadWrite) == kGroupReadWrite && !access.rootGroup &&
        !access.group.isEmpty()) {
        return refusal + QCoreApplication::translate(
                             "PortErrors", " Ask for membership of the group \"%1\", which "
                                           "owns it, then log out and in again.")
                             .arg(access.group);
    }
    if (!access.owner.isEmpty()) {
        // Joining a group would not help (the group may not write it, or is root's own):
        // a udev rule can give the device a group that users may join.
        return refusal + QCoreApplication::translate(
                             "PortErrors", " Only its owner, %1, may open it. An administrator "
                                           "can grant access to it, for example with a udev "
                                           "rule that gives it a group to join.")
                             .arg(access.owner);
    }
    return refusal +
           QCoreApplication::translate("PortErrors", " Ask for read and write access to it.");
}

#ifdef Q_OS_WIN
QString AccessRefusal(const QString& /*device*/) {
    // Windows reports a port held by another program as access denied; rights on
    // serial ports are not given per user there.
    return {};
}
#else
QString AccessRefusal(const QString& device) {
    const QByteArray path = QFile::encodeName(device);
    if (::access(path.constData(), R_OK | W_OK) == 0 || errno != EACCES) {
        return {};
    }
    DeviceAccess access;
    struct stat info {};
    if (::stat(path.constData(), &info) == 0) {
        access.mode = info.st_mode;
        access.rootGroup = info.st_gid == 0;
        if (const group* owners = ::getgrgid(info.st_gid); owners && owners->gr_name) {
            access.group = QString::fromLocal8Bit(owners->gr_name);
        }
        if (const passwd* owner = ::getpwuid(info.st_uid); owner && owner->pw_name) {
            access.owner = QString::fromLocal8Bit(owner->pw_name);
        }
    }
    return AccessRefusalText(device, access);
}
#endif

std::unique_ptr<SerialLine> MakeDeviceLine(int portNumber) {
    return std::make_unique<SerialDevice>(portNumber, DeviceForPort(portNumber));
}

} // namespace quellpad
