#pragma once

#include "pcapng.h"

#include <QIODevice>
#include <QObject>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace quellpad::capture {

// A run of bytes to put on the line, timed from the capture's start.
struct Run {
    std::int64_t atUs = 0;
    std::string bytes;
};

// What a controller said on one line of a capture: the line, its runs in order, and what
// the reader had to say about the file.
struct ControllerSide {
    Interface line;
    std::vector<Run> runs;
    QStringList remarks;
};

// The controller's side of the first line of the capture that has one (commands a keyboard
// wrote, or a controller's bytes the site heard). Throws CaptureError when the file is no
// capture or holds no such bytes.
ControllerSide ReadControllerSide(QIODevice& capture);

// Plays runs onto a line with the gaps they were recorded with: each run is due at its
// recorded offset from the first, measured from the start, so that no lateness adds up.
// The event loop waits until shortly before a run is due, then the last stretch is waited
// out exactly.
class Player final : public QObject {
    Q_OBJECT
public:
    Player(std::vector<Run> runs, std::function<void(const std::string&)> put,
           QObject* parent = nullptr);
    void Start();
    // How late each run went out, in microseconds, in the order played.
    const std::vector<std::int64_t>& LatenessUs() const { return lateness_; }
    bool Done() const { return next_ >= runs_.size(); }

    // Waited out exactly rather than left to the event loop's timers.
    static constexpr std::int64_t kExactUs = 2000;

signals:
    void Finished();

private:
    void Step();

    std::vector<Run> runs_;
    std::function<void(const std::string&)> put_;
    std::size_t next_ = 0;
    std::int64_t originNs_ = 0;
    std::vector<std::int64_t> lateness_;
};

// The 99th percentile of the differences between played and recorded gaps, in
// microseconds, from the lateness of each run.
std::int64_t GapErrorP99(const std::vector<std::int64_t>& latenessUs);

} // namespace quellpad::capture
