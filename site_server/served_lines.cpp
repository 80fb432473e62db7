#include "served_lines.h"

#include "engine/errors.h"
#include "engine/serial_device.h"

#include <QCoreApplication>
#include <QTcpSocket>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace quellpad::site_server {

namespace {

// While nobody holds a pseudo-terminal open, it is looked at this often.
constexpr int kIdleLookMs = 50;
// A vanished serial device is looked for this often.
constexpr int kRetryMs = 1000;

[[noreturn]] void CannotServe(const QString& line, const QString& reason) {
    throw QuellpadError(QCoreApplication::translate("ServedSite", "cannot serve the site on %1: %2")
                            .arg(line, reason));
}

QString SystemReason() {
    return QString::fromLocal8Bit(std::strerror(errno));
}

} // namespace

site::LineFormat TerminalFormat(int fd) {
    termios settings{};
    site::LineFormat format;
    if (tcgetattr(fd, &settings) != 0) {
        return format;
    }
    static constexpr struct {
        speed_t speed;
        int baud;
    } kSpeeds[] = {{B300, 300},     {B600, 600},       {B1200, 1200},    {B2400, 2400},
                   {B4800, 4800},   {B9600, 9600},     {B19200, 19200},  {B38400, 38400},
                   {B57600, 57600}, {B115200, 115200}, {B230400, 230400}};
    const speed_t speed = cfgetospeed(&settings);
    format.baud = 0;
    for (const auto& known : kSpeeds) {
        if (known.speed == speed) {
            format.baud = known.baud;
        }
    }
    switch (settings.c_cflag & CSIZE) {
    case CS5:
        format.dataBits = 5;
        break;
    case CS6:
        format.dataBits = 6;
        break;
    case CS7:
        format.dataBits = 7;
        break;
    default:
        format.dataBits = 8;
    }
    format.parity = (settings.c_cflag & PARENB) == 0   ? 'n'
                    : (settings.c_cflag & PARODD) != 0 ? 'o'
                                                       : 'e';
    format.stopBits = (settings.c_cflag & CSTOPB) != 0 ? 2 : 1;
    return format;
}

PtyLine::PtyLine(ServedSite& site, QObject* parent) : ServedLine(parent), site_(site) {
    fd_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd_ < 0 || grantpt(fd_) != 0 || unlockpt(fd_) != 0) {
        const QString reason = SystemReason();
        if (fd_ >= 0) {
            ::close(fd_);
        }
        CannotServe(QCoreApplication::translate("ServedSite", "a new pseudo-terminal"), reason);
    }
    path_ = QString::fromLocal8Bit(ptsname(fd_));
    // The terminal starts raw at the equipment's own settings, as a serial port a
    // controller opens and sets before it speaks.
    termios settings{};
    tcgetattr(fd_, &settings);
    cfmakeraw(&settings);
    static constexpr struct {
        int baud;
        speed_t speed;
    } kSpeeds[] = {{1200, B1200},   {2400, B2400},   {4800, B4800},   {9600, B9600},
                   {19200, B19200}, {38400, B38400}, {57600, B57600}, {115200, B115200}};
    for (const auto& known : kSpeeds) {
        if (known.baud == site.Format().baud) {
            cfsetspeed(&settings, known.speed);
        }
    }
    tcsetattr(fd_, TCSANOW, &settings);
    peer_ = std::make_unique<Peer>(site, path_);
    connect(peer_.get(), &Peer::Write, this, &PtyLine::Write);
    notifier_ = new QSocketNotifier(fd_, QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, &PtyLine::Read);
    idle_.setInterval(kIdleLookMs);
    connect(&idle_, &QTimer::timeout, this, &PtyLine::Watch);
    // A terminal nobody has opened yet looks the same as one a controller holds: both
    // simply wait for bytes. Only one that a controller closed hangs up.
    connected_ = true;
}

PtyLine::~PtyLine() {
    if (fd_ >= 0) {
        // Closing the controlling side removes the terminal's path.
        delete notifier_;
        ::close(fd_);
    }
}

