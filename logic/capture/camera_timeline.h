#pragma once

#include "pcapng.h"

#include "protocol/decoders.h"

#include <QString>

#include <array>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace quellpad::capture {

// How the receivers of a site turn a speed byte into degrees per second, and how fast they
// travel to a preset or a position they are sent to. Sites differ; the operator chooses.
struct ReceiverModel {
    enum class Curve {
        // A creep at the bottom of the range rising on a square law to 100 °/s at 64: the
        // simulated site's receivers, and the default.
        SquareLaw,
        // Speed in proportion to the byte, 100 °/s at 64.
        Linear,
    };
    Curve curve = Curve::SquareLaw;
    double travelDegreesPerSecond = 120.0;
    // Seconds from wide to tele.
    double zoomSeconds = 2.5;

    double DegreesPerSecond(int speed) const;
};

// Where a camera pointed from a moment on, and how it was moving then: pan 0 to below 360
// from its zero position, tilt in degrees above the horizon, zoom 0 (wide) to 1 (tele).
struct CameraPoint {
    std::int64_t atUs = 0;
    int address = 0;
    double pan = 0;
    double tilt = -10;
    double zoom = 0;
    // Degrees (zoom travel) per second while no journey is under way.
    double panRate = 0;
    double tiltRate = 0;
    double zoomRate = 0;
    // A journey to a preset or a position, at the model's travel speed.
    std::optional<std::array<double, 3>> target;
    // Set where a position answer of the receiver itself put it there.
    bool answered = false;
};

// Rebuilds from a capture where each camera pointed: motion commands with their speeds
// integrated over the time they held, presets stored and recalled, positions set, and
// where present the receivers' own position answers, which put the rebuild right again.
// A camera's rebuild starts at pan 0, tilt -10, wide, until an answer or a position says
// otherwise.
class CameraTimeline {
public:
    explicit CameraTimeline(ReceiverModel model = {}, bool useAnswers = true);
    ~CameraTimeline();

    // Packets in the order of the capture.
    void Add(const Packet& packet);

    // Every change of every camera, in order of time.
    const std::vector<CameraPoint>& Points() const { return points_; }
    // Where the camera pointed at the moment; none before it was first heard of.
    std::optional<CameraPoint> At(int address, std::int64_t atUs) const;

private:
    struct Line;
    void Apply(const protocol::Command& command, std::int64_t atUs, bool answer);
    CameraPoint& Now(int address, std::int64_t atUs);

    ReceiverModel model_;
    bool useAnswers_;
    std::map<std::uint32_t, std::unique_ptr<Line>> lines_;
    std::map<int, CameraPoint> cameras_;
    // The motion each camera was last told; a journey clears it.
    std::map<int, protocol::Motion> motions_;
    std::map<std::pair<int, int>, std::array<double, 3>> presets_;
    std::vector<CameraPoint> points_;
    std::vector<protocol::Command> decoded_;
};

// The point moved on to a later moment under its motion or journey.
CameraPoint Advanced(const CameraPoint& point, std::int64_t atUs, const ReceiverModel& model);

// "address,time_s,pan,tilt,zoom,answered" and a line per point.
QString TimelineCsv(const std::vector<CameraPoint>& points);

} // namespace quellpad::capture
