#include "query_watch.h"

#include "protocol/decoders.h"

#include <QCoreApplication>

namespace quellpad::bus {

namespace {

// Queries a D receiver answers with its position.
bool IsQuery(protocol::Kind kind) {
    switch (kind) {
    case protocol::Kind::QueryPan:
    case protocol::Kind::QueryTilt:
    case protocol::Kind::QueryZoom:
    case protocol::Kind::QueryMagnification:
        return true;
    default:
        return false;
    }
}

} // namespace

StatusNotice UnansweredNotice(int portNumber, int count) {
    return {QCoreApplication::translate("UnansweredQueries",
                                        "COM %1: %2 queries running had no answer. Likely: the "
                                        "receiver's baud rate or parity differs from the "
                                        "port's, another protocol or address, transmit and "
                                        "receive swapped, or the two RS-485 wires swapped. "
                                        "Options > Scan for Receivers finds who answers.")
                .arg(portNumber)
                .arg(count),
            {}};
}

void UnansweredQueries::Sent(int portNumber, const QString& mode,
                             std::span<const std::uint8_t> bytes) {
    if (portNumber < 1 || portNumber > 2 || mode != QStringLiteral("D")) {
        return;
    }
    bool query = false;
    for (const protocol::Command& command : protocol::DFrameDecoder().Feed(bytes)) {
        query = query || IsQuery(command.kind);
    }
    if (!query) {
        return;
    }
    Port& port = ports_[static_cast<std::size_t>(portNumber - 1)];
    if (port.waiting) {
        ++port.unanswered;
    }
    port.waiting = true;
    if (port.unanswered >= kRunning && !port.told) {
        port.told = true;
        if (tell) {
            tell(UnansweredNotice(portNumber, port.unanswered));
        }
    }
}

void UnansweredQueries::Received(int portNumber, const QString& /*mode*/,
                                 std::span<const std::uint8_t> bytes) {
    if (portNumber < 1 || portNumber > 2 || bytes.empty()) {
        return;
    }
    ports_[static_cast<std::size_t>(portNumber - 1)] = Port{};
}

} // namespace quellpad::bus