void PtyLine::Reconnected(bool connected) {
    if (connected == connected_) {
        return;
    }
    connected_ = connected;
    peer_->SetControllerFormat(TerminalFormat(fd_));
    notifier_->setEnabled(connected);
    if (connected) {
        idle_.stop();
        site_.Tell(Event::Kind::Line, path_,
                   QCoreApplication::translate("ServedSite", "controller connected at %1")
                       .arg(site::LineFormatText(peer_->ControllerFormat())));
    } else {
        idle_.start();
        peer_->TellRejected(true);
        site_.Tell(Event::Kind::Line, path_,
                   QCoreApplication::translate("ServedSite", "controller left"));
    }
}

void PtyLine::Watch() {
    // While no controller holds the terminal open it stays hung up.
    pollfd look{fd_, POLLIN, 0};
    Reconnected(::poll(&look, 1, 0) >= 0 && (look.revents & POLLHUP) == 0);
}

void PtyLine::Read() {
    std::uint8_t buffer[kReadChunk];
    const ssize_t got = ::read(fd_, buffer, sizeof buffer);
    if (got < 0 && errno == EAGAIN) {
        return;
    }
    if (got <= 0) {
        Reconnected(false); // the controller closed the terminal
        return;
    }
    // The controller may have set its port since it last spoke.
    peer_->SetControllerFormat(TerminalFormat(fd_));
    peer_->Hear({buffer, static_cast<std::size_t>(got)});
}

void PtyLine::Write(const QByteArray& bytes) {
    const ssize_t put =
        connected_ ? ::write(fd_, bytes.constData(), static_cast<std::size_t>(bytes.size())) : 0;
    if (put < bytes.size()) {
        // The terminal's buffer is full: the controller does not read.
        peer_->Lost(static_cast<std::size_t>(bytes.size() - std::max<ssize_t>(put, 0)));
    }
}

DeviceLine::DeviceLine(ServedSite& site, const QString& device, QObject* parent)
    : ServedLine(parent), site_(site), device_(device), port_(0, device) {
    peer_ = std::make_unique<Peer>(site, device_);
    connect(peer_.get(), &Peer::Write, this, [this](const QByteArray& bytes) {
        if (!port_.IsOpen() || port_.BytesToWrite() > static_cast<qint64>(Peer::kSendLimit)) {
            peer_->Lost(static_cast<std::size_t>(bytes.size()));
            return;
        }
        for (const char byte : bytes) {
            port_.Output(static_cast<std::uint8_t>(byte));
        }
    });
    connect(&port_, &SerialLine::CommEvent, this, &DeviceLine::Read);
    connect(&port_, &SerialLine::LineFailed, this, &DeviceLine::Failed);
    retry_.setInterval(kRetryMs);
    connect(&retry_, &QTimer::timeout, this, &DeviceLine::Retry);
    try {
        port_.SetSettings(site::LineFormatText(site_.Format()));
        port_.Open();
    } catch (const PortError& error) {
        CannotServe(device_, error.Reason());
    }
}

DeviceLine::~DeviceLine() {
    port_.Close();
}

