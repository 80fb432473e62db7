// The network module: TCP sockets for the network lines, loaded when a port is first
// bound to a serial server.
#include "netline/tcp_link.h"

#include <QTcpSocket>
#include <QtGlobal>

namespace quellpad {
namespace {

class SocketLink final : public TcpLink {
public:
    explicit SocketLink(const Events& events) : events_(events) {
        QObject::connect(&socket_, &QTcpSocket::connected, &socket_, [this] {
            // Nagle's algorithm would hold each small write back until the last one is
            // acknowledged; a camera command must leave at once.
            socket_.setSocketOption(QAbstractSocket::LowDelayOption, 1);
            socket_.setSocketOption(QAbstractSocket::KeepAliveOption, 1);
            events_.connected();
        });
        QObject::connect(&socket_, &QTcpSocket::readyRead, &socket_,
                         [this] { events_.readable(); });
        QObject::connect(&socket_, &QTcpSocket::bytesWritten, &socket_,
                         [this] { events_.written(); });
        QObject::connect(&socket_, &QTcpSocket::errorOccurred, &socket_,
                         [this] { events_.failed(socket_.errorString()); });
        QObject::connect(&socket_, &QTcpSocket::disconnected, &socket_,
                         [this] { events_.failed(socket_.errorString()); });
    }
    ~SocketLink() override {
        // The socket, closing as it is destroyed, would otherwise report to a line that
        // is half gone.
        socket_.disconnect();
        socket_.abort();
    }

    void ConnectTo(const QString& host, quint16 port) override {
        socket_.connectToHost(host, port);
    }
    void Abort() override {
        const QSignalBlocker quiet(socket_);
        socket_.abort();
    }
    bool IsConnected() const override { return socket_.state() == QAbstractSocket::ConnectedState; }
    bool IsIdle() const override { return socket_.state() == QAbstractSocket::UnconnectedState; }
    void Write(const QByteArray& bytes) override {
        socket_.write(bytes);
        socket_.flush();
    }
    qint64 BytesToWrite() const override { return socket_.bytesToWrite(); }
    QByteArray ReadAll() override { return socket_.readAll(); }

private:
    Events events_;
    QTcpSocket socket_;
};

} // namespace
} // namespace quellpad

extern "C" Q_DECL_EXPORT quellpad::TcpLink*
quellpad_make_tcp_link(const quellpad::TcpLink::Events* events) {
    return new quellpad::SocketLink(*events);
}
