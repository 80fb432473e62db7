#pragma once

#include "site/simulated_line.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <cstdint>
#include <span>
#include <string>

namespace quellpad::site_server {

// What a served line threw away, by kind, so that nothing is dropped without a word.
struct Rejections {
    // Bytes that arrived at other line settings than the equipment's.
    std::uint64_t garbled = 0;
    // D and P frames with a bad check or cut short: heard, not obeyed.
    std::uint64_t badFrames = 0;
    // Bytes no equipment took: noise, frames for absent addresses, cut texts.
    std::uint64_t ignored = 0;
    // Answers lost because the controller did not read them.
    std::uint64_t answersLost = 0;

    std::uint64_t Total() const { return garbled + badFrames + ignored + answersLost; }
    bool operator==(const Rejections&) const = default;
};

// The four counts in words, each in the form its number takes ("1 bad or cut-short frame").
QString RejectionsInWords(const Rejections& rejected);

class ServedSite;

// One controller on a served line: its own decoders on the shared equipment, and the
// answers on their way back at the line's pace, one byte per (bits per byte / baud)
// seconds. A transport (pseudo-terminal, serial device, TCP client) feeds it the bytes it
// reads and writes what it is handed.
class Peer : public QObject {
    Q_OBJECT
public:
    // Answers waiting to leave beyond this are lost, as a flooded receiver drops them.
    static constexpr std::size_t kSendLimit = 4096;

    Peer(ServedSite& site, QString name, QObject* parent = nullptr);
    ~Peer() override;

    const QString& Name() const { return name_; }
    // What the controller's side is set to; bytes cross as garbage where it differs from
    // the equipment's settings. A TCP client has no line settings and always matches.
    void SetControllerFormat(const site::LineFormat& format) { controller_ = format; }
    const site::LineFormat& ControllerFormat() const { return controller_; }
    void Hear(std::span<const std::uint8_t> bytes);
    const Rejections& Rejected() const { return rejected_; }
    // Answers the transport could not hand on: the controller does not read.
    void Lost(std::size_t bytes);
    // The controller has gone: its half-typed input and the answers still on their way
    // are dropped, so that the next controller on the line starts clean.
    void Forget();
    // Answers are still on their way to the controller.
    bool Owing() const { return pacer_.Held() > 0; }
    // Tells the operator what was thrown away since it was last told, at most once a
    // second while it goes on, and at once when `now` is set.
    void TellRejected(bool now);

signals:
    // Bytes due on the wire now.
    void Write(const QByteArray& bytes);

private:
    // Answers whose last bit has left the receivers.
    void Deliver(const QByteArray& bytes);

    ServedSite& site_;
    QString name_;
    site::LineFormat controller_;
    site::Site::Ear ear_;
    Rejections rejected_;
    Rejections told_;
    QElapsedTimer lastTold_;
    std::uint64_t heard_ = 0;
    std::uint64_t obeyedBytes_ = 0;
    std::vector<site::Site::Obeyed> obeyed_;
    site::Pacer pacer_;
};

} // namespace quellpad::site_server
