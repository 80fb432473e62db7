#include "line_recorder.h"

#include <chrono>

namespace quellpad::capture {

std::int64_t WallUs() {
    return std::chrono::duration_cast<std::chrono::microseconds>(
               std::chrono::system_clock::now().time_since_epoch())
        .count();
}

LineRecorder::LineRecorder(const QString& path, const QString& settings, std::int64_t rotateBytes,
                           QObject* parent)
    : QObject(parent), writer_(path, {}, rotateBytes), settings_(settings) {
    flush_.setInterval(kFlushMs);
    connect(&flush_, &QTimer::timeout, this, &LineRecorder::Flush);
    flush_.start();
}

LineRecorder::~LineRecorder() {
    try {
        writer_.Flush();
    } catch (const CaptureError&) {
        // Told when it happened, or lost with the program's end: nothing to add.
    }
}

void LineRecorder::Record(const QString& line, bool heard, std::span<const std::uint8_t> bytes) {
    if (writer_.Stopped()) {
        return;
    }
    try {
        auto found = lines_.find(line);
        if (found == lines_.end()) {
            // A TCP client has no line settings of its own.
            const bool tcp = line.startsWith(QStringLiteral("tcp"));
            found =
                lines_
                    .emplace(line, writer_.AddInterface({line, line, tcp ? QString() : settings_}))
                    .first;
        }
        Packet packet;
        packet.interface = found->second;
        packet.atUs = WallUs();
        packet.inbound = heard;
        packet.side = heard ? Side::Controller : Side::Equipment;
        packet.bytes.assign(bytes.begin(), bytes.end());
        writer_.Write(packet);
    } catch (const CaptureError& error) {
        emit Stopped(error.Message());
    }
}

void LineRecorder::Flush() {
    if (writer_.Stopped()) {
        flush_.stop();
        return;
    }
    try {
        writer_.Flush();
    } catch (const CaptureError& error) {
        flush_.stop();
        emit Stopped(error.Message());
    }
}

} // namespace quellpad::capture
