#include "replay.h"

#include "capture_reader.h"

#include <QCoreApplication>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdlib>

namespace quellpad::capture {

namespace {

std::int64_t SteadyNs() {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

} // namespace

ControllerSide ReadControllerSide(QIODevice& capture) {
    CaptureReader reader(capture);
    ControllerSide side;
    std::optional<std::uint32_t> chosen;
    std::int64_t first = 0;
    while (const auto packet = reader.Next()) {
        if (packet->side != Side::Controller || (chosen && *chosen != packet->interface)) {
            continue;
        }
        if (!chosen) {
            chosen = packet->interface;
            side.line = reader.Interfaces()[packet->interface];
            first = packet->atUs;
        }
        // A run timed before the one before it goes at once after it.
        const std::int64_t at =
            std::max(packet->atUs - first, side.runs.empty() ? 0 : side.runs.back().atUs);
        side.runs.push_back({at, packet->bytes});
    }
    side.remarks = reader.Remarks();
    if (!chosen) {
        throw CaptureError(QCoreApplication::translate(
                               "Capture", "The capture holds nothing a controller sent. %1")
                               .arg(side.remarks.join(u' '))
                               .trimmed());
    }
    return side;
}

Player::Player(std::vector<Run> runs, std::function<void(const std::string&)> put, QObject* parent)
    : QObject(parent), runs_(std::move(runs)), put_(std::move(put)) {}

void Player::Start() {
    next_ = 0;
    lateness_.clear();
    originNs_ = SteadyNs();
    Step();
}

void Player::Step() {
    while (next_ < runs_.size()) {
        const std::int64_t dueNs = originNs_ + runs_[next_].atUs * 1000;
        const std::int64_t waitNs = dueNs - SteadyNs();
        if (waitNs > kExactUs * 1000) {
            // The event loop keeps serving the lines meanwhile.
            QTimer::singleShot(std::chrono::milliseconds((waitNs - kExactUs * 1000) / 1'000'000),
                               Qt::PreciseTimer, this, &Player::Step);
            return;
        }
        std::int64_t now = SteadyNs();
        while (now < dueNs) {
            now = SteadyNs();
        }
        put_(runs_[next_].bytes);
        lateness_.push_back((now - dueNs) / 1000);
        ++next_;
    }
    emit Finished();
}

std::int64_t GapErrorP99(const std::vector<std::int64_t>& latenessUs) {
    std::vector<std::int64_t> errors;
    for (std::size_t i = 1; i < latenessUs.size(); ++i) {
        errors.push_back(std::abs(latenessUs[i] - latenessUs[i - 1]));
    }
    if (errors.empty()) {
        return 0;
    }
    std::sort(errors.begin(), errors.end());
    return errors[std::min(errors.size() - 1, errors.size() * 99 / 100)];
}

} // namespace quellpad::capture
