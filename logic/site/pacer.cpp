#include "pacer.h"

#include <algorithm>
#include <cmath>

namespace quellpad::site {

Pacer::Pacer(int deliveryMs, std::size_t limit, QObject* parent)
    : QObject(parent), deliveryMs_(deliveryMs), limit_(limit) {
    clock_.start();
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, &Pacer::Pace);
}

bool Pacer::Send(const std::string& bytes, double byteSeconds) {
    if (sending_.size() - sent_ + bytes.size() > limit_) {
        return false;
    }
    if (sent_ == sending_.size()) {
        sending_.clear();
        sent_ = 0;
        sendingSince_ = clock_.nsecsElapsed();
    } else if (sent_ > 0) {
        // What has left is forgotten, so that a line kept busy for good holds no more than
        // what waits: the rest starts where the bytes that left ended.
        sendingSince_ += static_cast<qint64>(static_cast<double>(sent_) * byteNs_);
        sending_.erase(0, sent_);
        sent_ = 0;
    }
    byteNs_ = byteSeconds * 1e9;
    sending_ += bytes;
    if (!timer_.isActive()) {
        Pace();
    }
    return true;
}

void Pacer::Clear() {
    sending_.clear();
    sent_ = 0;
    timer_.stop();
}

void Pacer::Pace() {
    const qint64 now = clock_.nsecsElapsed();
    // Every byte whose last bit has left by now arrives.
    const auto due =
        std::min(sending_.size(),
                 static_cast<std::size_t>(static_cast<double>(now - sendingSince_) / byteNs_));
    if (due > sent_) {
        const QByteArray bytes(sending_.data() + sent_, static_cast<qsizetype>(due - sent_));
        sent_ = due;
        emit Arrived(bytes);
    }
    if (sent_ < sending_.size()) {
        const double nextNs = static_cast<double>(sent_ + 1) * byteNs_ -
                              static_cast<double>(clock_.nsecsElapsed() - sendingSince_);
        timer_.start(std::max(deliveryMs_, static_cast<int>(std::ceil(nextNs / 1e6))));
    } else {
        sending_.clear();
        sent_ = 0;
    }
}

} // namespace quellpad::site
