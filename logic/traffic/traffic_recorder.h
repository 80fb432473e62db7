#pragma once

#include "splitter.h"
#include "traffic_row.h"

#include "engine/line_tap.h"

#include <array>
#include <cstdint>
#include <vector>

namespace quellpad::traffic {

// The traffic monitor's ear on the keyboard's wire. The send and receive paths call it with
// the bytes as they go (Sent, Received): it only notes them, with the time, in a buffer
// that is kept between calls. Drain, called from a timer, turns what was noted into rows:
// one per frame or text written, one per reply (or run of bytes that decodes to nothing)
// read, each with its meaning in words.
class TrafficRecorder final : public LineTap {
public:
    TrafficRecorder();

    void Sent(int portNumber, const QString& mode, std::span<const std::uint8_t> bytes) override;
    void Received(int portNumber, const QString& mode,
                  std::span<const std::uint8_t> bytes) override;

    // The rows of everything noted since the last call. A reply left incomplete for
    // kQuietMs is given up as bytes that decoded to nothing.
    std::vector<TrafficRow> Drain();

    static constexpr std::int64_t kQuietMs = 200;

private:
    struct Noted {
        std::int64_t ns;
        std::uint32_t offset;
        std::uint32_t length;
        std::uint8_t port;
        Way way;
        std::optional<protocol::Language> language;
    };
    void Note(int portNumber, Way way, const QString& mode, std::span<const std::uint8_t> bytes);
    void AddRow(std::int64_t ns, int port, Way way, QByteArray bytes, QString meaning,
                std::optional<protocol::Language> language, std::vector<TrafficRow>& rows);
    void AddReplies(std::int64_t ns, int port, std::vector<TrafficRow>& rows);
    Splitter& ReceivedSplitter(int port, std::optional<protocol::Language> language);

    std::vector<Noted> noted_;
    std::vector<std::uint8_t> bytes_;
    // Wall-clock time of the monotonic clock's origin of this recorder.
    std::int64_t wallOriginUs_;
    std::int64_t steadyOriginNs_;
    // Microseconds since the origin of the last row made.
    std::int64_t lastRowUs_ = -1;
    std::array<Splitter, kPorts> received_;
    std::array<std::int64_t, kPorts> lastReceivedNs_{};
    std::vector<Piece> pieces_;
};

} // namespace quellpad::traffic
