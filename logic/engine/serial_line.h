#pragma once

#include <QByteArray>
#include <QDeadlineTimer>
#include <QObject>
#include <QString>

#include <cstdint>

namespace quellpad {

// Most bytes that wait for Input() between two reads on any kind of line; older ones are
// dropped first, so that a line flooding the keyboard cannot make it grow.
inline constexpr qsizetype kReceiveLimit = 16384;
// Most bytes that wait to be written on any kind of line. A far end that stops reading
// (a serial server that hangs, a wire nobody listens to) leaves everything past this
// dropped, as a wire with no listener would lose it, so that the keyboard cannot grow.
inline constexpr qsizetype kSendLimit = 65536;

// One COM port of the keyboard as the program sees it. The windows and the command
// engine talk only to this interface, so a COM port can be bound to something other
// than a local device (a simulated line, a network serial server) without touching them.
class SerialLine : public QObject {
    Q_OBJECT
public:
    // Event code of CommEvent when bytes have arrived.
    static constexpr int kDataReceived = 2;

    using QObject::QObject;

    virtual int PortNumber() const = 0;
    // What the port is bound to, as the operator should read it ("/dev/ttyUSB0").
    virtual QString Device() const = 0;

    // Line settings text such as "9600,e,8,1"; fails with PortError (BadSettings) when
    // the text cannot be applied. Takes effect at once on an open port.
    virtual void SetSettings(const QString& settings) = 0;
    virtual void SetRtsEnable(bool enable) = 0;
    virtual void SetBufferSizes(int inputBytes, int outputBytes) = 0;
    // Most bytes that one Input() returns.
    virtual void SetInputLength(int bytes) = 0;

    // Fails with PortError; a port that is already open stays open.
    virtual void Open() = 0;
    virtual void Close() = 0;
    virtual bool IsOpen() const = 0;

    // Whether what the binding leads to now is the device the port was last open on, so
    // that the port may be opened again without the operator. A line that cannot be
    // mistaken for another (the simulated site, a server reached by its address) says yes.
    virtual bool SameDeviceThere() const { return true; }

    // Hands one byte to the driver at once; fails with PortError.
    virtual void Output(std::uint8_t byte) = 0;
    // The bytes waiting, up to the input length.
    virtual QByteArray Input() = 0;
    // Waits until what was written has left the line, or the deadline has passed: the
    // last command before the port closes is to reach the equipment. A line that hands
    // its bytes on at once has nothing to wait for.
    virtual void WaitUntilSent(QDeadlineTimer /*deadline*/) {}

signals:
    // A communications event; kDataReceived when bytes are waiting for Input().
    void CommEvent(int code);
    // The line failed while open (a device that vanished) and has been closed.
    // Raised once per failure, however many errors the driver reports.
    void LineFailed(const QString& message);
    // A line that failed has come back by itself (a network server that answers again)
    // and is open once more.
    void LineRestored(const QString& message);
    // The far end has stopped reading and kSendLimit bytes wait for it: from now on what
    // is written is dropped. Raised once, until LineFlowing.
    void LineStalled(const QString& message);
    // A stalled far end reads again and what is written leaves once more.
    void LineFlowing(const QString& message);
};

} // namespace quellpad
