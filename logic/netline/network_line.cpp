#include "network_line.h"

#include "engine/port_binding.h"
#include "engine/serial_device.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>

namespace quellpad {

namespace {

// A server that accepts the connection but never answers the option offer still gets the
// line after this long, with the line settings it has.
constexpr int kNegotiationTimeoutMs = 1000;
constexpr int kDefaultConnectTimeoutMs = 3000;
// How long a closed line keeps its connection for a reopening.
constexpr int kLingerMs = 1000;

// The line settings text as the server is to apply it, read as a local device reads it.
bool ParsePortSettings(const QString& text, telnet::PortSettings& out) {
    const std::optional<LineSettings> line = ParseLineSettings(text);
    if (!line || line->baud <= 0) {
        return false;
    }
    out.baud = static_cast<std::uint32_t>(line->baud);
    switch (line->parity) {
    case QSerialPort::OddParity:
        out.parity = telnet::kParityOdd;
        break;
    case QSerialPort::EvenParity:
        out.parity = telnet::kParityEven;
        break;
    case QSerialPort::MarkParity:
        out.parity = telnet::kParityMark;
        break;
    case QSerialPort::SpaceParity:
        out.parity = telnet::kParitySpace;
        break;
    default:
        out.parity = telnet::kParityNone;
        break;
    }
    out.dataSize = static_cast<std::uint8_t>(line->dataBits);
    out.stopSize = line->stopBits == QSerialPort::TwoStop          ? telnet::kStopTwo
                   : line->stopBits == QSerialPort::OneAndHalfStop ? telnet::kStopOneAndHalf
                                                                   : telnet::kStopOne;
    return true;
}

std::span<const std::uint8_t> AsBytes(const QByteArray& bytes) {
    return {reinterpret_cast<const std::uint8_t*>(bytes.constData()),
            static_cast<std::size_t>(bytes.size())};
}

} // namespace

bool IsNetworkUrl(const QString& binding) {
    return IsNetworkBinding(binding);
}

NetworkLine::NetworkLine(int portNumber, const QString& url, QObject* parent)
    : SerialLine(parent), portNumber_(portNumber), url_(url.trimmed()) {
    const std::optional<NetworkAddress> address = ParseNetworkBinding(url_);
    validUrl_ = address.has_value();
    kind_ = address && address->rfc2217 ? Kind::Rfc2217 : Kind::Raw;
    host_ = address ? address->host : QString();
    port_ = address ? address->port : 0;

    connectTimer_.setSingleShot(true);
    connectTimer_.setInterval(kDefaultConnectTimeoutMs);
    retryTimer_.setSingleShot(true);
    negotiationTimer_.setSingleShot(true);
    negotiationTimer_.setInterval(kNegotiationTimeoutMs);
    connect(&connectTimer_, &QTimer::timeout, this, &NetworkLine::OnConnectTimeout);
    connect(&retryTimer_, &QTimer::timeout, this, &NetworkLine::Connect);
    connect(&negotiationTimer_, &QTimer::timeout, this, &NetworkLine::OnNegotiationTimeout);
    lingerTimer_.setSingleShot(true);
    lingerTimer_.setInterval(kLingerMs);
    connect(&lingerTimer_, &QTimer::timeout, this, [this] {
        dataReady_ = false;
        link_->Abort();
    });
}

// The link is destroyed first and tells nothing as it goes.
NetworkLine::~NetworkLine() = default;

void NetworkLine::SetSettings(const QString& settings) {
    telnet::PortSettings parsed;
    if (!ParsePortSettings(settings, parsed)) {
        throw PortError(
            portNumber_, url_, PortFailure::BadSettings,
            QCoreApplication::translate("NetworkLine", "the line settings \"%1\" are not valid")
                .arg(settings));
    }
    settings_ = parsed;
    if (kind_ == Kind::Rfc2217 && dataReady_ && session_.ComPortAgreed()) {
        for (const telnet::Bytes& command :
             {telnet::SetBaudRate(settings_.baud), telnet::SetDataSize(settings_.dataSize),
              telnet::SetParity(settings_.parity), telnet::SetStopSize(settings_.stopSize)}) {
            Send(command);
        }
    }
}

void NetworkLine::SetRtsEnable(bool enable) {
    rts_ = enable;
    if (kind_ == Kind::Rfc2217 && dataReady_ && session_.ComPortAgreed()) {
        Send(telnet::SetControl(rts_ ? telnet::kControlRtsOn : telnet::kControlRtsOff));
    }
}

void NetworkLine::SetBufferSizes(int /*inputBytes*/, int /*outputBytes*/) {
    // Each byte is written to the socket as it is given, and received bytes are kept up
    // to kReceiveLimit; the driver-style buffer sizes have nothing to size here.
}

void NetworkLine::SetInputLength(int bytes) {
    inputLength_ = bytes;
}

void NetworkLine::SetRetryInterval(int milliseconds) {
    retryInterval_ = milliseconds;
}

void NetworkLine::SetConnectTimeout(int milliseconds) {
    connectTimer_.setInterval(milliseconds);
}

void NetworkLine::Open() {
    if (IsOpen()) {
        return;
    }
    if (!validUrl_) {
        throw PortError(portNumber_, url_, PortFailure::NoSuchPort,
                        QCoreApplication::translate(
                            "NetworkLine", "the binding names no server; write tcp://host:port or "
                                           "rfc2217://host:port"));
    }
    if (!link_) {
        QString reason;
        link_ = MakeTcpLink({[this] { OnConnected(); }, [this] { OnReadyRead(); },
                             [this](const QString& why) { OnSocketError(why); },
                             [this] {
                                 OnWritten();
                             }},
                            reason);
        if (!link_) {
            throw PortError(portNumber_, url_, PortFailure::Other, reason);
        }
    }
    retryTimer_.stop();
    if (lingerTimer_.isActive()) {
        lingerTimer_.stop();
        if (link_->IsConnected()) {
            state_ = State::Connected; // settings changed meanwhile have been sent already
            return;
        }
    }
    state_ = State::Connecting;
    Connect();
}

void NetworkLine::Connect() {
    link_->Abort(); // the old connection, if any, is dropped without a word
    connectTimer_.stop();
    retryTimer_.stop();
    negotiationTimer_.stop();
    session_ = telnet::Session{};
    dataReady_ = false;
    stalled_ = false;
    link_->ConnectTo(host_, port_);
    if (!link_->IsIdle()) {
        connectTimer_.start(); // unless it failed at once and is already being retried
    }
}

void NetworkLine::Close() {
    const bool keepConnection =
        state_ == State::Connected && dataReady_ && link_ && link_->IsConnected();
    state_ = State::Closed;
    connectTimer_.stop();
    retryTimer_.stop();
    negotiationTimer_.stop();
    waitingOutput_.clear();
    waitingInput_.clear();
    if (keepConnection) {
        lingerTimer_.start(); // what arrives meanwhile is dropped, as by a closed port
        return;
    }
    dataReady_ = false;
    if (link_) {
        link_->Abort();
    }
}

bool NetworkLine::IsOpen() const {
    return state_ == State::Connecting || state_ == State::Connected;
}

void NetworkLine::Output(std::uint8_t byte) {
    if (state_ == State::Connected && dataReady_) {
        telnet::Bytes wire;
        if (kind_ == Kind::Rfc2217) {
            telnet::AppendData(wire, byte);
        } else {
            wire.push_back(byte);
        }
        Send(wire);
        return;
    }
    if (!IsOpen()) {
        throw PortError(portNumber_, url_, PortFailure::WriteFailed,
                        QCoreApplication::translate("NetworkLine", "the port is not open"));
    }
    if (waitingOutput_.size() >= kMaxWaitingOutput) {
        throw PortError(portNumber_, url_, PortFailure::WriteFailed,
                        QCoreApplication::translate(
                            "NetworkLine", "the server has not answered yet and %1 bytes are "
                                           "already waiting for it")
                            .arg(waitingOutput_.size()));
    }
    waitingOutput_.append(static_cast<char>(byte));
}

QByteArray NetworkLine::Input() {
    const qsizetype count = inputLength_ > 0
                                ? std::min<qsizetype>(inputLength_, waitingInput_.size())
                                : waitingInput_.size();
    QByteArray taken = waitingInput_.left(count);
    waitingInput_.remove(0, count);
    return taken;
}

void NetworkLine::Send(const telnet::Bytes& wire) {
    if (wire.empty() || !link_ || !link_->IsConnected()) {
        return;
    }
    // A server that never reads would otherwise make every answer and frame wait in
    // memory for ever. Whole units are dropped (a frame's byte, a three-byte answer), so
    // that what does leave is still good Telnet; an answer not given is a request refused.
    const qint64 waiting = link_->BytesToWrite();
    if (stalled_ || waiting + static_cast<qint64>(wire.size()) > kSendLimit) {
        if (!stalled_) {
            stalled_ = true;
            const QString message =
                QCoreApplication::translate(
                    "NetworkLine", "%1: the server does not read what is sent to it; %2 bytes wait "
                                   "for it, and what the keyboard sends is dropped until it reads "
                                   "again.")
                    .arg(Where())
                    .arg(waiting);
            QTimer::singleShot(0, this, [this, message] { emit LineStalled(message); });
        }
        return;
    }
    // Written now: a frame's bytes leave one by one as the keyboard gives them, not at the
    // next return to the event loop. A failed write shows up as the link's failure, which
    // reports the line once.
    link_->Write(QByteArray(reinterpret_cast<const char*>(wire.data()),
                            static_cast<qsizetype>(wire.size())));
}

void NetworkLine::OnConnected() {
    if (state_ != State::Connecting && state_ != State::Retrying) {
        return;
    }
    connectTimer_.stop();
    const bool restored = state_ == State::Retrying;
    state_ = State::Connected;
    if (kind_ == Kind::Rfc2217) {
        Send(session_.Start());
        negotiationTimer_.start();
    } else {
        BeginData();
    }
    if (restored) {
        const QString message =
            QCoreApplication::translate("NetworkLine",
                                        "%1 works again: the server answers and the port is open.")
                .arg(Where());
        QTimer::singleShot(0, this, [this, message] { emit LineRestored(message); });
    }
}

void NetworkLine::BeginData() {
    if (dataReady_ || state_ != State::Connected) {
        return;
    }
    dataReady_ = true;
    negotiationTimer_.stop();
    if (kind_ == Kind::Rfc2217 && session_.ComPortAgreed()) {
        SendSettings();
    }
    const QByteArray waiting = std::exchange(waitingOutput_, QByteArray());
    Send(kind_ == Kind::Rfc2217 ? telnet::EscapeData(AsBytes(waiting))
                                : telnet::Bytes(waiting.begin(), waiting.end()));
}

void NetworkLine::SendSettings() {
    Send(telnet::ConfigurePort(settings_, rts_));
}

void NetworkLine::OnNegotiationTimeout() {
    BeginData();
}

void NetworkLine::OnWritten() {
    // Half the limit, so that a server reading at the pace the keyboard writes does not
    // make the line flip between dropping and sending at every frame.
    if (!stalled_ || !link_ || link_->BytesToWrite() > kSendLimit / 2) {
        return;
    }
    stalled_ = false;
    const QString message =
        QCoreApplication::translate(
            "NetworkLine",
            "%1: the server reads again, and what the keyboard sends leaves once more.")
            .arg(Where());
    QTimer::singleShot(0, this, [this, message] { emit LineFlowing(message); });
}

void NetworkLine::OnReadyRead() {
    const QByteArray wire = link_->ReadAll();
    if (state_ != State::Connected) {
        return;
    }
    if (kind_ == Kind::Raw) {
        waitingInput_.append(wire);
    } else {
        const bool wasAgreed = session_.ComPortAgreed();
        telnet::Bytes data;
        telnet::Bytes reply;
        session_.Feed(AsBytes(wire), data, reply);
        Send(reply);
        if (state_ != State::Connected) {
            return; // the answer could not be written and the line has failed
        }
        waitingInput_.append(reinterpret_cast<const char*>(data.data()),
                             static_cast<qsizetype>(data.size()));
        if (!dataReady_ && session_.ComPortSettled()) {
            BeginData();
        } else if (dataReady_ && !wasAgreed && session_.ComPortAgreed()) {
            SendSettings(); // agreed only after the negotiation timeout
        }
    }
    if (waitingInput_.size() > kReceiveLimit) {
        waitingInput_.remove(0, waitingInput_.size() - kReceiveLimit); // keep the newest
    }
    ReportData();
}

void NetworkLine::ReportData() {
    if (reportingData_) {
        return;
    }
    reportingData_ = true;
    // One event per input length, as a local port raises them: the handler reads at most
    // that many bytes, and what it leaves must not wait for the next arrival.
    qsizetype waiting = waitingInput_.size();
    while (waiting > 0 && state_ == State::Connected) {
        emit CommEvent(kDataReceived);
        const qsizetype left = waitingInput_.size();
        if (left >= waiting) {
            break; // the handler took nothing (a mode that ignores replies)
        }
        waiting = left;
    }
    reportingData_ = false;
}

void NetworkLine::OnSocketError(const QString& reason) {
    switch (state_) {
    case State::Closed:
        return;
    case State::Connecting:
        Fail(PortFailure::Other,
             QCoreApplication::translate("NetworkLine", "the server does not answer (%1)")
                 .arg(reason));
        return;
    case State::Connected:
        Fail(PortFailure::Vanished, QCoreApplication::translate(
                                        "NetworkLine", "the connection to the server was lost (%1)")
                                        .arg(reason));
        return;
    case State::Retrying:
        // Another attempt that found no server: tried again later, without a word.
        connectTimer_.stop();
        if (!retryTimer_.isActive()) {
            retryTimer_.start(retryInterval_);
        }
        return;
    }
}

void NetworkLine::OnConnectTimeout() {
    if (state_ == State::Connecting) {
        Fail(PortFailure::Other, QCoreApplication::translate(
                                     "NetworkLine", "the server did not answer within %1 seconds")
                                     .arg(connectTimer_.interval() / 1000.0));
        link_->Abort();
    } else if (state_ == State::Retrying) {
        link_->Abort();
        retryTimer_.start(retryInterval_);
    }
}

void NetworkLine::Fail(PortFailure failure, const QString& reason) {
    state_ = State::Retrying;
    connectTimer_.stop();
    negotiationTimer_.stop();
    dataReady_ = false;
    stalled_ = false;
    waitingOutput_.clear();
    waitingInput_.clear();
    // No abort here: this runs inside the socket's own error signal, and the socket has
    // closed itself; the next attempt starts from the retry timer, in the event loop.
    retryTimer_.start(retryInterval_);
    const QString message =
        PortError(portNumber_, url_, failure,
                  QCoreApplication::translate(
                      "NetworkLine", "%1; it is tried again every %2 seconds and reopens by itself")
                      .arg(reason)
                      .arg(retryInterval_ / 1000.0))
            .Message();
    // Told from the event loop rather than from inside the socket's own signal, so that
    // whatever the operator is shown cannot run into the socket half-way through.
    QTimer::singleShot(0, this, [this, message] { emit LineFailed(message); });
}

QString NetworkLine::Where() const {
    return QStringLiteral("COM %1 (%2)").arg(portNumber_).arg(url_);
}

std::unique_ptr<SerialLine> MakeNetworkLine(int portNumber, const QString& url) {
    return std::make_unique<NetworkLine>(portNumber, url);
}

std::unique_ptr<SerialLine> MakeNetworkOrDeviceLine(int portNumber) {
    const QString binding = DeviceForPort(portNumber);
    return IsNetworkUrl(binding) ? MakeNetworkLine(portNumber, binding)
                                 : MakeDeviceLine(portNumber);
}

} // namespace quellpad
