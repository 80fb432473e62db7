#pragma once

#include "site/simulated_line.h"
#include "site/site_faults.h"

#include <QByteArray>
#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>
#include <span>
#include <string>

namespace quellpad::site_server {

// Something the served site tells its operator: a command obeyed, an answer sent, input
// thrown away, or a line that opened, closed, vanished or came back.
struct Event {
    enum class Kind { Command, Answer, Rejected, Line };
    Kind kind = Kind::Line;
    // Wall-clock time in microseconds since the epoch.
    std::int64_t atUs = 0;
    QString line;
    QByteArray bytes;
    QString meaning;
};

// "13:05:09.123  /dev/pts/4  → FF 03 00 02 20 00 25  camera 3: pan right 32": one line,
// no line end. Commands the equipment heard point right, its answers left.
QString EventText(const Event& event);
// The same as one JSON object on one line, no line end:
// {"time":"2026-11-24T13:05:09.123Z","line":"/dev/pts/4","event":"command","bytes":"FF 03
// ...","meaning":"camera 3: pan right 32"}.
QString EventJson(const Event& event);

// The equipment of the served site, shared by every controller on every line, and what
// it tells its operator.
class ServedSite : public QObject {
    Q_OBJECT
public:
    ServedSite(site::Site::Wiring wiring, const site::LineFormat& format,
               QObject* parent = nullptr);

    // The equipment as a simulated line, which the Simulated Site window shows.
    site::SimulatedLine& Equipment() { return equipment_; }
    const site::LineFormat& Format() const { return equipment_.EquipmentFormat(); }
    void Tell(Event::Kind kind, const QString& line, const QString& meaning,
              const QByteArray& bytes = {});
    // What is wrong with the site's wiring; none unless the installer asks for it.
    void SetFaults(site::SiteFaults faults) { wire_ = site::FaultyWire(std::move(faults)); }
    site::FaultyWire& Wire() { return wire_; }
    // Bytes a controller or a receiver has just put on the bus, at the settings it drives
    // them at; a listener on the bus hears them.
    void Carry(const std::string& bytes, const site::LineFormat& sentAt, bool inverted) {
        if (!bytes.empty()) {
            emit OnWire(QByteArray::fromStdString(bytes), sentAt, inverted);
        }
    }

    // Told of every run of bytes a line carried: heard from a controller, or answered on
    // its way out; nothing is told while none is set.
    using Recorder =
        std::function<void(const QString& line, bool heard, std::span<const std::uint8_t> bytes)>;
    void SetRecorder(Recorder recorder) { recorder_ = std::move(recorder); }
    void Record(const QString& line, bool heard, std::span<const std::uint8_t> bytes) {
        if (recorder_) {
            recorder_(line, heard, bytes);
        }
    }

signals:
    void Told(const Event& event);
    void OnWire(const QByteArray& bytes, const site::LineFormat& sentAt, bool inverted);

private:
    site::SimulatedLine equipment_;
    Recorder recorder_;
    site::FaultyWire wire_;
};

} // namespace quellpad::site_server