void DeviceLine::Read() {
    const QByteArray bytes = port_.Input();
    peer_->Hear(protocol::AsBytes(
        std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
}

void DeviceLine::Failed(const QString& /*message*/) {
    // The keyboard's words name a COM port; the served line is named by its device.
    if (retry_.isActive()) {
        return;
    }
    // Told once; the device is looked for until it is back.
    site_.Tell(Event::Kind::Line, device_,
               QCoreApplication::translate(
                   "ServedSite", "the device has gone (unplugged or hung up); it is opened again "
                                 "when it returns"));
    port_.Close();
    retry_.start();
}

void DeviceLine::Retry() {
    try {
        port_.Open();
    } catch (const PortError&) {
        return; // still away
    }
    retry_.stop();
    site_.Tell(Event::Kind::Line, device_,
               QCoreApplication::translate("ServedSite", "the device is back"));
}

TcpLine::TcpLine(ServedSite& site, const QHostAddress& host, quint16 port, QObject* parent)
    : ServedLine(parent), site_(site) {
    connect(&server_, &QTcpServer::newConnection, this, &TcpLine::Accept);
    if (!server_.listen(host, port)) {
        CannotServe(QStringLiteral("TCP %1:%2").arg(host.toString()).arg(port),
                    server_.errorString());
    }
}

TcpLine::~TcpLine() {
    peers_.clear();
    server_.close();
}

QString TcpLine::Name() const {
    return QStringLiteral("tcp %1:%2").arg(server_.serverAddress().toString()).arg(Port());
}

Rejections TcpLine::Rejected() const {
    Rejections all = gone_;
    for (const auto& peer : peers_) {
        const Rejections& some = peer->Rejected();
        all.garbled += some.garbled;
        all.badFrames += some.badFrames;
        all.ignored += some.ignored;
        all.answersLost += some.answersLost;
    }
    return all;
}

void TcpLine::Accept() {
    while (QTcpSocket* socket = server_.nextPendingConnection()) {
        const QString name = QStringLiteral("tcp %1 from %2:%3")
                                 .arg(Port())
                                 .arg(socket->peerAddress().toString())
                                 .arg(socket->peerPort());
        if (peers_.size() >= kMostClients) {
            site_.Tell(Event::Kind::Line, name,
                       QCoreApplication::translate("ServedSite",
                                                   "turned away: %1 controllers are served already")
                           .arg(kMostClients));
            socket->abort();
            socket->deleteLater();
            continue;
        }
        socket->setParent(this);
        peers_.push_back(std::make_unique<Peer>(site_, name));
        Peer* peer = peers_.back().get();
        site_.Tell(Event::Kind::Line, name,
                   QCoreApplication::translate("ServedSite", "controller connected"));
        connect(peer, &Peer::Write, socket, [socket, peer](const QByteArray& bytes) {
            if (socket->bytesToWrite() > kUnreadLimit) {
                peer->Lost(static_cast<std::size_t>(bytes.size()));
                return;
            }
            socket->write(bytes);
        });
        connect(socket, &QTcpSocket::readyRead, peer, [socket, peer] {
            while (socket->bytesAvailable() > 0) {
                const QByteArray bytes = socket->read(kReadChunk);
                peer->Hear(protocol::AsBytes(
                    std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
            }
        });
        connect(socket, &QTcpSocket::disconnected, this, [this, socket, peer, name] {
            peer->TellRejected(true);
            const Rejections& some = peer->Rejected();
            gone_.garbled += some.garbled;
            gone_.badFrames += some.badFrames;
            gone_.ignored += some.ignored;
            gone_.answersLost += some.answersLost;
            site_.Tell(Event::Kind::Line, name,
                       QCoreApplication::translate("ServedSite", "controller left"));
            std::erase_if(peers_, [peer](const auto& held) { return held.get() == peer; });
            socket->deleteLater();
        });
    }
}

bool ParseListenAddress(const QString& text, QHostAddress& host, quint16& port) {
    const qsizetype colon = text.lastIndexOf(u':');
    QString hostText = colon < 0 ? QString() : text.left(colon);
    if (hostText.startsWith(u'[') && hostText.endsWith(u']')) {
        hostText = hostText.mid(1, hostText.size() - 2);
    }
    bool ok = false;
    const uint number = text.mid(colon + 1).toUInt(&ok);
    if (!ok || number > 65535 || (colon >= 0 && hostText.isEmpty())) {
        return false;
    }
    QHostAddress address(QHostAddress::Any);
    if (!hostText.isEmpty()) {
        if (hostText == QLatin1String("localhost")) {
            address = QHostAddress::LocalHost;
        } else if (!address.setAddress(hostText)) {
            return false;
        }
    }
    host = address;
    port = static_cast<quint16>(number);
    return true;
}

} // namespace quellpad::site_server
