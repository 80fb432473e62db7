#pragma once

#include "peer.h"
#include "served_site.h"

#include "engine/serial_device.h"

#include <QHostAddress>
#include <QSocketNotifier>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <QElapsedTimer>

#include <functional>
#include <memory>
#include <vector>

namespace quellpad::site_server {

// Most bytes taken from a line in one turn of the event loop, so that a flood on one line
// leaves the others served in between: still forty times what the fastest serial line
// carries in the time a quiet turn takes.
inline constexpr qint64 kReadChunk = 512;
// What the kernel holds for a TCP client each way, beyond which a flood waits on the
// client's side of the wire.
inline constexpr int kSocketBuffer = 16 * 1024;

// A line the site is served on. Opening fails with a typed error naming the line and
// the reason; afterwards the line looks after itself (a controller leaving, a device
// vanishing) and tells the site's operator.
class ServedLine : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    // How the operator names the line: "/dev/pts/4", "/dev/ttyUSB0", "tcp 0.0.0.0:4001".
    virtual QString Name() const = 0;
    // What was thrown away on the line so far, all controllers together.
    virtual Rejections Rejected() const = 0;
};

// A new pseudo-terminal: a controller opens the path Name() gives as its serial port. Its
// line settings are the controller's own (the terminal's), so a controller at other
// settings than the equipment's gets garbage both ways, as on a real wire. A controller
// that closes the terminal is forgotten; the next one to open it is served.
class PtyLine final : public ServedLine {
    Q_OBJECT
public:
    explicit PtyLine(ServedSite& site, QObject* parent = nullptr);
    ~PtyLine() override;
    QString Name() const override { return path_; }
    Rejections Rejected() const override { return peer_->Rejected(); }

private:
    void Read();
    void Watch();
    void Write(const QByteArray& bytes);
    void Reconnected(bool connected);

    ServedSite& site_;
    int fd_ = -1;
    QString path_;
    std::unique_ptr<Peer> peer_;
    QSocketNotifier* notifier_ = nullptr;
    // While no controller holds the terminal open, its other side reads nothing but an
    // error: the line looks again this often instead of listening.
    QTimer idle_;
    bool connected_ = false;
};

// A serial device (/dev/ttyUSB0, a /dev/serial/by-id name) opened at the equipment's
// line settings. A device that vanishes is told once and opened again when it returns.
class DeviceLine final : public ServedLine {
    Q_OBJECT
public:
    // Throws PortError when the device cannot be opened at all.
    DeviceLine(ServedSite& site, const QString& device, QObject* parent = nullptr);
    ~DeviceLine() override;
    QString Name() const override { return device_; }
    Rejections Rejected() const override { return peer_->Rejected(); }

private:
    void Read();
    void Failed(const QString& message);
    void Retry();

    ServedSite& site_;
    QString device_;
    // The keyboard's own serial device, which knows a vanished device from a busy one.
    SerialDevice port_;
    std::unique_ptr<Peer> peer_;
    QTimer retry_;
};

// One controller on a TCP port, on a socket of its own: read a chunk at a time, one chunk
// a turn of the event loop, and written without ever blocking. A client that shuts down its
// sending side is still answered until everything owed to it has left, then closed.
class TcpClient final : public QObject {
    Q_OBJECT
public:
    // Answers queued for a client that does not read, beyond which they are lost.
    static constexpr qint64 kUnreadLimit = 64 * 1024;

    // Takes over the connected socket `fd`.
    TcpClient(ServedSite& site, int fd, const QString& name, QObject* parent = nullptr);
    ~TcpClient() override;
    Peer& Controller() { return *peer_; }
    // Milliseconds since the client last sent a byte, or since it connected.
    qint64 IdleMs() const { return heard_.elapsed(); }

signals:
    // The client closed or reset its connection, or was answered in full after it stopped
    // sending: it is to be forgotten.
    void Gone();

private:
    void Read();
    void Write(const QByteArray& bytes);
    void Flush();
    void Check();
    void Drop();

    int fd_;
    std::unique_ptr<Peer> peer_;
    QSocketNotifier reader_;
    QSocketNotifier writer_;
    QByteArray unsent_;
    QElapsedTimer heard_;
    // The client sends no more; it is closed once nothing is owed to it.
    bool finished_ = false;
    QTimer owing_;
    bool gone_ = false;
};

// A TCP port listening for controllers, raw bytes both ways. Each client has its own
// decoders and its own answers, all on the one equipment; a client that leaves is
// forgotten. When `mostClients` are served, a new client takes the place of one that has
// sent nothing for `idleMs`, or is turned away.
class TcpLine final : public ServedLine {
    Q_OBJECT
public:
    // Clients served at once unless the installer says otherwise (--max-clients).
    static constexpr int kMostClients = 32;
    // A client that has sent nothing for this long gives way to a new one when the port
    // serves all it may.
    static constexpr qint64 kIdleMs = 60'000;

    // Throws PortError when the port cannot be listened on.
    TcpLine(ServedSite& site, const QHostAddress& host, quint16 port,
            int mostClients = kMostClients, qint64 idleMs = kIdleMs, QObject* parent = nullptr);
    ~TcpLine() override;
    QString Name() const override;
    Rejections Rejected() const override;
    quint16 Port() const { return server_.serverPort(); }
    int Clients() const { return static_cast<int>(clients_.size()); }

private:
    // Hands each accepted connection over as a bare socket, which TcpClient serves.
    class Listener final : public QTcpServer {
    public:
        std::function<void(int)> accepted;

    protected:
        void incomingConnection(qintptr fd) override { accepted(static_cast<int>(fd)); }
    };

    void Accept(int fd);
    void Forget(TcpClient* client);

    ServedSite& site_;
    Listener server_;
    int mostClients_;
    qint64 idleMs_;
    // The operator has been told that clients are turned away; told again only once
    // there was room in between.
    bool toldFull_ = false;
    Rejections gone_;
    std::vector<std::unique_ptr<TcpClient>> clients_;
};

// A listener's tap on the bus: a new pseudo-terminal carrying what every controller and
// every receiver puts on the wire, as a UART at the terminal's settings (the listener's
// own) receives it. Nothing written to it reaches the bus.
class TapLine final : public ServedLine {
    Q_OBJECT
public:
    explicit TapLine(ServedSite& site, QObject* parent = nullptr);
    ~TapLine() override;
    QString Name() const override { return path_; }
    Rejections Rejected() const override { return {}; }

private:
    void Carry(const QByteArray& bytes, const site::LineFormat& sentAt, bool inverted);

    ServedSite& site_;
    int fd_ = -1;
    QString path_;
};

// The same tap on a TCP port, heard at the equipment's settings, by any number of
// listeners; a listener that does not read loses what does not fit its socket.
class TcpTapLine final : public ServedLine {
    Q_OBJECT
public:
    TcpTapLine(ServedSite& site, const QHostAddress& host, quint16 port, QObject* parent = nullptr);
    ~TcpTapLine() override;
    QString Name() const override;
    Rejections Rejected() const override { return {}; }
    quint16 Port() const { return server_.serverPort(); }

private:
    void Carry(const QByteArray& bytes, const site::LineFormat& sentAt, bool inverted);

    ServedSite& site_;
    QTcpServer server_;
    std::vector<QTcpSocket*> clients_;
};

// "[HOST:]PORT" as --listen takes it; false when it is not one.
bool ParseListenAddress(const QString& text, QHostAddress& host, quint16& port);

// The line settings a terminal is set to, as the controller on its other side set them.
site::LineFormat TerminalFormat(int fd);

} // namespace quellpad::site_server
