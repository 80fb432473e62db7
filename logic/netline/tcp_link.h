#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

namespace quellpad {

// One TCP connection to a serial server, as a network line needs it. The sockets come
// from a module loaded the first time a port is bound to the network, so that a keyboard
// wired to local devices never loads the network libraries: they cost as much memory at
// start-up as the rest of the program's own code.
class TcpLink {
public:
    // Raised as the socket reports them, which may be from inside ConnectTo or Write.
    struct Events {
        std::function<void()> connected;
        std::function<void()> readable;
        // The connection could not be made, or it was lost; `reason` says why.
        std::function<void(const QString& reason)> failed;
        // Some of what waited to be written has left.
        std::function<void()> written;
    };

    virtual ~TcpLink() = default;

    // Starts connecting and returns at once; the outcome comes as an event.
    virtual void ConnectTo(const QString& host, quint16 port) = 0;
    // Drops the connection, or the attempt, without an event.
    virtual void Abort() = 0;
    virtual bool IsConnected() const = 0;
    // Neither connected nor connecting: an attempt that failed at once.
    virtual bool IsIdle() const = 0;
    // Puts the bytes on the wire now, without waiting for the event loop; a write that
    // fails shows up as a `failed` event.
    virtual void Write(const QByteArray& bytes) = 0;
    // Bytes given to Write that have not reached the system yet.
    virtual qint64 BytesToWrite() const = 0;
    virtual QByteArray ReadAll() = 0;
};

// A link from the network module; fails with `reason` set when the module cannot be
// loaded, which is said once and then every time again.
std::unique_ptr<TcpLink> MakeTcpLink(TcpLink::Events events, QString& reason);

// The name the module exports its factory under: it returns a new link, owned by the
// caller, that raises `events`.
inline constexpr char kTcpLinkFactory[] = "quellpad_make_tcp_link";
using TcpLinkFactory = TcpLink* (*)(const TcpLink::Events* events);

} // namespace quellpad
