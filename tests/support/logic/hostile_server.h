#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QList>
#include <QSocketNotifier>
#include <QString>
#include <QTimer>

#include <memory>

namespace quellpad::test {

// A serial server on a loopback port that misbehaves as a hostile tester's would. Plain
// sockets, so that what the program sees is what the system does: a peer that never
// reads fills the program's send buffers, a reset is a real RST, a half-close a real FIN.
class HostileServer {
public:
    enum class Behaviour {
        NeverReads,            // accepts and holds the connection, reading nothing
        FloodsNegotiation,     // sends IAC DO for refused options without end, reading nothing
        ResetsEveryPeriod,     // accepts, then resets the connection after each period
        HalfClosesEveryPeriod, // accepts, then shuts its sending side after each period
        NeverAnswersBacklog,   // listens with a full backlog and never accepts
    };

    explicit HostileServer(Behaviour behaviour, int periodMs = 1000);
    ~HostileServer();
    HostileServer(const HostileServer&) = delete;
    HostileServer& operator=(const HostileServer&) = delete;

    QString Url(bool rfc2217) const;
    int Accepted() const { return accepted_; }
    // From now on the server reads (and drops) everything sent to it.
    void StartReading();
    // Bytes read since StartReading.
    qint64 BytesRead() const { return bytesRead_; }

private:
    struct Client {
        int fd = -1;
        std::unique_ptr<QSocketNotifier> readable;
        std::unique_ptr<QSocketNotifier> writable;
        bool halfClosed = false;
    };
    void Accept();
    void Flood(Client& client);
    void Read(Client& client);
    void EndPeriod();
    void Drop(Client& client, bool reset);

    Behaviour behaviour_;
    int listener_ = -1;
    quint16 port_ = 0;
    std::unique_ptr<QSocketNotifier> incoming_;
    QList<std::shared_ptr<Client>> clients_;
    QList<int> backlogFillers_;
    QTimer period_;
    QByteArray flood_;
    int accepted_ = 0;
    bool reading_ = false;
    qint64 bytesRead_ = 0;
};

// The resident memory of this process, in bytes.
qint64 ResidentBytes();
// The memory the program holds, in bytes: resident memory, but under AddressSanitizer the
// live heap, since what the sanitizer keeps of freed memory is resident as well.
qint64 HeldBytes();

} // namespace quellpad::test
