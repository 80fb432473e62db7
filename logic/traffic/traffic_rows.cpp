#include "traffic_rows.h"

#include <iterator>

namespace quellpad::traffic {

void TrafficRows::Append(std::vector<TrafficRow>&& batch) {
    auto from = batch.begin();
    if (batch.size() > kept_) {
        dropped_ += batch.size() - kept_;
        from += static_cast<std::ptrdiff_t>(batch.size() - kept_);
    }
    DropOldest(Overflow(static_cast<std::size_t>(batch.end() - from)));
    rows_.insert(rows_.end(), std::make_move_iterator(from), std::make_move_iterator(batch.end()));
}

void TrafficRows::DropOldest(std::size_t count) {
    count = std::min(count, rows_.size());
    rows_.erase(rows_.begin(), rows_.begin() + static_cast<std::ptrdiff_t>(count));
    dropped_ += count;
}

void TrafficRows::Clear() {
    rows_.clear();
    dropped_ = 0;
}

} // namespace quellpad::traffic
