#pragma once

#include "traffic_row.h"

#include <deque>
#include <vector>

namespace quellpad::traffic {

// The newest rows, at most a fixed number of them; older ones are dropped and counted.
class TrafficRows {
public:
    static constexpr std::size_t kKept = 100'000;

    explicit TrafficRows(std::size_t kept = kKept) : kept_(kept) {}

    // Appends the rows, dropping the oldest held to make room, and the oldest of the batch
    // itself when it alone is over the limit.
    void Append(std::vector<TrafficRow>&& batch);
    // How many rows held must go before `adding` more (at most Kept()) fit.
    std::size_t Overflow(std::size_t adding) const {
        return rows_.size() + adding > kept_ ? rows_.size() + adding - kept_ : 0;
    }
    void DropOldest(std::size_t count);
    void Clear();

    std::size_t Size() const { return rows_.size(); }
    const TrafficRow& operator[](std::size_t i) const { return rows_[i]; }
    // Rows dropped since the last Clear.
    std::size_t Dropped() const { return dropped_; }
    std::size_t Kept() const { return kept_; }

private:
    std::size_t kept_;
    std::deque<TrafficRow> rows_;
    std::size_t dropped_ = 0;
};

} // namespace quellpad::traffic
