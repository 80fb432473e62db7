#include "served_lines.h"

#include "engine/errors.h"
#include "engine/serial_device.h"

#include <QCoreApplication>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
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

// A new pseudo-terminal, raw at the equipment's own settings, as a serial port a
// controller opens and sets before it speaks; its path in `path`. Throws QuellpadError.
int OpenTerminal(const site::LineFormat& format, QString& path) {
    const int fd = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0 || grantpt(fd) != 0 || unlockpt(fd) != 0) {
        const QString reason = SystemReason();
        if (fd >= 0) {
            ::close(fd);
        }
        CannotServe(QCoreApplication::translate("ServedSite", "a new pseudo-terminal"), reason);
    }
    path = QString::fromLocal8Bit(ptsname(fd));
    termios settings{};
    tcgetattr(fd, &settings);
    cfmakeraw(&settings);
    static constexpr struct {
        int baud;
        speed_t speed;
    } kSpeeds[] = {{1200, B1200},   {2400, B2400},   {4800, B4800},   {9600, B9600},
                   {19200, B19200}, {38400, B38400}, {57600, B57600}, {115200, B115200}};
    for (const auto& known : kSpeeds) {
        if (known.baud == format.baud) {
            cfsetspeed(&settings, known.speed);
        }
    }
    tcsetattr(fd, TCSANOW, &settings);
    return fd;
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
    fd_ = OpenTerminal(site.Format(), path_);
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
        // What the controller left half typed and the answers it did not read are its own:
        // the next controller starts clean. The terminal keeps unread bytes across a close,
        // so they are flushed from the controller's side.
        peer_->Forget();
        const int side =
            ::open(path_.toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
        if (side >= 0) {
            tcflush(side, TCIFLUSH);
            ::close(side);
        }
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

TcpClient::TcpClient(ServedSite& site, int fd, const QString& name, QObject* parent)
    : QObject(parent), fd_(fd), peer_(std::make_unique<Peer>(site, name)),
      reader_(fd, QSocketNotifier::Read), writer_(fd, QSocketNotifier::Write) {
    ::fcntl(fd_, F_SETFL, ::fcntl(fd_, F_GETFL) | O_NONBLOCK);
    ::setsockopt(fd_, SOL_SOCKET, SO_RCVBUF, &kSocketBuffer, sizeof kSocketBuffer);
    ::setsockopt(fd_, SOL_SOCKET, SO_SNDBUF, &kSocketBuffer, sizeof kSocketBuffer);
    heard_.start();
    writer_.setEnabled(false);
    connect(&reader_, &QSocketNotifier::activated, this, &TcpClient::Read);
    connect(&writer_, &QSocketNotifier::activated, this, &TcpClient::Flush);
    connect(peer_.get(), &Peer::Write, this, &TcpClient::Write);
    owing_.setInterval(kIdleLookMs);
    connect(&owing_, &QTimer::timeout, this, &TcpClient::Check);
}

TcpClient::~TcpClient() {
    reader_.setEnabled(false);
    writer_.setEnabled(false);
    ::close(fd_);
}

void TcpClient::Read() {
    // One chunk a turn: the notifier calls again while more waits, after every other
    // line has had its turn.
    std::uint8_t buffer[kReadChunk];
    const ssize_t got = ::recv(fd_, buffer, sizeof buffer, 0);
    if (got < 0 && (errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR)) {
        return;
    }
    if (got < 0) {
        Drop(); // reset
        return;
    }
    if (got == 0) {
        // The client sends no more (it may still read): what it is owed still goes out.
        finished_ = true;
        reader_.setEnabled(false);
        owing_.start();
        Check();
        return;
    }
    heard_.start();
    peer_->Hear({buffer, static_cast<std::size_t>(got)});
}

void TcpClient::Write(const QByteArray& bytes) {
    if (gone_) {
        return;
    }
    if (unsent_.size() + bytes.size() > kUnreadLimit) {
        peer_->Lost(static_cast<std::size_t>(bytes.size()));
        return;
    }
    unsent_ += bytes;
    Flush();
}

void TcpClient::Flush() {
    while (!unsent_.isEmpty()) {
        const ssize_t put =
            ::send(fd_, unsent_.constData(), static_cast<std::size_t>(unsent_.size()),
                   MSG_DONTWAIT | MSG_NOSIGNAL);
        if (put < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) {
            break;
        }
        if (put < 0 && errno == EINTR) {
            continue;
        }
        if (put < 0) {
            // The client closed its receiving side too.
            peer_->Lost(static_cast<std::size_t>(unsent_.size()));
            unsent_.clear();
            Drop();
            return;
        }
        unsent_.remove(0, put);
    }
    writer_.setEnabled(!unsent_.isEmpty());
}

void TcpClient::Check() {
    if (finished_ && unsent_.isEmpty() && !peer_->Owing()) {
        Drop();
    }
}

void TcpClient::Drop() {
    if (gone_) {
        return;
    }
    gone_ = true;
    reader_.setEnabled(false);
    writer_.setEnabled(false);
    owing_.stop();
    peer_->Forget();
    emit Gone();
}

TcpLine::TcpLine(ServedSite& site, const QHostAddress& host, quint16 port, int mostClients,
                 qint64 idleMs, QObject* parent)
    : ServedLine(parent), site_(site), mostClients_(std::max(1, mostClients)), idleMs_(idleMs) {
    server_.accepted = [this](int fd) {
        Accept(fd);
    };
    if (!server_.listen(host, port)) {
        CannotServe(QStringLiteral("TCP %1:%2").arg(host.toString()).arg(port),
                    server_.errorString());
    }
}

TcpLine::~TcpLine() {
    clients_.clear();
    server_.close();
}

QString TcpLine::Name() const {
    return QStringLiteral("tcp %1:%2").arg(server_.serverAddress().toString()).arg(Port());
}

Rejections TcpLine::Rejected() const {
    Rejections all = gone_;
    for (const auto& client : clients_) {
        const Rejections& some = client->Controller().Rejected();
        all.garbled += some.garbled;
        all.badFrames += some.badFrames;
        all.ignored += some.ignored;
        all.answersLost += some.answersLost;
    }
    return all;
}

void TcpLine::Accept(int fd) {
    sockaddr_storage address{};
    socklen_t length = sizeof address;
    QHostAddress from;
    quint16 fromPort = 0;
    if (::getpeername(fd, reinterpret_cast<sockaddr*>(&address), &length) == 0) {
        from.setAddress(reinterpret_cast<const sockaddr*>(&address));
        fromPort = address.ss_family == AF_INET6
                       ? ntohs(reinterpret_cast<const sockaddr_in6*>(&address)->sin6_port)
                       : ntohs(reinterpret_cast<const sockaddr_in*>(&address)->sin_port);
    }
    const QString name =
        QStringLiteral("tcp %1 from %2:%3").arg(Port()).arg(from.toString()).arg(fromPort);
    if (clients_.size() >= static_cast<std::size_t>(mostClients_)) {
        // The client that has been quiet longest gives way, if it has been quiet long enough.
        const auto quietest =
            std::max_element(clients_.begin(), clients_.end(), [](const auto& a, const auto& b) {
                return a->IdleMs() < b->IdleMs();
            });
        if ((*quietest)->IdleMs() < idleMs_) {
            ::close(fd);
            if (!toldFull_) {
                toldFull_ = true;
                site_.Tell(Event::Kind::Line, name,
                           QCoreApplication::translate(
                               "ServedSite",
                               "turned away: the port is full (--max-clients %1) and no "
                               "client has been quiet for %2 s; more are turned away without a "
                               "word until there is room")
                               .arg(mostClients_)
                               .arg(idleMs_ / 1000));
            }
            return;
        }
        TcpClient* idle = quietest->get();
        site_.Tell(
            Event::Kind::Line, idle->Controller().Name(),
            QCoreApplication::translate("ServedSite", "closed to make room: sent nothing for %1 s")
                .arg(idle->IdleMs() / 1000));
        Forget(idle);
    }
    toldFull_ = false;
    clients_.push_back(std::make_unique<TcpClient>(site_, fd, name));
    TcpClient* client = clients_.back().get();
    site_.Tell(Event::Kind::Line, name,
               QCoreApplication::translate("ServedSite", "controller connected"));
    connect(client, &TcpClient::Gone, this, [this, client] { Forget(client); });
}

void TcpLine::Forget(TcpClient* client) {
    const auto held = std::find_if(clients_.begin(), clients_.end(),
                                   [client](const auto& one) { return one.get() == client; });
    if (held == clients_.end()) {
        return;
    }
    Peer& peer = client->Controller();
    peer.TellRejected(true);
    const Rejections& some = peer.Rejected();
    gone_.garbled += some.garbled;
    gone_.badFrames += some.badFrames;
    gone_.ignored += some.ignored;
    gone_.answersLost += some.answersLost;
    site_.Tell(Event::Kind::Line, peer.Name(),
               QCoreApplication::translate("ServedSite", "controller left"));
    // Gone may be what is running now: the client goes once it has returned.
    held->release()->deleteLater();
    clients_.erase(held);
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

namespace quellpad::site_server {

TapLine::TapLine(ServedSite& site, QObject* parent) : ServedLine(parent), site_(site) {
    fd_ = OpenTerminal(site.Format(), path_);
    connect(&site, &ServedSite::OnWire, this, &TapLine::Carry);
    // A listener never speaks on the bus: whatever it writes is read and dropped.
    auto* notifier = new QSocketNotifier(fd_, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        std::uint8_t buffer[kReadChunk];
        while (::read(fd_, buffer, sizeof buffer) > 0) {
        }
    });
}

TapLine::~TapLine() {
    if (fd_ >= 0) {
        ::close(fd_);
    }
}

void TapLine::Carry(const QByteArray& bytes, const site::LineFormat& sentAt, bool inverted) {
    site::LineFormat listener = TerminalFormat(fd_);
    if (listener.baud <= 0) {
        listener = site_.Format();
    }
    const std::string heard = site::ReceivedAs(bytes.toStdString(), sentAt, listener, inverted);
    // A listener that does not read loses what the terminal cannot hold, as on a real tap.
    [[maybe_unused]] const ssize_t put = ::write(fd_, heard.data(), heard.size());
}

TcpTapLine::TcpTapLine(ServedSite& site, const QHostAddress& host, quint16 port, QObject* parent)
    : ServedLine(parent), site_(site) {
    if (!server_.listen(host, port)) {
        CannotServe(QStringLiteral("tcp %1:%2").arg(host.toString()).arg(port),
                    server_.errorString());
    }
    connect(&server_, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* client = server_.nextPendingConnection()) {
            client->setParent(this);
            clients_.push_back(client);
            connect(client, &QTcpSocket::readyRead, client, [client] { client->readAll(); });
            connect(client, &QTcpSocket::disconnected, this, [this, client] {
                std::erase(clients_, client);
                client->deleteLater();
            });
        }
    });
    connect(&site, &ServedSite::OnWire, this, &TcpTapLine::Carry);
}

TcpTapLine::~TcpTapLine() = default;

QString TcpTapLine::Name() const {
    return QStringLiteral("tap tcp %1:%2")
        .arg(server_.serverAddress().toString())
        .arg(server_.serverPort());
}

void TcpTapLine::Carry(const QByteArray& bytes, const site::LineFormat& sentAt, bool inverted) {
    // A TCP listener has no line settings: it hears the bus at the equipment's.
    const QByteArray heard = QByteArray::fromStdString(
        site::ReceivedAs(bytes.toStdString(), sentAt, site_.Format(), inverted));
    for (QTcpSocket* client : clients_) {
        if (client->bytesToWrite() < kSocketBuffer) {
            client->write(heard);
        }
    }
}

} // namespace quellpad::site_server
