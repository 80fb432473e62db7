#pragma once

#include "capture_writer.h"

#include <QObject>
#include <QTimer>

#include <map>
#include <memory>
#include <span>

namespace quellpad::capture {

// Records what the lines of the served site carry: each line an interface of the capture
// as it first carries bytes, what a controller sent as inbound packets and the answers as
// outbound ones. What waits is flushed twice a second, so that a killed program leaves a
// file readable up to its last second. A failure stops the recording, says so once and
// leaves the site running.
class LineRecorder final : public QObject {
    Q_OBJECT
public:
    // Throws CaptureError when the file cannot be started.
    LineRecorder(const QString& path, const QString& settings, std::int64_t rotateBytes = 0,
                 QObject* parent = nullptr);
    ~LineRecorder() override;

    void Record(const QString& line, bool heard, std::span<const std::uint8_t> bytes);
    const CaptureWriter& Writer() const { return writer_; }

    static constexpr int kFlushMs = 500;

signals:
    void Stopped(const QString& message);

private:
    void Flush();

    CaptureWriter writer_;
    QString settings_;
    std::map<QString, std::uint32_t> lines_;
    QTimer flush_;
};

// Microseconds since the epoch, by the wall clock.
std::int64_t WallUs();

} // namespace quellpad::capture
