#include "simulated_line.h"

#include "site_setup.h"

#include "engine/errors.h"
#include "engine/port_binding.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace quellpad::site {

namespace {

// Steps of the simulation while something moves: smooth enough for the picture, few
// enough to cost nothing.
constexpr int kStepMs = 20;
// The receive side hands over what has arrived at most this often, as a UART driver
// gathers bytes before it wakes the program: a fast line costs a few wake-ups, not one
// per byte.
constexpr int kDeliveryMs = 4;
// Answers waiting to leave beyond this are lost, as a flooded receiver drops them.
constexpr std::size_t kSendLimit = 4096;

} // namespace

bool ParseLineFormat(const QString& text, LineFormat& format) {
    const QStringList parts = text.split(u',');
    if (parts.size() != 4) {
        return false;
    }
    bool baudOk = false;
    bool bitsOk = false;
    bool stopOk = false;
    const int baud = parts[0].trimmed().toInt(&baudOk);
    const QString parity = parts[1].trimmed().toLower();
    const int bits = parts[2].trimmed().toInt(&bitsOk);
    const double stop = parts[3].trimmed().toDouble(&stopOk);
    if (!baudOk || baud <= 0 || parity.size() != 1 || !QStringLiteral("noems").contains(parity) ||
        !bitsOk || bits < 5 || bits > 8 || !stopOk || (stop != 1 && stop != 1.5 && stop != 2)) {
        return false;
    }
    format = {baud, parity[0].toLatin1(), bits, stop};
    return true;
}

QString LineFormatText(const LineFormat& format) {
    return QStringLiteral("%1,%2,%3,%4")
        .arg(format.baud)
        .arg(QLatin1Char(format.parity))
        .arg(format.dataBits)
        .arg(format.stopBits);
}

std::uint8_t Garble(std::uint8_t byte, const LineFormat& sent, const LineFormat& read) {
    // A receiver sampling at the wrong rate sees the start bit and a smear of the rest;
    // the pattern depends only on the byte and on how far the two settings are apart.
    const auto seed = static_cast<unsigned>(sent.baud * 7 + read.baud * 13 + sent.parity * 3 +
                                            read.parity * 5 + sent.dataBits + read.dataBits);
    const auto g = static_cast<std::uint8_t>(0x80 | ((byte * 37u + seed) & 0x7F));
    return g == 0xFF ? 0xFE : (g == 0xA0 ? 0xE0 : g);
}

SimulatedLine::SimulatedLine(int portNumber, QObject* parent)
    : SerialLine(parent), portNumber_(portNumber), pacer_(kDeliveryMs, kSendLimit) {
    clock_.start();
    stepTimer_.setInterval(kStepMs);
    connect(&stepTimer_, &QTimer::timeout, this, &SimulatedLine::Step);
    connect(&pacer_, &Pacer::Arrived, this, [this](const QByteArray& bytes) {
        // Bytes beyond the receive buffer's room overrun and are lost.
        const qsizetype room = kReceiveBuffer - received_.size();
        received_.append(bytes.left(room));
        if (room > 0) {
            emit CommEvent(kDataReceived);
        }
    });
}

SimulatedLine::~SimulatedLine() = default;

QString SimulatedLine::Device() const {
    return QCoreApplication::translate("SimulatedLine", "simulated site");
}

void SimulatedLine::SetSettings(const QString& settings) {
    LineFormat format;
    if (!ParseLineFormat(settings, format)) {
        throw PortError(
            portNumber_, Device(), PortFailure::BadSettings,
            QCoreApplication::translate("SimulatedLine", "the line settings \"%1\" are not valid")
                .arg(settings));
    }
    format_ = format;
}

void SimulatedLine::Open() {
    open_ = true;
}

void SimulatedLine::Close() {
    open_ = false;
    // What was on its way is lost with the line; the equipment itself carries on.
    pacer_.Clear();
    received_.clear();
}

void SimulatedLine::Step() {
    const qint64 now = clock_.nsecsElapsed();
    site_.Advance(static_cast<double>(now - steppedAt_) / 1e9);
    steppedAt_ = now;
    if (!site_.Busy()) {
        stepTimer_.stop();
    }
}

void SimulatedLine::Rewire(Site::Wiring wiring) {
    site_ = Site(std::move(wiring));
    stepTimer_.stop();
}

const Site& SimulatedLine::Equipment() {
    Step();
    return site_;
}

std::string SimulatedLine::Hear(Site::Ear* ear, std::span<const std::uint8_t> bytes,
                                std::vector<Site::Obeyed>* obeyed) {
    // The equipment acts on the state it has reached by now.
    Step();
    std::string reply = ear == nullptr ? site_.Hear(bytes) : site_.Hear(*ear, bytes, obeyed);
    if (!site_.Busy()) {
        stepTimer_.stop();
    } else if (!stepTimer_.isActive()) {
        stepTimer_.start();
    }
    return reply;
}

std::string SimulatedLine::HearFrom(Site::Ear& ear, std::span<const std::uint8_t> bytes,
                                    std::vector<Site::Obeyed>* obeyed) {
    return Hear(&ear, bytes, obeyed);
}

void SimulatedLine::Output(std::uint8_t byte) {
    if (!open_) {
        throw PortError(portNumber_, Device(), PortFailure::WriteFailed,
                        QCoreApplication::translate("SimulatedLine", "the port is not open"));
    }
    const bool matched = format_ == equipmentFormat_;
    const std::uint8_t heard = matched ? byte : Garble(byte, format_, equipmentFormat_);
    std::string reply = Hear(nullptr, {&heard, 1}, nullptr);
    if (reply.empty()) {
        return;
    }
    if (!matched) {
        for (char& c : reply) {
            c = static_cast<char>(Garble(static_cast<std::uint8_t>(c), equipmentFormat_, format_));
        }
    }
    pacer_.Send(reply, ByteSeconds());
}

QByteArray SimulatedLine::Input() {
    const qsizetype take =
        inputLength_ > 0 ? std::min<qsizetype>(inputLength_, received_.size()) : received_.size();
    QByteArray out = received_.left(take);
    received_.remove(0, take);
    return out;
}

bool IsSimulatedBinding(int portNumber) {
    return IsSimulatedSiteBinding(ResolvePortBinding(portNumber).binding);
}

std::unique_ptr<SerialLine> MakeLine(int portNumber) {
    if (IsSimulatedBinding(portNumber)) {
        auto line = std::make_unique<SimulatedLine>(portNumber);
        if (const auto setup = StoredSiteSetup(portNumber)) {
            ApplySiteSetup(*line, *setup);
        }
        return line;
    }
    return MakeDeviceLine(portNumber);
}

} // namespace quellpad::site
