#pragma once

#include "engine/line_tap.h"
#include "engine/port_control.h"

#include <array>
#include <functional>

namespace quellpad::bus {

// Watches the keyboard's own ports for D queries that go unanswered several times
// running, and tells once, until an answer comes, what is likely wrong on that line.
class UnansweredQueries final : public LineTap {
public:
    // Queries in a row without an answer before the operator is told.
    static constexpr int kRunning = 3;

    // Called with the notice for the status bar.
    std::function<void(const StatusNotice&)> tell;

    void Sent(int portNumber, const QString& mode, std::span<const std::uint8_t> bytes) override;
    void Received(int portNumber, const QString& mode,
                  std::span<const std::uint8_t> bytes) override;

private:
    struct Port {
        bool waiting = false;
        int unanswered = 0;
        bool told = false;
    };
    std::array<Port, 2> ports_{};
};

// The status bar's notice of `count` queries on COM `portNumber` that had no answer.
StatusNotice UnansweredNotice(int portNumber, int count);

} // namespace quellpad::bus
