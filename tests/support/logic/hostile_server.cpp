#include "hostile_server.h"

#include <QFile>

#include <cstddef>

#include <arpa/inet.h>
#include <cerrno>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
// The sanitizer's own count of the heap in use (its allocator interface).
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace quellpad::test {

namespace {

constexpr unsigned char kIac = 255;
constexpr unsigned char kDo = 253;

void MakeNonBlocking(int fd) {
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) | O_NONBLOCK);
}

} // namespace

HostileServer::HostileServer(Behaviour behaviour, int periodMs) : behaviour_(behaviour) {
    listener_ = ::socket(AF_INET, SOCK_STREAM, 0);
    // A small receive window, so that a server that never reads is full after a few
    // kilobytes rather than after the system's megabytes.
    const int small = 4096;
    ::setsockopt(listener_, SOL_SOCKET, SO_RCVBUF, &small, sizeof small);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    ::bind(listener_, reinterpret_cast<sockaddr*>(&address), size);
    ::getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
    port_ = ntohs(address.sin_port);

    if (behaviour_ == Behaviour::NeverAnswersBacklog) {
        ::listen(listener_, 0);
        // The queue holds what the system allows beyond a backlog of 0; these fill it.
        for (int i = 0; i < 2; ++i) {
            const int filler = ::socket(AF_INET, SOCK_STREAM, 0);
            MakeNonBlocking(filler);
            ::connect(filler, reinterpret_cast<sockaddr*>(&address), size);
            backlogFillers_.append(filler);
        }
        return;
    }
    ::listen(listener_, 8);
    MakeNonBlocking(listener_);
    incoming_ = std::make_unique<QSocketNotifier>(listener_, QSocketNotifier::Read);
    QObject::connect(incoming_.get(), &QSocketNotifier::activated, [this] { Accept(); });

    for (int option = 0; option < 4096; ++option) {
        // Options the program refuses (none of binary, suppress-go-ahead, COM port).
        flood_.append(static_cast<char>(kIac));
        flood_.append(static_cast<char>(kDo));
        flood_.append(static_cast<char>(100 + option % 100));
    }
    period_.setInterval(periodMs);
    QObject::connect(&period_, &QTimer::timeout, [this] { EndPeriod(); });
    if (behaviour_ == Behaviour::ResetsEveryPeriod ||
        behaviour_ == Behaviour::HalfClosesEveryPeriod) {
        period_.start();
    }
}

HostileServer::~HostileServer() {
    for (const std::shared_ptr<Client>& client : clients_) {
        Drop(*client, false);
    }
    for (const int filler : backlogFillers_) {
        ::close(filler);
    }
    incoming_.reset();
    ::close(listener_);
}

QString HostileServer::Url(bool rfc2217) const {
    return QStringLiteral("%1://127.0.0.1:%2").arg(rfc2217 ? "rfc2217" : "tcp").arg(port_);
}

void HostileServer::Accept() {
    const int fd = ::accept(listener_, nullptr, nullptr);
    if (fd < 0) {
        return;
    }
    MakeNonBlocking(fd);
    ++accepted_;
    auto client = std::make_shared<Client>();
    client->fd = fd;
    Client* raw = client.get();
    client->readable = std::make_unique<QSocketNotifier>(fd, QSocketNotifier::Read);
    // Never reading is never being told: the notifier stays off until the test says read.
    client->readable->setEnabled(behaviour_ != Behaviour::NeverReads &&
                                 behaviour_ != Behaviour::FloodsNegotiation);
    QObject::connect(client->readable.get(), &QSocketNotifier::activated,
                     [this, raw] { Read(*raw); });
    if (behaviour_ == Behaviour::FloodsNegotiation) {
        client->writable = std::make_unique<QSocketNotifier>(fd, QSocketNotifier::Write);
        QObject::connect(client->writable.get(), &QSocketNotifier::activated,
                         [this, raw] { Flood(*raw); });
    }
    clients_.append(client);
    if (reading_) {
        client->readable->setEnabled(true);
    }
}

void HostileServer::StartReading() {
    reading_ = true;
    for (const std::shared_ptr<Client>& client : clients_) {
        if (client->readable) {
            client->readable->setEnabled(true);
        }
    }
}

void HostileServer::Flood(Client& client) {
    if (client.fd >= 0) {
        (void)::send(client.fd, flood_.constData(), static_cast<size_t>(flood_.size()),
                     MSG_NOSIGNAL);
    }
}

void HostileServer::Read(Client& client) {
    char buffer[65536];
    const ssize_t got = ::recv(client.fd, buffer, sizeof buffer, 0);
    if (got > 0) {
        bytesRead_ += got;
    } else if (got == 0) {
        client.readable->setEnabled(false); // the program went away
    }
}

void HostileServer::EndPeriod() {
    const auto clients = clients_;
    for (const std::shared_ptr<Client>& client : clients) {
        if (behaviour_ == Behaviour::ResetsEveryPeriod) {
            Drop(*client, true);
            clients_.removeOne(client);
        } else if (client->fd >= 0) {
            // The first period ends the sending side; the next one closes the rest.
            if (client->halfClosed) {
                Drop(*client, false);
                clients_.removeOne(client);
            } else {
                ::shutdown(client->fd, SHUT_WR);
                client->halfClosed = true;
            }
        }
    }
}

void HostileServer::Drop(Client& client, bool reset) {
    if (client.fd < 0) {
        return;
    }
    client.readable.reset();
    client.writable.reset();
    if (reset) {
        const linger abrupt{1, 0};
        ::setsockopt(client.fd, SOL_SOCKET, SO_LINGER, &abrupt, sizeof abrupt);
    }
    ::close(client.fd);
    client.fd = -1;
}

qint64 ResidentBytes() {
    QFile status(QStringLiteral("/proc/self/statm"));
    if (!status.open(QIODevice::ReadOnly)) {
        return 0;
    }
    const QList<QByteArray> fields = status.readAll().split(' ');
    return fields.size() > 1 ? fields[1].toLongLong() * ::sysconf(_SC_PAGESIZE) : 0;
}

qint64 HeldBytes() {
#if defined(__SANITIZE_ADDRESS__)
    return static_cast<qint64>(__sanitizer_get_current_allocated_bytes());
#else
    return ResidentBytes();
#endif
}

} // namespace quellpad::test
