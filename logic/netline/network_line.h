#pragma once

#include "netline/tcp_link.h"
#include "netline/telnet_codec.h"

#include "engine/errors.h"
#include "engine/serial_line.h"

#include <QByteArray>
#include <QTimer>

#include <memory>
#include <optional>

namespace quellpad {

// Whether a COM port binding names a serial server on the network ("tcp://host:port",
// "rfc2217://host:port") rather than a local device.
bool IsNetworkUrl(const QString& binding);

// A COM port carried by a serial device server on the network.
//
// tcp://host:port is a raw server: the bytes pass as they are, and the line settings are
// those configured on the server (SetSettings only checks the text). rfc2217://host:port
// is a server speaking the Telnet COM Port Control option: the baud rate, parity and RTS
// chosen by the operator are sent to it when the line opens and whenever they change.
//
// Open() never waits for the network, so a server that does not answer cannot freeze the
// window. It starts the connection and returns; the line counts as open from then on and
// the bytes written meanwhile wait (a bounded amount) and leave once the connection is up.
// A connection that cannot be made, or that drops, is reported once through LineFailed,
// as an unplugged device would be, and the line closes. It is then tried again in the
// background every few seconds until the server is back; the line reopens by itself and
// says so through LineRestored. Close() stops the retries. A line closed and opened again
// within a second (the settings window's Save does that) keeps its connection, as a local
// port would: a server that serves one client at a time may not have let go of the old
// connection when a new one arrives, and would turn it away.
class NetworkLine final : public SerialLine {
    Q_OBJECT
public:
    enum class Kind { Raw, Rfc2217 };

    NetworkLine(int portNumber, const QString& url, QObject* parent = nullptr);
    ~NetworkLine() override;

    int PortNumber() const override { return portNumber_; }
    QString Device() const override { return url_; }
    void SetSettings(const QString& settings) override;
    void SetRtsEnable(bool enable) override;
    void SetBufferSizes(int inputBytes, int outputBytes) override;
    void SetInputLength(int bytes) override;
    void Open() override;
    void Close() override;
    bool IsOpen() const override;
    void Output(std::uint8_t byte) override;
    QByteArray Input() override;

    Kind LineKind() const { return kind_; }
    // Connected to the server, as opposed to open and still connecting.
    bool IsConnected() const { return state_ == State::Connected; }
    // Whether the line is closed after a failure and being tried again.
    bool IsRetrying() const { return state_ == State::Retrying; }
    void SetRetryInterval(int milliseconds);
    void SetConnectTimeout(int milliseconds);
    // What the server reported for its line after our settings, on an RFC 2217 line.
    std::optional<std::uint32_t> ServerValue(telnet::PortCommand command) const {
        return session_.ServerValue(command);
    }

    // Bytes written while the connection is being made that are kept for it.
    static constexpr int kMaxWaitingOutput = 4 * 1024;
    // Whether the server has stopped reading and what is written is being dropped.
    bool IsStalled() const { return stalled_; }

private:
    enum class State { Closed, Connecting, Connected, Retrying };

    void Connect();
    void OnConnected();
    void OnReadyRead();
    void OnSocketError(const QString& reason);
    void OnConnectTimeout();
    void OnNegotiationTimeout();
    void OnWritten();
    void Fail(PortFailure failure, const QString& reason);
    // Puts bytes on the wire now, without waiting for the event loop.
    void Send(const telnet::Bytes& wire);
    void SendSettings();
    // The line is ready for data: on an RFC 2217 line once the server has settled the
    // option (and been given the settings), so that no byte leaves at the old baud rate.
    void BeginData();
    void ReportData();
    QString Where() const;

    int portNumber_;
    QString url_;
    Kind kind_ = Kind::Raw;
    QString host_;
    quint16 port_ = 0;
    bool validUrl_ = false;

    State state_ = State::Closed;
    bool dataReady_ = false;
    telnet::PortSettings settings_;
    bool rts_ = false;
    int inputLength_ = 0;
    int retryInterval_ = 2000;

    // Made when the line first opens: until then no network code is loaded.
    std::unique_ptr<TcpLink> link_;
    QTimer connectTimer_;
    QTimer retryTimer_;
    QTimer negotiationTimer_;
    // Keeps the connection of a line closed while connected for a moment, in case it is
    // opened again at once.
    QTimer lingerTimer_;
    telnet::Session session_;
    QByteArray waitingOutput_;
    QByteArray waitingInput_;
    bool reportingData_ = false;
    bool stalled_ = false;
};

// The line for a COM port bound to a network URL.
std::unique_ptr<SerialLine> MakeNetworkLine(int portNumber, const QString& url);
// The keyboard's line factory when network bindings are allowed: a network line when the
// port is bound to one (ResolvePortBinding), a local device otherwise.
std::unique_ptr<SerialLine> MakeNetworkOrDeviceLine(int portNumber);

} // namespace quellpad
